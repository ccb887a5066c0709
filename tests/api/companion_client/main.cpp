// An application that uses the companion alone, with a standard library that checks itself: its containers lie
// differently in memory, which must not matter.
#include <plutil/plutil.h>

#include <cstdio>

int main()
{
    CPoint3dVector points = {{1, 2, 0}, {3, 4, 0}};
    points.Append(5, 6, 0);
    std::printf("%d %.0f %.0f %.1f\n", points.GetNoPoits(), points.GetXcoordAt(0), points.GetYcoordAt(2),
                AngoloDaAsseRifer(1.0, 1.0));
    return 0;
}
