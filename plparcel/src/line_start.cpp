#include "line_start.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "boundary/local_ring.h"
#include "boundary/locate.h"
#include "boundary/meeting_sides.h"
#include "lines/direction.h"
#include "numbers/wide.h"

namespace plparcel {
namespace {

LineStart refused(Status status)
{
    LineStart start;
    start.refusal = status;
    return start;
}

Measured other(Measured measured)
{
    return measured == Measured::opposite ? Measured::from_reference : Measured::opposite;
}

// The first from the West, and of these from the South: the same wherever the ring begins.
std::size_t westernmost(const MeasuredRing& ring)
{
    const auto least = std::min_element(ring.ring().begin(), ring.ring().end(), comes_before);
    return static_cast<std::size_t>(least - ring.ring().begin());
}

// A place that is next to a vertex is that vertex.
LineStart at_place(LineStart start, const MeasuredRing& ring)
{
    for (const std::size_t vertex : {start.vertex, (start.vertex + 1) % ring.size()})
        if (is_at_vertex(ring, ring[vertex], start.point)) {
            start.cut = Cut::through_vertex;
            start.vertex = vertex;
            return start;
        }
    return start;
}

LineStart at_distance(LineStart start, const MeasuredRing& ring, double along)
{
    const double beyond = along - side_length(ring, start.vertex);
    const double reach = kSideRoundings * ring.spacing();
    if (!(along >= -reach) || !(beyond <= reach))
        return refused(Status::no_such_place);
    start.point = place_on_side(ring, start.vertex, along);
    return at_place(start, ring);
}

LineStart at_point(LineStart start, const MeasuredRing& ring, const PL_PNT2D_record& point, double bearing)
{
    if (!std::isfinite(bearing))
        return refused(Status::no_direction);
    const Location location = locate(ring, point);
    if (location.where == Location::Where::outside)
        return refused(Status::point_outside);
    start.point = point;
    start.point_stays = true;
    if (location.where == Location::Where::inside) {
        start.cut = Cut::through_point;
        start.vertex = westernmost(ring);
        return start;
    }
    // The piece on the right of a line into the parcel follows its start if the ring runs anticlockwise.
    if (ring.turn() < 0.0)
        start.measured = other(start.measured);
    start.vertex = location.index;
    start.cut = location.where == Location::Where::at_vertex ? Cut::through_vertex : Cut::through_place;
    return start;
}

// In a direction of its own.
LineStart anywhere(LineStart start, const MeasuredRing& ring, const Line& line)
{
    if (!has_direction(line))
        return refused(Status::no_direction);
    start.vertex = westernmost(ring);
    return start;
}

// Begun at the side or vertex that is cut from. The parcel's frame lies at the first vertex and sums start there:
// which coordinate a tie between two doubles is rounded to must not depend on where the caller began.
MeasuredRing begun_at(Ring ring, std::size_t start)
{
    std::rotate(ring.begin(), ring.begin() + static_cast<std::ptrdiff_t>(start), ring.end());
    return MeasuredRing(std::move(ring));
}

Reference reference_of(const Line& line, const MeasuredRing& begun)
{
    if (line.cut == Cut::at_bearing)
        return {line.cut, begun[0], direction_of(line.bearing)};
    if (line.cut == Cut::along_segment)
        return {line.cut, begun[0], from_to(line.a, line.b)};
    return {line.cut, begun[0], from_to(begun[0], begun[1])};
}

}  // namespace

LineStart start_of(const CleanRing& clean, const Request& request)
{
    const Line& line = request.line;
    LineStart start;
    start.cut = line.cut;
    start.measured = request.measured;
    if (is_free(line.cut))
        return anywhere(start, clean.ring, line);
    if (line.cut == Cut::through_point)
        return at_point(start, clean.ring, line.a, line.bearing);
    if (line.ring != 0 || line.index >= clean.place.size())
        return refused(Status::no_such_index);
    start.vertex = clean.place[line.index];
    if (line.cut == Cut::through_vertex)
        return start;
    if (around(clean.place, line.index + 1) == start.vertex)
        return refused(Status::side_without_length);
    return line.cut == Cut::through_place ? at_distance(start, clean.ring, line.along) : start;
}

FirstStage first_stage(CleanRing clean, const Request& request, const LineStart& start)
{
    MeasuredRing begun = begun_at(clean.ring.take_ring(), start.vertex);
    const Reference reference = reference_of(request.line, begun);
    Stage stage;
    stage.ring = std::move(begun);
    stage.cut = start.cut;
    stage.measured = start.measured;
    stage.point = start.point;
    stage.point_stays = start.point_stays;
    if (start.cut == Cut::through_point)
        stage.first = direction_of(request.line.bearing);
    return {std::move(stage), reference};
}

}  // namespace plparcel
