#pragma once

/// @file
/// Division of a parcel with proof: the line that cuts off what was asked for, or the reason why there is none.
///
/// CFrazArea returns the line at which its search ended, and leaves it to the caller to check that line. The
/// functions here check the parcel, prepare, cut and measure it, and call it divided only when its lines hold what
/// was asked for:
///
/// ```cpp
/// const std::vector<PL_PNT2D_record> lot = {{0.0, 0.0}, {100.0, 0.0}, {100.0, 50.0}, {0.0, 50.0}};
///
/// plparcel::Request request;
/// request.line = plparcel::parallel_to(0);               // the side from (0, 0) to (100, 0)
/// request.amounts = {plparcel::area(1000.0)};
///
/// const plparcel::Division division = plparcel::divide(lot, request);
/// if (division.status == plparcel::Status::divided)
///     draw(division.lines[0].from, division.lines[0].to);  // (0, 10) to (100, 10)
/// else
///     say(plparcel::describe(division));
/// ```
///
/// A third of the parcel, along a side: `request.amounts = {plparcel::share(1.0, 3.0)}`. Four heirs:
/// `request.amounts = plparcel::equal_parts(4)`. A strip as a product of two lengths, then 250 more next to it:
/// `request.amounts = {plparcel::product(20.0, 30.0), plparcel::area(250.0)}`. To the centimetre, if that holds the
/// amounts to a ten-thousandth of the parcel: `request.rounding = {2, 1e-4}`.
///
/// Coordinates are plane, x East and y North, in the caller's unit, at any distance from the origin; areas are in
/// that unit squared. The functions keep no state and may be called from any thread. They throw nothing but
/// std::bad_alloc, except equal_parts(). Results are the same to the last bit on every machine with IEEE doubles,
/// except Division::bare and DividingLine::library_agrees, for which the platform's sine and cosine turn the parcel.

#include <cstddef>
#include <optional>
#include <vector>

#include "plparcel/boundary.h"
#include "plparcel/line.h"
#include "plparcel/rounding.h"

/// The layer above plcalc: divides a parcel with proof, or says why it cannot be divided so. @ref plparcel::divide is where to
/// begin.
namespace plparcel {

/// Which piece holds the amount.
///
/// | cut            | from_reference                                | opposite               |
/// | -------------- | --------------------------------------------- | ---------------------- |
/// | parallel       | the piece that the side belongs to            | the piece beyond       |
/// | perpendicular  | ahead of the line, where the side runs to     | behind the line        |
/// | through_vertex | next to the side after the vertex             | next to the one before |
/// | at_bearing, along_segment | on the right of the line as it runs | on its left          |
/// | through_place  | next to the rest of the side, after the place | next to its beginning  |
/// | through_point  | on the right of the line as it runs           | on its left            |
///
/// A whole line (Pieces::any) through a vertex or a place has the amount on the side of it on which the side after the vertex
/// lies, or the rest of the side; `opposite` on the other side of it.
enum class Measured { from_reference, opposite };

/// How an amount is given.
enum class Given {
    as_area,     ///< first: unit squared
    as_product,  ///< first * second, both lengths
    as_share,    ///< first / second of the parcel's area
    as_width     ///< first: a distance, caller's unit; it places the line, and the area follows
};

/// What one piece should hold.
struct Amount {
    Given given;    ///< what the two numbers are
    double first;   ///< for the four kinds: area, length, numerator or width
    double second;  ///< for the four kinds: without effect, length, denominator or without effect
};

/// @param[in] value  unit squared
/// @return an amount given as an area
PLPARCEL_API Amount area(double value) noexcept;

/// @param[in] length1, length2  two lengths, caller's unit
/// @return an amount given as their product
PLPARCEL_API Amount product(double length1, double length2) noexcept;

/// @param[in] part  numerator: 1 for a third, 25 for 25 %
/// @param[in] of    denominator: 3 for a third, 100 for 25 %; the quotient is not rounded
/// @return an amount given as a share of the parcel's area
PLPARCEL_API Amount share(double part, double of) noexcept;

/// A strip of a given width, or a frontage along a side: the line lies that far from where its piece begins.
///
/// | cut                       | from_reference                     | opposite                          |
/// | ------------------------- | ---------------------------------- | --------------------------------- |
/// | parallel                  | from the side                      | from the vertex farthest from it  |
/// | perpendicular             | from the side's second end         | from the side's first end         |
/// | at_bearing, along_segment | from the vertex farthest right     | from the vertex farthest left     |
///
/// Each width but the first is counted from the line before. Areas and widths may be mixed.
///
/// @param[in] distance  caller's unit, at right angles to the line
/// @return an amount given as a width
PLPARCEL_API Amount width(double distance) noexcept;

/// @param[in] n  number of parts, 2 or more
/// @return n - 1 shares of 1/n, which leave one more; none when n is below 2
///
/// Degenerate  For more parts than a vector can hold, the vector throws std::length_error.
PLPARCEL_TAGGED_API PLPARCEL_API std::vector<Amount> equal_parts(std::size_t n);

/// Into how many pieces a line may cut.
enum class Pieces {
    two,  ///< exactly two: a line from boundary to boundary, past holes or across them. Some amounts have none, others
    ///< several
    any  ///< the whole straight line cuts, and the amount is all that lies on its side of it. Each amount has one of a
    ///< direction; through a vertex, a place or a point most amounts have one or more, see feasible()
};

/// What to cut off.
///
/// Several amounts are cut one after another, each off what the cut before it left. The first lies at the side or
/// vertex, as `measured` says, the second beside the first line, and so on. The side of the whole parcel gives all
/// lines their direction, or all start at the same vertex or place. The lines after a line through a point inside
/// start at that point, the next piece lies beside the half of the first line that runs to its end, and so round the
/// point. What is left after the last amount is the last piece.
struct PLPARCEL_TAGGED_API Request {
    Line line;  ///< how the line runs
    /// One or more. When there are two or more, the last may be what is left: if the sum of all is the parcel's
    /// area within 1e-9 of it, and within a hundredth of the last amount, one line less is cut. With a width among
    /// them, what is left after the last is a piece of its own.
    std::vector<Amount> amounts;
    Measured measured = Measured::from_reference;  ///< where the amounts lie
    /// Which of the lines that hold the first amount: 0 for the first one in the order that divide() states, 1 for the
    /// second. A line that holds the amount only nearly counts only as the first. Of whole lines (`pieces`) of a direction
    /// there is no second one.
    std::size_t alternative = 0;
    /// With `any`, a line through a vertex, a place or a point cuts off one amount only: whole lines that cross in one point
    /// leave no pieces next to each other.
    Pieces pieces = Pieces::two;
    Rounding rounding = {};  ///< how many decimals the ends of the lines have; see rounding.h
    /// Whether to call CFrazArea as well, for comparison. Its answers fill Division::bare and
    /// DividingLine::library_agrees; no line depends on them. It knows parallels, perpendiculars and lines from a
    /// vertex only, and no widths, holes or whole lines. It costs about as much as the division itself, and far more on
    /// parcels of thousands of vertices.
    bool ask_library = false;
};

/// What became of a request.
enum class Status {
    divided,  ///< the lines hold what was asked for, and lie in the parcel

    // the parcel
    unusable_boundary,  ///< the ring cannot be used; Division::ring says why

    // the request
    unknown_request,      ///< a cut, measure or kind of amount that does not exist
    no_such_index,        ///< the parcel has no side or vertex of that index
    side_without_length,  ///< the side's ends are the same point
    no_direction,         ///< a bearing that is not finite, or a segment that is not or has no length
    no_width,             ///< a width, and a line through a vertex, a place or a point
    no_such_place,        ///< the distance along the side is not a number from 0 to its length
    point_outside,  ///< the point lies outside the parcel, or is not finite; of a whole line (Pieces::any), it
                    ///< lies farther off than a million times the parcel's extent
    only_one_amount,  ///< two amounts or more, any number of pieces or holes, and a line through a vertex, a place or a point
    no_amount,          ///< the list of amounts is empty
    unusable_rounding,  ///< decimals or a tolerance outside what Rounding says
    unusable_amount,    ///< a number that is NaN, or a share's denominator not within 1e-200 to 1e200
    amount_too_small,   ///< not above zero, or given by a number below 1e-200
    amount_too_large,   ///< not less than there is to cut, or given by a number above 1e200; a width that
                        ///< reaches beyond what is left

    // the cut
    base_reaches_behind,  ///< the part of the parcel behind the base side is larger than the request
    no_line_through_point,  ///< in no direction does the line through the point cut the amount off; of whole lines, the
                            ///< vertex and the place are such points as well
    no_further_line,     ///< there are no more lines than Request::alternative says
    line_leaves_parcel,  ///< every line that holds the amount makes more than two pieces
    not_reached          ///< coordinates are too coarse to meet the amount within the tolerance
};

/// @param[in] status  any status
/// @return a sentence's worth in English, without a full stop; never null
PLPARCEL_API const char* describe(Status status) noexcept;

/// A dividing line in the parcel's coordinates, its ends on the boundary. With two pieces it is one segment, unless it
/// crosses holes.
struct DividingLine {
    /// A parallel runs in the direction of its side, a perpendicular from the end nearer to the side's line, a line
    /// through a vertex from that vertex, to the last bit, and one at a bearing or along a segment as these do. A line
    /// from a place or a point on the boundary starts there, to the last bit where the point was given by its
    /// coordinates; one through a point inside runs in the direction that has the amount on its right, or for
    /// `opposite` on its left, and so does any whole line through a vertex, a place or a point.
    PL_PNT2D_record from = {};
    PL_PNT2D_record to = {};  ///< the other end
    /// What of the line lies in the parcel, from `from` to `to`, each with its ends on the boundary; they touch where a
    /// vertex reaches up to the line. Rounded to decimals, a line through a point inside is parted there if further lines
    /// start at the point.
    std::vector<Segment> segments;
    /// Whether CFrazArea was asked (Request::ask_library) and its line is this one, up to its millionth of the amount.
    bool library_agrees = false;
    /// Whether the line, prolonged beyond its ends, meets what was left of the parcel again. Another line of the same
    /// direction, through another part of the parcel, may then be what was meant. Never with any number of pieces.
    bool meets_again = false;
};

/// A piece of the divided parcel.
struct Piece {
    Ring ring;  ///< runs as the parcel does, first vertex not repeated
    std::vector<Ring>
        holes;  ///< the holes in it, larger by a bay where a line cut one off; they run the other way
    std::size_t amount = 0;  ///< index of its amount; one more than the last of them for what is left
    double area = 0.0;       ///< of this ring less the holes, unit squared
    /// What it should hold; for the last piece, what is left of the parcel; for a width, what lies between the
    /// unrounded lines.
    double asked = 0.0;
    double residual = 0.0;  ///< what it holds less what it should, unit squared, before either is rounded
};

/// What one amount has become, of however many pieces. With two pieces each amount is one piece.
struct Held {
    double asked = 0.0;      ///< see Piece::asked, where it is repeated for each piece of the amount
    double area = 0.0;       ///< of all its pieces, unit squared
    double residual = 0.0;   ///< `area` less `asked`, before either is rounded; Piece::residual repeats it
    std::size_t pieces = 0;  ///< how many there are
};

/// What CFrazArea itself answered to one cut.
struct BareAnswer {
    bool done = false;            ///< what Esegui returned
    PL_LINE_2D_record line = {};  ///< its line, in the parcel's coordinates, unproven
};

/// The answer to a request.
struct PLPARCEL_TAGGED_API Division {
    Status status = Status::unusable_boundary;  ///< divided, or why not
    std::size_t at_amount = 0;                  ///< unless divided: index of the amount that could not be cut
    RingReport ring;                            ///< what check_ring() says of the parcel
    std::vector<DividingLine> lines;            ///< in the order of the amounts; empty unless divided
    std::vector<Piece> pieces;  ///< in the order of the amounts, then what is left; empty unless divided
    std::vector<Held> held;     ///< of each amount, then of what is left; empty unless divided
    /// Of the ends of all lines, where Request::rounding asks for decimals: as many, or more if those do not hold the
    /// amounts. None: the ends have all their digits.
    std::optional<int> decimals;
    std::vector<BareAnswer> bare;  ///< if asked for, one per cut that was tried, including a failed one
    std::size_t trials = 0;        ///< lines that were computed and measured, without those of CFrazArea
};

/// @param[in] division  any answer
/// @return describe() of its status, or of the boundary's status when the boundary is at fault; never null
PLPARCEL_API const char* describe(const Division& division) noexcept;

/// Divides a parcel.
///
/// @param[in] ring     a simple ring, in either direction; repeated vertices and a closing one do no harm. The vertex
///                     at which it begins changes no bit of status, lines and pieces
/// @param[in] request  what to cut off
/// @return `divided` only when every line lies in the parcel with its ends on the boundary and makes exactly two
///         pieces of what was left, and every piece holds its amount within 1e-9 of the parcel's area and within a
///         hundredth of itself, or within what Request::rounding states. The returned, rounded coordinates are judged,
///         by a measurement that shares nothing with the search: it walks both rings and sums with 106 bits.
///
/// Tolerance   The end of a line lies within 2.5 times coordinate_spacing() (extent.h) of its side: 3e-9 at 5e6. An
///             end within four spacings of a vertex, on each axis, is moved to the vertex if the amount allows it.
///             On parcels of about a square unit or less at such coordinates this alone may make the 1e-9
///             impossible, and the answer is then not_reached. A line that touches the boundary between its ends,
///             or passes a vertex within four spacings, makes more than two pieces.
/// Refused     A refusal is about the lines that hold the amount exactly. line_leaves_parcel says that each of them
///             makes more than two pieces; not_reached says that one of them makes two, but no doubles next to its
///             ends hold the amount. Another line, 25 spacings away, might still pass. A line to a vertex, or at
///             its level, is also tried when it misses the amount by no more than the tolerance.
/// Points      A point within 2.5 spacings of a side lies on it, and the line starts there; one within four spacings of
///             a vertex, on each axis, is that vertex. A line through a point inside passes it within six spacings, and
///             ends where it first meets the boundary on either side of the point. Where several such lines hold the
///             amount, the first that passes counts, clockwise from Line::bearing; where the area stays as the line
///             turns, as in the middle of a rectangle, that is the line at this bearing. Lines that miss the amount by
///             no more than the tolerance, through a vertex or of the greatest or least area that there is, come
///             after those that hold it.
/// Rounded     With Rounding::decimals the ends of all segments are rounded once the lines have been found. They are then
///             as near to their sides as half a step of the last decimal on each axis allows, an end at a vertex
///             included, and pieces and areas are those of the rounded ends. The ends of a line with several segments
///             lie within one and a half steps of each other across it. `divided` says that the pieces are simple, lie
///             beside each other and hold their amounts within Rounding::tolerance of the parcel, and that they do so
///             as well when each segment is prolonged or shortened to the boundary. A point inside at which further
///             lines start is rounded, and is a corner of all pieces. Where that takes more decimals, the lines have
///             more: Division::decimals. Where doubles cannot hold an amount within 1e-9, a line that holds
///             it within half the stated tolerance is rounded; not_reached says that there is none, or that not even
///             all digits hold the amounts. So a line that ends beside a vertex, and not on it, may be refused where
///             doubles lie that far apart: prolonged, it passes beyond the end of its side.
/// Concave     A line ends where it first leaves the parcel; see DividingLine::meets_again. When several lines hold
///             the amount, those on the inner side of the base side come first (for a perpendicular: those that
///             end on it). Among these come first the lines that meet the boundary only twice, and among these the
///             one nearest to the line of the base side (for a perpendicular: to its middle; at a bearing or along a
///             segment: to the vertex farthest to the right, for `opposite` to the left).
///
/// Any pieces  The whole line is cut along, in n log n for all amounts together. An end lies as near to its side as
///             said above, and all ends of a line lie within 14 spacings of each other across it. A vertex within
///             four spacings of the line lies on it: a segment ends there where the boundary leaves the line or
///             reaches up to it. Where a hole touches the line at a vertex only, and where the line passes vertices
///             so closely that rounding would make pieces touch, it is moved by 12 spacings or more, within what the
///             amounts allow. Of the statuses only not_reached can follow: the doubles there cannot hold the amount.
///             Pieces of one amount come in the order in which they meet its line, from the left as seen from where
///             the first amount lies.
/// Turning     A whole line through a vertex, a place or a point is found by turning it about that point, which may then lie
///             anywhere: outside of the parcel, or in a hole. On the boundary it begins along the side after the vertex,
///             or along the rest of the side, and turns half round away from it; elsewhere it begins at
///             Line::bearing and turns once round, clockwise. The lines that hold the amount come in this order, and after
///             them those that miss it by no more than the tolerance, through a vertex or of the greatest or least area
///             that there is. A line has its end at the place itself. It passes a point by no more than its ends are
///             rounded, or by 12 to 48 spacings, or as said above, where it touches a hole: through a corner of a
///             hole most lines do. no_line_through_point says that no line holds the amount; not_reached that the doubles
///             there cannot. In n log n, and for each range of directions in which the amount might be held as many steps as
///             the line meets sides.
PLPARCEL_API Division divide(const Ring& ring, const Request& request);

/// All divisions that a request allows: with each of the lines that hold its first amount, in the order in which divide()
/// states.
///
/// @param[in] ring, request  as for divide()
/// @return one division for each line, from Request::alternative on; where there is none, the one that says why. The
///         last of n lines costs as much as n divisions.
///
/// Degenerate  Where the area stays as a line through a point turns, every direction holds it. The line at
///             Line::bearing, those through vertices and one between each two of them stand for all.
PLPARCEL_API std::vector<Division> all_divisions(const Ring& ring, const Request& request);

/// The same of a parcel that may have holes.
///
/// @param[in] parcel, request  as for divide()
/// @return see above
PLPARCEL_API std::vector<Division> all_divisions(const Parcel& parcel, const Request& request);

/// Divides a parcel that may have holes.
///
/// @param[in] parcel   see check_parcel(); the order of the holes and the vertices at which rings begin change no bit
///                     of status, lines and pieces
/// @param[in] request  as for a ring; with holes, a line through a vertex, a place or a point cuts off one amount only
/// @return as for a ring, with two pieces and holes as follows.
///
/// Counts      A line begins on one ring of the boundary and runs on until it comes back to that ring: from the outer ring
///             to the outer ring, or across the bay of a hole. On its way it may cross other rings, each once; a
///             segment ends there, and the next one begins on the far side. Such a line makes exactly two pieces, and
///             a line that meets a ring twice on its way makes more. A line that touches a ring, or passes a vertex
///             within four spacings, does not count. Without holes this is the rule for a ring.
/// Order       As for a ring: see Concave above. A perpendicular ends on its base side where the last of its ends does.
/// Through     A vertex or a place is an end of one of the line's segments, to the last bit: the line begins there, or comes
///             from the far side of the ring that it crosses there. A point inside lies on a segment. The line turns round
///             as for a ring: at a vertex and a place, what runs from there into the parcel begins at the side after
///             them. The lines that hold the amount come in this order, then those that miss it by no more than the
///             tolerance, at vertices or of the greatest or least area that there is. no_line_through_point says that there
///             is none, line_leaves_parcel that each of them touches a ring.
/// Ends        All ends of a line lie within 14 spacings of each other across it. Of a line across holes they are moved one
///             after another where their roundings miss an amount: at the limit of what doubles hold, not_reached may
///             come where another combination of roundings would hold it.
/// Cost        n log^2 n for each line. Through a vertex, a place or a point n log n, and for each direction of a vertex as many
///             steps as the line meets sides before it comes to a ring for the second time.
PLPARCEL_API Division divide(const Parcel& parcel, const Request& request);

}  // namespace plparcel
