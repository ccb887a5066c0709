#include <plcalc_c.h>

#include <stdio.h>

int main(void)
{
    /* A comb, its back to the South; a road runs there. */
    const double comb[] = {0, 0, 30, 0, 30, 30, 20, 30, 20, 10, 10, 10, 10, 30, 0, 30};
    const double road[] = {-50, -8, 80, -8};
    const plc_amount amount = {sizeof(plc_amount), PLC_AREA, 400, 0};
    plc_search search = {0};
    plc_choice choice = {0};
    plc_candidate side = {0};
    plc_request request = {0};
    plc_parcel* parcel = NULL;
    plc_other* axis = NULL;
    plc_division* division = NULL;

    search.struct_size = sizeof search;
    choice.struct_size = sizeof choice;
    side.struct_size = sizeof side;
    request.struct_size = sizeof request;
    if (plc_parcel_make(comb, 8, &parcel) != PLC_OK || plc_other_make(road, 1, &axis) != PLC_OK)
        return 1;

    search.wanted = PLC_SIDE_ALONG;
    search.distance = 10;
    if (plc_find(parcel, &search, axis, &side, 1, &choice) != PLC_OK)
        return 1;
    printf("side %d runs along the road for %.1f\n", (int)side.index, side.alongside);

    request.cut = PLC_PARALLEL;
    request.index = side.index;
    request.ring = side.ring;
    if (plc_divide(parcel, &request, &amount, 1, &division) == PLC_NO_ANSWER) {
        plc_range ranges[8] = {{0}};
        plc_feasible_info info = {0};
        plc_nearest nearest = {0};
        ranges[0].struct_size = sizeof ranges[0];
        info.struct_size = sizeof info;
        nearest.struct_size = sizeof nearest;
        printf("%s\n", plc_division_text(division));
        if (plc_feasible(parcel, &request, ranges, 8, &info) == PLC_OK && info.ranges <= 8 &&
            plc_nearest_amounts(ranges, info.ranges, amount.first, &nearest) == PLC_OK)
            printf("instead of %.0f: up to %.0f, or %.0f and more\n", amount.first, nearest.below,
                   nearest.above);
    }
    plc_division_free(division);
    plc_other_free(axis);
    plc_parcel_free(parcel);
    return 0;
}
