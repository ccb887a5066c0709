#include "text/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>

namespace {

constexpr int kMinDecimals = 4;

// Beyond these a number would be a row of zeros: no survey has such figures.
constexpr double kLargestPlain = 1e21;
constexpr double kSmallestPlain = 1e-20;

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

// At most kMaxFixed, with kMaxDecimals.
std::string with_decimals(double value, int decimals)
{
    char text[64];
    const std::to_chars_result end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals);
    return {text, end.ptr};
}

}  // namespace

namespace tool {

std::string trimmed(const std::string& text)
{
    return std::string(without_blanks(text));
}

std::string with_point(std::string text)
{
    std::replace(text.begin(), text.end(), ',', '.');
    return text;
}

std::optional<double> parse_number(const std::string& text)
{
    return parse_all<double>(text);
}

std::optional<long long> parse_whole(const std::string& text)
{
    return parse_all<long long>(text);
}

std::string fixed(double value, int decimals)
{
    if (decimals > kMaxDecimals || !(std::fabs(value) < kMaxFixed))
        return shortest(value);
    const std::string text = with_decimals(value, decimals);
    return text.find_first_not_of("-0.") == std::string::npos ? with_decimals(0.0, decimals) : text;
}

std::string shortest(double value)
{
    char text[48];  // the longest have 17 digits behind 20 zeros, or an exponent
    const double size = std::fabs(value);
    const bool plain = size == 0.0 || (size >= kSmallestPlain && size < kLargestPlain);
    const std::to_chars_result end =
        plain ? std::to_chars(text, text + sizeof text, value, std::chars_format::fixed)
              : std::to_chars(text, text + sizeof text, value);
    return {text, end.ptr};
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

}  // namespace tool
