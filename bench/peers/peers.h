#pragma once

// The same work as other libraries do it, each as its users would write it.

#include <memory>
#include <vector>

#include "plcalc/kernel.h"

namespace bench {

using Ring = std::vector<PL_PNT2D_record>;

/// A parcel held by another library.
class Peer {
public:
    virtual ~Peer() = default;

    virtual const char* name() const = 0;
    virtual double area() const = 0;
    virtual double perimeter() const = 0;
    virtual bool holds(const PL_PNT2D_record& p) const = 0;

    /// Area of the part of the parcel within a convex ring: the library's polygon intersection.
    virtual double area_within(const Ring& convex) const = 0;
};

std::unique_ptr<Peer> geos_parcel(const Ring& ring);
std::unique_ptr<Peer> boost_parcel(const Ring& ring);
std::unique_ptr<Peer> cgal_parcel(const Ring& ring);

/// Where two segments meet: false when nowhere.
bool geos_segments(const PL_LINE_2D_record& s, const PL_LINE_2D_record& t, PL_PNT2D_record& out);
bool boost_segments(const PL_LINE_2D_record& s, const PL_LINE_2D_record& t, PL_PNT2D_record& out);
bool cgal_segments(const PL_LINE_2D_record& s, const PL_LINE_2D_record& t, PL_PNT2D_record& out);

/// Distance of points from the line through a segment (from the segment in GEOS, which knows no lines).
double geos_distances(const PL_LINE_2D_record& line, const Ring& points);
double boost_distances(const PL_LINE_2D_record& line, const Ring& points);
double cgal_distances(const PL_LINE_2D_record& line, const Ring& points);

/// Area of the parcel below y = top, by GEOS's clipping to a rectangle.
class GeosClipped {
public:
    explicit GeosClipped(const Ring& ring);
    ~GeosClipped();
    double area_below(double top) const;

private:
    void* parcel_;
};

}  // namespace bench
