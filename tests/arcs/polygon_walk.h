#pragma once

// The walk of PlFunz_inpolygon once more, written down step by step and remembering every place it has been,
// to compare with the library's. Nothing of arcs/polygon.cpp is used.

#include <array>
#include <cmath>
#include <cstdint>
#include <set>
#include <vector>

#include "arc_checks.h"
#include "plcalc/lines.h"

namespace test {

using Ring = std::vector<PL_PNT2D_record>;

enum class WalkEnd { kInside, kOutside, kGoesRound, kAllInLine };

/// The places of one walk; a table while rings are small, because the tests walk millions of them.
class Places {
public:
    /// Forgets everything; n is the number of vertices.
    void start(int n)
    {
        n_ = static_cast<std::size_t>(n);
        ++walk_;
        many_.clear();
        if (n_ <= kSmall && seen_.size() < n_ * n_ * n_)
            seen_.resize(n_ * n_ * n_, 0);
    }

    /// Whether this is the first visit.
    bool first_visit(int prev, int i, int j)
    {
        if (n_ > kSmall)
            return many_.insert({prev, i, j}).second;
        std::uint64_t& last = seen_[(static_cast<std::size_t>(prev) * n_ + static_cast<std::size_t>(i)) * n_ +
                                    static_cast<std::size_t>(j)];
        const bool is_first = last != walk_;
        last = walk_;
        return is_first;
    }

private:
    static constexpr std::size_t kSmall = 16;
    std::size_t n_ = 0;
    std::uint64_t walk_ = 0;
    std::vector<std::uint64_t> seen_;
    std::set<std::array<int, 3>> many_;
};

class Walk {
public:
    Walk(const PL_PNT2D_record& p, const Ring& ring)
        : p_(p), v_(ring.data()), n_(static_cast<int>(ring.size()))
    {}

    int rightmost() const
    {
        int index = 0;
        double best = -1.7e+200;
        for (int i = 0; i < n_; ++i) {
            if (at(i).x >= best - (std::fabs(best) + 1) * 1e-7) {
                index = i;
                best = at(i).x;
            }
        }
        return index;
    }

    /// Steps of the last go(), edges and merged vertices together.
    std::int64_t steps() const { return steps_; }

    WalkEnd go(int rightmost_index, Places& places)
    {
        const PL_LINE_2D_record ray = {p_, {at(rightmost_index).x + 1000.0, p_.y}};
        const int last = n_ - 1;
        int crossings = 0;
        int prev = last;
        int i = 0;
        int j = 1;
        steps_ = 0;
        places.start(n_);
        if (!merge(i, j))
            return WalkEnd::kAllInLine;
        while (i < n_) {
            if (!places.first_visit(prev, i, j))
                return WalkEnd::kGoesRound;
            ++steps_;
            int k = successor(j);
            if (!merge(j, k))
                return WalkEnd::kAllInLine;
            const int code = classify(prev, i, j, k);
            if (code == 1) {
                const PL_LINE_2D_record edge = {at(i), at(j)};
                PL_PNT2D_record scratch = {0, 0};
                if (PlFunz_intersect_ls(&ray, &edge, &scratch))
                    ++crossings;
            }
            if (code == 2)
                ++crossings;
            if (code == 4) {
                ++crossings;
                prev = j;
                if (j == last || i == last)
                    i = n_;
                else
                    i = j != 0 ? k : n_;
                j = successor(k);
            } else {
                prev = i;
                if (i == last)
                    i = n_;
                else
                    i = j != 0 ? j : n_;
                j = k;
            }
        }
        return crossings % 2 == 1 ? WalkEnd::kInside : WalkEnd::kOutside;
    }

    /// The plain count: an edge from below or on the ray to above it, or back, that meets it right of p.
    bool half_open() const
    {
        int crossings = 0;
        for (int i = 0; i < n_; ++i) {
            const PL_PNT2D_record a = at(i);
            const PL_PNT2D_record b = at(successor(i));
            if ((a.y > p_.y) != (b.y > p_.y) && p_.x < (b.x - a.x) * (p_.y - a.y) / (b.y - a.y) + a.x)
                ++crossings;
        }
        return crossings % 2 == 1;
    }

private:
    const PL_PNT2D_record& at(int i) const { return v_[i]; }
    int successor(int i) const { return i == n_ - 1 ? 0 : i + 1; }
    int predecessor(int i) const { return i == 0 ? n_ - 1 : i - 1; }

    // First the horizontal run from vertex a, then the vertical one; false when a run never ends, which is
    // when n steps have not ended it.
    bool merge(int a, int& k)
    {
        int moved = 0;
        if (std::fabs(at(a).y - at(k).y) <= (std::fabs(at(k).y) + 1) * 1e-7) {
            do {
                k = successor(k);
                ++steps_;
                if (++moved > n_)
                    return false;
            } while (std::fabs(at(a).y - at(k).y) <= (std::fabs(at(k).y) + 1) * 1e-7);
            k = predecessor(k);
        }
        moved = 0;
        if (std::fabs(at(a).x - at(k).x) <= (std::fabs(at(k).x) + 1) * 1e-7) {
            do {
                k = successor(k);
                ++steps_;
                if (++moved > n_)
                    return false;
            } while (std::fabs(at(a).x - at(k).x) <= (std::fabs(at(k).x) + 1) * 1e-7);
            k = predecessor(k);
        }
        return true;
    }

    int classify(int prev, int i, int j, int k) const
    {
        const double tol_y = (std::fabs(p_.y) + 1) * 1e-7;
        const double tol_x = (std::fabs(p_.x) + 1) * 1e-7;
        const double yi = at(i).y;
        const double yj = at(j).y;
        if (yi < p_.y - tol_y && yj < p_.y - tol_y)
            return 0;
        if (yi > p_.y + tol_y && yj > p_.y + tol_y)
            return 0;
        if (at(i).x < p_.x - tol_x && at(j).x < p_.x - tol_x)
            return 0;
        const bool on_i = std::fabs(p_.y - yi) <= (std::fabs(yi) + 1) * 1e-7;
        const bool on_j = std::fabs(p_.y - yj) <= (std::fabs(yj) + 1) * 1e-7;
        if (!on_i && !on_j)
            return 1;
        if (on_j) {
            if (yi < p_.y - tol_y) {
                if (!(at(k).y > p_.y + tol_y))
                    return 5;
                return at(j).x < p_.x - tol_x ? 3 : 4;
            }
            if (yi <= p_.y + tol_y)
                return 5;
            if (!(at(k).y < p_.y - tol_y))
                return 5;
            return at(j).x < p_.x - tol_x ? 3 : 4;
        }
        const double yp = at(prev).y;
        if (yp < p_.y - tol_y)
            return yj > p_.y + tol_y && at(i).x >= p_.x - tol_x ? 2 : 3;
        if (yp > p_.y + tol_y && yj < p_.y - tol_y && at(i).x >= p_.x - tol_x)
            return 2;
        return 3;
    }

    PL_PNT2D_record p_;
    const PL_PNT2D_record* v_;
    int n_;
    std::int64_t steps_ = 0;
};

/// What PlFunz_inpolygon must answer.
inline bool expected_inside(const PL_PNT2D_record& p, const Ring& ring, Places& places)
{
    Walk walk(p, ring);
    switch (walk.go(walk.rightmost(), places)) {
    case WalkEnd::kInside:
        return true;
    case WalkEnd::kGoesRound:
        return walk.half_open();
    default:
        return false;
    }
}

}  // namespace test
