#pragma once

// Turns the bytes of an input into operands. The first byte chooses the way:
//   even  raw: a double is eight bytes as they are, so that NaN, infinities, subnormals and huge numbers come
//   odd   structured: a double is a tag and a short payload: a special value, a site coordinate, an earlier
//         number, or one a few ulps or a fraction of a tolerance beside it
// An input that has come to its end gives zeros. make_corpus.py writes the same format.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "fuzz/check.h"

namespace fuzz {

class Reader {
public:
    Reader(const std::uint8_t* data, std::size_t size) : at_(data), left_(size)
    {
        operands().clear();
        structured_ = byte() % 2 == 1;
    }

    bool structured() const { return structured_; }

    std::uint8_t byte()
    {
        if (left_ == 0)
            return 0;
        --left_;
        return *at_++;
    }

    /// 0 to n - 1.
    int below(int n) { return byte() % n; }

    int any_int() { return as<std::int32_t>(); }

    /// A unit or mode: mostly -1 to 3, any other number too.
    int selector()
    {
        const int choice = byte();
        return choice < 240 ? choice % 5 - 1 : any_int();
    }

    double number() { return noted(structured_ ? structured_number() : as<double>()); }

    /// An angle in any unit: structured, about a multiple of a quarter turn.
    double angle()
    {
        if (!structured_)
            return number();
        static constexpr double kQuarters[] = {1.5707963267948966, 90.0, 1.0, 100.0};
        const int kind = byte();
        if (kind % 8 >= 4)
            return number();
        const double quarter = kQuarters[kind % 4];
        const double turns = as<std::int8_t>();
        return noted(beside(turns * quarter, kind / 8 % 4));
    }

    PL_PNT2D_record point()
    {
        PL_PNT2D_record p = {};
        const int kind = structured_ && !points_.empty() ? byte() % 8 : 7;
        if (kind == 0) {
            p = earlier_point();
            p = {noted(p.x), noted(p.y)};
        } else if (kind == 1) {
            const PL_PNT2D_record a = earlier_point();
            const PL_PNT2D_record b = earlier_point();
            const double t = as<std::int8_t>() * 0.125;
            p = {noted(a.x + t * (b.x - a.x)), noted(a.y + t * (b.y - a.y))};
        } else {
            const double x = number();
            p = {x, number()};
        }
        points_.push_back(p);
        return p;
    }

    PL_LINE_2D_record segment()
    {
        const PL_PNT2D_record start = point();
        return {start, point()};
    }

    PL_IMP_LINE_2D_record line()
    {
        const double a = number();
        const double b = number();
        return {a, b, number()};
    }

    ARC_2D_record arc()
    {
        const PL_PNT2D_record centre = point();
        const double radius = number();
        const auto type = static_cast<PL_AngleMeasType>(selector());
        const double start = angle();
        return {centre, radius, type, start, angle()};
    }

    /// The next bytes as they are; zeros after the end.
    template <class T> T as()
    {
        T value = {};
        const std::size_t taken = left_ < sizeof value ? left_ : sizeof value;
        if (taken > 0)
            std::memcpy(&value, at_, taken);
        at_ += taken;
        left_ -= taken;
        return value;
    }

    /// Notes a number that was made up from bytes, for the report of a failed check.
    static double noted(double v)
    {
        operands().push_back(v);
        return v;
    }

private:
    double earlier()
    {
        const std::size_t pick = byte();
        const std::vector<double>& read = operands();
        return read.empty() ? 0.0 : read[pick % read.size()];
    }

    PL_PNT2D_record earlier_point()
    {
        const std::size_t pick = byte();
        return points_[pick % points_.size()];
    }

    // v itself, or a number a few ulps, or a few parts of the tolerance PL_EPS, or of a millimetre, beside it.
    double beside(double v, int way)
    {
        if (way == 0)
            return v;
        const int steps = as<std::int8_t>();
        if (way == 2)
            return v + steps * 0.125 * PL_EPS * (std::fabs(v) + 1.0);
        if (way == 3)
            return v + steps * 0.000125;
        const double towards =
            steps < 0 ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
        for (int i = 0; i < std::abs(steps) % 8; ++i)
            v = std::nextafter(v, towards);
        return v;
    }

    double structured_number()
    {
        const int kind = byte() % 12;
        switch (kind) {
        case 0:
            return as<double>();
        case 1:
            return special();
        case 2:
        case 3:
        case 4:
            return as<std::int16_t>() * 0.01;  // on a site, to the centimetre
        case 5:
            return as<std::int8_t>();
        case 6:
            return 500000.0 + as<std::int16_t>() * 0.01;  // East and North of a national grid
        case 7:
            return 5000000.0 + as<std::int16_t>() * 0.01;
        default:
            return beside(earlier(), kind - 8);
        }
    }

    double special()
    {
        using limits = std::numeric_limits<double>;
        static constexpr double kSpecial[] = {0.0,
                                              -0.0,
                                              1.0,
                                              -1.0,
                                              PL_EPS,
                                              -PL_EPS,
                                              2e-7,
                                              -2e-7,
                                              0.001,
                                              3.1622776601683794e-4,
                                              limits::quiet_NaN(),
                                              limits::infinity(),
                                              -limits::infinity(),
                                              limits::denorm_min(),
                                              -limits::denorm_min(),
                                              limits::min(),
                                              limits::max(),
                                              -limits::max(),
                                              1e154,
                                              -1e154,
                                              1e200,
                                              1e16,
                                              1.5707963267948966,
                                              3.141592653589793,
                                              6.283185307179586,
                                              90.0,
                                              360.0,
                                              400.0,
                                              4.0,
                                              411774.83};
        return kSpecial[below(static_cast<int>(sizeof kSpecial / sizeof kSpecial[0]))];
    }

    const std::uint8_t* at_;
    std::size_t left_;
    bool structured_ = false;
    std::vector<PL_PNT2D_record> points_;
};

}  // namespace fuzz

/// What libFuzzer and replay_main.cpp call, once per input; each harness defines it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
