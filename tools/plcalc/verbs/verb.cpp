#include "verbs/verb.h"

#include <cmath>
#include <optional>

#include "reports/refusal.h"
#include "text/numbers.h"

namespace tool {

Verb::Verb(CLI::App& app, const std::string& name, const std::string& help_text)
    : app_(app.add_subcommand(name)), help_text_(help_text)
{
    app_->set_help_flag();
    app_->allow_extras();
    app_->add_flag("-h,--help", help_);
    app_->add_option("FILE", file_);
    app_->add_option("--layer", layer_)->type_name("NAME");
    app_->add_option("--feature", feature_)->type_name("FID");
    app_->add_option("--where", where_)->type_name("FILTER");
}

void Verb::wrong_use(const std::string& what) const
{
    throw Failure(ExitStatus::wrong_use, {}, what, "see plcalc " + app_->get_name() + " --help");
}

void Verb::require_usable(const Parcel& parcel)
{
    const plparcel::RingReport report = plparcel::check_ring(parcel.ring);
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
    return source;
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
    const std::optional<double> value = parse_number(text);
    if (!value || !std::isfinite(*value) || !(*value > 0.0))
        wrong_use(option + ": '" + text + "' is not a number above 0, with a point before the decimals");
    return *value;
}

}  // namespace tool
