#include <cstddef>
#include <cstdlib>
#include <new>
#include <type_traits>
#include <utility>

#include "kernel/near.h"
#include "plutil/plutil.h"

namespace {

std::size_t allocations = 0;

}  // namespace

// Counts what Reserve and Clear promise about memory.
void* operator new(std::size_t size)
{
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

using test::kInf;
using test::kNan;

// x and y of every point in order, against a list.
void expect_points(const CPoint3dVector& got, std::initializer_list<PL_PNT2D_record> want)
{
    ASSERT_EQ(got.GetNoPoits(), static_cast<int>(want.size()));
    int index = 0;
    for (const PL_PNT2D_record& p : want) {
        SCOPED_TRACE(::testing::Message() << "point " << index);
        EXPECT_BITS(got.GetXcoordAt(index), p.x);
        EXPECT_BITS(got.GetYcoordAt(index), p.y);
        ++index;
    }
}

TEST(PointVector, StartsEmpty)
{
    const CPoint3dVector none;
    EXPECT_EQ(none.GetNoPoits(), 0);
    const CPoint3dVector empty_list = {};
    EXPECT_EQ(empty_list.GetNoPoits(), 0);
}

TEST(PointVector, TakesAListInItsOrder)
{
    const CPoint3dVector points = {{1, 2, 3}, {-0.0, kNan, 6}, {kInf, 8, 9}};
    expect_points(points, {{1, 2}, {-0.0, kNan}, {kInf, 8}});
}

TEST(PointVector, AppendsAtTheEnd)
{
    CPoint3dVector points = {{1, 2, 3}};
    points.Append(4, 5, 6);
    points.Append(-0.0, kNan, 9);
    expect_points(points, {{1, 2}, {4, 5}, {-0.0, kNan}});
}

TEST(PointVector, KeepsRepeatedPoints)
{
    CPoint3dVector points;
    for (int i = 0; i < 3; ++i)
        points.Append(7, 8, 9);
    expect_points(points, {{7, 8}, {7, 8}, {7, 8}});
}

TEST(PointVector, HoldsAParcelOfManyPoints)
{
    CPoint3dVector points;
    for (int i = 0; i < 100000; ++i)
        points.Append(i, -i, 0);
    EXPECT_EQ(points.GetNoPoits(), 100000);
    EXPECT_BITS(points.GetXcoordAt(0), 0.0);
    EXPECT_BITS(points.GetXcoordAt(99999), 99999.0);
    EXPECT_BITS(points.GetYcoordAt(99999), -99999.0);
}

TEST(PointVector, ReservedRoomIsUsedAndClearKeepsIt)
{
    CPoint3dVector points;
    points.Reserve(100);
    EXPECT_EQ(points.GetNoPoits(), 0);

    std::size_t before = allocations;
    for (int i = 0; i < 100; ++i)
        points.Append(i, i, i);
    EXPECT_EQ(allocations, before);

    points.Clear();
    EXPECT_EQ(points.GetNoPoits(), 0);
    before = allocations;
    for (int i = 0; i < 100; ++i)
        points.Append(-i, i, i);
    EXPECT_EQ(allocations, before);
    EXPECT_BITS(points.GetXcoordAt(99), -99.0);
}

TEST(PointVector, RoomForOneIsRoom)
{
    CPoint3dVector points;
    points.Reserve(1);
    const std::size_t before = allocations;
    points.Append(1, 2, 3);
    EXPECT_EQ(allocations, before);
}

TEST(PointVector, ReserveChangesNoPoints)
{
    CPoint3dVector points = {{1, 2, 3}, {4, 5, 6}};
    for (const int n : {1, 0, -1, -2147483647 - 1, 1000}) {
        points.Reserve(n);
        expect_points(points, {{1, 2}, {4, 5}});
    }
}

TEST(PointVector, CopiesAreIndependent)
{
    CPoint3dVector original = {{1, 2, 3}, {4, 5, 6}};
    CPoint3dVector copy = original;
    original.Append(7, 8, 9);
    copy.Clear();
    expect_points(original, {{1, 2}, {4, 5}, {7, 8}});
    expect_points(copy, {});

    copy = original;
    original.Clear();
    expect_points(copy, {{1, 2}, {4, 5}, {7, 8}});

    CPoint3dVector& same = copy;
    copy = same;
    expect_points(copy, {{1, 2}, {4, 5}, {7, 8}});
}

TEST(PointVector, MovingLeavesTheOtherEmpty)
{
    CPoint3dVector first = {{1, 2, 3}, {4, 5, 6}};
    CPoint3dVector second = std::move(first);
    expect_points(second, {{1, 2}, {4, 5}});
    expect_points(first, {});

    CPoint3dVector third = {{7, 8, 9}};
    third = std::move(second);
    expect_points(third, {{1, 2}, {4, 5}});
    expect_points(second, {});

    CPoint3dVector& same = third;
    third = std::move(same);
    expect_points(third, {{1, 2}, {4, 5}});

    first.Append(10, 11, 12);  // an emptied one is as good as new
    expect_points(first, {{10, 11}});
}

TEST(PointVector, MovingCopiesNoPoint)
{
    CPoint3dVector first = {{1, 2, 3}, {4, 5, 6}};
    CPoint3dVector third = {{7, 8, 9}};
    const std::size_t before = allocations;
    CPoint3dVector second = std::move(first);
    third = std::move(second);
    EXPECT_EQ(allocations, before);
    expect_points(third, {{1, 2}, {4, 5}});
}

TEST(PointVector, MovesAndReadersThrowNothing)
{
    EXPECT_TRUE(std::is_nothrow_default_constructible<CPoint3dVector>::value);
    EXPECT_TRUE(std::is_nothrow_move_constructible<CPoint3dVector>::value);
    EXPECT_TRUE(std::is_nothrow_move_assignable<CPoint3dVector>::value);
    EXPECT_TRUE(noexcept(std::declval<const CPoint3dVector&>().GetNoPoits()));
    EXPECT_TRUE(noexcept(std::declval<const CPoint3dVector&>().GetXcoordAt(0)));
    EXPECT_TRUE(noexcept(std::declval<const CPoint3dVector&>().GetYcoordAt(0)));
}

#if !defined(NDEBUG) && GTEST_HAS_DEATH_TEST
TEST(PointVectorDeathTest, AnIndexOutOfRangeIsAsserted)
{
    const CPoint3dVector points = {{1, 2, 3}, {4, 5, 6}};
    EXPECT_DEATH(points.GetXcoordAt(-1), "index");
    EXPECT_DEATH(points.GetXcoordAt(2), "index");
    EXPECT_DEATH(points.GetYcoordAt(-1), "index");
    EXPECT_DEATH(points.GetYcoordAt(2), "index");
}
#endif

}  // namespace
