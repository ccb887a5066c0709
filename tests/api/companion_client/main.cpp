// An application that uses the companion alone.
#include <plutil/plutil.h>

#include <cstdio>

int main()
{
    std::printf("%.1f\n", AngoloDaAsseRifer(1.0, 1.0));
    return 0;
}
