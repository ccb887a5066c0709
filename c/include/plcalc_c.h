#ifndef PLCALC_C_H
#define PLCALC_C_H

/** @file
 * plcalc for hosts without C++: C99, C#, Java, Rust, Delphi, Python's ctypes. Library `plcalc_c`.
 *
 * Only plain numbers, arrays of doubles, records and handles pass through this interface, and no exception does. It
 * computes nothing of its own: each function names the one of plcalc or plparcel that it calls, whose contract holds
 * to the last bit.
 *
 * Coordinates are plane, x East and y North, in the caller's unit. Points in arrays are x and y in turn: a ring of n
 * points is 2 * n doubles, a segment x1, y1, x2, y2. Bearings are gons (400 to the circle), clockwise from North.
 * Counts and indices are int64_t and indices begin at 0; codes and kinds are int32_t; on every machine.
 *
 * Functions that can fail return a code: 0 when all is well, see plc_code_text(). Whatever they should have
 * written is untouched for any other code, unless they say otherwise.
 *
 * **Records** begin with `struct_size`, which the caller sets to the size of the record as it was compiled or declared.
 * Later versions add fields at the end only. A shorter record is read as if the rest were zeros, and only its own
 * fields are written; of a longer one the rest must be zeros, and is left alone. Fields that are zero mean the usual
 * thing, so that a record of zeros but for its size is a good start. No record has padding: all compilers lay them
 * out alike.
 *
 * **Handles** are freed by the function of that name, once, which takes a null pointer too. Several threads may read
 * one handle at the same time; a thread that changes or frees one must be alone with it. Functions keep no state.
 * Texts are in English, constant, and never freed.
 */

#include <stdint.h>

/** @def PLC_API
 * Precedes every exported declaration. Define PLCALC_C_STATIC to use or build a static library, and PLCALC_C_BUILDING
 * to build the DLL. */
#if defined(PLCALC_C_STATIC)
#define PLC_API
#elif defined(_WIN32)
#if defined(PLCALC_C_BUILDING)
#define PLC_API __declspec(dllexport)
#else
#define PLC_API __declspec(dllimport)
#endif
#else
#define PLC_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** Version of this interface, as compiled in; plc_interface_version() tells that of the library. It grows when
 * something is added. What was there before stays as it was. */
#define PLC_INTERFACE_VERSION 1

/** @return the library's PLC_INTERFACE_VERSION; one that is not less than the caller's will do */
PLC_API int32_t plc_interface_version(void);

/** What a call has come to. */
enum {
    PLC_OK = 0,           /**< done */
    PLC_NO_ANSWER = 1,    /**< there is none: lines that do not meet, a division that was refused */
    PLC_NULL_POINTER = 2, /**< a pointer that must not be null is */
    PLC_WRONG_SIZE = 3,   /**< a struct_size that no version has, or fields that this library does not know */
    PLC_NO_SUCH_INDEX = 4, /**< an index or a count below 0, or an index beyond what there is */
    PLC_TOO_MANY = 5,      /**< more points than the computation takes */
    PLC_OUT_OF_MEMORY = 6, /**< no room */
    PLC_FAILED = 7         /**< an error of the library's own */
};

/** @param[in] code  what a call has returned
 *  @return a sentence's worth in English, without a full stop; never null */
PLC_API const char* plc_code_text(int32_t code);

/* ------------------------------------------------------------------------------------------------------- parcels */

/** A parcel: an outer ring, and holes. */
typedef struct plc_parcel plc_parcel;

/** Makes a parcel of its outer ring, which is copied. Nothing is checked: see plc_parcel_check().
 *
 * @param[in]  xy      the vertices, either way round; repeated vertices and a closing one do no harm
 * @param[in]  count   how many; with 0 `xy` may be null
 * @param[out] parcel  the handle; free it with plc_parcel_free()
 * @return PLC_OK, PLC_NULL_POINTER, PLC_NO_SUCH_INDEX or PLC_OUT_OF_MEMORY */
PLC_API int32_t plc_parcel_make(const double* xy, int64_t count, plc_parcel** parcel);

/** Adds a hole, which is copied.
 *
 * @param[in,out] parcel  the parcel
 * @param[in]     xy      the vertices of the hole, either way round
 * @param[in]     count   how many; with 0 `xy` may be null
 * @return PLC_OK, PLC_NULL_POINTER, PLC_NO_SUCH_INDEX or PLC_OUT_OF_MEMORY; unless PLC_OK the parcel is as it was */
PLC_API int32_t plc_parcel_add_hole(plc_parcel* parcel, const double* xy, int64_t count);

/** @param[in] parcel  the parcel, or null */
PLC_API void plc_parcel_free(plc_parcel* parcel);

/** Whether a boundary can be used. The numbers stay. */
enum {
    PLC_BOUNDARY_USABLE = 0,           /**< simple rings with an area */
    PLC_BOUNDARY_NOT_FINITE = 1,       /**< a coordinate is infinite or NaN */
    PLC_BOUNDARY_OUT_OF_RANGE = 2,     /**< beyond 2e90 or below 5e-91 across */
    PLC_BOUNDARY_TOO_FEW_VERTICES = 3, /**< fewer than three different ones */
    PLC_BOUNDARY_FLAT = 4,             /**< all vertices on one line, or next to no area */
    PLC_BOUNDARY_MEETS_ITSELF = 5,     /**< two sides of a ring meet elsewhere than at a common vertex */
    PLC_BOUNDARY_RINGS_MEET = 6,       /**< sides of two rings meet */
    PLC_BOUNDARY_HOLE_OUTSIDE = 7,     /**< a hole does not lie in the outer ring */
    PLC_BOUNDARY_HOLE_IN_HOLE = 8      /**< a hole lies in another */
};

/** @param[in] boundary  a PLC_BOUNDARY_ number
 *  @return a sentence's worth in English, without a full stop; never null */
PLC_API const char* plc_boundary_text(int32_t boundary);

/** What a check has found out about a parcel: plparcel::RingReport. */
typedef struct plc_parcel_report {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_parcel_report) */
    int32_t boundary;     /**< a PLC_BOUNDARY_ number */
    int64_t repeated;     /**< vertices that equal the one before, without tolerance, in all rings */
    int32_t closed;       /**< 1 when the outer ring's last vertex repeats the first, otherwise 0 */
    int32_t
        anticlockwise; /**< 1 when the outer ring runs so; 0 when not, and unless the boundary is usable */
    int64_t meeting_sides[2]; /**< for MEETS_ITSELF and RINGS_MEET: the two sides */
    int64_t meeting_rings[2]; /**< the rings of these sides: 0 the outer one, k the k-th hole */
    int64_t at_ring;          /**< unless usable: the ring at fault, counted in the same way */
    double area;              /**< unit squared, less the holes; 0 unless usable */
    double perimeter;         /**< caller's unit, with the holes' boundaries; 0 unless usable */
} plc_parcel_report;

/** Checks and measures a parcel: plparcel::check_parcel().
 *
 * @param[in]     parcel  the parcel
 * @param[in,out] report  its struct_size is read, the rest is written
 * @return PLC_OK, whatever is found; PLC_NULL_POINTER, PLC_WRONG_SIZE or PLC_OUT_OF_MEMORY */
PLC_API int32_t plc_parcel_check(const plc_parcel* parcel, plc_parcel_report* report);

/* ----------------------------------------------------------------------------------------- division with proof */

/** How a dividing line runs. */
enum {
    PLC_PARALLEL = 0,       /**< parallel to a side */
    PLC_PERPENDICULAR = 1,  /**< at right angles to a side */
    PLC_THROUGH_VERTEX = 2, /**< from a vertex */
    PLC_AT_BEARING = 3,     /**< in the direction of a bearing */
    PLC_ALONG_SEGMENT = 4,  /**< in the direction of a segment, which may lie anywhere */
    PLC_THROUGH_PLACE = 5,  /**< from a place on the boundary, given by a side and the distance along it */
    PLC_THROUGH_POINT = 6   /**< through a point inside; from a point on the boundary */
};

/** Which piece holds the amount: plparcel::Measured. */
enum {
    PLC_FROM_REFERENCE = 0, /**< the one at the side, after the vertex, or on the right of the line */
    PLC_OPPOSITE = 1        /**< the other one */
};

/** Into how many pieces a line may cut. */
enum {
    PLC_TWO_PIECES = 0, /**< exactly two */
    PLC_ANY_PIECES = 1  /**< the whole straight line cuts; the amount is all that lies on its side */
};

/** What to cut off: plparcel::Request without its amounts. Zeros but for the size ask for a parallel to the outer
 * ring's first side. */
typedef struct plc_request {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_request) */
    int32_t cut;          /**< PLC_PARALLEL to PLC_THROUGH_POINT */
    int64_t index;      /**< side or vertex, from 0 as the ring was handed over; without effect for others */
    int64_t ring;       /**< whose side or vertex: 0 the outer ring, k the k-th hole */
    double bearing_gon; /**< AT_BEARING: clockwise from North; THROUGH_POINT: likewise, where to look first */
    double a_x;         /**< ALONG_SEGMENT: where the segment begins; THROUGH_POINT: the point; East */
    double a_y;         /**< likewise; North */
    double b_x;         /**< ALONG_SEGMENT: where the segment ends; East */
    double b_y;         /**< likewise; North */
    double along;       /**< THROUGH_PLACE: distance from the side's first end, caller's unit */
    int32_t measured;   /**< PLC_FROM_REFERENCE or PLC_OPPOSITE */
    int32_t pieces;     /**< PLC_TWO_PIECES or PLC_ANY_PIECES */
    int64_t alternative; /**< which of the lines that hold the first amount, from 0 */
    int32_t rounded;     /**< 1: the ends of the lines have so many decimals; 0: all their digits */
    int32_t decimals;    /**< 0 to 17, when rounded */
    double
        rounding_tolerance; /**< by how much a piece may miss its amount when rounded, as a part of the parcel;
                                    0 stands for 1e-6 */
    int32_t ask_library;    /**< 1: CFrazArea is called as well, see plc_division_bare() */
    int32_t reserved;       /**< 0 */
} plc_request;

/** How an amount is given. */
enum {
    PLC_AREA = 0,    /**< first: unit squared */
    PLC_PRODUCT = 1, /**< first * second, both lengths */
    PLC_SHARE = 2,   /**< first / second of the parcel's area; the quotient is not rounded */
    PLC_WIDTH = 3    /**< first: a distance, caller's unit; it places the line, and the area follows */
};

/** What one piece should hold. */
typedef struct plc_amount {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_amount); the same in all amounts of an array */
    int32_t given;        /**< PLC_AREA to PLC_WIDTH */
    double first;         /**< area, length, numerator or width */
    double second;        /**< without effect, length, denominator or without effect */
} plc_amount;

/** What became of a request: plparcel::Status. The numbers stay. */
enum {
    PLC_DIVIDED = 0,                /**< the lines hold what was asked for, and lie in the parcel */
    PLC_UNUSABLE_BOUNDARY = 1,      /**< the boundary cannot be used: plc_parcel_check() says why */
    PLC_UNKNOWN_REQUEST = 2,        /**< a cut, measure or kind of amount that does not exist */
    PLC_NO_SUCH_SIDE_OR_VERTEX = 3, /**< the parcel has none of that index */
    PLC_SIDE_WITHOUT_LENGTH = 4,    /**< the side's ends are the same point */
    PLC_NO_DIRECTION = 5,    /**< a bearing that is not finite, or a segment that is not or has no length */
    PLC_NO_WIDTH = 6,        /**< a width, and a line that has no direction */
    PLC_NO_SUCH_PLACE = 7,   /**< the distance along the side is not a number from 0 to its length */
    PLC_POINT_OUTSIDE = 8,   /**< the point lies outside the parcel, or is not finite */
    PLC_ONLY_ONE_AMOUNT = 9, /**< two amounts or more, any number of pieces, and a line without a direction */
    PLC_NO_AMOUNT = 10,      /**< there are no amounts */
    PLC_UNUSABLE_ROUNDING = 11, /**< decimals or a tolerance out of range */
    PLC_UNUSABLE_AMOUNT = 12,   /**< a number that is NaN, or a denominator not within 1e-200 to 1e200 */
    PLC_AMOUNT_TOO_SMALL = 13,  /**< not above zero */
    PLC_AMOUNT_TOO_LARGE = 14,  /**< not less than there is to cut */
    PLC_BASE_REACHES_BEHIND =
        15, /**< the part of the parcel behind the base side is larger than the request */
    PLC_NO_LINE_THROUGH_POINT = 16, /**< in no direction does the line through the point cut the amount off */
    PLC_NO_FURTHER_LINE = 17,       /**< there are no more lines than `alternative` says */
    PLC_LINE_LEAVES_PARCEL = 18,    /**< every line that holds the amount makes more than two pieces */
    PLC_NOT_REACHED = 19            /**< coordinates are too coarse to meet the amount within the tolerance */
};

/** @param[in] status  a number from PLC_DIVIDED on
 *  @return a sentence's worth in English, without a full stop; never null */
PLC_API const char* plc_status_text(int32_t status);

/** The answer to a request. */
typedef struct plc_division plc_division;

/** Divides a parcel: plparcel::divide(), whose contract says what `divided` proves and what each refusal means.
 *
 * @param[in]  parcel    the parcel, of which the answer keeps nothing
 * @param[in]  request   what to cut off; numbers out of range are refused with a status
 * @param[in]  amounts   one or more, cut one after another; with a count of 0 it may be null
 * @param[in]  count     how many amounts
 * @param[out] division  the answer; free it with plc_division_free()
 * @return PLC_OK divided; PLC_NO_ANSWER refused: the answer says why; with any other code there is no answer and
 *         `division` is untouched: PLC_NULL_POINTER, PLC_WRONG_SIZE, PLC_NO_SUCH_INDEX, PLC_OUT_OF_MEMORY */
PLC_API int32_t plc_divide(const plc_parcel* parcel, const plc_request* request, const plc_amount* amounts,
                           int64_t count, plc_division** division);

/** @param[in] division  the answer, or null */
PLC_API void plc_division_free(plc_division* division);

/** What an answer is: plparcel::Division. */
typedef struct plc_division_info {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_division_info) */
    int32_t status;       /**< PLC_DIVIDED, or why not */
    int64_t at_amount;    /**< unless divided: index of the amount that could not be cut */
    int32_t boundary;     /**< a PLC_BOUNDARY_ number, of the whole parcel */
    int32_t decimals;     /**< of the ends of all lines; -1 all digits */
    double area;          /**< of the parcel, unit squared; 0 unless its boundary is usable */
    int64_t lines;        /**< how many dividing lines; this and the next two are 0 unless divided */
    int64_t pieces;       /**< how many pieces, in the order of the amounts, then what is left */
    int64_t held;         /**< how many amounts, with what is left */
    int64_t bare;         /**< how many answers of CFrazArea; 0 unless asked for */
    int64_t trials;       /**< lines that were computed and measured */
} plc_division_info;

/** @param[in]     division  the answer
 *  @param[in,out] info      its struct_size is read, the rest is written
 *  @return PLC_OK, PLC_NULL_POINTER or PLC_WRONG_SIZE */
PLC_API int32_t plc_division_get(const plc_division* division, plc_division_info* info);

/** @param[in] division  the answer
 *  @return what became of the request, or what is wrong with the boundary, as a sentence's worth in English; for a
 *          null pointer the text of PLC_NULL_POINTER */
PLC_API const char* plc_division_text(const plc_division* division);

/** A dividing line: plparcel::DividingLine. */
typedef struct plc_line_info {
    uint32_t struct_size;   /**< set by the caller: sizeof(plc_line_info) */
    int32_t library_agrees; /**< 1 when CFrazArea was asked, and its line is this one */
    double from_x;       /**< the end that comes first along the line, on the boundary: East, caller's unit */
    double from_y;       /**< North */
    double to_x;         /**< the other end: East */
    double to_y;         /**< North */
    int64_t segments;    /**< how many parts of it lie in the parcel; 1 with two pieces and no holes */
    int32_t meets_again; /**< 1 when the line, prolonged, meets what was left of the parcel again */
    int32_t reserved;    /**< 0 */
} plc_line_info;

/** @param[in]     division  the answer
 *  @param[in]     line      index, in the order of the amounts
 *  @param[in,out] info      its struct_size is read, the rest is written
 *  @return PLC_OK, PLC_NULL_POINTER, PLC_WRONG_SIZE or PLC_NO_SUCH_INDEX */
PLC_API int32_t plc_division_line(const plc_division* division, int64_t line, plc_line_info* info);

/** A part of a dividing line that lies in the parcel.
 *
 * @param[in]  division  the answer
 * @param[in]  line      index of the line
 * @param[in]  segment   index of the part, in the order along the line
 * @param[out] xyxy      its ends: 4 doubles
 * @return PLC_OK, PLC_NULL_POINTER or PLC_NO_SUCH_INDEX */
PLC_API int32_t plc_division_segment(const plc_division* division, int64_t line, int64_t segment,
                                     double* xyxy);

/** A piece of the divided parcel: plparcel::Piece. */
typedef struct plc_piece_info {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_piece_info) */
    int32_t reserved;     /**< 0 */
    int64_t amount;       /**< index of its amount; one more than the last of them for what is left */
    int64_t vertices;     /**< of its outer ring */
    int64_t holes;        /**< how many */
    double area;          /**< unit squared, less the holes */
    double asked;    /**< what it should hold, unit squared; with any number of pieces, the whole amount */
    double residual; /**< what the amount holds less what it should, before either is rounded */
} plc_piece_info;

/** @param[in]     division  the answer
 *  @param[in]     piece     index, in the order of the amounts, then what is left
 *  @param[in,out] info      its struct_size is read, the rest is written
 *  @return PLC_OK, PLC_NULL_POINTER, PLC_WRONG_SIZE or PLC_NO_SUCH_INDEX */
PLC_API int32_t plc_division_piece(const plc_division* division, int64_t piece, plc_piece_info* info);

/** The vertices of a piece. Its outer ring runs as the parcel does, its holes the other way; the first vertex is not
 * repeated.
 *
 * @param[in]  division  the answer
 * @param[in]  piece     index of the piece
 * @param[in]  ring      0 the outer ring, k the k-th hole
 * @param[out] xy        the vertices; null when `room` is 0
 * @param[in]  room      how many vertices fit there; what does not fit is left out
 * @param[out] count     how many vertices the ring has
 * @return PLC_OK, PLC_NULL_POINTER or PLC_NO_SUCH_INDEX */
PLC_API int32_t plc_division_ring(const plc_division* division, int64_t piece, int64_t ring, double* xy,
                                  int64_t room, int64_t* count);

/** What one amount has become, of however many pieces: plparcel::Held. */
typedef struct plc_held_info {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_held_info) */
    int32_t reserved;     /**< 0 */
    int64_t pieces;       /**< how many pieces hold it */
    double asked;         /**< what they should hold, unit squared */
    double area;          /**< of all of them */
    double residual;      /**< `area` less `asked`, before either is rounded */
} plc_held_info;

/** @param[in]     division  the answer
 *  @param[in]     amount    index of the amount; the last index is what is left
 *  @param[in,out] info      its struct_size is read, the rest is written
 *  @return PLC_OK, PLC_NULL_POINTER, PLC_WRONG_SIZE or PLC_NO_SUCH_INDEX */
PLC_API int32_t plc_division_held(const plc_division* division, int64_t amount, plc_held_info* info);

/** What CFrazArea itself has answered to a cut, unproven. Only where plc_request::ask_library asked for it.
 *
 * @param[in]  division  the answer
 * @param[in]  cut       index, in the order in which the cuts were tried
 * @param[out] xyxy      the ends of its line: 4 doubles
 * @return PLC_OK; PLC_NO_ANSWER where CFrazArea has returned false, with its line all the same; PLC_NULL_POINTER,
 *         PLC_NO_SUCH_INDEX */
PLC_API int32_t plc_division_bare(const plc_division* division, int64_t cut, double* xyxy);

/** Every division that a request allows, one for each line that holds its first amount. */
typedef struct plc_divisions plc_divisions;

/** Divides a parcel by each line that holds the first amount, from plc_request::alternative on: plparcel::all_divisions(),
 * which says in which order. The last of n lines costs as much as n divisions.
 *
 * @param[in]  parcel, request, amounts, count  as for plc_divide()
 * @param[out] divisions  the answers; free them with plc_divisions_free()
 * @return PLC_OK divided; PLC_NO_ANSWER where there is no line: the only answer says why; otherwise as plc_divide() */
PLC_API int32_t plc_all_divisions(const plc_parcel* parcel, const plc_request* request,
                                  const plc_amount* amounts, int64_t count, plc_divisions** divisions);

/** @param[in] divisions  the answers, or null
 *  @return how many there are; 0 for a null pointer */
PLC_API int64_t plc_divisions_count(const plc_divisions* divisions);

/** @param[in] divisions  the answers
 *  @param[in] index      which one
 *  @return the answer, which is a part of `divisions`: do not free it; null where there is none of that index */
PLC_API const plc_division* plc_divisions_at(const plc_divisions* divisions, int64_t index);

/** @param[in] divisions  the answers, or null */
PLC_API void plc_divisions_free(plc_divisions* divisions);

/* ---------------------------------------------------------------------------------- what could be asked instead */

/** Areas from the least to the greatest, without a gap: plparcel::AmountRange. */
typedef struct plc_range {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_range) */
    int32_t least_is_had; /**< 1 when the least area is had itself; otherwise all above it */
    double least;         /**< unit squared */
    double most;          /**< unit squared */
    int32_t most_is_had;  /**< likewise, of the greatest */
    int32_t reserved;     /**< 0 */
} plc_range;

/** What a line can cut off: plparcel::Feasible. */
typedef struct plc_feasible_info {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_feasible_info) */
    int32_t
        refused; /**< 0, or what plc_divide() answers whatever the amount: PLC_UNUSABLE_BOUNDARY or another */
    int64_t ranges; /**< how many; 0 when refused */
    double parcel;  /**< area of the parcel, unit squared; 0 unless its boundary is usable */
} plc_feasible_info;

/** What a line can cut off: plparcel::feasible().
 *
 * @param[in]     parcel   the parcel
 * @param[in]     request  its line, `measured` and `pieces`; the rest has no effect
 * @param[in,out] ranges   from the smallest areas on. The struct_size of the first is read; the others have the same, which is
 *                         written. Null when `room` is 0
 * @param[in]     room     how many ranges fit there; what does not fit is left out
 * @param[in,out] info     its struct_size is read, the rest is written
 * @return PLC_OK; PLC_NO_ANSWER when refused, `info` says why; PLC_NULL_POINTER, PLC_WRONG_SIZE, PLC_NO_SUCH_INDEX,
 *         PLC_OUT_OF_MEMORY */
PLC_API int32_t plc_feasible(const plc_parcel* parcel, const plc_request* request, plc_range* ranges,
                             int64_t room, plc_feasible_info* info);

/** The amounts nearest to one that cannot be had: plparcel::NearestAmounts. */
typedef struct plc_nearest {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_nearest) */
    int32_t has_below;    /**< 1 when there is one */
    double below;         /**< the greatest that is not above it, unit squared; 0 when there is none */
    double above;         /**< the least that is not below it; likewise */
    int32_t has_above;    /**< 1 when there is one */
    int32_t below_is_had; /**< 1 when had itself; otherwise everything up to there is */
    int32_t above_is_had; /**< likewise, from there on */
    int32_t reserved;     /**< 0 */
} plc_nearest;

/** The amounts nearest to one that cannot be had: plparcel::nearest_amounts().
 *
 * @param[in]     ranges   of plc_feasible(), all of the same struct_size; with a count of 0 it may be null
 * @param[in]     count    how many
 * @param[in]     area     unit squared
 * @param[in,out] nearest  its struct_size is read, the rest is written; both are `area` itself where a range has it
 * @return PLC_OK, PLC_NULL_POINTER, PLC_WRONG_SIZE, PLC_NO_SUCH_INDEX or PLC_OUT_OF_MEMORY */
PLC_API int32_t plc_nearest_amounts(const plc_range* ranges, int64_t count, double area,
                                    plc_nearest* nearest);

/** A line that can cut off an amount: plparcel::Alternative. */
typedef struct plc_alternative {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_alternative) */
    int32_t cut;          /**< PLC_PARALLEL, PLC_PERPENDICULAR or PLC_THROUGH_VERTEX */
    int64_t index;        /**< side or vertex */
    int64_t ring;         /**< whose: 0 the outer ring, k the k-th hole */
    int32_t measured;     /**< which of its pieces can hold the amount */
    int32_t least_is_had; /**< of the range that the amount lies in, see plc_range */
    double least;         /**< likewise */
    double most;          /**< likewise */
    int32_t most_is_had;  /**< likewise */
    int32_t reserved;     /**< 0 */
} plc_alternative;

/** What came of looking for lines: plparcel::Alternatives. */
typedef struct plc_alternatives_info {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_alternatives_info) */
    int32_t refused;      /**< 0, or why there can be none: a status */
    int64_t lines;        /**< how many can hold the amount; 0 when refused */
    int64_t looked_at;    /**< how many were looked at */
    int64_t of;           /**< how many there are; when more, the list is not whole */
} plc_alternatives_info;

/** The parallels, perpendiculars and vertices of a parcel that can hold an amount in two pieces:
 * plparcel::alternatives_for(), whose cost grows with the number looked at.
 *
 * @param[in]     parcel    the parcel
 * @param[in]     amount    an area, product or share
 * @param[in]     measured  PLC_FROM_REFERENCE or PLC_OPPOSITE: which piece should hold it
 * @param[in]     most      how many lines to look at, at most; below 0 as many as there are
 * @param[in,out] lines     in the order in which they were looked at; struct_size as for plc_feasible(); null when `room`
 *                          is 0
 * @param[in]     room      how many lines fit there; what does not fit is left out
 * @param[in,out] info      its struct_size is read, the rest is written
 * @return PLC_OK; PLC_NO_ANSWER when refused, `info` says why; PLC_NULL_POINTER, PLC_WRONG_SIZE, PLC_NO_SUCH_INDEX,
 *         PLC_OUT_OF_MEMORY */
PLC_API int32_t plc_alternatives_for(const plc_parcel* parcel, const plc_amount* amount, int32_t measured,
                                     int64_t most, plc_alternative* lines, int64_t room,
                                     plc_alternatives_info* info);

/* ------------------------------------------------------------------------------------------------- which side */

/** What a side or a vertex is. */
enum {
    PLC_LONGEST_SIDE = 0,   /**< plparcel::longest_side() */
    PLC_SHORTEST_SIDE = 1,  /**< plparcel::shortest_side() */
    PLC_SIDE_NEAR = 2,      /**< nearest to a point: plparcel::side_near() */
    PLC_SIDE_FACING = 3,    /**< facing a bearing: plparcel::side_facing() */
    PLC_SIDE_ALONG = 4,     /**< along another geometry, such as a road: plparcel::side_along() */
    PLC_VERTEX_NEAR = 5,    /**< nearest to a point: plparcel::vertex_near() */
    PLC_VERTEX_FARTHEST = 6 /**< farthest towards a bearing: plparcel::vertex_farthest() */
};

/** Which side or vertex to look for. Zeros but for the size ask for the longest side. */
typedef struct plc_search {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_search) */
    int32_t wanted;       /**< PLC_LONGEST_SIDE to PLC_VERTEX_FARTHEST */
    double x;             /**< SIDE_NEAR, VERTEX_NEAR: the point, which may lie anywhere; East */
    double y;             /**< likewise; North */
    double bearing_gon;   /**< SIDE_FACING, VERTEX_FARTHEST: clockwise from North */
    double distance;      /**< SIDE_ALONG: how far away the other geometry may lie, caller's unit */
    double angle_gon;     /**< SIDE_ALONG: how much it may turn away from the side; 0 stands for 25 */
    /** Differences up to this count as none: caller's unit, for SIDE_FACING gons. The program takes 0.001 and 0.01. */
    double tied_within;
} plc_search;

/** What became of a search: plparcel::ChoiceStatus. The numbers stay. */
enum {
    PLC_CHOICE_FOUND = 0,             /**< there is one */
    PLC_CHOICE_TIED = 1,              /**< several fit equally well */
    PLC_CHOICE_UNUSABLE_BOUNDARY = 2, /**< the parcel cannot be used; plc_choice::boundary says why */
    PLC_CHOICE_UNUSABLE_REQUEST = 3,  /**< a number out of range, or `wanted` is none of the kinds above */
    PLC_CHOICE_NOTHING_GIVEN = 4,     /**< there is no other geometry that has a length */
    PLC_CHOICE_TOO_FAR = 5,           /**< no side comes within the distance of the other geometry */
    PLC_CHOICE_NOT_ALONGSIDE = 6,     /**< sides do, but none faces it, or runs along it */
    PLC_CHOICE_TOO_MUCH_NEAR = 7      /**< too many pairs of sides and segments are near each other */
};

/** @param[in] status  a PLC_CHOICE_ number
 *  @return a sentence's worth in English, without a full stop; never null */
PLC_API const char* plc_choice_text(int32_t status);

/** A side or a vertex, and what was measured of it: plparcel::Candidate. */
typedef struct plc_candidate {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_candidate) */
    int32_t reserved;     /**< 0 */
    int64_t index;        /**< of the side or vertex */
    int64_t ring;         /**< whose: 0 the outer ring, k the k-th hole */
    double length;        /**< of the side, caller's unit; 0 for a vertex */
    double bearing_gon;   /**< towards which the side faces, out of the parcel; 0 for a vertex */
    double turned_gon;    /**< SIDE_FACING: from there to the bearing that was asked for, 0 to 200 */
    double distance;      /**< NEAR: from the point; SIDE_ALONG: of the other geometry where it is nearest;
                               VERTEX_FARTHEST: by how much others lie farther. Caller's unit */
    double alongside;     /**< SIDE_ALONG: how much of its length counts, caller's unit */
} plc_candidate;

/** What came of a search: plparcel::Choice. */
typedef struct plc_choice {
    uint32_t struct_size; /**< set by the caller: sizeof(plc_choice) */
    int32_t status;       /**< a PLC_CHOICE_ number */
    int32_t boundary;     /**< a PLC_BOUNDARY_ number, of the whole parcel */
    int32_t has_next;     /**< 1: after the candidates follows one more, which fits best after them */
    int64_t candidates;   /**< FOUND: 1; TIED: all that fit equally well; otherwise 0 */
    double nearest;       /**< TOO_FAR, NOT_ALONGSIDE: how near the other geometry comes, caller's unit */
} plc_choice;

/** Another geometry, to be asked about many parcels: plparcel::OtherGeometry. */
typedef struct plc_other plc_other;

/** Makes another geometry of its segments: the axes of roads, the boundaries of neighbours.
 *
 * @param[in]  xyxy   the ends of each segment: 4 doubles; in any order
 * @param[in]  count  how many segments; with 0 `xyxy` may be null
 * @param[out] other  the handle; free it with plc_other_free()
 * @return PLC_OK, PLC_NULL_POINTER, PLC_NO_SUCH_INDEX or PLC_OUT_OF_MEMORY */
PLC_API int32_t plc_other_make(const double* xyxy, int64_t count, plc_other** other);

/** @param[in] other  the other geometry, or null */
PLC_API void plc_other_free(plc_other* other);

/** Finds a side or a vertex by what it is.
 *
 * @param[in]     parcel      the parcel
 * @param[in]     search      what to look for
 * @param[in]     other       SIDE_ALONG: the other geometry; otherwise without effect, and may be null
 * @param[in,out] candidates  the one that was found, or all that fit equally well, in the order of rings and indexes;
 *                            struct_size as for plc_feasible(); null when `room` is 0
 * @param[in]     room        how many candidates fit there; what does not fit is left out
 * @param[in,out] choice      its struct_size is read, the rest is written
 * @return PLC_OK found; PLC_NO_ANSWER not found, or tied: `choice` says why; PLC_NULL_POINTER, PLC_WRONG_SIZE,
 *         PLC_NO_SUCH_INDEX, PLC_OUT_OF_MEMORY */
PLC_API int32_t plc_find(const plc_parcel* parcel, const plc_search* search, const plc_other* other,
                         plc_candidate* candidates, int64_t room, plc_choice* choice);

/* ----------------------------------------------------------------------------------------------------- rounding */

/** A number as it is staked out: plparcel::rounded_to().
 *
 * @param[in] value     any number below 1e280
 * @param[in] decimals  0 to 17; below that it is 0, above that 17
 * @return the double nearest to the decimal number of so many decimals that is nearest to the value; never -0 */
PLC_API double plc_rounded_to(double value, int32_t decimals);

/* --------------------------------------------------------------------------------------------------- subdivision */

/** The search of CFrazArea by itself: a dividing line, unproven. PLC_OK says that the search ran, not that the line
 * holds the request: measure the pieces, or call plc_divide(), which does.
 *
 * @param[in]  xy            the ring, its first vertex not repeated; see CFrazArea for how to prepare it
 * @param[in]  count         how many vertices, below 2^31
 * @param[in]  x1, y1        first end of the reference side, or the reference vertex; equal to a vertex to the bit
 * @param[in]  x2, y2        second end of the side; without effect from a vertex
 * @param[in]  cut           PLC_PARALLEL, PLC_PERPENDICULAR or PLC_THROUGH_VERTEX; others have no answer
 * @param[in]  area_kind     0: the area is value2 * value1; 1: it is value1
 * @param[in]  value1        a length or an area
 * @param[in]  value2        a length, or without effect
 * @param[out] xyxy          the ends of the line: 4 doubles; with PLC_NO_ANSWER zeros, or what the search came to
 * @return PLC_OK the search ran; PLC_NO_ANSWER it did not: CFrazArea::Esegui() says when; PLC_NULL_POINTER,
 *         PLC_NO_SUCH_INDEX, PLC_TOO_MANY, PLC_OUT_OF_MEMORY */
PLC_API int32_t plc_fraz_area(const double* xy, int64_t count, double x1, double y1, double x2, double y2,
                              int32_t cut, int32_t area_kind, double value1, double value2, double* xyxy);

/* --------------------------------------------------------------------------------------------------------- areas */

/** Signed area of a ring: AreaCalcolataSgn(). Without the exactness of plc_parcel_check(), and without its checks.
 *
 * @param[in]  xy     the ring
 * @param[in]  count  how many vertices, below 2^31
 * @param[out] area   positive anticlockwise, negative clockwise, unit squared
 * @return PLC_OK, PLC_NULL_POINTER, PLC_NO_SUCH_INDEX, PLC_TOO_MANY or PLC_OUT_OF_MEMORY */
PLC_API int32_t plc_signed_area(const double* xy, int64_t count, double* area);

/** Perimeter of a ring: PeriCalcolato().
 *
 * @param[in]  xy         the ring
 * @param[in]  count      how many vertices, below 2^31
 * @param[out] perimeter  caller's unit, with the side from the last vertex to the first
 * @return PLC_OK, PLC_NULL_POINTER, PLC_NO_SUCH_INDEX, PLC_TOO_MANY or PLC_OUT_OF_MEMORY */
PLC_API int32_t plc_perimeter(const double* xy, int64_t count, double* perimeter);

/** Whether a point lies in a ring: PlFunz_inpolygon(), which says near what it may err, and asks for a local origin.
 *
 * @param[in]  x, y    the point
 * @param[in]  xy      the ring, its first vertex not repeated
 * @param[in]  count   how many vertices, below 2^31
 * @param[out] inside  1 inside, 0 outside; on the boundary either
 * @return PLC_OK, PLC_NULL_POINTER, PLC_NO_SUCH_INDEX or PLC_TOO_MANY */
PLC_API int32_t plc_in_ring(double x, double y, const double* xy, int64_t count, int32_t* inside);

/* ------------------------------------------------------------------------------------------------- intersections */

/** Meeting point of two unlimited lines, each through two points: CalcoloIntersezioneRetteExt().
 *
 * @param[in]  line1, line2  two points of each: 4 doubles
 * @param[out] xy            the point: 2 doubles; for lines that coincide the second point of the first line
 * @return PLC_OK, PLC_NO_ANSWER for parallels, PLC_NULL_POINTER */
PLC_API int32_t plc_meet_lines(const double* line1, const double* line2, double* xy);

/** Meeting point of two segments: PlFunz_intersect_ls().
 *
 * @param[in]  segment1, segment2  their ends: 4 doubles
 * @param[out] xy                  the point, computed along the first: 2 doubles
 * @return PLC_OK, PLC_NO_ANSWER when they do not meet or are parallel, PLC_NULL_POINTER */
PLC_API int32_t plc_meet_segments(const double* segment1, const double* segment2, double* xy);

/** Where a segment meets an arc: PlFunz_intarcline_ls().
 *
 * @param[in]  arc      centre x and y, radius, start and end angle in radians, anticlockwise from +x: 5 doubles
 * @param[in]  segment  its ends: 4 doubles
 * @param[out] xy       one or two points in the order along the segment: 4 doubles; the second pair is untouched when
 *                      there is one point
 * @param[out] count    1 or 2; 0 with PLC_NO_ANSWER
 * @return PLC_OK, PLC_NO_ANSWER when they do not meet, PLC_NULL_POINTER */
PLC_API int32_t plc_meet_arc_and_segment(const double* arc, const double* segment, double* xy,
                                         int32_t* count);

/** The arc through three points: PlFunz_arc_3pnts().
 *
 * @param[in]  xy   the first end, a point between, the other end: 6 doubles
 * @param[out] arc  centre x and y, radius, start and end angle in radians, anticlockwise from +x: 5 doubles
 * @return PLC_OK, PLC_NO_ANSWER when they lie on one line or coincide, PLC_NULL_POINTER */
PLC_API int32_t plc_arc_through(const double* xy, double* arc);

/* ------------------------------------------------------------------------------------------------------- set-out */

/** @param[in] x1, y1, x2, y2  two points
 *  @return their distance: PlFunz_distance() */
PLC_API double plc_distance(double x1, double y1, double x2, double y2);

/** @param[in] x1, y1  the point looked from
 *  @param[in] x2, y2  the point looked at
 *  @return the bearing in [0, 400) gons: AngoloDaAsseRifer() of the differences; 0 for equal points */
PLC_API double plc_bearing(double x1, double y1, double x2, double y2);

/** @param[in] bearing_gon  any number of turns
 *  @return the same direction in [0, 400): LimiteAng0_400() */
PLC_API double plc_within_turn(double bearing_gon);

/** Polar set-out from an oriented station: CalcPtAngDist().
 *
 * @param[in]  station_x, station_y  the instrument
 * @param[in]  ref_x, ref_y          the point that it is oriented on
 * @param[in]  angle_gon             clockwise from the direction of that point
 * @param[in]  distance              caller's unit
 * @param[out] xy                    the point: 2 doubles
 * @return PLC_OK or PLC_NULL_POINTER */
PLC_API int32_t plc_polar_point(double station_x, double station_y, double ref_x, double ref_y,
                                double angle_gon, double distance, double* xy);

/** Right-angle set-out from a base line: CalcPtSquadro().
 *
 * @param[in]  a_x, a_y, b_x, b_y  the base line
 * @param[in]  abscissa            distance from a towards b
 * @param[in]  ordinate            at right angles: positive to the right for an abscissa of 0 or more, and to the left
 *                                 for one below 0: behind a the sides are exchanged
 * @param[out] xy                  the point: 2 doubles
 * @return PLC_OK or PLC_NULL_POINTER */
PLC_API int32_t plc_offset_point(double a_x, double a_y, double b_x, double b_y, double abscissa,
                                 double ordinate, double* xy);

/** Abscissa and ordinate of a point on a base line, and its foot: DistSegmDaPt(), and DistPtSuSegmDaPt() of the foot.
 *
 * @param[in]  a_x, a_y, b_x, b_y  the base line
 * @param[in]  x, y                the point
 * @param[out] foot_xy             the foot of the perpendicular: 2 doubles
 * @param[out] abscissa            distance of the foot from a: positive towards b, -0.0 or below behind a
 * @param[out] ordinate            positive to the right of the way from a to b, negative to the left, also behind a,
 *                                 where plc_offset_point() exchanges the sides
 * @return PLC_OK; PLC_NO_ANSWER when a and b are not farther apart than 3.16e-4, or a number is NaN; PLC_NULL_POINTER */
PLC_API int32_t plc_offsets_of(double a_x, double a_y, double b_x, double b_y, double x, double y,
                               double* foot_xy, double* abscissa, double* ordinate);

/** Point at a distance from a point, parallel to a segment: CalcPtAtDistSuSegm().
 *
 * @param[in]  a_x, a_y, b_x, b_y  the segment: only its direction counts
 * @param[in]  from_x, from_y      where to start
 * @param[in]  distance            caller's unit; a negative one leads back
 * @param[out] xy                  the point: 2 doubles
 * @return PLC_OK or PLC_NULL_POINTER */
PLC_API int32_t plc_point_along(double a_x, double a_y, double b_x, double b_y, double from_x, double from_y,
                                double distance, double* xy);

/** Height on a segment by linear interpolation: CalcoloQuotaSuSegmento().
 *
 * @param[in]  xyz1, xyz2  the ends with their heights: 3 doubles each
 * @param[in]  x, y        where the height is wanted
 * @param[out] z           the height
 * @return PLC_OK; PLC_NO_ANSWER when the ends coincide in plan or a number is not finite; PLC_NULL_POINTER */
PLC_API int32_t plc_height_on_segment(const double* xyz1, const double* xyz2, double x, double y, double* z);

#ifdef __cplusplus
}
#endif

#endif
