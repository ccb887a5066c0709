#include "verbs/verb.h"

#include <optional>

#include "reports/refusal.h"
#include "text/numbers.h"

namespace tool {

Verb::Verb(CLI::App& app, const std::string& name, const std::string& help_text)
    : app_(app.add_subcommand(name)), help_text_(help_text)
{
    app_->set_help_flag();
    app_->add_flag("-h,--help", help_);
    app_->add_option("FILE", file_);
    app_->add_option("--layer", layer_)->type_name("NAME");
    app_->add_option("--feature", feature_)->type_name("FID");
    app_->add_option("--where", where_)->type_name("FILTER");
    app_->add_option("--part", part_)->type_name("N");
    app_->add_option("--columns", columns_)->type_name("NAMES");
    app_->add_option("--axes", axes_)->type_name("en|ne");
    app_->add_option("--crs", crs_)->type_name("CRS");
    app_->add_option("--ground-factor", ground_factor_)->type_name("F");
    app_->add_flag("--any-scale", any_scale_);
    app_->add_option("--join", join_)->type_name("GAP");
    app_->add_option("--inner", inner_)->type_name("hole|overlap");
    app_->add_option("--arcs", arcs_)->type_name("DISTANCE");
    app_->add_option("--name-layer", name_layer_)->type_name("NAME");
    app_->add_option("--angles", angles_)->type_name("gon|deg|dms|quadrant");
    app_->add_option("--name-column", name_column_)->type_name("COLUMN");
}

void Verb::require_list_name(const std::string& option, const std::string& file) const
{
    const std::string ending = ".csv";
    const bool has_it =
        file.size() > ending.size() && file.compare(file.size() - ending.size(), ending.size(), ending) == 0;
    if (!file.empty() && !has_it)
        wrong_use(option + ": '" + file + "' does not end in .csv");
}

void Verb::wrong_use(const std::string& what) const
{
    throw Failure(ExitStatus::wrong_use, {}, what, "see plcalc " + app_->get_name() + " --help");
}

void Verb::require_usable(const Parcel& parcel)
{
    const plparcel::RingReport report = check(parcel);
    if (report.status != plparcel::BoundaryStatus::usable)
        throw unusable_boundary(parcel, report);
}

Source Verb::source() const
{
    if (file_.empty())
        wrong_use("FILE is missing; give the file that holds the parcel");
    Source source;
    source.file = file_;
    if (given("--layer"))
        source.layer = layer_;
    if (given("--feature"))
        source.feature = whole("--feature", feature_);
    if (given("--where"))
        source.where = where_;
    if (given("--part"))
        source.part = whole("--part", part_);
    if (given("--columns"))
        source.columns = columns_;
    if (given("--axes") && axes_ != "en" && axes_ != "ne")
        wrong_use("--axes: '" + axes_ + "' is neither en (X is East) nor ne (X is North)");
    if (given("--axes"))
        source.axes = axes_ == "en" ? XAxis::east : XAxis::north;
    if (given("--crs"))
        source.crs = crs_;
    source.any_scale = any_scale_;
    if (given("--join"))
        source.join = amount("--join", join_);
    if (given("--inner") && inner_ != "hole" && inner_ != "overlap")
        wrong_use("--inner: '" + inner_ + "' is neither hole nor overlap");
    if (given("--inner"))
        source.inner = inner_ == "hole" ? InnerLine::hole : InnerLine::overlap;
    if (given("--arcs"))
        source.arcs = amount("--arcs", arcs_);
    if (given("--name-layer"))
        source.name_layer = name_layer_;
    if (given("--name-column"))
        source.name_column = name_column_;
    source.ground_factor = given("--ground-factor") ? ground_factor() : 1.0;
    return source;
}

// The higher a place and the farther from a central meridian, the farther from 1; nowhere as far as these limits.
double Verb::ground_factor() const
{
    constexpr double kSmallest = 0.9;
    constexpr double kLargest = 1.1;
    const double factor = amount("--ground-factor", ground_factor_);
    if (factor < kSmallest || factor > kLargest)
        wrong_use("--ground-factor: '" + ground_factor_ +
                  "' is not the factor by which lengths on the ground become lengths in the plane, such as "
                  "0.99962");
    return factor;
}

std::optional<AngleUnit> Verb::angle_unit() const
{
    if (!given("--angles"))
        return std::nullopt;
    const std::optional<AngleUnit> unit = angle_unit_named(angles_);
    if (!unit)
        wrong_use("--angles: '" + angles_ + "' is none of gon, deg, dms and quadrant");
    return unit;
}

long long Verb::whole(const std::string& option, const std::string& text) const
{
    const std::optional<long long> value = parse_whole(text);
    if (!value)
        wrong_use(option + ": '" + text + "' is not a whole number");
    return *value;
}

double Verb::amount(const std::string& option, const std::string& text) const
{
    return understood(option, [&] { return positive_number(text); });
}

}  // namespace tool
