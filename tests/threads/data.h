#pragma once

// What one call works on, and what came of it.

#include <cstdint>
#include <cstring>
#include <random>
#include <type_traits>
#include <vector>

#include "plcalc/plcalc.h"
#include "support/cut_state.h"

namespace test {

/// The numbers of one call, from a seed that no other call has, and the parcel that all threads share.
class Data {
public:
    Data(const CPoint3dVector& parcel, std::uint64_t seed) : parcel_(parcel), random_(seed) {}

    const CPoint3dVector& parcel() const { return parcel_; }

    /// 0 to n - 1.
    int below(int n) { return static_cast<int>(random_() % static_cast<std::uint64_t>(n)); }

    /// A coordinate: from a small grid, so that points coincide and lines are level; near zero and near one,
    /// where the tolerances are; or of the size of a site.
    double coordinate()
    {
        switch (below(4)) {
        case 0:
        case 1:
            return below(4);
        case 2:
            return below(2) + (below(7) - 3) * 0.5e-7;
        default:
            return std::uniform_real_distribution<double>(-500.0, 500.0)(random_);
        }
    }

    /// A point: one of two every third time, so that points coincide.
    PL_PNT2D_record point()
    {
        if (below(3) == 0)
            return {1.0, 1.0 + below(2)};
        const double x = coordinate();
        return {x, coordinate()};
    }

    /// A vertex of the shared parcel, counted round it.
    PL_PNT2D_record vertex(int i) const
    {
        const int at = i % parcel_.GetNoPoits();
        return {parcel_.GetXcoordAt(at), parcel_.GetYcoordAt(at)};
    }

    /// A request for a part of the shared parcel, in one of the three modes.
    CFrazArea request()
    {
        const int side = below(parcel_.GetNoPoits());
        const int mode = below(3);
        const double area = AreaCalcolata(parcel_) * (1 + below(99)) / 100.0;
        return {parcel_, vertex(side), vertex(side + 1), mode, below(2), area, 0.5};
    }

private:
    const CPoint3dVector& parcel_;
    std::mt19937_64 random_;
};

/// Results and outputs of one call, to the last bit.
struct Outcome {
    std::vector<std::uint64_t> words;
    std::vector<State> states;

    void add(std::int32_t v) { words.push_back(static_cast<std::uint32_t>(v)); }
    void add(bool v) { add(v ? 1 : 0); }

    /// A double, or a record of doubles.
    template <typename Record> void add(const Record& record)
    {
        static_assert(std::is_trivially_copyable<Record>::value && sizeof record % sizeof(double) == 0, "");
        std::uint64_t bits[sizeof record / sizeof(double)];
        std::memcpy(bits, &record, sizeof record);
        words.insert(words.end(), std::begin(bits), std::end(bits));
    }

    void add(const ARC_2D_record& arc)
    {
        add(arc.centre);
        add(arc.radius);
        add(static_cast<std::int32_t>(arc.angle_type));
        add(arc.start_angle);
        add(arc.end_angle);
    }

    void add(const CPoint3dVector& points)
    {
        add(points.GetNoPoits());
        for (int i = 0; i < points.GetNoPoits(); ++i) {
            add(points.GetXcoordAt(i));
            add(points.GetYcoordAt(i));
        }
    }

    void add(const CFrazArea& object) { states.push_back(state_of(object)); }

    /// Calls Esegui; notes what it gives and what it leaves.
    void add_run(CFrazArea& object)
    {
        const Answer got = run(object);
        add(got.done);
        add(got.p1);
        add(got.z1);
        add(got.p2);
        add(got.z2);
        add(object);
    }
};

}  // namespace test
