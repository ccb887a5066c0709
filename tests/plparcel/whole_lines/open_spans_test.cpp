// Spans that hold no other one, beside a look at all pairs of them in each slab.

#include "whole_lines/open_spans.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/bits.h"

namespace {

using plparcel::LineSpan;
using plparcel::open_runs;
using plparcel::OpenRun;
using plparcel::SpanBreak;

// "0:1-2" for span 0 in the slabs 1 to 2.
std::string said(std::vector<OpenRun> runs)
{
    std::sort(runs.begin(), runs.end(), [](const OpenRun& a, const OpenRun& b) {
        return a.span != b.span ? a.span < b.span : a.first_slab < b.first_slab;
    });
    std::ostringstream text;
    for (const OpenRun& run : runs)
        text << (text.tellp() > 0 ? " " : "") << run.span << ":" << run.first_slab << "-" << run.last_slab;
    return text.str();
}

TEST(OpenSpans, HoldNoOtherOne)
{
    EXPECT_EQ(said(open_runs({}, {}, 0)), "");
    EXPECT_EQ(said(open_runs({{0, 3, 0, 5}}, {}, 4)), "0:0-5");
    EXPECT_EQ(said(open_runs({{0, 3, 0, 5}, {1, 2, 2, 3}}, {}, 4)), "0:0-1 0:4-5 1:2-3");
    EXPECT_EQ(said(open_runs({{0, 2, 0, 5}, {1, 3, 2, 3}}, {}, 4)), "0:0-5 1:2-3") << "side by side, lapping";
    EXPECT_EQ(said(open_runs({{0, 5, 0, 5}, {1, 4, 1, 4}, {2, 3, 2, 3}}, {}, 6)),
              "0:0-0 0:5-5 1:1-1 1:4-4 2:2-3")
        << "one in the other";
}

TEST(OpenSpans, ArePartedByBreaksWithinThem)
{
    const LineSpan span = {1, 3, 0, 5};
    EXPECT_EQ(said(open_runs({span}, {{2, 2}}, 5)), "0:0-1 0:2-5");
    EXPECT_EQ(said(open_runs({span}, {{2, 2}, {2, 2}}, 5)), "0:0-1 0:2-5") << "twice the same";
    EXPECT_EQ(said(open_runs({span}, {{2, 1}, {2, 3}, {2, 0}, {2, 4}}, 5)), "0:0-5")
        << "at its ends, beside it";
    EXPECT_EQ(said(open_runs({span}, {{0, 2}, {6, 2}}, 5)), "0:0-5") << "where it begins and ends";
}

TEST(OpenSpans, AreThoseThatALookAtAllPairsFinds)
{
    std::mt19937_64 random = test::random_source();
    for (int tried = 0; tried < 3000; ++tried) {
        constexpr std::size_t kPlaces = 12;
        constexpr std::size_t kSlabs = 6;
        std::vector<LineSpan> spans;
        std::vector<std::set<std::size_t>> taken(kSlabs);  // places, in each slab
        for (int i = 0; i < 8; ++i) {
            const std::size_t left = random() % (kPlaces - 1);
            const std::size_t right = left + 1 + random() % (kPlaces - 1 - left);
            const std::size_t first = random() % kSlabs;
            const std::size_t last = first + random() % (kSlabs - first);
            bool is_free = true;
            for (std::size_t slab = first; slab <= last; ++slab)
                is_free = is_free && taken[slab].count(left) == 0 && taken[slab].count(right) == 0;
            if (!is_free)
                continue;
            for (std::size_t slab = first; slab <= last; ++slab)
                taken[slab].insert({left, right});
            spans.push_back({left, right, first, last});
        }
        std::vector<SpanBreak> breaks;
        for (std::size_t i = random() % 3; i > 0; --i)
            breaks.push_back({random() % kSlabs, random() % kPlaces});
        std::vector<OpenRun> wanted;
        for (std::size_t i = 0; i < spans.size(); ++i) {
            const LineSpan& span = spans[i];
            bool was_open = false;
            for (std::size_t slab = span.first_slab; slab <= span.last_slab; ++slab) {
                const bool holds_one = std::any_of(spans.begin(), spans.end(), [&](const LineSpan& other) {
                    return span.left < other.left && other.right < span.right && other.first_slab <= slab &&
                           slab <= other.last_slab;
                });
                const bool is_parted = std::any_of(breaks.begin(), breaks.end(), [&](const SpanBreak& b) {
                    return b.slab == slab && span.left < b.place && b.place < span.right;
                });
                if (!holds_one && was_open && !is_parted)
                    wanted.back().last_slab = slab;
                else if (!holds_one)
                    wanted.push_back({i, slab, slab});
                was_open = !holds_one;
            }
        }
        ASSERT_EQ(said(open_runs(spans, breaks, kPlaces)), said(wanted)) << tried;
    }
}

}  // namespace
