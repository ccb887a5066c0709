#include "amounts.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <stdexcept>
#include <vector>

#include "support/bits.h"

namespace {

using plparcel::Amount;
using plparcel::area;
using plparcel::equal_parts;
using plparcel::Given;
using plparcel::product;
using plparcel::share;
using plparcel::Shares;
using plparcel::Status;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(Amounts, BecomeAreas)
{
    const struct {
        const char* what;
        std::vector<Amount> amounts;
        std::vector<double> pieces;  // of a parcel of 900
    } rows[] = {
        {"an area", {area(250)}, {250, 650}},
        {"a product", {product(20, 30)}, {600, 300}},
        {"a third", {share(1, 3)}, {300, 600}},
        {"25 %", {share(25, 100)}, {225, 675}},
        {"one after another", {area(100), product(10, 20), share(1, 9)}, {100, 200, 100, 500}},
        {"equal parts", equal_parts(3), {300, 300, 300}},
        {"three thirds: the last is what is left", {share(1, 3), share(1, 3), share(1, 3)}, {300, 300, 300}},
        {"areas that are all of it", {area(400), area(500)}, {400, 500}},
        {"just less than 1e-9 too much", {area(400), area(500.0000008)}, {400, 500.0000008}},
        {"just less than 1e-9 too little", {area(400), area(499.9999992)}, {400, 499.9999992}},
        {"more than 1e-9 too little", {area(400), area(499.999999)}, {400, 499.999999, 0.000001}},
        {"a last one of which more than a hundredth is left",
         {area(899.9999999), area(5e-8)},
         {899.9999999, 5e-8, 5e-8}},
        {"a last one of which less than a hundredth is left",
         {area(899.9999999), area(9.95e-8)},
         {899.9999999, 9.95e-8}},
        {"0.0101 of the last one is left: a piece",
         {area(899.9999998), area(2e-7 / 1.0101)},
         {899.9999998, 2e-7 / 1.0101, 2e-7 - 2e-7 / 1.0101}},
        {"0.0099 of the last one is left: nothing",
         {area(899.9999998), area(2e-7 / 1.0099)},
         {899.9999998, 2e-7 / 1.0099}},
        {"0.0099 of the last one too much: nothing",
         {area(899.9999998), area(2e-7 / 0.9901)},
         {899.9999998, 2e-7 / 0.9901}},
        {"the largest length and the smallest", {product(1e-200, 1e200)}, {1.0, 899.0}},
        {"the same the other way round", {product(1e200, 1e-200)}, {1.0, 899.0}},
        {"alone, nearly everything", {area(899.9999999)}, {899.9999999, 0.0000001}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Shares shares = plparcel::share_out(row.amounts, 900.0);
        EXPECT_FALSE(shares.refusal);
        ASSERT_EQ(shares.pieces.size(), row.pieces.size());
        for (std::size_t i = 0; i < row.pieces.size(); ++i)
            EXPECT_NEAR(shares.pieces[i].value(), row.pieces[i], 1e-12);
    }
}

TEST(Amounts, SharesAreNotRounded)
{
    const Shares shares = plparcel::share_out({share(1, 3)}, 1.0);
    EXPECT_BITS(shares.pieces[0].hi, 1.0 / 3.0);
    EXPECT_BITS(shares.pieces[0].lo, 0x1.5555555555555p-56);  // 1/3 = 0x1.5555...p-2, digits without end
}

TEST(Amounts, AreRefusedWithTheOneAtFault)
{
    const struct {
        const char* what;
        std::vector<Amount> amounts;
        std::size_t at;
        Status status;
    } rows[] = {
        {"none", {}, 0, Status::no_amount},
        {"equal parts of one", equal_parts(1), 0, Status::no_amount},
        {"equal parts of none", equal_parts(0), 0, Status::no_amount},
        {"nothing", {area(0)}, 0, Status::amount_too_small},
        {"less than nothing", {area(-1)}, 0, Status::amount_too_small},
        {"a NaN", {area(kNan)}, 0, Status::unusable_amount},
        {"infinite", {area(kInf)}, 0, Status::amount_too_large},
        {"a product of two negative lengths", {product(-20, -30)}, 0, Status::amount_too_small},
        {"a length of nothing", {product(20, 0)}, 0, Status::amount_too_small},
        {"a share of a NaN", {share(1, kNan)}, 0, Status::unusable_amount},
        {"a product with a NaN", {product(3, kNan)}, 0, Status::unusable_amount},
        {"a length without end", {product(3, kInf)}, 0, Status::amount_too_large},
        {"a length that no one means", {product(1e-200, 2e200)}, 0, Status::amount_too_large},
        {"a share of nothing", {share(0, 3)}, 0, Status::amount_too_small},
        {"a share of less than nothing", {share(1, -3)}, 0, Status::unusable_amount},
        {"a share without end", {share(kInf, 3)}, 0, Status::amount_too_large},
        {"a share with nothing below", {share(1, 0)}, 0, Status::unusable_amount},
        {"0.0101 of the last one too much",
         {area(899.9999998), area(2e-7 / 0.9899)},
         1,
         Status::amount_too_large},
        {"two lengths whose product is below all doubles",
         {product(1e-200, 1e-200)},
         0,
         Status::amount_too_small},
        {"a share below all doubles", {share(1e-200, 1e200)}, 0, Status::amount_too_small},
        {"a number that no one means", {area(1e-201)}, 0, Status::amount_too_small},
        {"a third of two such", {share(1e201, 3e201)}, 0, Status::unusable_amount},
        {"everything", {area(900)}, 0, Status::amount_too_large},
        {"more than everything", {area(901)}, 0, Status::amount_too_large},
        {"three halves", {share(3, 2)}, 0, Status::amount_too_large},
        {"everything, then something", {area(900), area(1)}, 0, Status::amount_too_large},
        {"too much in the end", {area(400), area(500.000001)}, 1, Status::amount_too_large},
        {"twice what there is in the end, which is next to nothing",
         {area(899.9999999), area(2e-7)},
         1,
         Status::amount_too_large},
        {"all used up before the last", {area(400), area(500), area(1)}, 1, Status::amount_too_large},
        {"the second is nothing", {area(400), area(0), area(1)}, 1, Status::amount_too_small},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Shares shares = plparcel::share_out(row.amounts, 900.0);
        EXPECT_EQ(shares.refusal, row.status);
        EXPECT_EQ(shares.at_amount, row.at);
    }
}

TEST(Amounts, SayHowTheyWereGiven)
{
    EXPECT_EQ(area(7).given, Given::as_area);
    EXPECT_EQ(area(7).first, 7.0);
    EXPECT_EQ(product(3, 4).given, Given::as_product);
    EXPECT_EQ(product(3, 4).first, 3.0);
    EXPECT_EQ(product(3, 4).second, 4.0);
    EXPECT_EQ(share(2, 5).given, Given::as_share);
    EXPECT_EQ(share(2, 5).first, 2.0);
    EXPECT_EQ(share(2, 5).second, 5.0);
    EXPECT_EQ(plparcel::width(6).given, Given::as_width);
    EXPECT_EQ(plparcel::width(6).first, 6.0);
}

TEST(Amounts, OfMorePartsThanMemoryHoldsAreNotAllocated)
{
    EXPECT_THROW(equal_parts(std::numeric_limits<std::size_t>::max()), std::length_error);
}

TEST(Amounts, OfAnUnknownKindAreUnknown)
{
    const Shares shares = plparcel::share_out({area(1), {static_cast<plparcel::Given>(99), 1, 1}}, 900.0);
    EXPECT_EQ(shares.refusal, Status::unknown_request);
    EXPECT_EQ(shares.at_amount, 1U);
}

}  // namespace
