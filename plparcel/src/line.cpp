#include "plparcel/line.h"

namespace plparcel {

Line parallel_to(std::size_t side) noexcept
{
    Line line;
    line.cut = Cut::parallel;
    line.index = side;
    return line;
}

Line perpendicular_to(std::size_t side) noexcept
{
    Line line;
    line.cut = Cut::perpendicular;
    line.index = side;
    return line;
}

Line through_vertex(std::size_t vertex) noexcept
{
    Line line;
    line.cut = Cut::through_vertex;
    line.index = vertex;
    return line;
}

}  // namespace plparcel
