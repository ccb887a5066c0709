// An outside application: area of the example parcel.
#include <plcalc/plcalc.h>

#include <cstdio>

int main()
{
    const CPoint3dVector parcel = {
        {300.23, 420.57, 0}, {410.75, 440.49, 0}, {520.18, 320.81, 0}, {350.04, 300.58, 0}};
    std::printf("%.2f\n", AreaCalcolata(parcel));
    return 0;
}
