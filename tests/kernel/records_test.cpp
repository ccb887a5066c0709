#include "plcalc/kernel.h"

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "kernel/near.h"

// Every setter stores into the middle one of three records: its neighbours must keep every byte.

namespace {

using test::kInf;
using test::kNan;
using test::kUntouched;

constexpr unsigned char kFill = 0xa5;

// Three records of one kind, filled with a pattern of bytes.
template <typename Record> struct Guarded {
    Record before;
    Record middle;
    Record after;

    Guarded() { std::memset(static_cast<void*>(this), kFill, sizeof *this); }

    bool neighbours_untouched() const
    {
        unsigned char pattern[sizeof(Record)];
        std::memset(pattern, kFill, sizeof pattern);
        return std::memcmp(&before, pattern, sizeof pattern) == 0 &&
               std::memcmp(&after, pattern, sizeof pattern) == 0;
    }
};

TEST(Records, FieldsStandInTheSettledOrder)
{
    EXPECT_EQ(offsetof(PL_PNT2D_record, x), 0u);
    EXPECT_EQ(offsetof(PL_PNT2D_record, y), 8u);
    EXPECT_EQ(offsetof(PL_PNT3D_record, z), 16u);
    EXPECT_EQ(offsetof(PL_LINE_2D_record, start), 0u);
    EXPECT_EQ(offsetof(PL_LINE_2D_record, end), 16u);
    EXPECT_EQ(offsetof(PL_IMP_LINE_2D_record, a), 0u);
    EXPECT_EQ(offsetof(PL_IMP_LINE_2D_record, b), 8u);
    EXPECT_EQ(offsetof(PL_IMP_LINE_2D_record, c), 16u);
    EXPECT_EQ(offsetof(PL_RECT_2D_record, xmin), 0u);
    EXPECT_EQ(offsetof(PL_RECT_3D_record, xmin), 0u);
    EXPECT_EQ(offsetof(ARC_2D_record, centre), 0u);
}

TEST(Records, UnitsOfAnArcKeepTheirNumbersAndHoldAnyOther)
{
    EXPECT_EQ(PL_RADIANS, 0);
    EXPECT_EQ(PL_DEGREES, 1);
    EXPECT_EQ(PL_PSEUDO_ANGLE, 2);
    EXPECT_TRUE((std::is_same<std::underlying_type<PL_AngleMeasType>::type, std::int32_t>::value));
}

TEST(SetPoint2d, StoresEachArgumentInItsField)
{
    Guarded<PL_PNT2D_record> r;
    PlFunz_set_pnt_2d(1.5, -0.0, &r.middle);
    EXPECT_POINT(r.middle, ({1.5, -0.0}));
    EXPECT_TRUE(r.neighbours_untouched());
}

TEST(SetPoint2d, StoresWhatIsNoNumber)
{
    PL_PNT2D_record p = {kUntouched, kUntouched};
    PlFunz_set_pnt_2d(kNan, -kInf, &p);
    EXPECT_POINT(p, ({kNan, -kInf}));
}

TEST(SetPoint3d, StoresEachArgumentInItsField)
{
    Guarded<PL_PNT3D_record> r;
    PlFunz_set_pnt_3d(1.5, -2.5, -0.0, &r.middle);
    EXPECT_BITS(r.middle.x, 1.5);
    EXPECT_BITS(r.middle.y, -2.5);
    EXPECT_BITS(r.middle.z, -0.0);
    EXPECT_TRUE(r.neighbours_untouched());
}

TEST(SetLine2d, StartComesFirst)
{
    Guarded<PL_LINE_2D_record> r;
    PlFunz_set_line_2d(1, 2, 3, -0.0, &r.middle);
    EXPECT_POINT(r.middle.start, ({1, 2}));
    EXPECT_POINT(r.middle.end, ({3, -0.0}));
    EXPECT_TRUE(r.neighbours_untouched());
}

TEST(SetLine2d, TakesASegmentWithoutLength)
{
    PL_LINE_2D_record line = {{kUntouched, kUntouched}, {kUntouched, kUntouched}};
    PlFunz_set_line_2d(7, kNan, 7, kNan, &line);
    EXPECT_POINT(line.start, ({7, kNan}));
    EXPECT_POINT(line.end, ({7, kNan}));
}

TEST(SetRect2d, DoesNotOrderTheCorners)
{
    Guarded<PL_RECT_2D_record> r;
    PlFunz_set_rect_2d(10, 20, 1, 2, &r.middle);
    EXPECT_BITS(r.middle.xmin, 10.0);
    EXPECT_BITS(r.middle.ymin, 20.0);
    EXPECT_BITS(r.middle.xmax, 1.0);
    EXPECT_BITS(r.middle.ymax, 2.0);
    EXPECT_TRUE(r.neighbours_untouched());
}

TEST(SetRect3d, DoesNotOrderTheCorners)
{
    Guarded<PL_RECT_3D_record> r;
    PlFunz_set_rect_3d(10, 20, 30, 1, 2, 3, &r.middle);
    EXPECT_BITS(r.middle.xmin, 10.0);
    EXPECT_BITS(r.middle.ymin, 20.0);
    EXPECT_BITS(r.middle.zmin, 30.0);
    EXPECT_BITS(r.middle.xmax, 1.0);
    EXPECT_BITS(r.middle.ymax, 2.0);
    EXPECT_BITS(r.middle.zmax, 3.0);
    EXPECT_TRUE(r.neighbours_untouched());
}

TEST(SetArc2d, StoresEachArgumentInItsField)
{
    Guarded<ARC_2D_record> r;
    PlFunz_set_arc_2d(1, 2, -3, PL_PSEUDO_ANGLE, 0.5, -0.0, &r.middle);
    EXPECT_POINT(r.middle.centre, ({1, 2}));
    EXPECT_BITS(r.middle.radius, -3.0);
    EXPECT_EQ(r.middle.angle_type, PL_PSEUDO_ANGLE);
    EXPECT_BITS(r.middle.start_angle, 0.5);
    EXPECT_BITS(r.middle.end_angle, -0.0);
    EXPECT_TRUE(r.neighbours_untouched());
}

TEST(SetArc2d, KeepsAnUnknownUnit)
{
    ARC_2D_record arc = {{kUntouched, kUntouched}, kUntouched, PL_RADIANS, kUntouched, kUntouched};
    PlFunz_set_arc_2d(kNan, 0, kInf, static_cast<PL_AngleMeasType>(-7), 400, 4, &arc);
    EXPECT_POINT(arc.centre, ({kNan, 0.0}));
    EXPECT_BITS(arc.radius, kInf);
    EXPECT_EQ(static_cast<std::int32_t>(arc.angle_type), -7);
    EXPECT_BITS(arc.start_angle, 400.0);
    EXPECT_BITS(arc.end_angle, 4.0);
}

TEST(SetArc2d, NoRecordIsNoError)
{
    PlFunz_set_arc_2d(1, 2, 3, PL_DEGREES, 4, 5, nullptr);
    SUCCEED() << "came back: a store through the null pointer would have ended the program";
}

}  // namespace
