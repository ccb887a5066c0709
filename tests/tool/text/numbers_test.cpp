// Numbers as the program reads and prints them, and angles in gons and in degrees.

#include "text/numbers.h"

#include <cmath>
#include <locale>
#include <optional>

#include "support/bits.h"
#include "text/angles.h"
#include "text/table.h"

namespace {

TEST(Numbers, ReadsNumbersAndNothingElse)
{
    struct Row {
        const char* text;
        double value;
    };
    for (const Row& row : {Row{"0", 0.0},
                           {"-0", -0.0},
                           {"12.5", 12.5},
                           {" 12.5 ", 12.5},
                           {"+3", 3.0},
                           {"1e3", 1000.0},
                           {"-.5", -0.5},
                           {"5.", 5.0},
                           {"0.1", 0x1.999999999999ap-4},
                           {"4985117.5\r", 4985117.5}}) {
        const std::optional<double> value = tool::parse_number(row.text);
        ASSERT_TRUE(value.has_value()) << row.text;
        EXPECT_BITS(*value, row.value);
    }
    EXPECT_TRUE(std::isnan(tool::parse_number("nan").value()));
    EXPECT_TRUE(std::isinf(tool::parse_number("-inf").value()));
    for (const char* text :
         {"", " ", "x", "1 2", "1,5", "1.234,5", "0x10", "1e400", "1e-400", "12.5m", "+-3", "+", "++3"})
        EXPECT_FALSE(tool::parse_number(text).has_value()) << text;
}

TEST(Numbers, ReadsAnglesInGonsDegreesAndQuadrants)
{
    const std::pair<const char*, double> angles[] = {{"112.5", 112.5},
                                                     {" -50 ", -50.0},
                                                     {"90d", 100.0},
                                                     {"101.25deg", 112.5},
                                                     {"101\u00b015'", 112.5},
                                                     {"101\u00b015'36\"", 112.51111111111111},
                                                     {"101d15m36s", 112.51111111111111},
                                                     {"101-15-36", 112.51111111111111},
                                                     {"-45d", -50.0},
                                                     {"N45E", 50.0},
                                                     {"S45E", 150.0},
                                                     {"S45W", 250.0},
                                                     {"N45W", 350.0},
                                                     {"n 22.5 e", 25.0},
                                                     {"N12\u00b034'56\"E", 13.980246913580247},
                                                     {"S0E", 200.0},
                                                     {"N90W", 300.0},
                                                     {"N12-30E", 13.888888888888889}};
    for (const auto& [text, gons] : angles) {
        ASSERT_TRUE(tool::parse_angle(text).has_value()) << text;
        EXPECT_NEAR(*tool::parse_angle(text), gons, 1e-12) << text;
    }
    for (const char* text : {"", "x", "12d60'", "12-30-60", "12.5d30'", "N91E", "N-5E", "N45", "45E",
                             "12-30-15-5", "inf", "nan", "d", "NE", "1,5"})
        EXPECT_FALSE(tool::parse_angle(text).has_value()) << text;
}

TEST(Numbers, ReadsWholeNumbersAndNothingElse)
{
    EXPECT_EQ(tool::parse_whole("0").value(), 0);
    EXPECT_EQ(tool::parse_whole(" +12 ").value(), 12);
    EXPECT_EQ(tool::parse_whole("-9223372036854775808").value(), -9223372036854775807LL - 1);
    for (const char* text : {"", "1.0", "1e2", "9223372036854775808", "0x1", "one", "1 2"})
        EXPECT_FALSE(tool::parse_whole(text).has_value()) << text;
}

TEST(Numbers, PrintsSoManyDecimals)
{
    EXPECT_EQ(tool::fixed(0.0, 4), "0.0000");
    EXPECT_EQ(tool::fixed(-0.0, 4), "0.0000");
    EXPECT_EQ(tool::fixed(-0.00004, 4), "0.0000");
    EXPECT_EQ(tool::fixed(-0.00006, 4), "-0.0001");
    EXPECT_EQ(tool::fixed(-0.00004, 5), "-0.00004");
    EXPECT_EQ(tool::fixed(-0.000004, 5), "0.00000");
    EXPECT_EQ(tool::fixed(4985117.4360625, 4), "4985117.4361");
    EXPECT_EQ(tool::fixed(4985117.4360625, 7), "4985117.4360625");
    EXPECT_EQ(tool::fixed(999999999999.0, 4), "999999999999.0000");
    EXPECT_EQ(tool::fixed(1e12, 4), "1000000000000");
    EXPECT_EQ(tool::fixed(-1e12, 4), "-1000000000000");
    EXPECT_EQ(tool::fixed(1234567890123.25, 4), "1234567890123.25");
    EXPECT_EQ(tool::fixed(1e20, 4), "100000000000000000000");
    EXPECT_EQ(tool::fixed(1e21, 4), "1e+21");
    EXPECT_EQ(tool::fixed(1e-16, 17), "0.00000000000000010");
    EXPECT_EQ(tool::fixed(1e-16, 18), "0.0000000000000001");
}

TEST(Numbers, PrintsNoMoreDigitsThanNeeded)
{
    EXPECT_EQ(tool::shortest(12.34567), "12.34567");
    EXPECT_EQ(tool::shortest(6000.0), "6000");
    EXPECT_EQ(tool::shortest(6e5), "600000");
    EXPECT_EQ(tool::shortest(1e8), "100000000");
    EXPECT_EQ(tool::shortest(-1e20), "-100000000000000000000");
    EXPECT_EQ(tool::shortest(1e21), "1e+21");
    EXPECT_EQ(tool::shortest(1e-9), "0.000000001");
    EXPECT_EQ(tool::shortest(1e-20), "0.00000000000000000001");
    EXPECT_EQ(tool::shortest(0.9e-20), "9e-21");
    EXPECT_EQ(tool::shortest(0.0), "0");
    EXPECT_EQ(tool::shortest(1.0 / 3.0), "0.3333333333333333");
    EXPECT_EQ(tool::shortest(-2.2250738585072014e-308), "-2.2250738585072014e-308");
}

TEST(Numbers, DecimalsGoDownToTheStep)
{
    EXPECT_EQ(tool::decimals_for(1.0), 4);
    EXPECT_EQ(tool::decimals_for(1.1e-4), 4);
    EXPECT_EQ(tool::decimals_for(0.9e-4), 5);
    EXPECT_EQ(tool::decimals_for(1e-7 * 100.0), 5) << "a bit below 1e-5";
    EXPECT_EQ(tool::decimals_for(1.1e-17), 17);
    EXPECT_GT(tool::decimals_for(0.9e-17), tool::kMaxDecimals);
    EXPECT_GT(tool::decimals_for(0.0), tool::kMaxDecimals);
    EXPECT_GT(tool::decimals_for(std::nan("")), tool::kMaxDecimals);
}

// A comma before the decimals, dots between the thousands.
class ItalianNumbers : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Numbers, AreTheSameInEveryLocale)
{
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new ItalianNumbers));
    EXPECT_EQ(tool::fixed(12345.5, 4), "12345.5000");
    EXPECT_EQ(tool::shortest(12345.5), "12345.5");
    EXPECT_BITS(tool::parse_number("12345.5").value(), 12345.5);
    EXPECT_FALSE(tool::parse_number("12345,5").has_value());
    std::locale::global(before);
}

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

// Letters of two, three and four bytes are one character wide each; the last bits of their bytes are of every kind.
TEST(Tables, CountCharactersNotBytes)
{
    for (const char* letter : {"\u00e9", "\u00fc", "\u0141", "\u03b1", "\u20ac", "\u4e2d", "\U0001f4d0"}) {
        const std::string name = std::string("a") + letter + "b";
        EXPECT_EQ(tool::columns({{name, "1"}, {"abc", "2"}}), name + "  1\nabc  2\n");
        EXPECT_EQ(tool::labelled({{name, {"1"}}, {"abc", {"2"}}}), name + "  1\nabc  2\n");
        EXPECT_TRUE(tool::fit_terminal({{std::string(77, 'x'), letter}}));
        EXPECT_FALSE(tool::fit_terminal({{std::string(78, 'x'), letter}}));
    }
}

// ------------------------------------------------------------------------------------------------ angles by unit

struct AngleRow {
    const char* what;
    double gon;
    const char* degrees;
    const char* dms;
    const char* quadrant;
};

const AngleRow kAngles[] = {
    {"North", 0.0, "0.0000", "0\u00b000'00\"", "N0\u00b000'00\"E"},
    {"North-East", 50.0, "45.0000", "45\u00b000'00\"", "N45\u00b000'00\"E"},
    {"due East", 100.0, "90.0000", "90\u00b000'00\"", "N90\u00b000'00\"E"},
    {"a second below the South-East", 149.99969135802469, "134.9997", "134\u00b059'59\"",
     "S45\u00b000'01\"E"},
    {"due South", 200.0, "180.0000", "180\u00b000'00\"", "S0\u00b000'00\"E"},
    {"South-West", 250.0, "225.0000", "225\u00b000'00\"", "S45\u00b000'00\"W"},
    {"due West", 300.0, "270.0000", "270\u00b000'00\"", "N90\u00b000'00\"W"},
    {"North-West", 350.0, "315.0000", "315\u00b000'00\"", "N45\u00b000'00\"W"},
    {"below a full turn: the second carries over", 399.9999, "359.9999", "0\u00b000'00\"",
     "N0\u00b000'00\"W"},
    {"carries to the minute and the degree", 13.9999, "12.5999", "12\u00b036'00\"", "N12\u00b036'00\"E"},
    {"12\u00b034'56\"", 13.980246913580247, "12.5822", "12\u00b034'56\"", "N12\u00b034'56\"E"},
};

TEST(Angles, ByUnit)
{
    using tool::AngleUnit;
    for (const AngleRow& row : kAngles) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(tool::bearing_text(row.gon, AngleUnit::degrees), row.degrees);
        EXPECT_EQ(tool::bearing_text(row.gon, AngleUnit::dms), row.dms);
        EXPECT_EQ(tool::angle_text(row.gon, AngleUnit::quadrant), row.dms) << "an angle is no bearing";
        EXPECT_EQ(tool::bearing_text(row.gon, AngleUnit::quadrant), row.quadrant);
        // What is printed is read back, to half a second.
        EXPECT_NEAR(*tool::parse_angle(row.quadrant), row.gon, row.gon > 399.0 ? 400.0 : 2e-4);
    }
    EXPECT_EQ(tool::angle_text(13.980246913580247, AngleUnit::dms, 2), "12\u00b034'56.00\"");
    EXPECT_EQ(tool::angle_text(13.980246913580247 + 0.78 / 3240.0, AngleUnit::dms, 2), "12\u00b034'56.78\"");
    EXPECT_EQ(tool::angle_text(13.980246913580247 + 1.0 / 3240.0, AngleUnit::dms, 3), "12\u00b034'57.000\"");
    EXPECT_EQ(tool::bearing_text(std::nullopt, AngleUnit::quadrant), "-");
    EXPECT_EQ(tool::with_angle_sign("12.5", AngleUnit::gon), "12.5 gon");
    EXPECT_EQ(tool::with_angle_sign("12.5", AngleUnit::degrees), "12.5\u00b0");
    for (const AngleUnit with_signs : {AngleUnit::dms, AngleUnit::quadrant})
        EXPECT_EQ(tool::with_angle_sign("12\u00b030'00\"", with_signs), "12\u00b030'00\"");
    EXPECT_EQ(tool::angle_text(399.999999, AngleUnit::dms, 1), "0\u00b000'00.0\"");
    EXPECT_EQ(tool::angle_unit_named("dms"), AngleUnit::dms);
    EXPECT_EQ(tool::angle_unit_named("rad"), std::nullopt);
}

TEST(Angles, ANumberAloneIsInTheUnitThatIsAskedFor)
{
    using tool::AngleUnit;
    EXPECT_EQ(tool::parse_angle("45"), 45.0);
    for (const AngleUnit unit : {AngleUnit::degrees, AngleUnit::dms, AngleUnit::quadrant}) {
        EXPECT_EQ(tool::parse_angle("45", unit), 50.0);
        EXPECT_EQ(tool::parse_angle("45gon", unit), 45.0);
        EXPECT_EQ(tool::parse_angle("45 gon", unit), 45.0);
        EXPECT_EQ(tool::parse_angle("N45E", unit), 50.0);
        EXPECT_EQ(tool::given_angle(" 45", unit), "45\u00b0");
    }
    EXPECT_EQ(tool::given_angle("45", AngleUnit::gon), "45 gon");
    EXPECT_EQ(tool::given_angle("N45E", AngleUnit::gon), "N45E");
    for (const char* text : {"gon", "nangon", "infgon", "4 5gon"})
        EXPECT_EQ(tool::parse_angle(text), std::nullopt) << text;
}

// So many decimals that a place is no coarser than that of a gon.
TEST(Angles, DecimalsOfOtherUnitsAreNoCoarser)
{
    using tool::AngleUnit;
    for (int decimals = 4; decimals < 9; ++decimals) {
        const double step = std::pow(10.0, -decimals);
        EXPECT_LE(std::pow(10.0, -tool::decimals_in(AngleUnit::degrees, decimals)) / 0.9, step);
        EXPECT_LE(std::pow(10.0, -tool::decimals_in(AngleUnit::dms, decimals)) / 3240.0, step);
        EXPECT_EQ(tool::decimals_in(AngleUnit::gon, decimals), decimals);
    }
}

}  // namespace
