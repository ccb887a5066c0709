// Amounts as they are given.

#include "verbs/amounts.h"

#include <string>

#include <gtest/gtest.h>

namespace {

TEST(Amounts, AsTheyAreWritten)
{
    const struct {
        const char* text;
        plparcel::Amount amount;
        const char* given;
    } rows[] = {
        {"1000", plparcel::area(1000), "1000"},
        {".5", plparcel::area(0.5), "0.5"},
        {"40x50", plparcel::product(40, 50), "40 x 50"},
        {"0.2x0.3", plparcel::product(0.2, 0.3), "0.2 x 0.3"},
        {"1e-150x1e-150", plparcel::product(1e-150, 1e-150), "1e-150 x 1e-150"},
        {"1/3", plparcel::share(1, 3), "1/3"},
        {"2.5/3", plparcel::share(2.5, 3), "2.5/3"},
        {"25%", plparcel::share(25, 100), "25%"},
        {"99.999%", plparcel::share(99.999, 100), "99.999%"},
        {"w12", plparcel::width(12), "width 12"},
        {"W0.5", plparcel::width(0.5), "width 0.5"},
    };
    for (const auto& row : rows) {
        const tool::GivenAmount got = tool::one_amount(row.text);
        EXPECT_EQ(got.amount.given, row.amount.given) << row.text;
        EXPECT_EQ(got.amount.first, row.amount.first) << row.text;
        EXPECT_EQ(got.amount.second, row.amount.second) << row.text;
        EXPECT_EQ(got.given, row.given);
    }
}

TEST(Amounts, WhatIsNone)
{
    for (const char* text : {"",
                             "0",
                             "-1",
                             "nan",
                             "inf",
                             "1,5",
                             "0x5",
                             "5x0",
                             "5x",
                             "x5",
                             "1e-200x1e-200",
                             "1e200x1e200",
                             "1/1",
                             "3/2",
                             "1/0",
                             "0/3",
                             "/3",
                             "1/",
                             "100%",
                             "0%",
                             "%",
                             "w",
                             "w0",
                             "w-1",
                             "wide"})
        EXPECT_THROW(tool::one_amount(text), tool::NotUnderstood) << text;
}

}  // namespace
