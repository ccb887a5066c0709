#pragma once

// The question: a parcel as it stands in a file, how many decimals its figures need, and the request as the command
// line states it.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "console/outcome.h"
#include "plcalc/kernel.h"
#include "plparcel/division.h"
#include "plparcel/which_side.h"
#include "text/angles.h"

namespace tool {

/// The unit of a parcel's coordinates.
struct LengthUnit {
    std::string name;     ///< "m"; empty when the file does not say
    double metres = 1.0;  ///< its length
};

/// "m\u00b2", "US ft\u00b2"; empty for a unit that is not known.
std::string square_of(const LengthUnit& unit);

struct Parcel {
    Place place;                           ///< the file and the feature, and what the parcel is called
    plparcel::Ring ring;                   ///< in the file's order, without the closing vertex
    LengthUnit unit;                       ///< of the ring's coordinates
    std::string crs;                       ///< name of their CRS; empty when the file does not say
    std::vector<std::string> point_names;  ///< of the vertices; empty when the file has none
    /// Of all vertices, NaN for one without; empty where no vertex has one.
    std::vector<double> heights = {};
    /// Length in the plane of a length 1 on the ground. Coordinates are in the plane; areas and lengths that are asked
    /// for or reported are on the ground.
    double ground_factor = 1.0;
    std::vector<std::string> assumed = {};   ///< what a reader must know about the figures, as clauses
    std::vector<plparcel::Ring> holes = {};  ///< like the ring; their vertices are numbered on after it
};

/// The vertices of a parcel by their numbers, from 0: those of the outer ring, then those of its holes. Side i runs from
/// vertex i to the next one of its ring.
struct Corners {
    plparcel::Ring at;
    std::vector<std::size_t> next;    ///< along the ring
    std::vector<std::size_t> before;  ///< likewise
    std::vector<std::size_t> ring;    ///< 0 the outer one, k the k-th hole
    std::vector<bool> inside_left;    ///< of each ring: whether the parcel lies to the left of its sides

    std::size_t size() const { return at.size(); }
};

Corners corners_of(const Parcel& parcel);

/// How many vertices all rings have.
std::size_t vertex_count(const Parcel& parcel);

/// What the file calls a vertex: its name, or its number where it has none.
///
/// @param[in] vertex  by its number, from 0
std::string vertex_name(const Parcel& parcel, std::size_t vertex);

/// A vertex, and the side that begins there, within its ring.
struct RingIndex {
    std::size_t ring = 0;   ///< 0 the outer one, k the k-th hole
    std::size_t index = 0;  ///< in the ring
    std::size_t first = 0;  ///< number of the ring's first vertex
    std::size_t count = 0;  ///< how many vertices the ring has
};

/// @param[in] vertex  by its number, from 0
/// @return nothing where there is no such vertex
std::optional<RingIndex> in_ring(const Parcel& parcel, std::size_t vertex);

/// @return the number of a side or a vertex of a ring, from 0
std::size_t number_of(const Parcel& parcel, std::size_t ring, std::size_t index);

/// The rings as plparcel takes them.
plparcel::Parcel boundary_of(const Parcel& parcel);

/// What plparcel says of the rings.
plparcel::RingReport check(const Parcel& parcel);

/// A length on the ground.
double on_ground(const Parcel& parcel, double length);

/// A height as it is kept in a parcel; nothing for NaN.
std::optional<double> known_height(double height);

/// "lots.csv: lot A (X is East)": the place, and what was assumed of it.
std::string heading(const Place& place, const std::vector<std::string>& assumed);

/// How many decimals a parcel's figures need: as many as its size asks for.
struct Resolution {
    int decimals = 4;       ///< of coordinates and lengths
    int area_decimals = 4;  ///< of areas
    int end_decimals = 4;   ///< of the ends of dividing lines, which may be rounded more than the rest
};

/// At least four decimals, and as many as keep the rounding of a coordinate below a millionth of the parcel's
/// extent and the rounding of an area below a ten-millionth of the area.
Resolution resolution_of(const std::vector<PL_PNT2D_record>& ring, double area);

/// A side or a vertex that is named by what it is.
struct SideChoice {
    enum class By { number, longest, shortest, near, facing, along, vertex_near };
    By by = By::number;
    PL_PNT2D_record point = {};  ///< near, vertex_near
    double bearing_gon = 0.0;    ///< facing
    /// along: the lines of another file, and how near they must come, in the unit of the parcel; none for 20 m
    std::shared_ptr<const plparcel::OtherGeometry> other = {};
    std::optional<double> distance = {};
    std::string given = {};  ///< the point, the bearing or the file, as it was given
};

/// One request.
struct Asked {
    plparcel::Request request;  ///< complete but for `index`, which needs a parcel
    /// Side or vertex, from 1, in the order of the rings as they stand in the file; see Corners. 0 for a line that
    /// starts from none.
    long long number = 0;
    std::vector<std::string> amounts;   ///< as they were given, "40 x 50" or "1/3"; one per amount
    std::string line = {};              ///< a line that no side gives, as it was given: "50 gon"
    bool count_alternatives = false;    ///< whether to tell how many lines hold the first amount
    AngleUnit angles = AngleUnit::gon;  ///< in which angles are told
    SideChoice choice = {};             ///< where no number was given: which side or vertex is meant
    std::string chosen = {};  ///< what with_side() has found, as a sentence; empty where a number was given
};

/// An amount in the parcel's unit squared.
///
/// @param[in] amount       as a value, a product or a share
/// @param[in] parcel_area  of the whole
double area_of(const plparcel::Amount& amount, double parcel_area);

}  // namespace tool
