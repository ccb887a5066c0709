#include "text/numbers.h"

#include <charconv>
#include <cmath>
#include <iomanip>
#include <locale>
#include <sstream>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

constexpr int kMinDecimals = 4;
constexpr int kAllDigits = 16;  // after the first one

// A step that came out a few bits below 1e-5 still gets five decimals.
constexpr double kStepSlack = 1.0 + 1e-12;

// Up to here a double can hold ten-thousandths.
constexpr double kMaxFixed = 1e12;

std::string_view without_blanks(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

template <typename Number> std::optional<Number> parse_all(std::string_view text)
{
    text = without_blanks(text);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    Number value{};
    const std::from_chars_result read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || read.ec != std::errc() || read.ptr != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::string formatted(double value, std::ios_base& (*notation)(std::ios_base&), int digits)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << notation << std::setprecision(digits) << value;
    return out.str();
}

constexpr double kTurnGon = 400.0;
constexpr double kTurnDegrees = 360.0;

// A product with 0.9, not a division by 10/9, is exact for multiples of 10 gon.
constexpr double kDegreesPerGon = 0.9;

// "101°15'30.5\"" and the like; a number alone is degrees too.
std::optional<double> parse_degrees(std::string text)
{
    constexpr double kParts = 60.0;
    for (const char* sign : {"°", "deg", "′", "″", "''"})
        for (std::size_t at = text.find(sign); at != std::string::npos; at = text.find(sign))
            text.replace(at, std::string_view(sign).size(), " ");
    for (std::size_t i = 0; i < text.size(); ++i)
        if (std::string_view("dms'\"").find(text[i]) != std::string_view::npos || (text[i] == '-' && i > 0))
            text[i] = ' ';
    std::istringstream parts(text);
    std::vector<double> numbers;
    for (std::string part; parts >> part;) {
        const std::optional<double> number = parse_all<double>(part);
        const bool last_was_whole = numbers.empty() || numbers.back() == std::floor(numbers.back());
        if (!number || !std::isfinite(*number) || !last_was_whole ||
            (!numbers.empty() && !(*number >= 0.0 && *number < kParts)))
            return std::nullopt;
        numbers.push_back(*number);
    }
    if (numbers.empty() || numbers.size() > 3)
        return std::nullopt;
    numbers.resize(3);
    const double size = std::fabs(numbers[0]) + (numbers[1] + numbers[2] / kParts) / kParts;
    return std::signbit(numbers[0]) ? -size : size;
}

std::string angle_text(double angle, double turn, int decimals)
{
    const std::string text = tool::fixed(angle, decimals);
    return text == tool::fixed(turn, decimals) ? tool::fixed(0.0, decimals) : text;
}

}  // namespace

namespace tool {

std::string trimmed(const std::string& text)
{
    return std::string(without_blanks(text));
}

std::optional<double> parse_number(const std::string& text)
{
    return parse_all<double>(text);
}

std::optional<long long> parse_whole(const std::string& text)
{
    return parse_all<long long>(text);
}

std::optional<double> parse_angle(const std::string& text)
{
    const std::string_view all = without_blanks(text);
    if (all.empty())
        return std::nullopt;
    if (const std::optional<double> gons = parse_all<double>(all))
        return std::isfinite(*gons) ? gons : std::nullopt;
    const auto is_one_of = [](char c, const char* letters) {
        return std::string_view(letters).find(c) != std::string_view::npos;
    };
    const bool north = is_one_of(all.front(), "Nn");
    const bool east = is_one_of(all.back(), "Ee");
    if (!north && !is_one_of(all.front(), "Ss")) {
        const std::optional<double> degrees = parse_degrees(std::string(all));
        return degrees ? std::optional<double>(*degrees / kDegreesPerGon) : std::nullopt;
    }
    if (!east && !is_one_of(all.back(), "Ww"))
        return std::nullopt;
    const std::optional<double> degrees = parse_degrees(std::string(all.substr(1, all.size() - 2)));
    if (!degrees || !(*degrees >= 0.0 && *degrees <= kTurnDegrees / 4.0))
        return std::nullopt;
    const double from_north = north ? *degrees : kTurnDegrees / 2.0 - *degrees;
    return (east ? from_north : kTurnDegrees - from_north) / kDegreesPerGon;
}

std::string fixed(double value, int decimals)
{
    if (decimals > kMaxDecimals || !(std::fabs(value) < kMaxFixed))
        return formatted(value, std::scientific, kAllDigits);
    const std::string text = formatted(value, std::fixed, decimals);
    return text.find_first_not_of("-0.") == std::string::npos ? formatted(0.0, std::fixed, decimals) : text;
}

std::string shortest(double value)
{
    char text[32];  // the longest is -2.2250738585072014e-308
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

int decimals_for(double step)
{
    int decimals = kMinDecimals;
    while (decimals <= kMaxDecimals && !(std::pow(10.0, -decimals) <= step * kStepSlack))
        ++decimals;
    return decimals;
}

std::string height_text(const std::optional<double>& height, int decimals)
{
    return height ? fixed(*height, decimals) : "-";
}

std::string gon_text(const std::optional<double>& angle_gon, int decimals)
{
    return angle_gon ? angle_text(*angle_gon, kTurnGon, decimals) : "-";
}

std::string degree_text(const std::optional<double>& angle_gon, int decimals)
{
    return angle_gon ? angle_text(*angle_gon * kDegreesPerGon, kTurnDegrees, decimals) : "-";
}

}  // namespace tool
