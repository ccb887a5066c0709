#include "plparcel/line.h"

namespace plparcel {

Line parallel_to(std::size_t side, std::size_t ring) noexcept
{
    Line line;
    line.cut = Cut::parallel;
    line.index = side;
    line.ring = ring;
    return line;
}

Line perpendicular_to(std::size_t side, std::size_t ring) noexcept
{
    Line line;
    line.cut = Cut::perpendicular;
    line.index = side;
    line.ring = ring;
    return line;
}

Line through_vertex(std::size_t vertex) noexcept
{
    Line line;
    line.cut = Cut::through_vertex;
    line.index = vertex;
    return line;
}

Line at_bearing(double bearing_gon) noexcept
{
    Line line;
    line.cut = Cut::at_bearing;
    line.bearing = bearing_gon;
    return line;
}

Line along_segment(const PL_PNT2D_record& a, const PL_PNT2D_record& b) noexcept
{
    Line line;
    line.cut = Cut::along_segment;
    line.a = a;
    line.b = b;
    return line;
}

Line through_place(std::size_t side, double along) noexcept
{
    Line line;
    line.cut = Cut::through_place;
    line.index = side;
    line.along = along;
    return line;
}

Line through_point(const PL_PNT2D_record& point, double bearing) noexcept
{
    Line line;
    line.cut = Cut::through_point;
    line.a = point;
    line.bearing = bearing;
    return line;
}

}  // namespace plparcel
