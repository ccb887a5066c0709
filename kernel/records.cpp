#include <cstddef>
#include <type_traits>

#include "plcalc/kernel.h"

// Programs in other languages read these records by offset.
static_assert(std::is_standard_layout<ARC_2D_record>::value && std::is_trivial<ARC_2D_record>::value,
              "records are plain");
static_assert(sizeof(PL_PNT2D_record) == 16 && offsetof(PL_PNT2D_record, y) == 8, "x, y");
static_assert(sizeof(PL_PNT3D_record) == 24 && offsetof(PL_PNT3D_record, y) == 8 &&
                  offsetof(PL_PNT3D_record, z) == 16,
              "x, y, z");
static_assert(sizeof(PL_LINE_2D_record) == 32 && offsetof(PL_LINE_2D_record, end) == 16, "start, end");
static_assert(sizeof(PL_IMP_LINE_2D_record) == 24 && offsetof(PL_IMP_LINE_2D_record, b) == 8 &&
                  offsetof(PL_IMP_LINE_2D_record, c) == 16,
              "a, b, c");
static_assert(sizeof(PL_RECT_2D_record) == 32 && offsetof(PL_RECT_2D_record, ymin) == 8 &&
                  offsetof(PL_RECT_2D_record, xmax) == 16 && offsetof(PL_RECT_2D_record, ymax) == 24,
              "xmin, ymin, xmax, ymax");
static_assert(sizeof(PL_RECT_3D_record) == 48 && offsetof(PL_RECT_3D_record, ymin) == 8 &&
                  offsetof(PL_RECT_3D_record, zmin) == 16 && offsetof(PL_RECT_3D_record, xmax) == 24 &&
                  offsetof(PL_RECT_3D_record, ymax) == 32 && offsetof(PL_RECT_3D_record, zmax) == 40,
              "xmin, ymin, zmin, xmax, ymax, zmax");

// A pointer to an arc can serve as a pointer to its centre. Where doubles are aligned to 4 bytes, as on 32-bit
// x86, nothing is inserted after angle_type, and the record is 4 bytes shorter.
static_assert(offsetof(ARC_2D_record, centre) == 0 && offsetof(ARC_2D_record, radius) == 16 &&
                  offsetof(ARC_2D_record, angle_type) == 24,
              "centre, radius, angle_type");
static_assert(offsetof(ARC_2D_record, start_angle) == 24 + (alignof(ARC_2D_record) < 8 ? 4 : 8) &&
                  offsetof(ARC_2D_record, end_angle) == offsetof(ARC_2D_record, start_angle) + 8 &&
                  sizeof(ARC_2D_record) == offsetof(ARC_2D_record, end_angle) + 8,
              "start_angle, end_angle");
static_assert(sizeof(PL_AngleMeasType) == 4, "32 bits");

void PlFunz_set_pnt_2d(double x, double y, PL_PNT2D_record* out) noexcept
{
    *out = {x, y};
}

void PlFunz_set_pnt_3d(double x, double y, double z, PL_PNT3D_record* out) noexcept
{
    *out = {x, y, z};
}

void PlFunz_set_line_2d(double x1, double y1, double x2, double y2, PL_LINE_2D_record* out) noexcept
{
    PlFunz_set_pnt_2d(x1, y1, &out->start);
    PlFunz_set_pnt_2d(x2, y2, &out->end);
}

void PlFunz_set_rect_2d(double xmin, double ymin, double xmax, double ymax, PL_RECT_2D_record* out) noexcept
{
    *out = {xmin, ymin, xmax, ymax};
}

void PlFunz_set_rect_3d(double xmin, double ymin, double zmin, double xmax, double ymax, double zmax,
                        PL_RECT_3D_record* out) noexcept
{
    *out = {xmin, ymin, zmin, xmax, ymax, zmax};
}

void PlFunz_set_arc_2d(double centre_x, double centre_y, double radius, PL_AngleMeasType angle_type,
                       double start_angle, double end_angle, ARC_2D_record* arc) noexcept
{
    // The only setter that tests its pointer: null stands for "no arc wanted".
    if (arc == nullptr)
        return;
    *arc = {{centre_x, centre_y}, radius, angle_type, start_angle, end_angle};
}
