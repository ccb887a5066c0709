#include "verdict/target.h"

#include <gtest/gtest.h>

namespace {

using plparcel::Target;

TEST(Target, GrantsAPartOfTheParcelAndAHundredthOfThePiece)
{
    constexpr double kParcel = 1e9;
    const struct {
        const char* what;
        double asked;
        double rest;
        double granted;
    } rows[] = {
        {"both large", 4e8, 6e8, 1.0},
        {"a hundredth of the request is as much", 100, kParcel - 100, 1.0},
        {"a hundredth of a smaller request is less", 50, kParcel - 50, 0.5},
        {"a hundredth of what is left is as much", kParcel - 100, 100, 1.0},
        {"a hundredth of a smaller rest is less", kParcel - 50, 50, 0.5},
    };
    for (const auto& row : rows) {
        const Target target = {row.asked, row.rest, kParcel};
        EXPECT_DOUBLE_EQ(target.granted(), row.granted) << row.what;
    }
    Target loose = {4e8, 6e8, kParcel};
    loose.of_parcel = 1e-3;
    EXPECT_DOUBLE_EQ(loose.granted(), 1e6);
    EXPECT_DOUBLE_EQ(loose.granted(1e7), 1e5);
}

}  // namespace
