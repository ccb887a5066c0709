#include <plcalc/plcalc.h>

#include <cstdio>

int main()
{
    const CPoint3dVector parcel = {
        {300.23, 420.57, 0}, {410.75, 440.49, 0}, {520.18, 320.81, 0}, {350.04, 300.58, 0}};
    CFrazArea cut(parcel, {350.04, 300.58}, {300.23, 420.57}, 0, 1, 6000.0, 0.0);
    double x1, y1, z1, x2, y2, z2;
    if (cut.Esegui(x1, y1, z1, x2, y2, z2))
        std::printf("6000 of %.2f: %.2f %.2f to %.2f %.2f\n", AreaCalcolata(parcel), x1, y1, x2, y2);
    return 0;
}
