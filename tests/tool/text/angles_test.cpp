// Angles as text: rounded, in gons and in degrees.

#include <optional>

#include <gtest/gtest.h>

#include "text/angles.h"

namespace {

TEST(Angles, AsTextStayBelowAFullTurn)
{
    EXPECT_EQ(tool::gon_text(399.99994, 4), "399.9999");
    EXPECT_EQ(tool::gon_text(399.99996, 4), "0.0000");
    EXPECT_EQ(tool::degree_text(399.99994, 4), "359.9999");
    EXPECT_EQ(tool::degree_text(399.99999, 4), "0.0000");
    EXPECT_EQ(tool::degree_text(100.0, 4), "90.0000");
    EXPECT_EQ(tool::gon_text(std::nullopt, 4), "-");
    EXPECT_EQ(tool::degree_text(std::nullopt, 4), "-");
}

}  // namespace
