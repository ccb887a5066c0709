// Text that is cut to its room.

#include <cmath>

#include <gtest/gtest.h>

#include "sheet/fitted_text.h"

namespace {

constexpr double kSize = 9.0;

// The room is as wide as another text, or the least bit narrower.
struct Row {
    const char* text;
    const char* as_wide_as;
    bool narrower;
    const char* at_its_end;
    const char* at_both_ends;
};

TEST(FittedText, AsMuchAsFitsInWholeCharacters)
{
    tool::Canvas ruler;
    for (const Row& row : {Row{"Rossi", "Rossi", false, "Rossi", "Rossi"},
                           {"abcdefghij", "abcd...", false, "abcd...", "ab...ij"},
                           {"nnnnnnnnnn", "nnnn...", false, "nnnn...", "nn...nn"},
                           {"nnnnnnnnnn", "nnnn...", true, "nnn...", "n...n"},
                           {"nnnnnnnnnn", "nnnnn...", false, "nnnnn...", "nn...nn"},
                           {"üüüüüüüüüü", "üüüü...", false, "üüüü...", "üü...üü"},
                           {"€€€€€€€€€€", "€€€€...", true, "€€€...", "€...€"},
                           {"nnnnnnnnnn", "n...", true, "...", "..."},
                           {"nnnnnnnnnn", "", false, "...", "..."},
                           {"nnn", "nnn", true, "n...", "..."},
                           {"", "", false, "", ""}}) {
        for (const bool bold : {false, true}) {
            SCOPED_TRACE(std::string(row.text) + " in " + row.as_wide_as);
            const double width = ruler.size_of(row.as_wide_as, kSize, bold).x;
            const double room = row.narrower ? std::nextafter(width, 0.0) : width;
            EXPECT_EQ(tool::fitted(ruler, row.text, kSize, bold, room), row.at_its_end);
            EXPECT_EQ(tool::fitted_at_both_ends(ruler, row.text, kSize, bold, room), row.at_both_ends);
        }
    }
}

// A column may hold any text as the name of a parcel. Measured again for each letter, one of a megabyte would take days.
TEST(FittedText, OfAMegabyte)
{
    tool::Canvas ruler;
    const std::string text(1000000, 'n');
    EXPECT_LT(tool::fitted(ruler, text, kSize, false, 400.0).size(), 100u);
    EXPECT_LT(tool::fitted_at_both_ends(ruler, text, kSize, false, 400.0).size(), 100u);
}

}  // namespace
