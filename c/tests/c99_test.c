/* The interface as a C99 host sees it: layouts, codes, null pointers, sizes of other versions, each function once with a
 * figure worked out by hand. That the bits are the library's is asked by the hosts. */
#include <math.h>
#include <stddef.h>
#include <stdio.h>
#include <string.h>

#include "plcalc_c.h"

static int failures = 0;

static void check(int holds, const char* what, int line)
{
    if (!holds) {
        printf("line %d: %s\n", line, what);
        ++failures;
    }
}
#define CHECK(condition) check((condition), #condition, __LINE__)

/* 100 by 50, anticlockwise from the south-west. */
static const double kLot[] = {0, 0, 100, 0, 100, 50, 0, 50};
/* 10 by 10, in the middle of it. */
static const double kPond[] = {45, 20, 55, 20, 55, 30, 45, 30};

static plc_request along_first_side(void)
{
    plc_request request;
    memset(&request, 0, sizeof request);
    request.struct_size = sizeof request;
    return request;
}

static plc_amount amount_of(int32_t given, double first, double second)
{
    plc_amount amount;
    amount.struct_size = sizeof amount;
    amount.given = given;
    amount.first = first;
    amount.second = second;
    return amount;
}

static plc_parcel* lot(void)
{
    plc_parcel* parcel = NULL;
    CHECK(plc_parcel_make(kLot, 4, &parcel) == PLC_OK);
    return parcel;
}

static void test_layouts(void)
{
    CHECK(sizeof(plc_parcel_report) == 80 && offsetof(plc_parcel_report, area) == 64);
    CHECK(sizeof(plc_request) == 112 && offsetof(plc_request, bearing_gon) == 24);
    CHECK(offsetof(plc_request, measured) == 72 && offsetof(plc_request, rounding_tolerance) == 96);
    CHECK(sizeof(plc_amount) == 24 && offsetof(plc_amount, first) == 8);
    CHECK(sizeof(plc_division_info) == 72 && offsetof(plc_division_info, area) == 24);
    CHECK(sizeof(plc_line_info) == 56 && offsetof(plc_line_info, segments) == 40);
    CHECK(sizeof(plc_piece_info) == 56 && offsetof(plc_piece_info, area) == 32);
    CHECK(sizeof(plc_held_info) == 40 && offsetof(plc_held_info, residual) == 32);
    CHECK(sizeof(plc_range) == 32 && offsetof(plc_range, most) == 16);
    CHECK(sizeof(plc_feasible_info) == 24 && offsetof(plc_feasible_info, parcel) == 16);
    CHECK(sizeof(plc_nearest) == 40 && offsetof(plc_nearest, above) == 16);
    CHECK(sizeof(plc_alternative) == 56 && offsetof(plc_alternative, least) == 32);
    CHECK(sizeof(plc_alternatives_info) == 32 && offsetof(plc_alternatives_info, of) == 24);
    CHECK(sizeof(plc_search) == 56 && offsetof(plc_search, tied_within) == 48);
    CHECK(sizeof(plc_candidate) == 64 && offsetof(plc_candidate, alongside) == 56);
    CHECK(sizeof(plc_choice) == 32 && offsetof(plc_choice, nearest) == 24);
}

static void test_texts(void)
{
    int32_t i;
    int32_t k;
    CHECK(plc_interface_version() == PLC_INTERFACE_VERSION);
    CHECK(strcmp(plc_code_text(PLC_FAILED + 1), plc_code_text(-1)) == 0);
    CHECK(strcmp(plc_boundary_text(PLC_BOUNDARY_HOLE_IN_HOLE + 1), plc_boundary_text(-1)) == 0);
    CHECK(strcmp(plc_status_text(1000000), plc_status_text(-1)) == 0);
    CHECK(strcmp(plc_choice_text(PLC_CHOICE_TOO_MUCH_NEAR + 1), plc_choice_text(-1)) == 0);
    for (i = 0; i <= PLC_CHOICE_TOO_MUCH_NEAR; ++i)
        CHECK(strcmp(plc_choice_text(i), plc_choice_text(-1)) != 0);
    for (i = PLC_OK; i <= PLC_FAILED; ++i)
        CHECK(strcmp(plc_code_text(i), plc_code_text(-1)) != 0);
    for (i = 0; i <= PLC_BOUNDARY_HOLE_IN_HOLE; ++i)
        CHECK(strcmp(plc_boundary_text(i), plc_boundary_text(-1)) != 0);
    for (i = 0; i <= PLC_NOT_REACHED; ++i) {
        CHECK(strcmp(plc_status_text(i), plc_status_text(-1)) != 0);
        for (k = 0; k < i; ++k)
            CHECK(strcmp(plc_status_text(i), plc_status_text(k)) != 0);
    }
    CHECK(strcmp(plc_division_text(NULL), plc_code_text(PLC_NULL_POINTER)) == 0);
}

static void test_parcel(void)
{
    static const double kBowTie[] = {0, 0, 10, 10, 10, 0, 0, 10};
    plc_parcel_report report;
    plc_parcel* parcel = NULL;
    CHECK(plc_parcel_make(NULL, 4, &parcel) == PLC_NULL_POINTER && parcel == NULL);
    CHECK(plc_parcel_make(kLot, -1, &parcel) == PLC_NO_SUCH_INDEX && parcel == NULL);
    CHECK(plc_parcel_make(kLot, INT64_MAX, &parcel) == PLC_OUT_OF_MEMORY && parcel == NULL);
    CHECK(plc_parcel_make(kLot, 4, NULL) == PLC_NULL_POINTER);

    parcel = lot();
    CHECK(plc_parcel_add_hole(parcel, kPond, 4) == PLC_OK);
    CHECK(plc_parcel_add_hole(NULL, kPond, 4) == PLC_NULL_POINTER);
    CHECK(plc_parcel_add_hole(parcel, NULL, 4) == PLC_NULL_POINTER);
    CHECK(plc_parcel_add_hole(parcel, kPond, -4) == PLC_NO_SUCH_INDEX);
    memset(&report, 0x55, sizeof report);
    report.struct_size = sizeof report;
    CHECK(plc_parcel_check(parcel, &report) == PLC_OK && report.struct_size == sizeof report);
    CHECK(report.boundary == PLC_BOUNDARY_USABLE && report.anticlockwise == 1 && report.closed == 0);
    CHECK(report.area == 4900.0 && report.perimeter == 340.0 && report.repeated == 0);
    CHECK(plc_parcel_check(parcel, NULL) == PLC_NULL_POINTER &&
          plc_parcel_check(NULL, &report) == PLC_NULL_POINTER);
    CHECK(plc_parcel_add_hole(parcel, kPond, 4) == PLC_OK);
    CHECK(plc_parcel_check(parcel, &report) == PLC_OK && report.boundary == PLC_BOUNDARY_RINGS_MEET);
    CHECK(report.meeting_rings[0] == 1 && report.meeting_rings[1] == 2 && report.area == 0.0);
    plc_parcel_free(parcel);

    CHECK(plc_parcel_make(kBowTie, 4, &parcel) == PLC_OK && plc_parcel_check(parcel, &report) == PLC_OK);
    CHECK(report.boundary == PLC_BOUNDARY_MEETS_ITSELF);
    CHECK(report.meeting_sides[0] == 0 && report.meeting_sides[1] == 2);
    plc_parcel_free(parcel);
    CHECK(plc_parcel_make(NULL, 0, &parcel) == PLC_OK && plc_parcel_check(parcel, &report) == PLC_OK);
    CHECK(report.boundary == PLC_BOUNDARY_TOO_FEW_VERTICES);
    plc_parcel_free(parcel);
    plc_parcel_free(NULL);
}

static void test_division(void)
{
    const plc_request request = along_first_side();
    plc_amount amounts[2];
    plc_division_info info;
    plc_line_info line;
    plc_piece_info piece;
    plc_held_info held;
    double xy[8];
    int64_t count = -1;
    plc_parcel* parcel = lot();
    plc_division* division = NULL;

    amounts[0] = amount_of(PLC_AREA, 1000.0, 0.0);
    amounts[1] = amount_of(PLC_WIDTH, 5.0, 0.0);
    CHECK(plc_divide(parcel, &request, amounts, 2, &division) == PLC_OK);
    plc_parcel_free(parcel); /* the answer keeps nothing of it */

    info.struct_size = sizeof info;
    CHECK(plc_division_get(division, &info) == PLC_OK && info.status == PLC_DIVIDED);
    CHECK(info.lines == 2 && info.pieces == 3 && info.held == 3 && info.bare == 0 && info.trials > 0);
    CHECK(info.decimals == -1 && info.area == 5000.0 && info.boundary == PLC_BOUNDARY_USABLE);
    CHECK(strcmp(plc_division_text(division), plc_status_text(PLC_DIVIDED)) == 0);

    line.struct_size = sizeof line;
    CHECK(plc_division_line(division, 1, &line) == PLC_OK && line.segments == 1);
    CHECK(line.from_x == 0.0 && line.from_y == 15.0 && line.to_x == 100.0 && line.to_y == 15.0);
    CHECK(plc_division_line(division, 2, &line) == PLC_NO_SUCH_INDEX);
    CHECK(plc_division_line(division, -1, &line) == PLC_NO_SUCH_INDEX);
    CHECK(plc_division_segment(division, 0, 0, xy) == PLC_OK && xy[1] == 10.0 && xy[2] == 100.0);
    CHECK(plc_division_segment(division, 0, 1, xy) == PLC_NO_SUCH_INDEX);
    CHECK(plc_division_segment(division, 2, 0, xy) == PLC_NO_SUCH_INDEX);
    CHECK(plc_division_segment(division, 0, 0, NULL) == PLC_NULL_POINTER);

    piece.struct_size = sizeof piece;
    CHECK(plc_division_piece(division, 2, &piece) == PLC_OK && piece.amount == 2 && piece.vertices == 4);
    CHECK(piece.area == 3500.0 && piece.holes == 0 && fabs(piece.residual) <= 5e-6);
    CHECK(plc_division_piece(division, 3, &piece) == PLC_NO_SUCH_INDEX);
    held.struct_size = sizeof held;
    CHECK(plc_division_held(division, 1, &held) == PLC_OK && held.pieces == 1 && held.area == 500.0);
    CHECK(plc_division_held(division, 3, &held) == PLC_NO_SUCH_INDEX);

    /* Room for two vertices of four: no more than these are written. */
    memset(xy, 0, sizeof xy);
    xy[4] = -7.0;
    CHECK(plc_division_ring(division, 0, 0, NULL, 0, &count) == PLC_OK && count == 4);
    CHECK(plc_division_ring(division, 0, 0, xy, 2, &count) == PLC_OK && count == 4 && xy[4] == -7.0);
    CHECK(plc_division_ring(division, 0, 0, NULL, 2, &count) == PLC_NULL_POINTER);
    CHECK(plc_division_ring(division, 0, 0, xy, -1, &count) == PLC_NO_SUCH_INDEX);
    CHECK(plc_division_ring(division, 0, 1, xy, 4, &count) == PLC_NO_SUCH_INDEX);
    CHECK(plc_division_ring(division, 0, -1, xy, 4, &count) == PLC_NO_SUCH_INDEX);
    CHECK(plc_division_ring(division, 0, INT64_MIN, xy, 4, &count) == PLC_NO_SUCH_INDEX);
    CHECK(plc_division_bare(division, 0, xy) == PLC_NO_SUCH_INDEX);
    plc_division_free(division);
    plc_division_free(NULL);
}

static void test_holes_and_bare_answers(void)
{
    plc_request request = along_first_side();
    const plc_amount half = amount_of(PLC_SHARE, 1.0, 2.0);
    plc_division_info info;
    plc_piece_info piece;
    plc_line_info line;
    double xy[4];
    int64_t count = 0;
    plc_parcel* parcel = lot();
    plc_division* division = NULL;

    request.ask_library = 1;
    CHECK(plc_divide(parcel, &request, &half, 1, &division) == PLC_OK);
    info.struct_size = sizeof info;
    CHECK(plc_division_get(division, &info) == PLC_OK && info.bare == 1);
    CHECK(plc_division_bare(division, 0, xy) == PLC_OK && fabs(xy[1] - 25.0) < 1e-3 &&
          fabs(xy[3] - 25.0) < 1e-3);
    line.struct_size = sizeof line;
    CHECK(plc_division_line(division, 0, &line) == PLC_OK && line.library_agrees == 1);
    plc_division_free(division);

    /* The whole line through the middle passes the pond: 45 and 45 of it lie in the parcel. */
    request.ask_library = 0;
    request.pieces = PLC_ANY_PIECES;
    CHECK(plc_parcel_add_hole(parcel, kPond, 4) == PLC_OK);
    CHECK(plc_divide(parcel, &request, &half, 1, &division) == PLC_OK);
    CHECK(plc_division_line(division, 0, &line) == PLC_OK && line.segments == 2 && line.from_y == 25.0);
    CHECK(plc_division_segment(division, 0, 1, xy) == PLC_OK && xy[0] == 55.0 && xy[2] == 100.0);
    plc_division_free(division);

    /* A strip of 1000 leaves the pond whole in what is left. */
    {
        const plc_amount strip = amount_of(PLC_AREA, 1000.0, 0.0);
        CHECK(plc_divide(parcel, &request, &strip, 1, &division) == PLC_OK);
    }
    piece.struct_size = sizeof piece;
    CHECK(plc_division_piece(division, 1, &piece) == PLC_OK && piece.holes == 1 && piece.area == 3900.0);
    CHECK(plc_division_ring(division, 1, 1, xy, 2, &count) == PLC_OK && count == 4);
    CHECK(plc_division_ring(division, 1, 2, xy, 2, &count) == PLC_NO_SUCH_INDEX);
    plc_division_free(division);
    plc_parcel_free(parcel);
}

static void test_refusals(void)
{
    plc_request request = along_first_side();
    const plc_amount all = amount_of(PLC_AREA, 5000.0, 0.0);
    const plc_amount unknown = amount_of(17, 1000.0, 0.0);
    const plc_amount third = amount_of(PLC_SHARE, 1.0, 3.0);
    plc_division_info info;
    plc_parcel* parcel = lot();
    plc_division* division = NULL;

    info.struct_size = sizeof info;
    CHECK(plc_divide(parcel, &request, &all, 1, &division) == PLC_NO_ANSWER);
    CHECK(plc_division_get(division, &info) == PLC_OK && info.status == PLC_AMOUNT_TOO_LARGE &&
          info.lines == 0);
    CHECK(strcmp(plc_division_text(division), plc_status_text(PLC_AMOUNT_TOO_LARGE)) == 0);
    plc_division_free(division);

#define REFUSED(amounts, count, wanted)                                                                      \
    do {                                                                                                     \
        CHECK(plc_divide(parcel, &request, (amounts), (count), &division) == PLC_NO_ANSWER);                 \
        CHECK(plc_division_get(division, &info) == PLC_OK && info.status == (wanted));                       \
        plc_division_free(division);                                                                         \
    } while (0)
    REFUSED(NULL, 0, PLC_NO_AMOUNT);
    REFUSED(&unknown, 1, PLC_UNKNOWN_REQUEST);
    request.cut = 7000;
    REFUSED(&third, 1, PLC_UNKNOWN_REQUEST);
    request = along_first_side();
    request.index = 4;
    REFUSED(&third, 1, PLC_NO_SUCH_SIDE_OR_VERTEX);
    request.index = -1;
    REFUSED(&third, 1, PLC_NO_SUCH_SIDE_OR_VERTEX);
    request.index = 0;
    request.ring = 1;
    REFUSED(&third, 1, PLC_NO_SUCH_SIDE_OR_VERTEX);
    request = along_first_side();
    request.cut = PLC_AT_BEARING;
    request.bearing_gon = NAN;
    REFUSED(&third, 1, PLC_NO_DIRECTION);
    request = along_first_side();
    request.rounded = 1;
    request.decimals = 18;
    REFUSED(&third, 1, PLC_UNUSABLE_ROUNDING);
    request.decimals = 2;
    request.rounding_tolerance = NAN;
    REFUSED(&third, 1, PLC_UNUSABLE_ROUNDING);

    /* Through the middle of a rectangle every line halves it, and a third cannot be had. */
    request = along_first_side();
    request.cut = PLC_THROUGH_POINT;
    request.a_x = 50.0;
    request.a_y = 25.0;
    REFUSED(&third, 1, PLC_NO_LINE_THROUGH_POINT);
    plc_parcel_free(parcel);
}

static void test_rounding(void)
{
    plc_request request = along_first_side();
    const plc_amount third = amount_of(PLC_SHARE, 1.0, 3.0);
    plc_division_info info;
    plc_line_info line;
    double xyxy[4];
    plc_parcel* parcel = lot();
    plc_division* division = NULL;

    request.rounded = 1;
    request.decimals = 2;
    request.rounding_tolerance = 1e-3;
    CHECK(plc_divide(parcel, &request, &third, 1, &division) == PLC_OK);
    info.struct_size = sizeof info;
    line.struct_size = sizeof line;
    CHECK(plc_division_get(division, &info) == PLC_OK && info.decimals == 2);
    CHECK(plc_division_line(division, 0, &line) == PLC_OK && line.from_y == 16.67 && line.to_y == 16.67);
    CHECK(plc_division_segment(division, 0, 0, xyxy) == PLC_OK && xyxy[1] == 16.67 && xyxy[3] == 16.67);
    plc_division_free(division);

    request.rounding_tolerance = 0.0; /* 1e-6, which takes more decimals */
    CHECK(plc_divide(parcel, &request, &third, 1, &division) == PLC_OK);
    CHECK(plc_division_get(division, &info) == PLC_OK && info.decimals > 2);
    plc_division_free(division);
    plc_parcel_free(parcel);
    CHECK(plc_rounded_to(1.005, 2) == 1.0 && plc_rounded_to(16.6666, 2) == 16.67 &&
          plc_rounded_to(7.4, -1) == 7.0);
}

/* A record of a later version: longer, the rest zero or not. */
static void test_sizes(void)
{
    struct {
        plc_request request;
        double later;
    } longer;
    struct {
        plc_division_info info;
        double later;
    } wider;
    struct {
        plc_amount amount;
        double later;
    } amounts[2];
    plc_request request = along_first_side();
    plc_amount quarter = amount_of(PLC_SHARE, 1.0, 4.0);
    plc_piece_info piece;
    plc_parcel* parcel = lot();
    plc_division* division = NULL;

    request.struct_size -= 8;
    CHECK(plc_divide(parcel, &request, &quarter, 1, &division) == PLC_WRONG_SIZE && division == NULL);
    request.struct_size = 0;
    CHECK(plc_divide(parcel, &request, &quarter, 1, &division) == PLC_WRONG_SIZE);
    request.struct_size = UINT32_MAX;
    CHECK(plc_divide(parcel, &request, &quarter, 1, &division) == PLC_WRONG_SIZE);
    request = along_first_side();
    request.reserved = 1;
    CHECK(plc_divide(parcel, &request, &quarter, 1, &division) == PLC_WRONG_SIZE);
    request.reserved = 0;
    quarter.struct_size = 16;
    CHECK(plc_divide(parcel, &request, &quarter, 1, &division) == PLC_WRONG_SIZE);

    memset(&longer, 0, sizeof longer);
    longer.request.struct_size = sizeof longer;
    memset(amounts, 0, sizeof amounts);
    amounts[0].amount = amounts[1].amount = amount_of(PLC_SHARE, 1.0, 4.0);
    amounts[0].amount.struct_size = amounts[1].amount.struct_size = sizeof amounts[0];
    CHECK(plc_divide(parcel, &longer.request, &amounts[0].amount, 2, &division) == PLC_OK);
    memset(&wider, 0x55, sizeof wider);
    wider.info.struct_size = sizeof wider;
    wider.later = 7.0;
    CHECK(plc_division_get(division, &wider.info) == PLC_OK && wider.info.lines == 2 && wider.later == 7.0);
    piece.struct_size = 1;
    CHECK(plc_division_piece(division, 0, &piece) == PLC_WRONG_SIZE);
    plc_division_free(division);
    division = NULL;
    amounts[1].amount.struct_size = sizeof(plc_amount);
    CHECK(plc_divide(parcel, &longer.request, &amounts[0].amount, 2, &division) == PLC_WRONG_SIZE);
    longer.later = 1.0;
    CHECK(plc_divide(parcel, &longer.request, &amounts[0].amount, 1, &division) == PLC_WRONG_SIZE);
    CHECK(division == NULL);
    plc_parcel_free(parcel);
}

static void test_null_pointers(void)
{
    const plc_request request = along_first_side();
    const plc_amount quarter = amount_of(PLC_SHARE, 1.0, 4.0);
    plc_parcel* parcel = lot();
    plc_division* division = NULL;
    plc_division_info info;
    plc_piece_info piece;
    plc_line_info line;
    plc_held_info held;
    double xy[6] = {0};
    double d = 0.0;
    int64_t count = 0;
    int32_t i = 0;

    info.struct_size = sizeof info;
    piece.struct_size = sizeof piece;
    line.struct_size = sizeof line;
    held.struct_size = sizeof held;
    CHECK(plc_divide(NULL, &request, &quarter, 1, &division) == PLC_NULL_POINTER);
    CHECK(plc_divide(parcel, NULL, &quarter, 1, &division) == PLC_NULL_POINTER);
    CHECK(plc_divide(parcel, &request, NULL, 1, &division) == PLC_NULL_POINTER);
    CHECK(plc_divide(parcel, &request, &quarter, 1, NULL) == PLC_NULL_POINTER);
    CHECK(plc_divide(parcel, &request, &quarter, -1, &division) == PLC_NO_SUCH_INDEX && division == NULL);
    CHECK(plc_division_get(NULL, &info) == PLC_NULL_POINTER);
    CHECK(plc_division_line(NULL, 0, &line) == PLC_NULL_POINTER);
    CHECK(plc_division_segment(NULL, 0, 0, xy) == PLC_NULL_POINTER);
    CHECK(plc_division_piece(NULL, 0, &piece) == PLC_NULL_POINTER);
    CHECK(plc_division_ring(NULL, 0, 0, xy, 0, &count) == PLC_NULL_POINTER);
    CHECK(plc_division_held(NULL, 0, &held) == PLC_NULL_POINTER);
    CHECK(plc_division_bare(NULL, 0, xy) == PLC_NULL_POINTER);
    CHECK(plc_divide(parcel, &request, &quarter, 1, &division) == PLC_OK);
    CHECK(plc_division_get(division, NULL) == PLC_NULL_POINTER);
    CHECK(plc_division_line(division, 0, NULL) == PLC_NULL_POINTER);
    CHECK(plc_division_piece(division, 0, NULL) == PLC_NULL_POINTER);
    CHECK(plc_division_held(division, 0, NULL) == PLC_NULL_POINTER);
    CHECK(plc_division_ring(division, 0, 0, xy, 0, NULL) == PLC_NULL_POINTER);
    CHECK(plc_division_bare(division, 0, NULL) == PLC_NULL_POINTER);
    plc_division_free(division);
    plc_parcel_free(parcel);

    CHECK(plc_fraz_area(NULL, 4, 0, 0, 100, 0, 0, 1, 1000, 0, xy) == PLC_NULL_POINTER);
    CHECK(plc_fraz_area(kLot, 4, 0, 0, 100, 0, 0, 1, 1000, 0, NULL) == PLC_NULL_POINTER);
    CHECK(plc_fraz_area(kLot, (int64_t)1 << 31, 0, 0, 100, 0, 0, 1, 1000, 0, xy) == PLC_TOO_MANY);
    CHECK(plc_signed_area(NULL, 4, &d) == PLC_NULL_POINTER &&
          plc_signed_area(kLot, 4, NULL) == PLC_NULL_POINTER);
    CHECK(plc_perimeter(NULL, 4, &d) == PLC_NULL_POINTER && plc_perimeter(kLot, 4, NULL) == PLC_NULL_POINTER);
    CHECK(plc_perimeter(kLot, -4, &d) == PLC_NO_SUCH_INDEX);
    CHECK(plc_in_ring(1, 1, NULL, 4, &i) == PLC_NULL_POINTER &&
          plc_in_ring(1, 1, kLot, 4, NULL) == PLC_NULL_POINTER);
    CHECK(plc_in_ring(1, 1, kLot, -4, &i) == PLC_NO_SUCH_INDEX);
    CHECK(plc_in_ring(1, 1, kLot, (int64_t)1 << 31, &i) == PLC_TOO_MANY);
    CHECK(plc_meet_lines(NULL, xy, xy) == PLC_NULL_POINTER &&
          plc_meet_lines(xy, NULL, xy) == PLC_NULL_POINTER);
    CHECK(plc_meet_lines(xy, xy, NULL) == PLC_NULL_POINTER);
    CHECK(plc_meet_segments(NULL, xy, xy) == PLC_NULL_POINTER &&
          plc_meet_segments(xy, NULL, xy) == PLC_NULL_POINTER);
    CHECK(plc_meet_segments(xy, xy, NULL) == PLC_NULL_POINTER);
    CHECK(plc_meet_arc_and_segment(NULL, xy, xy, &i) == PLC_NULL_POINTER);
    CHECK(plc_meet_arc_and_segment(xy, NULL, xy, &i) == PLC_NULL_POINTER);
    CHECK(plc_meet_arc_and_segment(xy, xy, NULL, &i) == PLC_NULL_POINTER);
    CHECK(plc_meet_arc_and_segment(xy, xy, xy, NULL) == PLC_NULL_POINTER);
    CHECK(plc_arc_through(NULL, xy) == PLC_NULL_POINTER && plc_arc_through(xy, NULL) == PLC_NULL_POINTER);
    CHECK(plc_polar_point(0, 0, 1, 1, 0, 1, NULL) == PLC_NULL_POINTER);
    CHECK(plc_offset_point(0, 0, 1, 1, 0, 1, NULL) == PLC_NULL_POINTER);
    CHECK(plc_offsets_of(0, 0, 1, 1, 0, 1, NULL, &d, &d) == PLC_NULL_POINTER);
    CHECK(plc_offsets_of(0, 0, 1, 1, 0, 1, xy, NULL, &d) == PLC_NULL_POINTER);
    CHECK(plc_offsets_of(0, 0, 1, 1, 0, 1, xy, &d, NULL) == PLC_NULL_POINTER);
    CHECK(plc_point_along(0, 0, 1, 1, 0, 1, 1, NULL) == PLC_NULL_POINTER);
    CHECK(plc_height_on_segment(NULL, xy, 0, 0, &d) == PLC_NULL_POINTER);
    CHECK(plc_height_on_segment(xy, NULL, 0, 0, &d) == PLC_NULL_POINTER);
    CHECK(plc_height_on_segment(xy, xy, 0, 0, NULL) == PLC_NULL_POINTER);
}

static void test_geometry(void)
{
    static const double kAcross[] = {0, 0, 10, 10};
    static const double kDown[] = {0, 10, 10, 0};
    static const double kBeside[] = {0, 1, 10, 11};
    static const double kSpan[] = {-5, 0, 5, 0};
    static const double kThree[] = {2, 0, 0, 2, -2, 0};
    static const double kInLine[] = {0, 0, 1, 1, 2, 2};
    double xy[4] = {-1, -1, -1, -1};
    double arc[5];
    double a = 0.0;
    double b = 0.0;
    int32_t n = -1;

    CHECK(plc_fraz_area(kLot, 4, 0, 0, 100, 0, PLC_PARALLEL, 1, 1000, 0, xy) == PLC_OK);
    CHECK(fabs(xy[1] - 10.0) < 1e-4 && fabs(xy[3] - 10.0) < 1e-4);
    CHECK(plc_fraz_area(kLot, 4, 0, 0, 100, 0, PLC_PERPENDICULAR, 1, 1000, 0, xy) == PLC_OK);
    CHECK(fabs(xy[0] - 80.0) < 1e-3);
    CHECK(plc_fraz_area(kLot, 4, 0, 0, 0, 0, PLC_THROUGH_VERTEX, 0, 50, 20, xy) == PLC_OK);
    CHECK(fabs(fmax(xy[1], xy[3]) - 20.0) < 1e-3);
    CHECK(plc_fraz_area(kLot, 4, 1, 1, 100, 0, PLC_PARALLEL, 1, 1000, 0, xy) == PLC_NO_ANSWER);
    CHECK(plc_fraz_area(kLot, 4, 0, 0, 100, 0, PLC_AT_BEARING, 1, 1000, 0, xy) == PLC_NO_ANSWER);
    CHECK(plc_fraz_area(NULL, 0, 0, 0, 100, 0, PLC_PARALLEL, 1, 1000, 0, xy) == PLC_NO_ANSWER);

    CHECK(plc_signed_area(kLot, 4, &a) == PLC_OK && a == 5000.0);
    CHECK(plc_signed_area(NULL, 0, &a) == PLC_OK && a == 0.0);
    CHECK(plc_perimeter(kLot, 4, &a) == PLC_OK && a == 300.0);
    CHECK(plc_in_ring(50, 25, kLot, 4, &n) == PLC_OK && n == 1);
    CHECK(plc_in_ring(150, 25, kLot, 4, &n) == PLC_OK && n == 0);

    CHECK(plc_meet_lines(kAcross, kDown, xy) == PLC_OK && xy[0] == 5.0 && xy[1] == 5.0);
    CHECK(plc_meet_lines(kAcross, kBeside, xy) == PLC_NO_ANSWER && xy[0] == 5.0);
    CHECK(plc_meet_segments(kAcross, kDown, xy) == PLC_OK && xy[0] == 5.0 && xy[1] == 5.0);
    CHECK(plc_meet_segments(kAcross, kBeside, xy) == PLC_NO_ANSWER && xy[0] == 5.0);
    CHECK(plc_arc_through(kThree, arc) == PLC_OK && fabs(arc[0]) < 1e-12 && fabs(arc[2] - 2.0) < 1e-12);
    CHECK(plc_arc_through(kInLine, arc) == PLC_NO_ANSWER && fabs(arc[2] - 2.0) < 1e-12);
    arc[0] = arc[1] = arc[3] = 0.0;
    arc[2] = 2.0;
    arc[4] = 4.0;
    CHECK(plc_meet_arc_and_segment(arc, kSpan, xy, &n) == PLC_OK && n == 2 && xy[0] == -2.0 && xy[2] == 2.0);
    CHECK(plc_meet_arc_and_segment(arc, kBeside, xy, &n) == PLC_OK && n == 1);
    arc[2] = 0.5;
    CHECK(plc_meet_arc_and_segment(arc, kBeside, xy, &n) == PLC_NO_ANSWER && n == 0);

    CHECK(plc_distance(0, 0, 3, 4) == 5.0 && plc_bearing(0, 0, 10, 0) == 100.0 &&
          plc_within_turn(-100) == 300.0);
    CHECK(plc_polar_point(10, 10, 10, 20, 100, 5, xy) == PLC_OK && xy[0] == 15.0 && xy[1] == 10.0);
    CHECK(plc_offset_point(0, 0, 10, 0, 4, 3, xy) == PLC_OK && fabs(xy[0] - 4) < 1e-9 &&
          fabs(xy[1] + 3) < 1e-9);
    CHECK(plc_offsets_of(0, 0, 10, 0, 4, -3, xy, &a, &b) == PLC_OK && fabs(xy[0] - 4) < 1e-9);
    CHECK(fabs(a - 4.0) < 1e-9 && fabs(b - 3.0) < 1e-9);
    CHECK(plc_offsets_of(0, 0, 10, 0, -4, 3, xy, &a, &b) == PLC_OK && fabs(a + 4.0) < 1e-9 &&
          fabs(b + 3.0) < 1e-9);
    CHECK(plc_offsets_of(5, 5, 5, 5, 4, -3, xy, &a, &b) == PLC_NO_ANSWER);
    CHECK(plc_offsets_of(0, 0, 10, 0, NAN, 3, xy, &a, &b) == PLC_NO_ANSWER);
    CHECK(plc_point_along(0, 0, 0, 9, 3, 4, 5, xy) == PLC_OK && fabs(xy[0] - 3) < 1e-9 &&
          fabs(xy[1] - 9) < 1e-9);
    {
        const double low[] = {0, 0, 100};
        const double high[] = {10, 0, 110};
        CHECK(plc_height_on_segment(low, high, 5, 0, &a) == PLC_OK && a == 105.0);
        CHECK(plc_height_on_segment(low, low, 5, 0, &a) == PLC_NO_ANSWER && a == 105.0);
    }
}

/* 60 by 50 less 20 by 30 in the north-east, as an L. */
static const double kYard[] = {0, 0, 60, 0, 60, 20, 40, 20, 40, 50, 0, 50};
/* A comb with its back to the South, and two teeth of 10 by 20. */
static const double kComb[] = {0, 0, 30, 0, 30, 30, 20, 30, 20, 10, 10, 10, 10, 30, 0, 30};

static plc_parcel* made(const double* xy, int64_t count)
{
    plc_parcel* parcel = NULL;
    CHECK(plc_parcel_make(xy, count, &parcel) == PLC_OK);
    return parcel;
}

static void test_feasible(void)
{
    plc_request request = along_first_side();
    plc_feasible_info info;
    plc_range ranges[3];
    plc_nearest nearest;
    plc_parcel* comb = made(kComb, 8);
    plc_parcel* parcel = lot();

    /* The back holds 300. Above it a line crosses one tooth, and what it does not cut off holds 500 or more. */
    memset(ranges, 0x55, sizeof ranges);
    ranges[0].struct_size = sizeof ranges[0];
    info.struct_size = sizeof info;
    CHECK(plc_feasible(comb, &request, ranges, 3, &info) == PLC_OK && info.refused == 0);
    CHECK(info.ranges == 2 && info.parcel == 700.0);
    CHECK(ranges[0].least == 0.0 && ranges[0].least_is_had == 0 && ranges[0].most == 300.0);
    CHECK(ranges[1].struct_size == sizeof ranges[0] && ranges[1].least == 500.0 && ranges[1].most == 700.0);
    CHECK(ranges[2].struct_size == 0x55555555u); /* there is no third one */
    nearest.struct_size = sizeof nearest;
    CHECK(plc_nearest_amounts(ranges, 2, 450.0, &nearest) == PLC_OK);
    CHECK(nearest.has_below == 1 && nearest.below == 300.0 && nearest.below_is_had == ranges[0].most_is_had);
    CHECK(nearest.has_above == 1 && nearest.above == 500.0 && nearest.above_is_had == ranges[1].least_is_had);
    CHECK(plc_nearest_amounts(ranges, 2, 900.0, &nearest) == PLC_OK);
    CHECK(nearest.below == 700.0 && nearest.has_above == 0 && nearest.above == 0.0);
    CHECK(plc_nearest_amounts(ranges, 2, 250.0, &nearest) == PLC_OK);
    CHECK(nearest.below == 250.0 && nearest.has_above == 1 && nearest.above == 250.0);
    CHECK(plc_nearest_amounts(NULL, 0, 450.0, &nearest) == PLC_OK);
    CHECK(nearest.has_below == 0 && nearest.has_above == 0);
    /* From the other side: a part of a tooth, or both teeth and more. The whole line cuts off any amount. */
    request.measured = PLC_OPPOSITE;
    CHECK(plc_feasible(comb, &request, ranges, 2, &info) == PLC_OK && info.ranges == 2);
    CHECK(ranges[0].most == 200.0 && ranges[1].least == 400.0 && ranges[1].most == 700.0);
    request.pieces = PLC_ANY_PIECES;
    CHECK(plc_feasible(comb, &request, ranges, 2, &info) == PLC_OK && info.ranges == 1);
    CHECK(ranges[0].least == 0.0 && ranges[0].most == 700.0);

    /* Every line through the middle of a rectangle halves it. */
    request = along_first_side();
    request.cut = PLC_THROUGH_POINT;
    request.a_x = 50.0;
    request.a_y = 25.0;
    CHECK(plc_feasible(parcel, &request, ranges, 1, &info) == PLC_OK && info.ranges == 1);
    CHECK(fabs(ranges[0].least - 2500.0) < 1e-6 && fabs(ranges[0].most - 2500.0) < 1e-6);
    CHECK(plc_feasible(parcel, &request, NULL, 0, &info) == PLC_OK && info.ranges == 1);
    request.a_x = 500.0;
    CHECK(plc_feasible(parcel, &request, ranges, 1, &info) == PLC_NO_ANSWER && info.ranges == 0);
    CHECK(info.refused == PLC_POINT_OUTSIDE && info.parcel == 5000.0);
    request.cut = 99;
    CHECK(plc_feasible(parcel, &request, ranges, 1, &info) == PLC_NO_ANSWER &&
          info.refused == PLC_UNKNOWN_REQUEST);

    CHECK(plc_feasible(NULL, &request, ranges, 1, &info) == PLC_NULL_POINTER);
    CHECK(plc_feasible(parcel, NULL, ranges, 1, &info) == PLC_NULL_POINTER);
    CHECK(plc_feasible(parcel, &request, NULL, 1, &info) == PLC_NULL_POINTER);
    CHECK(plc_feasible(parcel, &request, ranges, 1, NULL) == PLC_NULL_POINTER);
    CHECK(plc_feasible(parcel, &request, ranges, -1, &info) == PLC_NO_SUCH_INDEX);
    CHECK(plc_feasible(parcel, &request, ranges, INT64_MAX, &info) == PLC_OUT_OF_MEMORY);
    CHECK(plc_nearest_amounts(NULL, 1, 1.0, &nearest) == PLC_NULL_POINTER);
    CHECK(plc_nearest_amounts(ranges, 1, 1.0, NULL) == PLC_NULL_POINTER);
    CHECK(plc_nearest_amounts(ranges, -1, 1.0, &nearest) == PLC_NO_SUCH_INDEX);
    ranges[1].struct_size = sizeof ranges[1] + 8;
    CHECK(plc_nearest_amounts(ranges, 2, 1.0, &nearest) == PLC_WRONG_SIZE);
    ranges[0].struct_size = 4;
    CHECK(plc_feasible(parcel, &request, ranges, 1, &info) == PLC_WRONG_SIZE);
    CHECK(plc_nearest_amounts(ranges, 1, 1.0, &nearest) == PLC_WRONG_SIZE);
    info.struct_size = 0;
    CHECK(plc_feasible(parcel, &request, NULL, 0, &info) == PLC_WRONG_SIZE);
    nearest.struct_size = 8;
    CHECK(plc_nearest_amounts(NULL, 0, 1.0, &nearest) == PLC_WRONG_SIZE);
    plc_parcel_free(comb);
    plc_parcel_free(parcel);
}

static void test_alternatives(void)
{
    const plc_amount half_and_more = amount_of(PLC_AREA, 450.0, 0.0);
    const plc_amount strip = amount_of(PLC_WIDTH, 5.0, 0.0);
    plc_alternatives_info info;
    plc_alternative lines[24];
    int64_t i;
    plc_parcel* comb = made(kComb, 8);

    memset(lines, 0x55, sizeof lines);
    lines[0].struct_size = sizeof lines[0];
    info.struct_size = sizeof info;
    CHECK(plc_alternatives_for(comb, &half_and_more, PLC_FROM_REFERENCE, -1, lines, 24, &info) == PLC_OK);
    CHECK(info.refused == 0 && info.lines > 0 && info.looked_at == 24 && info.of == 24);
    for (i = 0; i < info.lines; ++i) {
        /* Each is a line that divides. */
        plc_request request = along_first_side();
        plc_division* division = NULL;
        CHECK(lines[i].struct_size == sizeof lines[0] && lines[i].ring == 0);
        CHECK(lines[i].least <= 450.0 && lines[i].most >= 450.0);
        request.cut = lines[i].cut;
        request.index = lines[i].index;
        request.measured = lines[i].measured;
        CHECK(plc_divide(comb, &request, &half_and_more, 1, &division) == PLC_OK);
        plc_division_free(division);
    }
    CHECK(plc_alternatives_for(comb, &half_and_more, PLC_FROM_REFERENCE, 4, NULL, 0, &info) == PLC_OK);
    CHECK(info.looked_at == 4 && info.of == 24);
    CHECK(plc_alternatives_for(comb, &strip, PLC_FROM_REFERENCE, -1, lines, 24, &info) == PLC_NO_ANSWER);
    CHECK(info.refused == PLC_UNKNOWN_REQUEST && info.lines == 0);
    CHECK(plc_alternatives_for(comb, &half_and_more, 17, -1, lines, 24, &info) == PLC_NO_ANSWER);
    CHECK(info.refused == PLC_UNKNOWN_REQUEST && info.lines == 0);

    CHECK(plc_alternatives_for(NULL, &strip, 0, -1, lines, 24, &info) == PLC_NULL_POINTER);
    CHECK(plc_alternatives_for(comb, NULL, 0, -1, lines, 24, &info) == PLC_NULL_POINTER);
    CHECK(plc_alternatives_for(comb, &strip, 0, -1, NULL, 24, &info) == PLC_NULL_POINTER);
    CHECK(plc_alternatives_for(comb, &strip, 0, -1, lines, 24, NULL) == PLC_NULL_POINTER);
    CHECK(plc_alternatives_for(comb, &strip, 0, -1, lines, -24, &info) == PLC_NO_SUCH_INDEX);
    lines[0].struct_size = 8;
    CHECK(plc_alternatives_for(comb, &strip, 0, -1, lines, 24, &info) == PLC_WRONG_SIZE);
    info.struct_size = 8;
    CHECK(plc_alternatives_for(comb, &strip, 0, -1, NULL, 0, &info) == PLC_WRONG_SIZE);
    plc_parcel_free(comb);
}

static void test_all_divisions(void)
{
    plc_request request = along_first_side();
    const plc_amount half_a_tooth = amount_of(PLC_AREA, 100.0, 0.0);
    const plc_amount all = amount_of(PLC_AREA, 700.0, 0.0);
    plc_line_info line;
    plc_division_info info;
    plc_divisions* divisions = NULL;
    double west[2] = {0.0, 0.0};
    int i;
    plc_parcel* comb = made(kComb, 8);

    /* Beyond a parallel to the back: a half of either tooth. */
    request.measured = PLC_OPPOSITE;
    CHECK(plc_all_divisions(comb, &request, &half_a_tooth, 1, &divisions) == PLC_OK);
    CHECK(plc_divisions_count(divisions) == 2);
    line.struct_size = sizeof line;
    for (i = 0; i < 2; ++i) {
        CHECK(plc_division_line(plc_divisions_at(divisions, i), 0, &line) == PLC_OK);
        CHECK(line.from_y == 20.0 && line.to_y == 20.0);
        west[i] = fmin(line.from_x, line.to_x);
    }
    CHECK(fmin(west[0], west[1]) == 0.0 && fmax(west[0], west[1]) == 20.0);
    CHECK(plc_divisions_at(divisions, 2) == NULL && plc_divisions_at(divisions, -1) == NULL);
    plc_divisions_free(divisions);

    divisions = NULL;
    CHECK(plc_all_divisions(comb, &request, &all, 1, &divisions) == PLC_NO_ANSWER);
    info.struct_size = sizeof info;
    CHECK(plc_divisions_count(divisions) == 1);
    CHECK(plc_division_get(plc_divisions_at(divisions, 0), &info) == PLC_OK &&
          info.status == PLC_AMOUNT_TOO_LARGE);
    plc_divisions_free(divisions);

    divisions = NULL;
    CHECK(plc_all_divisions(NULL, &request, &all, 1, &divisions) == PLC_NULL_POINTER);
    CHECK(plc_all_divisions(comb, NULL, &all, 1, &divisions) == PLC_NULL_POINTER);
    CHECK(plc_all_divisions(comb, &request, NULL, 1, &divisions) == PLC_NULL_POINTER);
    CHECK(plc_all_divisions(comb, &request, &all, 1, NULL) == PLC_NULL_POINTER);
    CHECK(plc_all_divisions(comb, &request, &all, -1, &divisions) == PLC_NO_SUCH_INDEX);
    request.struct_size = 4;
    CHECK(plc_all_divisions(comb, &request, &all, 1, &divisions) == PLC_WRONG_SIZE && divisions == NULL);
    CHECK(plc_divisions_count(NULL) == 0 && plc_divisions_at(NULL, 0) == NULL);
    plc_divisions_free(NULL);
    plc_parcel_free(comb);
}

static plc_search search_for(int32_t wanted)
{
    plc_search search;
    memset(&search, 0, sizeof search);
    search.struct_size = sizeof search;
    search.wanted = wanted;
    return search;
}

static void test_sides(void)
{
    static const double kRoad[] = {-10, 55, 50, 55, 200, 200, 300, 300};
    static const double kFarRoad[] = {0, 900, 60, 900};
    plc_search search = search_for(PLC_LONGEST_SIDE);
    plc_choice choice;
    plc_candidate found[3];
    plc_other* road = NULL;
    plc_other* far_road = NULL;
    plc_parcel* yard = made(kYard, 6);
    plc_parcel* parcel = lot();

    choice.struct_size = sizeof choice;
    memset(found, 0x55, sizeof found);
    found[0].struct_size = sizeof found[0];
    CHECK(plc_find(yard, &search, NULL, found, 3, &choice) == PLC_OK && choice.status == PLC_CHOICE_FOUND);
    CHECK(choice.candidates == 1 && choice.has_next == 1 && choice.boundary == PLC_BOUNDARY_USABLE);
    CHECK(found[0].index == 0 && found[0].ring == 0 && found[0].length == 60.0 && found[0].reserved == 0);
    CHECK(found[1].struct_size == sizeof found[0] && found[1].index == 5 && found[1].length == 50.0);
    CHECK(found[2].struct_size == 0x55555555u);
    CHECK(plc_find(parcel, &search, NULL, found, 3, &choice) == PLC_NO_ANSWER);
    CHECK(choice.status == PLC_CHOICE_TIED && choice.candidates == 2 && choice.has_next == 0);
    CHECK(found[0].index == 0 && found[1].index == 2);

    search = search_for(PLC_SHORTEST_SIDE);
    CHECK(plc_find(yard, &search, NULL, NULL, 0, &choice) == PLC_NO_ANSWER && choice.candidates == 2);
    search = search_for(PLC_SIDE_NEAR);
    search.x = 61.0;
    search.y = 10.0;
    CHECK(plc_find(yard, &search, NULL, found, 1, &choice) == PLC_OK);
    CHECK(found[0].index == 1 && found[0].distance == 1.0);
    search = search_for(PLC_SIDE_FACING);
    search.bearing_gon = 310.0;
    CHECK(plc_find(yard, &search, NULL, found, 1, &choice) == PLC_OK && found[0].index == 5);
    CHECK(fabs(found[0].bearing_gon - 300.0) < 1e-9 && fabs(found[0].turned_gon - 10.0) < 1e-9);
    search = search_for(PLC_VERTEX_NEAR);
    search.x = 41.0;
    search.y = 20.0;
    CHECK(plc_find(yard, &search, NULL, found, 1, &choice) == PLC_OK);
    CHECK(found[0].index == 3 && found[0].length == 0.0 && found[0].distance == 1.0);
    search = search_for(PLC_VERTEX_FARTHEST);
    search.bearing_gon = 50.0;
    CHECK(plc_find(yard, &search, NULL, found, 1, &choice) == PLC_OK && found[0].index == 4);

    CHECK(plc_other_make(kRoad, 2, &road) == PLC_OK && plc_other_make(kFarRoad, 1, &far_road) == PLC_OK);
    search = search_for(PLC_SIDE_ALONG);
    search.distance = 10.0;
    CHECK(plc_find(yard, &search, road, found, 1, &choice) == PLC_OK && found[0].index == 4);
    CHECK(fabs(found[0].alongside - 40.0) < 1e-9 && found[0].distance == 5.0);
    CHECK(plc_find(yard, &search, far_road, found, 1, &choice) == PLC_NO_ANSWER);
    CHECK(choice.status == PLC_CHOICE_TOO_FAR && choice.nearest == 850.0);
    CHECK(plc_find(yard, &search, NULL, found, 1, &choice) == PLC_NULL_POINTER);
    search.angle_gon = NAN;
    CHECK(plc_find(yard, &search, road, found, 1, &choice) == PLC_NO_ANSWER &&
          choice.status == PLC_CHOICE_UNUSABLE_REQUEST);
    search = search_for(PLC_SIDE_ALONG); /* a distance of 0 */
    CHECK(plc_find(yard, &search, road, found, 1, &choice) == PLC_NO_ANSWER &&
          choice.status == PLC_CHOICE_UNUSABLE_REQUEST);
    search = search_for(17);
    CHECK(plc_find(yard, &search, NULL, found, 1, &choice) == PLC_NO_ANSWER &&
          choice.status == PLC_CHOICE_UNUSABLE_REQUEST && choice.candidates == 0);
    plc_other_free(road);
    plc_other_free(far_road);
    plc_other_free(NULL);

    CHECK(plc_other_make(NULL, 0, &road) == PLC_OK);
    search = search_for(PLC_SIDE_ALONG);
    search.distance = 10.0;
    CHECK(plc_find(yard, &search, road, found, 1, &choice) == PLC_NO_ANSWER &&
          choice.status == PLC_CHOICE_NOTHING_GIVEN);
    plc_other_free(road);
    CHECK(plc_other_make(NULL, 1, &road) == PLC_NULL_POINTER &&
          plc_other_make(kRoad, 1, NULL) == PLC_NULL_POINTER);
    CHECK(plc_other_make(kRoad, -1, &road) == PLC_NO_SUCH_INDEX &&
          plc_other_make(kRoad, INT64_MAX, &road) == PLC_OUT_OF_MEMORY);

    search = search_for(PLC_LONGEST_SIDE);
    CHECK(plc_find(NULL, &search, NULL, found, 1, &choice) == PLC_NULL_POINTER);
    CHECK(plc_find(yard, NULL, NULL, found, 1, &choice) == PLC_NULL_POINTER);
    CHECK(plc_find(yard, &search, NULL, NULL, 1, &choice) == PLC_NULL_POINTER);
    CHECK(plc_find(yard, &search, NULL, found, 1, NULL) == PLC_NULL_POINTER);
    CHECK(plc_find(yard, &search, NULL, found, -1, &choice) == PLC_NO_SUCH_INDEX);
    search.struct_size = 8;
    CHECK(plc_find(yard, &search, NULL, found, 1, &choice) == PLC_WRONG_SIZE);
    search.struct_size = sizeof search;
    choice.struct_size = 8;
    CHECK(plc_find(yard, &search, NULL, found, 1, &choice) == PLC_WRONG_SIZE);
    choice.struct_size = sizeof choice;
    found[0].struct_size = 8;
    CHECK(plc_find(yard, &search, NULL, found, 1, &choice) == PLC_WRONG_SIZE);
    plc_parcel_free(yard);
    plc_parcel_free(parcel);
}

/* Arrays of records of a later version lie farther apart. */
static void test_longer_elements(void)
{
    struct {
        plc_candidate candidate;
        double later;
    } found[2];
    const plc_search search = search_for(PLC_LONGEST_SIDE);
    plc_choice choice;
    plc_parcel* parcel = lot();

    memset(found, 0, sizeof found);
    found[0].candidate.struct_size = sizeof found[0];
    found[0].later = found[1].later = 7.0;
    choice.struct_size = sizeof choice;
    CHECK(plc_find(parcel, &search, NULL, &found[0].candidate, 2, &choice) == PLC_NO_ANSWER);
    CHECK(found[1].candidate.struct_size == sizeof found[0] && found[1].candidate.index == 2);
    CHECK(found[0].later == 7.0 && found[1].later == 7.0);
    plc_parcel_free(parcel);
}

int main(void)
{
    test_layouts();
    test_texts();
    test_parcel();
    test_division();
    test_holes_and_bare_answers();
    test_refusals();
    test_rounding();
    test_sizes();
    test_null_pointers();
    test_geometry();
    test_feasible();
    test_alternatives();
    test_all_divisions();
    test_sides();
    test_longer_elements();
    printf("%d failures\n", failures);
    return failures == 0 ? 0 : 1;
}
