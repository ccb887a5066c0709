#pragma once

// Points as text, to the last bit.

#include <charconv>
#include <string>
#include <vector>

#include "plcalc/kernel.h"

namespace parcel_test {

/// "0 0, 100 0.5".
inline std::string text_of(const std::vector<PL_PNT2D_record>& points)
{
    const auto shortest = [](double value) {
        char digits[32];
        return std::string(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
    };
    std::string text;
    for (const PL_PNT2D_record& p : points)
        text += (text.empty() ? "" : ", ") + shortest(p.x) + " " + shortest(p.y);
    return text;
}

}  // namespace parcel_test
