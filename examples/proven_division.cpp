#include <plparcel/division.h>

#include <cstdio>

int main()
{
    const plparcel::Ring yard = {{0, 0}, {60, 0}, {60, 20}, {40, 20}, {40, 50}, {0, 50}};
    plparcel::Request request;
    request.line = plparcel::perpendicular_to(0);  // the side from (0, 0) to (60, 0)
    request.amounts = plparcel::equal_parts(3);

    const plparcel::Division division = plparcel::divide(yard, request);
    if (division.status != plparcel::Status::divided) {
        std::printf("%s\n", plparcel::describe(division));
        return 1;
    }
    for (const plparcel::DividingLine& line : division.lines)
        std::printf("from %.4f %.4f to %.4f %.4f\n", line.from.x, line.from.y, line.to.x, line.to.y);
    for (const plparcel::Piece& piece : division.pieces)
        std::printf("%.4f\n", piece.area);
    return 0;
}
