#include <plcalc_c.h>

#include <stdio.h>

int main(void)
{
    const double yard[] = {0, 0, 60, 0, 60, 20, 40, 20, 40, 50, 0, 50};
    const plc_amount thirds[] = {{sizeof(plc_amount), PLC_SHARE, 1, 3},
                                 {sizeof(plc_amount), PLC_SHARE, 1, 3}};
    plc_request request = {0};
    plc_line_info line = {0};
    plc_parcel* parcel = NULL;
    plc_division* division = NULL;
    int64_t i;
    int32_t code;

    request.struct_size = sizeof request;
    request.cut = PLC_PERPENDICULAR; /* to the side of index 0, from (0, 0) to (60, 0) */
    code = plc_parcel_make(yard, 6, &parcel);
    if (code == PLC_OK)
        code = plc_divide(parcel, &request, thirds, 2, &division);
    if (code == PLC_OK) {
        line.struct_size = sizeof line;
        for (i = 0; plc_division_line(division, i, &line) == PLC_OK; ++i)
            printf("from %.4f %.4f to %.4f %.4f\n", line.from_x, line.from_y, line.to_x, line.to_y);
    } else {
        printf("%s\n", code == PLC_NO_ANSWER ? plc_division_text(division) : plc_code_text(code));
    }
    plc_division_free(division);
    plc_parcel_free(parcel);
    return code;
}
