#include "text/angles.h"

#include "text/numbers.h"

namespace tool {
namespace {

constexpr double kTurnGon = 400.0;
constexpr double kTurnDegrees = 360.0;

// A product with 0.9, not a division by 10/9, is exact for multiples of 10 gon.
constexpr double kDegreesPerGon = 0.9;

std::string angle_text(double angle, double turn, int decimals)
{
    const std::string text = fixed(angle, decimals);
    return text == fixed(turn, decimals) ? fixed(0.0, decimals) : text;
}

}  // namespace

std::string gon_text(const std::optional<double>& angle_gon, int decimals)
{
    return angle_gon ? angle_text(*angle_gon, kTurnGon, decimals) : "-";
}

std::string degree_text(const std::optional<double>& angle_gon, int decimals)
{
    return angle_gon ? angle_text(*angle_gon * kDegreesPerGon, kTurnDegrees, decimals) : "-";
}

}  // namespace tool
