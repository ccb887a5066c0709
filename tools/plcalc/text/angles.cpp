#include "text/angles.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string_view>
#include <vector>

#include "text/numbers.h"

namespace tool {
namespace {

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
        const std::optional<double> number = parse_number(part);
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

std::string within_turn(double angle, double turn, int decimals)
{
    const std::string text = fixed(angle, decimals);
    return text == fixed(turn, decimals) ? fixed(0.0, decimals) : text;
}

// Degrees, minutes and seconds; the last place is rounded, and carries over.
std::string dms_text(double degrees, int decimals)
{
    constexpr double kSecondsPerDegree = 3600.0;
    constexpr long long kSixty = 60;
    long long unit = 1;
    for (int i = 0; i < decimals; ++i)
        unit *= 10;
    const long long all = std::llround(degrees * kSecondsPerDegree * static_cast<double>(unit));
    const long long minutes = all / (unit * kSixty);
    const auto two = [](long long number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    const long long in_minute = all % (unit * kSixty);
    std::string text =
        std::to_string(minutes / kSixty) + "\u00b0" + two(minutes % kSixty) + "'" + two(in_minute / unit);
    if (decimals > 0) {
        const std::string part = std::to_string(in_minute % unit);
        text += "." + std::string(static_cast<std::size_t>(decimals) - part.size(), '0') + part;
    }
    return text + "\"";
}

// More of seconds than a double holds.
constexpr int kMaxSecondDecimals = 9;

}  // namespace

std::optional<AngleUnit> angle_unit_named(const std::string& name)
{
    return name == "gon"        ? std::optional<AngleUnit>(AngleUnit::gon)
           : name == "deg"      ? AngleUnit::degrees
           : name == "dms"      ? AngleUnit::dms
           : name == "quadrant" ? AngleUnit::quadrant
                                : std::optional<AngleUnit>();
}

std::optional<double> parse_angle(const std::string& text, AngleUnit plain)
{
    const std::string kept = trimmed(text);
    const std::string_view all = kept;
    if (all.empty())
        return std::nullopt;
    if (const std::optional<double> number = parse_number(kept)) {
        if (!std::isfinite(*number))
            return std::nullopt;
        return plain == AngleUnit::gon ? *number : *number / kDegreesPerGon;
    }
    constexpr std::string_view kGon = "gon";
    if (all.size() > kGon.size() && all.substr(all.size() - kGon.size()) == kGon) {
        const std::optional<double> gons = parse_number(kept.substr(0, all.size() - kGon.size()));
        return gons && std::isfinite(*gons) ? gons : std::nullopt;
    }
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

std::string given_angle(const std::string& text, AngleUnit plain)
{
    if (!parse_number(text))
        return text;
    return trimmed(text) + (plain == AngleUnit::gon ? " gon" : "\u00b0");
}

std::string gon_text(const std::optional<double>& angle_gon, int decimals)
{
    return angle_gon ? within_turn(*angle_gon, kTurnGon, decimals) : "-";
}

std::string degree_text(const std::optional<double>& angle_gon, int decimals)
{
    return angle_gon ? within_turn(*angle_gon * kDegreesPerGon, kTurnDegrees, decimals) : "-";
}

int decimals_in(AngleUnit unit, int gon_decimals)
{
    // A degree is 1.1 gons, a second of arc 3.1e-4.
    return unit == AngleUnit::gon       ? gon_decimals
           : unit == AngleUnit::degrees ? gon_decimals + 1
                                        : std::max(0, gon_decimals - 3);
}

std::string angle_text(const std::optional<double>& angle_gon, AngleUnit unit, int decimals)
{
    if (unit == AngleUnit::gon)
        return gon_text(angle_gon, decimals);
    if (unit == AngleUnit::degrees)
        return degree_text(angle_gon, decimals);
    if (!angle_gon)
        return "-";
    const int of_seconds = std::min(decimals, kMaxSecondDecimals);
    const std::string text = dms_text(*angle_gon * kDegreesPerGon, of_seconds);
    return text == dms_text(kTurnDegrees, of_seconds) ? dms_text(0.0, of_seconds) : text;
}

std::string angle_text(const std::optional<double>& angle_gon, AngleUnit unit)
{
    const bool has_seconds = unit == AngleUnit::dms || unit == AngleUnit::quadrant;
    return angle_text(angle_gon, unit, has_seconds ? 0 : kAngleDecimals);
}

// The quadrant of the angle as it is rounded: what rounds to 90 degrees is due East.
std::string bearing_text(const std::optional<double>& bearing_gon, AngleUnit unit)
{
    if (unit != AngleUnit::quadrant || !bearing_gon)
        return angle_text(bearing_gon, unit);
    constexpr double kQuarter = kTurnDegrees / 4.0;
    const double degrees = *bearing_gon * kDegreesPerGon;
    const bool north = degrees <= kQuarter || degrees >= 3 * kQuarter;
    const bool east = degrees <= 2 * kQuarter;
    const double from_meridian =
        north ? (east ? degrees : kTurnDegrees - degrees) : std::fabs(2 * kQuarter - degrees);
    return (north ? "N" : "S") + dms_text(from_meridian, 0) + (east ? "E" : "W");
}

std::string with_angle_sign(const std::string& text, AngleUnit unit)
{
    return text + (unit == AngleUnit::gon ? " gon" : unit == AngleUnit::degrees ? "\u00b0" : "");
}

std::string angle_sign(AngleUnit unit)
{
    return unit == AngleUnit::gon ? "gon" : unit == AngleUnit::degrees ? "deg" : "";
}

std::string angle_head(const std::string& what, AngleUnit unit)
{
    const std::string sign = angle_sign(unit);
    return sign.empty() ? what : what + ", " + sign;
}

}  // namespace tool
