#include "lines/area_ranges.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

using plparcel::AreaRange;
using plparcel::Wide;

// "[2 3)" with a bracket where the end is had.
std::string said(const std::vector<AreaRange>& ranges)
{
    std::ostringstream text;
    for (const AreaRange& range : ranges)
        text << (text.tellp() > 0 ? " " : "") << (range.least_is_had ? "[" : "(") << range.least.value()
             << " " << range.most.value() << (range.most_is_had ? "]" : ")");
    return text.str();
}

TEST(AreaRanges, Rows)
{
    // The whole is 100, and a line to a vertex may miss an area by 1/4.
    const struct {
        const char* what;
        std::vector<AreaRange> ranges;
        const char* said;
    } rows[] = {
        {"none", {}, ""},
        {"in their order", {{50, 60, true, true}, {10, 20, false, false}}, "(10 20) [50 60]"},
        {"from nothing to the whole, of which neither is had", {{0, 100, true, true}}, "(0 100)"},
        {"one within another", {{10, 50, true, true}, {20, 30, true, true}}, "[10 50]"},
        {"the same twice, once with its ends", {{10, 50, false, false}, {10, 50, true, true}}, "[10 50]"},
        {"the longer one has its end", {{10, 50, true, true}, {20, 60, true, false}}, "[10 60)"},
        {"end at end, which one of them has", {{10, 20, true, true}, {20, 30, false, true}}, "[10 30]"},
        {"end at end, which neither has", {{10, 20, true, false}, {20, 30, false, true}}, "[10 20) (20 30]"},
        {"a gap that is granted", {{10, 20, true, true}, {20.25, 30, true, true}}, "[10 30]"},
        {"a greater gap", {{10, 20, true, true}, {20.5, 30, true, true}}, "[10 20] [20.5 30]"},
        {"over each other by what is granted, and neither has its end there",
         {{10, 20, true, false}, {19.75, 30, false, true}},
         "[10 20) (20 30]"},
        {"over each other by more", {{10, 20, true, false}, {19.5, 30, false, true}}, "[10 30]"},
        {"short, without its ends", {{10, 10.25, false, false}}, ""},
        {"longer, without its ends", {{10, 10.5, false, false}}, "(10 10.5)"},
        {"short: one end stands for the other", {{10, 10.25, false, true}}, "[10 10.25]"},
        {"a line that holds nothing", {{0, 0, true, true}}, ""},
        {"a line that holds the whole", {{100, 100, true, true}}, ""},
        {"next to nothing", {{1e-23, 10, true, true}}, "(0 10]"},
        {"as near as counts", {{0.99e-22, 10, true, true}}, "(0 10]"},
        {"a little farther", {{1.01e-22, 10, true, true}}, "[1.01e-22 10]"},
        {"as near to the whole as counts", {{10, Wide(100.0) - 0.99e-22, true, true}}, "[10 100)"},
        {"a little less", {{10, Wide(100.0) - 1.01e-22, true, true}}, "[10 100]"},
        {"not so near", {{0.125, 10, true, true}}, "[0.125 10]"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(said(united(row.ranges, 100.0, 0.25)), row.said) << row.what;
}

TEST(AreaRanges, OfTheOtherPiece)
{
    EXPECT_EQ(said(plparcel::of_other_piece({{10, 20, true, false}, {50, 100, false, true}}, 100.0)),
              "[0 50) (80 90]");
}

}  // namespace
