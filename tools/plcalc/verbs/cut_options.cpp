#include "verbs/cut_options.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <sstream>

#include "reading/other_lines.h"
#include "text/numbers.h"

namespace tool {
namespace {

// Nobody means more parts than this.
constexpr long long kMaxParts = 1000;

constexpr double kPercent = 100.0;

const char* const kCuts[] = {"--parallel", "--perpendicular", "--vertex", "--vertex-near",
                             "--bearing",  "--along-segment", "--place",  "--through"};
const char* const kAmounts[] = {"--area", "--product", "--share", "--width", "--areas", "--parts"};
const char* const kSides[] = {"--side", "--side-near", "--facing", "--along"};
const char* const kOthers[] = {"--within", "--alternative", "--pieces", "--decimals", "--tolerance"};

}  // namespace

CuttingVerb::CuttingVerb(CLI::App& app, const std::string& name, const std::string& help_text)
    : Verb(app, name, help_text)
{
    options().add_option("--parallel", parallel_)->type_name("SIDE")->expected(0, 1);
    options().add_option("--perpendicular", perpendicular_)->type_name("SIDE")->expected(0, 1);
    options().add_option("--vertex", vertex_)->type_name("N");
    options().add_option("--side", side_)->type_name("longest|shortest");
    options().add_option("--side-near", side_near_)->type_name("E,N");
    options().add_option("--facing", facing_)->type_name("ANGLE");
    options().add_option("--along", along_)->type_name("FILE");
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
    options().add_option("--areas", areas_)->type_name("LIST");
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

plparcel::Amount CuttingVerb::share(const std::string& option, const std::string& text) const
{
    const std::size_t slash = text.find('/');
    const bool percent = !text.empty() && text.back() == '%';
    if (slash == std::string::npos && !percent)
        wrong_use(option + ": '" + text + "' is not a share; write it as 1/3 or 25%");
    const double part = amount(option, percent ? text.substr(0, text.size() - 1) : text.substr(0, slash));
    const double of = percent ? kPercent : amount(option, text.substr(slash + 1));
    if (!(part < of))
        wrong_use(option + ": '" + text + "' is not less than the whole parcel");
    return plparcel::share(part, of);
}

plparcel::Amount CuttingVerb::product(const std::string& option, const std::string& first,
                                      const std::string& second) const
{
    const plparcel::Amount made = plparcel::product(amount(option, first), amount(option, second));
    if (!std::isfinite(made.first * made.second) || !(made.first * made.second > 0.0))
        wrong_use(option + ": the product of the two is not a number above 0");
    return made;
}

plparcel::Amount CuttingVerb::width(const std::string& option, const std::string& text) const
{
    return plparcel::width(amount(option, text));
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

// One of a list: 1000, 40x50, 1/3, 25% or w12.
void CuttingVerb::add_amount(Asked& asked, const std::string& option, const std::string& text) const
{
    const std::size_t times = text.find('x');
    const bool starts_with_number = text.find_first_of("0123456789.") == 0;
    if (!text.empty() && (text[0] == 'w' || text[0] == 'W')) {
        asked.request.amounts.push_back(width(option, text.substr(1)));
        asked.amounts.push_back("width " + shortest(asked.request.amounts.back().first));
    } else if (times != std::string::npos && starts_with_number) {
        const plparcel::Amount made = product(option, text.substr(0, times), text.substr(times + 1));
        asked.request.amounts.push_back(made);
        asked.amounts.push_back(shortest(made.first) + " x " + shortest(made.second));
    } else if (text.find_first_of("/%") != std::string::npos) {
        asked.request.amounts.push_back(share(option, text));
        asked.amounts.push_back(text);
    } else {
        asked.request.amounts.push_back(plparcel::area(amount(option, text)));
        asked.amounts.push_back(shortest(asked.request.amounts.back().first));
    }
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
                  "--facing ANGLE and --along FILE");
    if (has_number) {
        asked.number = whole(option, text);
        return;
    }
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
        const std::optional<double> gons = parse_angle(facing_);
        if (!gons)
            wrong_use("--facing: '" + facing_ +
                      "' is not an angle; write gons as in 112.5, or degrees as in 101.25d");
        choice.by = By::facing;
        choice.bearing_gon = *gons;
        choice.given = parse_number(facing_) ? facing_ + " gon" : facing_;
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
                  "--bearing ANGLE, "
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
        const std::optional<double> gons = parse_angle(bearing_);
        if (!gons)
            wrong_use("--bearing: '" + bearing_ +
                      "' is not an angle; write gons as in 112.5, degrees as in 101.25d or 101d15'30\", or a "
                      "quadrant bearing as in S78-44-30E");
        asked.request.line = plparcel::at_bearing(*gons);
        asked.line = parse_number(bearing_) ? bearing_ + " gon" : bearing_;
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
    if (given("--alternative") && pieces_ == "any")
        wrong_use("--alternative: with --pieces any there is only one line");
}

void CuttingVerb::set_amounts(Asked& asked) const
{
    if (std::count_if(std::begin(kAmounts), std::end(kAmounts), [&](const char* o) { return given(o); }) != 1)
        wrong_use(
            "give one of --area A, --product A B, --share S, --width W, --areas LIST and --parts COUNT");
    if (given("--area")) {
        asked.request.amounts = {plparcel::area(amount("--area", area_))};
        asked.amounts = {shortest(asked.request.amounts[0].first)};
    } else if (given("--product")) {
        const plparcel::Amount made = product("--product", product_[0], product_[1]);
        asked.request.amounts = {made};
        asked.amounts = {shortest(made.first) + " x " + shortest(made.second)};
    } else if (given("--share")) {
        asked.request.amounts = {share("--share", share_)};
        asked.amounts = {share_};
    } else if (given("--width")) {
        asked.request.amounts = {width("--width", width_)};
        asked.amounts = {"width " + shortest(asked.request.amounts[0].first)};
    } else if (given("--areas")) {
        // A comma at the end is refused: the amount after it has been forgotten.
        std::istringstream list(areas_ + ",");
        for (std::string text; !areas_.empty() && std::getline(list, text, ',');)
            add_amount(asked, "--areas", text);
        if (asked.amounts.empty())
            wrong_use("--areas: '" + areas_ + "' is not a list such as 1000,1/3,20x30");
    } else {
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
        const plparcel::Amount part = share("--tolerance", tolerance_);
        rounding.tolerance = part.first / part.second;
        if (!(rounding.tolerance > 0.0) || rounding.tolerance > kMostTolerance)
            wrong_use("--tolerance: '" + tolerance_ + "' is more than 1% of the parcel");
    }
}

Asked CuttingVerb::asked() const
{
    Asked asked;
    set_cut(asked);
    set_amounts(asked);
    set_choice(asked);
    set_rounding(asked);
    return asked;
}

void CuttingVerb::read_other_lines(Asked& asked, const OGRSpatialReference* crs)
{
    if (asked.choice.by == SideChoice::By::along)
        asked.choice.other = other_lines(asked.choice.given, crs);
}

}  // namespace tool
