#pragma once

// What the plan of a division shows.

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "answers/printed_division.h"
#include "answers/question.h"
#include "plparcel/division.h"

namespace tool {

/// A corner of the parcel or a new point.
struct PlanPoint {
    std::string name;
    PL_PNT2D_record at;
    bool is_new = false;
};

/// A part of a side between neighbouring points.
struct PlanPart {
    std::size_t from = 0;  ///< points
    std::size_t to = 0;
    std::string length;
};

/// A side: one part, or several where lines end on it.
struct PlanSide {
    std::vector<PlanPart> parts;
    std::string whole;  ///< length of all of it
};

/// A dividing line as printed.
struct PlanLine {
    std::size_t from = 0;  ///< points
    std::size_t to = 0;
    std::string length;
    std::string bearing;  ///< in the plan's unit of angles
};

struct PlanPiece {
    std::string name;
    plparcel::Ring ring;  ///< holes are joined to it by double lines
    double area = 0.0;    ///< as printed
    std::string asked;    ///< as it was given; "rest" for the last one
};

/// What the sheet says about itself: "Client" and "Rossi", in the order in which they are shown. An entry without a key
/// goes on with the one before.
using TitleBlock = std::vector<std::pair<std::string, std::string>>;

/// What is asked of a plan beside the division.
struct PlanWishes {
    std::optional<int> area_decimals;
    TitleBlock title_block;
};

struct Plan {
    std::string title;                   ///< the parcel
    std::vector<std::string> subtitles;  ///< file, and what was asked
    Corners corners;
    std::vector<PlanPoint> points;  ///< corners first, in the same order
    std::vector<PlanSide> sides;
    std::vector<PlanLine> lines;
    std::vector<PlanPiece> pieces;
    std::optional<std::size_t> base_side;    ///< drawn thick
    std::optional<std::size_t> base_vertex;  ///< ringed
    double area = 0.0;                       ///< of the parcel
    int decimals = 4;                        ///< of the corners
    int end_decimals = 4;                    ///< of the new points
    int area_decimals = 0;
    LengthUnit unit;  ///< of the coordinates
    AngleUnit angles = AngleUnit::gon;
    std::string crs;
    TitleBlock title_block;

    /// The area with its unit, as the plan shows it.
    std::string area_text(double value) const;
};

/// From a division to its plan: the printed lines, the pieces between them, and the unit of the parcel's CRS. Areas are
/// whole, or have the decimals that a small piece needs to show two digits, unless the wishes say otherwise. Lengths are
/// rounded to the centimetre, or finer on a small parcel.
///
/// @param[in] answer  one that is done()
Plan plan_of(const Answer& answer, const PlanWishes& wishes = {});

}  // namespace tool
