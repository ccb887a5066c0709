#include "verbs/cut_options.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <sstream>
#include <utility>

#include "reading/other_lines.h"
#include "text/angles.h"
#include "text/numbers.h"

namespace tool {
namespace {

// Nobody means more parts than this.
constexpr long long kMaxParts = 1000;

// Whether --areas names a table instead of a list.
bool names_table(const std::string& areas)
{
    const std::size_t dot = areas.rfind('.');
    const std::string ending = dot == std::string::npos ? "" : areas.substr(dot);
    return ending == ".csv" || ending == ".CSV" || ending == ".txt" || ending == ".tsv";
}

const char* const kCuts[] = {"--parallel", "--perpendicular", "--vertex", "--vertex-near", "--vertex-from",
                             "--bearing",  "--along-segment", "--place",  "--through"};
const char* const kAmounts[] = {"--area",  "--product", "--share",     "--width",
                                "--areas", "--parts",   "--area-from", "--share-from"};
const char* const kSides[] = {"--side", "--side-near", "--facing", "--along", "--side-from"};
const char* const kOthers[] = {"--within", "--alternative", "--pieces", "--decimals", "--tolerance"};

}  // namespace

CuttingVerb::CuttingVerb(CLI::App& app, const std::string& name, const std::string& help_text)
    : Verb(app, name, help_text)
{
    options().add_option("--parallel", parallel_)->type_name("SIDE")->expected(0, 1);
    options().add_option("--perpendicular", perpendicular_)->type_name("SIDE")->expected(0, 1);
    options().add_option("--vertex", vertex_)->type_name("N");
    options().add_option("--vertex-from", vertex_from_)->type_name("COLUMN");
    options().add_option("--side", side_)->type_name("longest|shortest");
    options().add_option("--side-near", side_near_)->type_name("E,N");
    options().add_option("--facing", facing_)->type_name("ANGLE");
    options().add_option("--along", along_)->type_name("FILE");
    options().add_option("--side-from", side_from_)->type_name("COLUMN");
    options().add_option("--within", within_)->type_name("DISTANCE");
    options().add_option("--vertex-near", vertex_near_)->type_name("E,N");
    options().add_option("--bearing", bearing_)->type_name("ANGLE");
    options().add_option("--along-segment", segment_)->type_name("E,N,E,N");
    options().add_option("--place", place_)->type_name("SIDE,DISTANCE");
    options().add_option("--through", through_)->type_name("E,N");
    options().add_option("--alternative", alternative_)->type_name("N");
    options().add_option("--pieces", pieces_)->type_name("two|any");
    options().add_option("--area", area_)->type_name("A");
    options().add_option("--width", width_)->type_name("W");
    options().add_option("--product", product_)->expected(2)->type_name("A B");
    options().add_option("--share", share_)->type_name("SHARE");
    options().add_option("--areas", areas_)->type_name("LIST|FILE");
    options().add_option("--area-from", area_from_)->type_name("COLUMN");
    options().add_option("--share-from", share_from_)->type_name("COLUMN");
    options().add_option("--parts", parts_)->type_name("COUNT");
    options().add_flag("--opposite", opposite_);
    options().add_option("--decimals", decimals_)->type_name("N");
    options().add_option("--tolerance", tolerance_)->type_name("SHARE");
}

bool CuttingVerb::asks_for_cut() const
{
    const auto is_given = [&](const char* option) { return given(option); };
    return std::any_of(std::begin(kCuts), std::end(kCuts), is_given) ||
           std::any_of(std::begin(kSides), std::end(kSides), is_given) ||
           std::any_of(std::begin(kAmounts), std::end(kAmounts), is_given) || opposite_ ||
           std::any_of(std::begin(kOthers), std::end(kOthers), is_given);
}

// "500010,5000020": so many numbers with commas between them.
std::vector<double> CuttingVerb::numbers(const std::string& option, const std::string& text,
                                         std::size_t count) const
{
    std::vector<double> numbers;
    std::istringstream list(text + ",");
    for (std::string part; std::getline(list, part, ',');) {
        const std::optional<double> number = parse_number(part);
        if (!number || !std::isfinite(*number))
            break;
        numbers.push_back(*number);
    }
    const auto commas = static_cast<std::size_t>(std::count(text.begin(), text.end(), ','));
    if (numbers.size() != count || commas + 1 != count)
        wrong_use(option + ": '" + text + "' is not " + std::to_string(count) +
                  " numbers with commas between them and points before the decimals");
    return numbers;
}

// The side by its number, or by what it is.
void CuttingVerb::set_side(Asked& asked, const std::string& option, const std::string& text) const
{
    using By = SideChoice::By;
    const auto chosen =
        std::count_if(std::begin(kSides), std::end(kSides), [&](const char* o) { return given(o); });
    const bool has_number =
        !text.empty() && text != "true";  // CLI11 says "true" for an option without its value
    if (chosen + (has_number ? 1 : 0) != 1)
        wrong_use(option +
                  ": name the side by its number, or by one of --side longest|shortest, --side-near E,N, "
                  "--facing ANGLE, --along FILE and --side-from COLUMN");
    if (has_number) {
        asked.number = whole(option, text);
        return;
    }
    if (given("--side-from"))
        return;  // each parcel has its own
    SideChoice& choice = asked.choice;
    if (given("--side")) {
        if (side_ != "longest" && side_ != "shortest")
            wrong_use("--side: '" + side_ + "' is neither longest nor shortest");
        choice.by = side_ == "longest" ? By::longest : By::shortest;
    } else if (given("--side-near")) {
        const std::vector<double> point = numbers("--side-near", side_near_, 2);
        choice.by = By::near;
        choice.point = {point[0], point[1]};
        choice.given = shortest(point[0]) + " " + shortest(point[1]);
    } else if (given("--facing")) {
        const std::optional<double> gons = parse_angle(facing_, asked.angles);
        if (!gons)
            wrong_use("--facing: '" + facing_ +
                      "' is not an angle; write gons as in 112.5, or degrees as in 101.25d");
        choice.by = By::facing;
        choice.bearing_gon = *gons;
        choice.given = given_angle(facing_, asked.angles);
    } else {
        choice.by = By::along;
        choice.given = along_;
        if (given("--within"))
            choice.distance = amount("--within", within_);
    }
}

void CuttingVerb::set_cut(Asked& asked) const
{
    if (std::count_if(std::begin(kCuts), std::end(kCuts), [&](const char* o) { return given(o); }) != 1)
        wrong_use("give one of --parallel SIDE, --perpendicular SIDE, --vertex N, --vertex-near E,N, "
                  "--vertex-from COLUMN, --bearing ANGLE, "
                  "--along-segment E,N,E,N, --place SIDE,DISTANCE and --through E,N");
    if (given("--parallel")) {
        asked.request.line.cut = plparcel::Cut::parallel;
        set_side(asked, "--parallel", parallel_);
    } else if (given("--perpendicular")) {
        asked.request.line.cut = plparcel::Cut::perpendicular;
        set_side(asked, "--perpendicular", perpendicular_);
    } else if (given("--vertex")) {
        asked.request.line.cut = plparcel::Cut::through_vertex;
        asked.number = whole("--vertex", vertex_);
    } else if (given("--vertex-from")) {
        asked.request.line.cut = plparcel::Cut::through_vertex;
    } else if (given("--vertex-near")) {
        const std::vector<double> point = numbers("--vertex-near", vertex_near_, 2);
        asked.request.line.cut = plparcel::Cut::through_vertex;
        asked.choice.by = SideChoice::By::vertex_near;
        asked.choice.point = {point[0], point[1]};
        asked.choice.given = shortest(point[0]) + " " + shortest(point[1]);
    } else {
        set_line(asked);
    }
    const bool takes_side = given("--parallel") || given("--perpendicular");
    for (const char* const option : kSides)
        if (given(option) && !takes_side)
            wrong_use(std::string(option) + " is for --parallel and --perpendicular, without a number");
    if (given("--within") && !given("--along"))
        wrong_use("--within is for --along FILE");
    asked.request.measured = opposite_ ? plparcel::Measured::opposite : plparcel::Measured::from_reference;
}

// A line that no side or vertex gives.
void CuttingVerb::set_line(Asked& asked) const
{
    const auto as_text = [](double e, double n) { return shortest(e) + " " + shortest(n); };
    if (given("--bearing")) {
        const std::optional<double> gons = parse_angle(bearing_, asked.angles);
        if (!gons)
            wrong_use("--bearing: '" + bearing_ +
                      "' is not an angle; write gons as in 112.5, degrees as in 101.25d or 101d15'30\", or a "
                      "quadrant bearing as in S78-44-30E");
        asked.request.line = plparcel::at_bearing(*gons);
        asked.line = given_angle(bearing_, asked.angles);
    } else if (given("--along-segment")) {
        const std::vector<double> ends = numbers("--along-segment", segment_, 4);
        asked.request.line = plparcel::along_segment({ends[0], ends[1]}, {ends[2], ends[3]});
        asked.line = as_text(ends[0], ends[1]) + " to " + as_text(ends[2], ends[3]);
    } else if (given("--place")) {
        const std::vector<double> place = numbers("--place", place_, 2);
        asked.number = whole("--place", place_.substr(0, place_.find(',')));
        asked.request.line = plparcel::through_place(0, place[1]);
        asked.line = shortest(place[1]);
    } else {
        const std::vector<double> point = numbers("--through", through_, 2);
        asked.request.line = plparcel::through_point({point[0], point[1]});
        asked.line = as_text(point[0], point[1]);
        asked.count_alternatives = true;
    }
}

void CuttingVerb::set_choice(Asked& asked) const
{
    if (given("--alternative")) {
        const long long alternative = whole("--alternative", alternative_);
        if (alternative < 1)
            wrong_use("--alternative: '" + alternative_ + "' is not a number from 1 on");
        asked.request.alternative = static_cast<std::size_t>(alternative - 1);
        asked.count_alternatives = true;
    }
    if (given("--pieces") && pieces_ != "two" && pieces_ != "any")
        wrong_use("--pieces: '" + pieces_ + "' is neither two nor any");
    if (pieces_ == "any")
        asked.request.pieces = plparcel::Pieces::any;
    const bool turns = given("--vertex") || given("--vertex-near") || given("--place") || given("--through");
    if (given("--alternative") && pieces_ == "any" && !turns)
        wrong_use("--alternative: with --pieces any there is only one line");
}

void CuttingVerb::set_amounts(Asked& asked) const
{
    if (std::count_if(std::begin(kAmounts), std::end(kAmounts), [&](const char* o) { return given(o); }) != 1)
        wrong_use("give one of --area A, --product A B, --share S, --width W, --areas LIST, --parts COUNT, "
                  "--area-from COLUMN and --share-from COLUMN");
    const auto add = [&](const GivenAmount& amount) {
        asked.request.amounts.push_back(amount.amount);
        asked.amounts.push_back(amount.given);
    };
    if (given("--area")) {
        const double area = amount("--area", area_);
        add({plparcel::area(area), shortest(area)});
    } else if (given("--product")) {
        const plparcel::Amount made =
            understood("--product", [&] { return product(product_[0], product_[1]); });
        add({made, shortest(made.first) + " x " + shortest(made.second)});
    } else if (given("--share")) {
        add({understood("--share", [&] { return share(share_); }), share_});
    } else if (given("--width")) {
        const double width = amount("--width", width_);
        add({plparcel::width(width), "width " + shortest(width)});
    } else if (given("--areas") && !names_table(areas_)) {
        if (areas_.empty())
            wrong_use("--areas: '' is not a list such as 1000,1/3,20x30");
        for (const std::string& text : parts_of_list(areas_, ','))
            add(understood("--areas", [&] { return one_amount(text); }));
    } else if (given("--parts")) {
        const long long parts = whole("--parts", parts_);
        if (parts < 2 || parts > kMaxParts)
            wrong_use("--parts: '" + parts_ + "' is not a number from 2 to " + std::to_string(kMaxParts));
        asked.request.amounts = plparcel::equal_parts(static_cast<std::size_t>(parts));
        asked.amounts.assign(asked.request.amounts.size(), "1/" + std::to_string(parts));
    }
}

// Without either, as many decimals as the parcel's size asks for and a millionth of it.
void CuttingVerb::set_rounding(Asked& asked) const
{
    constexpr double kMostTolerance = 0.01;
    plparcel::Rounding& rounding = asked.request.rounding;
    if (given("--decimals")) {
        const long long decimals = whole("--decimals", decimals_);
        if (decimals < 0 || decimals > plparcel::kMostDecimals)
            wrong_use("--decimals: '" + decimals_ + "' is not a number from 0 to " +
                      std::to_string(plparcel::kMostDecimals));
        rounding.decimals = static_cast<int>(decimals);
    }
    if (given("--tolerance")) {
        const plparcel::Amount part = understood("--tolerance", [&] { return share(tolerance_); });
        rounding.tolerance = part.first / part.second;
        if (!(rounding.tolerance > 0.0) || rounding.tolerance > kMostTolerance)
            wrong_use("--tolerance: '" + tolerance_ + "' is not above 0 and at most 1% of the parcel");
    }
}

Asked CuttingVerb::asked() const
{
    Asked asked;
    asked.angles = angle_unit().value_or(AngleUnit::gon);
    set_cut(asked);
    set_amounts(asked);
    set_choice(asked);
    set_rounding(asked);
    return asked;
}

ParcelRequests CuttingVerb::requests(const ParcelFile& file, const Source& source) const
{
    Asked common = asked();
    if (common.choice.by == SideChoice::By::along)
        common.choice.other = other_lines(common.choice.given, file.crs());
    RequestColumns columns;
    columns.areas = area_from_;
    columns.shares = share_from_;
    columns.side = side_from_;
    columns.vertex = vertex_from_;
    if (names_table(areas_))
        columns.table = areas_;
    return {std::move(common), columns, file, source};
}

std::vector<std::string> CuttingVerb::request_files() const
{
    std::vector<std::string> files;
    if (given("--along"))
        files = files_of_lines(along_);
    if (names_table(areas_))
        files.push_back(areas_);
    return files;
}

}  // namespace tool
