#pragma once

// Numbers in a row: how a request comes from the host, and how an answer goes back. Both sides read and write in the same order.
// The order is that of the functions in exports.cpp and of src/index.ts.

#include <cstddef>
#include <limits>
#include <vector>

#include "plparcel/boundary.h"

namespace web {

/// Reads numbers one after the other. Past the last one come NaN and counts of 0, so that a request that was cut short is
/// refused by its values.
class PackedReader {
public:
    explicit PackedReader(const std::vector<double>& numbers) : numbers_(numbers) {}

    double number()
    {
        return next_ < numbers_.size() ? numbers_[next_++] : std::numeric_limits<double>::quiet_NaN();
    }

    PL_PNT2D_record point()
    {
        const double x = number();
        return {x, number()};
    }

    /// A whole number from 0 on; what is none becomes the largest one, which no side, vertex or kind has.
    std::size_t index()
    {
        constexpr double kMost = 4294967294.0;
        const double value = number();
        return value >= 0.0 && value <= kMost ? static_cast<std::size_t>(value)
                                              : std::numeric_limits<std::size_t>::max();
    }

    /// How many items follow, each of `width` numbers; never more than there are.
    std::size_t count(std::size_t width)
    {
        const std::size_t wanted = index();
        const std::size_t there = (numbers_.size() - next_) / width;
        return wanted < there ? wanted : there;
    }

    plparcel::Ring ring()
    {
        plparcel::Ring ring(count(2));
        for (PL_PNT2D_record& p : ring)
            p = point();
        return ring;
    }

    plparcel::Parcel parcel()
    {
        plparcel::Parcel parcel;
        const std::size_t rings = count(1);
        for (std::size_t i = 0; i < rings; ++i)
            if (i == 0)
                parcel.outer = ring();
            else
                parcel.holes.push_back(ring());
        return parcel;
    }

private:
    const std::vector<double>& numbers_;
    std::size_t next_ = 0;
};

/// Writes numbers one after the other.
class PackedWriter {
public:
    explicit PackedWriter(std::vector<double>& numbers) : numbers_(numbers) { numbers_.clear(); }

    void number(double value) { numbers_.push_back(value); }
    void count(std::size_t value) { number(static_cast<double>(value)); }
    void flag(bool value) { number(value ? 1.0 : 0.0); }

    void point(const PL_PNT2D_record& p)
    {
        number(p.x);
        number(p.y);
    }

    void ring(const plparcel::Ring& ring)
    {
        count(ring.size());
        for (const PL_PNT2D_record& p : ring)
            point(p);
    }

    void rings(const plparcel::Ring& outer, const std::vector<plparcel::Ring>& holes)
    {
        count(1 + holes.size());
        ring(outer);
        for (const plparcel::Ring& hole : holes)
            ring(hole);
    }

private:
    std::vector<double>& numbers_;
};

}  // namespace web
