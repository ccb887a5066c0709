// Where labels have room.

#include "sheet/label_places.h"

#include <cstddef>

#include <gtest/gtest.h>

namespace {

using tool::SheetBox;
using tool::SheetPoint;

TEST(LabelPlaces, BoxesThatTouchDoNotMeet)
{
    const SheetBox box = {10, 20, 30, 40};
    const struct {
        const char* what;
        SheetBox other;
        bool meets;
    } rows[] = {
        {"itself", box, true},
        {"within it", {15, 25, 16, 26}, true},
        {"on the left, touching", {0, 20, 10, 40}, false},
        {"on the left, into it", {0, 20, 10.5, 40}, true},
        {"on the right, touching", {30, 20, 50, 40}, false},
        {"on the right, into it", {29.5, 20, 50, 40}, true},
        {"above, touching", {10, 0, 30, 20}, false},
        {"above, into it", {10, 0, 30, 20.5}, true},
        {"below, touching", {10, 40, 30, 50}, false},
        {"below, into it", {10, 39.5, 30, 50}, true},
        {"at a corner", {30, 40, 50, 50}, false},
        {"across it, wider and flatter", {0, 25, 50, 35}, true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(box.meets(row.other), row.meets) << row.what;
        EXPECT_EQ(row.other.meets(box), row.meets) << row.what << ", the other way round";
    }
}

TEST(LabelPlaces, LinesThatASegmentCrosses)
{
    tool::LabelPlaces places({0, 0, 100, 100});
    places.add_line({30, 10}, {30, 50});  // upright
    places.add_line({60, 70}, {90, 40});  // rising to the right
    const struct {
        const char* what;
        SheetPoint a, b;
        std::size_t crossings;
    } rows[] = {
        {"across the first", {10, 20}, {50, 22}, 1},   {"left of it", {10, 20}, {29, 22}, 0},
        {"right of it", {31, 20}, {50, 22}, 0},        {"above its end", {10, 5}, {50, 7}, 0},
        {"below its end", {10, 55}, {50, 57}, 0},      {"across the second", {60, 40}, {90, 70}, 1},
        {"short of it", {60, 40}, {74, 54}, 0},        {"beyond it", {76, 56}, {90, 70}, 0},
        {"past its lower end", {50, 60}, {58, 80}, 0}, {"across both", {10, 15}, {95, 80}, 2},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(places.crossings(row.a, row.b), row.crossings) << row.what;
        EXPECT_EQ(places.crossings(row.b, row.a), row.crossings) << row.what << ", from its other end";
    }
}

}  // namespace
