#include "verbs/verbs.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "answers/chosen_side.h"
#include "answers/division_points.h"
#include "answers/heights.h"
#include "answers/printed_division.h"
#include "files/pending_output.h"
#include "reading/parcel_file.h"
#include "reading/point_list.h"
#include "reports/parcel_reports.h"
#include "reports/refusal.h"
#include "text/numbers.h"
#include "verbs/help.h"

namespace tool {
namespace {

// Before the number of a vertex without a name.
const std::string kVertex = "vertex ";

NamedPoint vertex(const Parcel& parcel, std::size_t i)
{
    const RingIndex at = in_ring(parcel, i).value();
    const plparcel::Ring& ring = at.ring == 0 ? parcel.ring : parcel.holes[at.ring - 1];
    const bool has_name = i < parcel.point_names.size() && !parcel.point_names[i].empty();
    NamedPoint point = {has_name ? parcel.point_names[i] : kVertex + std::to_string(i + 1), ring[at.index]};
    point.short_name = vertex_name(parcel, i);
    point.code = "CORNER";
    return point;
}

// The vertex with this number, as a text has it.
std::optional<std::size_t> vertex_number(const std::string& text, const Parcel& parcel)
{
    const std::optional<long long> number = parse_whole(text);
    const bool is_there =
        number && *number >= 1 && static_cast<unsigned long long>(*number) <= vertex_count(parcel);
    return is_there ? std::optional<std::size_t>(static_cast<std::size_t>(*number - 1)) : std::nullopt;
}

// "vertex 3".
std::optional<std::size_t> called_vertex(const std::string& text, const Parcel& parcel)
{
    return text.rfind(kVertex, 0) == 0 ? vertex_number(text.substr(kVertex.size()), parcel) : std::nullopt;
}

bool has_heights(const Parcel& parcel, const std::vector<NamedPoint>& listed)
{
    return !parcel.heights.empty() ||
           std::any_of(listed.begin(), listed.end(), [](const NamedPoint& point) { return point.height; });
}

bool same(const NamedPoint& a, const NamedPoint& b)
{
    return a.at.x == b.at.x && a.at.y == b.at.y;
}

// Whether a new point has the name of a listed one that lies elsewhere.
bool has_name_of_another(const DivisionPoints& points, const std::vector<NamedPoint>& listed, int decimals)
{
    const auto is_other = [&](const DivisionPoint& point, const NamedPoint& other) {
        const auto differ = [&](double a, double b) { return fixed(a, decimals) != fixed(b, decimals); };
        return point.name == other.name && (differ(point.at.x, other.at.x) || differ(point.at.y, other.at.y));
    };
    return std::any_of(points.points.begin(), points.points.end(), [&](const DivisionPoint& point) {
        return point.is_new && std::any_of(listed.begin(), listed.end(),
                                           [&](const NamedPoint& other) { return is_other(point, other); });
    });
}

// A sliver needs more decimals than its size asks for: as many as its lines have.
//
// known: other points, whose names are not given again
std::vector<NamedPoint> line_ends(const Parcel& parcel, const Asked& asked,
                                  const std::vector<NamedPoint>& known, Resolution& resolution,
                                  std::vector<std::string>& assumed)
{
    const Answer answer = tool::answer(parcel, asked);
    const PrintedDivision& printed = answer.printed;
    if (!printed.done())
        throw refusal(answer);
    resolution.decimals = std::max(resolution.decimals, printed.resolution.decimals);
    std::vector<NamedPoint> ends;
    DivisionPoints points = points_of(answer);
    if (has_name_of_another(points, known, printed.resolution.decimals)) {
        std::vector<std::string> taken(known.size());
        std::transform(known.begin(), known.end(), taken.begin(),
                       [](const NamedPoint& point) { return point.name; });
        points = points_of(answer, taken);
        assumed.push_back("new points are numbered on behind those of the lists");
    }
    const auto add = [&](const std::string& name, const PL_PNT2D_record& at, std::size_t point) {
        ends.push_back({name, at, {}, points.points[point].name, points.points[point].code()});
    };
    for (std::size_t i = 0; i < printed.lines.size(); ++i) {
        const PrintedLine& line = printed.lines[i];
        const std::string name =
            (printed.proven.lines.size() > 1 ? "line " + std::to_string(line.line + 1) + " " : "") +
            (line.parts > 1 ? "part " + std::to_string(line.part + 1) + " " : "");
        add(name + "from", line.start, points.lines[i].from);
        add(name + "to", line.end, points.lines[i].to);
    }
    return ends;
}

}  // namespace

StakeoutVerb::StakeoutVerb(CLI::App& app) : CuttingVerb(app, "stakeout", stakeout_help())
{
    options().add_option("--station", station_)->type_name("PLACE");
    options().add_option("--orientation", orientation_)->type_name("PLACE");
    options().add_option("--control", control_)->type_name("FILE");
    options().add_option("--points-from", points_from_)->type_name("FILE");
    options().add_option("--base", base_)->type_name("SIDE");
    options()
        .add_option("--point", points_)
        ->type_name("PLACE")
        ->allow_extra_args(false)  // one PLACE each time, because FILE may follow
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    options().add_option("--points", list_)->type_name("POINTS");
    options().add_flag("--overwrite", overwrite_);
    options().add_flag("--csv", csv_);
    options().add_flag("--json", json_);
}

// What a name or a number may stand for.
std::vector<NamedPoint> StakeoutVerb::called(const std::string& text, const Parcel& parcel,
                                             const KnownPoints& known) const
{
    std::vector<NamedPoint> points;
    for (std::size_t i = 0; i < parcel.point_names.size(); ++i)
        if (parcel.point_names[i] == text)
            points.push_back(vertex(parcel, i));
    for (const std::vector<NamedPoint>* list : {&known.control, &known.listed})
        for (const NamedPoint& point : *list)
            if (point.name == text)
                points.push_back(point);
    if (!points.empty())
        return points;  // where points have numbers for names, a number is a name
    if (const std::optional<std::size_t> number = vertex_number(text, parcel))
        points.push_back(vertex(parcel, *number));
    if (const std::optional<std::size_t> number = called_vertex(text, parcel))
        points.push_back(vertex(parcel, *number));
    return points;
}

// What must be said where a number is the name of a point, and not the vertex with this number.
std::vector<std::string> StakeoutVerb::names_that_are_numbers(const Parcel& parcel,
                                                              const KnownPoints& known) const
{
    std::vector<std::string> texts = {station_, orientation_};
    texts.insert(texts.end(), points_.begin(), points_.end());
    std::vector<std::string> clauses;
    for (const std::string& text : texts) {
        const std::optional<std::size_t> number = vertex_number(text, parcel);
        if (!number || same(called(text, parcel, known).front(), vertex(parcel, *number)))
            continue;
        std::string clause = text;
        clause.append(" is the point of this name; the vertex is called 'vertex ").append(text).append("'");
        if (std::find(clauses.begin(), clauses.end(), clause) == clauses.end())
            clauses.push_back(clause);
    }
    return clauses;
}

// Writes the list for a controller. Returns the names of the files.
std::vector<std::string> StakeoutVerb::write_points(const StakeoutSheet& sheet, const ParcelFile& file) const
{
    if (!given("--points"))
        return {};
    std::vector<std::string> others = request_files();
    others.insert(others.end(), {control_, points_from_});
    PendingOutput output(list_, overwrite_, file.files(), others);
    write_text_file(output.path(), stakeout_points(sheet), list_);
    output.commit();
    return {list_};
}

// "E,N", or the number of a vertex, or the name of a point.
NamedPoint StakeoutVerb::place(const std::string& option, const std::string& text, const Parcel& parcel,
                               const KnownPoints& known) const
{
    const std::vector<NamedPoint> points = called(text, parcel, known);
    const auto differs = [&](const NamedPoint& point) { return !same(point, points.front()); };
    if (std::any_of(points.begin(), points.end(), differs))
        throw Failure(ExitStatus::wrong_use, parcel.place,
                      option + ": several points are called '" + text + "'", "write the place as E,N");
    if (!points.empty())
        return points.front();
    const std::size_t comma = text.find(',');
    if (comma != std::string::npos) {
        const std::optional<double> east = parse_number(text.substr(0, comma));
        const std::optional<double> north = parse_number(text.substr(comma + 1));
        if (!east || !north || !std::isfinite(*east) || !std::isfinite(*north))
            no_place(option, text);
        return {"", {*east, *north}};
    }
    if (!parse_whole(text))
        no_place(option, text);
    throw Failure(ExitStatus::wrong_use, parcel.place, "there is no vertex " + text,
                  "the parcel has vertices 1 to " + std::to_string(vertex_count(parcel)));
}

void StakeoutVerb::no_place(const std::string& option, const std::string& text) const
{
    wrong_use(option + ": '" + text +
              "' is not a place; write E,N with points before the decimals, the number of a vertex or the "
              "name of a "
              "point");
}

// The points that --control and --points-from name; they are in the CRS of the parcel.
StakeoutVerb::KnownPoints StakeoutVerb::known_points(const Source& source, const ParcelFile& file,
                                                     Parcel& parcel) const
{
    KnownPoints known;
    if (given("--control"))
        known.control = read_point_list(control_, source.axes, file.crs(), parcel.assumed);
    if (given("--points-from"))
        known.listed = read_point_list(points_from_, source.axes, file.crs(), parcel.assumed);
    return known;
}

Setup StakeoutVerb::setup(const Parcel& parcel, const KnownPoints& known) const
{
    Setup setup = {place("--station", station_, parcel, known),
                   place("--orientation", orientation_, parcel, known)};
    if (same(setup.station, setup.orientation))
        wrong_use("--orientation: this is the station itself; name another place");
    return setup;
}

// The side that --base names, or the side of the cut; for a cut through a vertex, the side that starts there.
BaseLine StakeoutVerb::base_line(const Parcel& parcel, const std::optional<Asked>& asked) const
{
    const long long number = given("--base") ? whole("--base", base_)
                             : asked         ? std::max(asked->number, 1LL)
                                             : 1;
    if (number < 1 || static_cast<unsigned long long>(number) > vertex_count(parcel))
        throw Failure(ExitStatus::wrong_use, parcel.place, "there is no side " + std::to_string(number),
                      "the parcel has sides 1 to " + std::to_string(vertex_count(parcel)));
    const std::size_t first = static_cast<std::size_t>(number - 1);
    const RingIndex at = in_ring(parcel, first).value();
    BaseLine base = {vertex(parcel, first), vertex(parcel, at.first + (at.index + 1) % at.count)};
    if (same(base.from, base.to))
        throw Failure(ExitStatus::wrong_use, parcel.place,
                      "side " + std::to_string(number) + " has no length: its two vertices are one point",
                      "choose another with --base");
    return base;
}

// The ends of the lines that are asked for, the points that are named and those of the list; without any, the vertices.
std::vector<NamedPoint> StakeoutVerb::points(const Parcel& parcel, const std::optional<Asked>& asked,
                                             const KnownPoints& known, Resolution& resolution,
                                             std::vector<std::string>& assumed) const
{
    std::vector<NamedPoint> points;
    if (asked) {
        std::vector<NamedPoint> all = known.control;
        all.insert(all.end(), known.listed.begin(), known.listed.end());
        points = line_ends(parcel, *asked, all, resolution, assumed);
    }
    for (std::size_t i = 0; i < points_.size(); ++i) {
        points.push_back(place("--point", points_[i], parcel, known));
        if (points.back().name.empty())
            points.back().name = "point " + std::to_string(i + 1);
    }
    points.insert(points.end(), known.listed.begin(), known.listed.end());
    const bool has_none = points.empty();
    for (std::size_t i = 0; has_none && i < vertex_count(parcel); ++i)
        points.push_back(vertex(parcel, i));
    return points;
}

Output StakeoutVerb::work() const
{
    if (!given("--station") || !given("--orientation"))
        wrong_use("give --station PLACE and --orientation PLACE");
    if (csv_ && json_)
        wrong_use("give one of --csv and --json");
    require_list_name("--points", list_);
    const Source source = this->source();
    ParcelFile file(source);
    ReadParcel read = only_parcel(file, source);
    std::optional<Asked> asked;
    if (asks_for_cut())
        asked = requests(file, source).of(read);
    const KnownPoints known = known_points(source, file, read.parcel);
    const Parcel& parcel = read.parcel;
    if (asked)
        asked = with_side(std::move(*asked), parcel);
    else
        require_usable(parcel);  // a division checks the ring itself
    StakeoutSheet sheet;
    sheet.parcel = parcel.place;
    sheet.assumed = parcel.assumed;
    for (const std::string& clause : names_that_are_numbers(parcel, known))
        sheet.assumed.push_back(clause);
    sheet.heights = has_heights(parcel, known.listed);
    sheet.angles = angle_unit().value_or(AngleUnit::gon);
    sheet.setup = setup(parcel, known);
    sheet.base = base_line(parcel, asked);
    sheet.resolution = resolution_of(parcel.ring, 1.0);
    std::vector<NamedPoint> wanted = points(parcel, asked, known, sheet.resolution, sheet.assumed);
    const Heights heights(parcel, asked ? asked->request.rounding.decimals : std::optional<int>());
    for (NamedPoint& point : wanted)
        if (!point.height)
            point.height = heights.at(point.at);
    sheet.points = set_out(sheet.setup, sheet.base, wanted, parcel.ground_factor);
    sheet.angle_decimals = angle_decimals_for(sheet.points, sheet.resolution);
    const std::vector<std::string> written = write_points(sheet, file);
    if (csv_ || json_)
        return {csv_ ? stakeout_csv(sheet) : stakeout_json(sheet)};
    return {stakeout_table(sheet) + (written.empty() ? "" : "\nWritten  " + written.front() + "\n")};
}

}  // namespace tool
