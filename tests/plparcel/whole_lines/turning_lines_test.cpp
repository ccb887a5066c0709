// What is held too much on the left of a line between two directions: begin + the sum of growth t / (1 + bend t), on the
// way t from 0 to 1. All zeros and greatest values below are fractions that a hand finds.

#include "whole_lines/turning_lines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using plparcel::LeastAndMost;
using plparcel::TurningZeros;
using plparcel::Wide;
using Term = plparcel::TurningProfile::Term;

struct Excess {
    Wide begin;
    std::vector<Term> terms;
};

Wide at_end(const Excess& of)
{
    Wide sum = of.begin;
    for (const Term& term : of.terms)
        sum = sum + term.growth / (term.bend + 1.0);
    return sum;
}

Excess turned_over(Excess of)
{
    of.begin = -of.begin;
    for (Term& term : of.terms)
        term.growth = -term.growth;
    return of;
}

// The same on the way back.
Excess run_back(Excess of)
{
    of.begin = at_end(of);
    for (Term& term : of.terms) {
        const Wide end = term.bend + 1.0;
        term = {-(term.growth / (end * end)), -(term.bend / end)};
    }
    return of;
}

constexpr double kNone = -1.0;
constexpr double kDigits = 1e-25;
constexpr double kTouch = 1e-13;  // so near to a touch nothing tells it from two zeros
constexpr double kGranted = 1e-3;
constexpr double kScale = 1e-2;  // an area that misses by 1e-30 is held; less than 1e-28 tells nothing

struct Row {
    const char* what;
    Excess excess;
    std::vector<Wide> exact;
    double nearest = kNone;
    double miss = 0.0;
    double good_to = kDigits;
};

const Wide kFar = 1e6;

const Row kRows[] = {
    {"grows through zero", {-1.0, {{2.0, 0.0}}}, {0.5}},
    {"grows less and less", {-0.5, {{4.0, 3.0}}}, {Wide(1.0) / 5.0}},
    {"comes to zero at the end", {-1.0, {{4.0, 3.0}}}, {}},
    {"comes to zero at the end, and the first half looks as if it might",
     {-1.25, {{4.5, 1.0}, {-1.0, 0.0}}},
     {}},
    {"passes zero within a rounding of the end, slowly", {Wide(9e-31) - 1e-3, {{1e-3, 0.0}}}, {}},
    {"zero at the begin, and half way", {0.0, {{2.5, 3.0}, {-1.0, 0.0}}}, {0.5}},
    {"zero twice on the way", {-3.0, {{35.0, 1.0}, {-16.0, 0.0}}}, {0.25, 0.75}},
    {"touches zero", {-1.0, {{9.0, 1.0}, {-4.0, 0.0}}}, {0.5}, kNone, 0.0, kTouch},
    {"misses zero by half of what is granted", {-1.0005, {{9.0, 1.0}, {-4.0, 0.0}}}, {}, 0.5, 0.0005},
    {"misses it by twice as much", {-1.002, {{9.0, 1.0}, {-4.0, 0.0}}}, {}},
    {"is nearest to zero at the end", {-1.0005, {{4.0, 3.0}}}, {}},
    {"is zero all along", {0.0, {{1.0, 0.5}, {-1.0, 0.5}}}, {0.5}},
    {"is as good as zero all along", {0.0, {{5e-29, 0.0}}}, {0.5}},
    {"stays a little beside zero", {-1e-27, {}}, {}, 0.5, 1e-27},
    {"zero next to the begin", {-0.5, {{kFar + 1.0, kFar}}}, {Wide(1.0) / (kFar + 2.0)}},
    {"a root next to the begin, far enough", {-2e-28, {{1.0, 0.0}}}, {2e-28}},
    {"a root at the begin, but for a rounding", {-0.5e-28, {{1.0, 0.0}}}, {}},
    {"a side that passes the point within a rounding adds nothing",
     {-1.0, {{2.0, 0.0}, {9.0, 1.1e100}}},
     {0.5}},
};

void expect_zeros(const Excess& of, const std::vector<Wide>& exact, const Row& row, double nearest)
{
    const TurningZeros found = plparcel::turning_zeros(of.terms, of.begin, at_end(of), kScale, kGranted);
    ASSERT_GE(found.exact.size(), exact.size());
    ASSERT_LE(found.exact.size(), row.good_to < kTouch ? exact.size() : 2 * exact.size());
    for (std::size_t i = 0; i < found.exact.size(); ++i)
        EXPECT_LE(std::fabs((found.exact[i] - exact[i % exact.size()]).value()), row.good_to) << i;
    const bool comes_near = found.nearest && !(found.miss > kGranted);
    ASSERT_EQ(comes_near, nearest != kNone);
    if (comes_near) {
        EXPECT_LE(std::fabs((*found.nearest - nearest).value()), 1e-15);
        EXPECT_LE(std::fabs((found.miss - row.miss).value()), 1e-15);
    }
}

TEST(TurningZeros, AreAllThatThereAre)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.what);
        std::vector<Wide> on_way_back;
        for (auto zero = row.exact.rbegin(); zero != row.exact.rend(); ++zero)
            on_way_back.push_back(Wide(1.0) - *zero);
        const double nearest_on_way_back = row.nearest == kNone ? kNone : 1.0 - row.nearest;
        for (const bool over : {false, true}) {
            SCOPED_TRACE(over ? "turned over" : "as it is");
            const Excess of = over ? turned_over(row.excess) : row.excess;
            expect_zeros(of, row.exact, row, row.nearest);
            SCOPED_TRACE("on the way back");
            expect_zeros(run_back(of), on_way_back, row, nearest_on_way_back);
        }
    }
}

TEST(TurningZeros, LeastAndMostLieAtTheEndsOrWhereTheAreaTurnsBack)
{
    struct Range {
        const char* what;
        Excess area;
        double least;
        double most;
    };
    const Range rows[] = {
        {"grows", {1.0, {{4.0, 3.0}}}, 1.0, 2.0},
        {"grows, and falls by half as much", {1.0, {{9.0, 1.0}, {-4.0, 0.0}}}, 1.0, 2.0},
        {"grows for a fifth of the way, and falls lower than it was",
         {1.0, {{9.0, 1.0}, {-6.25, 0.0}}},
         -0.75,
         1.25},
        {"stays", {1.0, {}}, 1.0, 1.0},
        {"grows to its end within a thousandth of the way", {1.0, {{1001.0, 1000.0}}}, 1.0, 2.0},
    };
    for (const Range& row : rows) {
        SCOPED_TRACE(row.what);
        for (const bool back : {false, true}) {
            const Excess area = back ? run_back(row.area) : row.area;
            const LeastAndMost found =
                plparcel::least_and_most_between(area.terms, area.begin, at_end(area), 1.0);
            EXPECT_NEAR(found.least.value(), row.least, 1e-15);
            EXPECT_NEAR(found.most.value(), row.most, 1e-15);
            const Excess over = turned_over(area);
            const LeastAndMost other =
                plparcel::least_and_most_between(over.terms, over.begin, at_end(over), 1.0);
            EXPECT_NEAR(other.least.value(), -row.most, 1e-15);
            EXPECT_NEAR(other.most.value(), -row.least, 1e-15);
        }
    }
}

}  // namespace
