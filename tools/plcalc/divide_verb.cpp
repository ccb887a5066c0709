#include "divide_verb.h"

#include <cmath>
#include <optional>

#include "exit_status.h"
#include "help.h"
#include "numbers.h"
#include "printed_division.h"
#include "report.h"

namespace tool {
namespace {

[[noreturn]] void wrong_use(const std::string& what)
{
    throw Failure(ExitStatus::wrong_use, what + "; see plcalc divide --help");
}

long long whole(const std::string& option, const std::string& text)
{
    const std::optional<long long> value = parse_whole(text);
    if (!value)
        wrong_use(option + ": '" + text + "' is not a whole number");
    return *value;
}

// An area or a length.
double amount(const std::string& option, const std::string& text)
{
    const std::optional<double> value = parse_number(text);
    if (!value || !std::isfinite(*value) || !(*value > 0.0))
        wrong_use(option + ": '" + text + "' is not a number above 0, with a point before the decimals");
    return *value;
}

}  // namespace

DivideVerb::DivideVerb(CLI::App& app) : verb_(app.add_subcommand("divide"))
{
    verb_->set_help_flag();
    verb_->allow_extras();
    verb_->add_flag("-h,--help", help_);
    verb_->add_option("FILE", file_);
    verb_->add_option("--layer", layer_)->type_name("NAME");
    verb_->add_option("--feature", feature_)->type_name("FID");
    verb_->add_option("--parallel", parallel_)->type_name("SIDE");
    verb_->add_option("--perpendicular", perpendicular_)->type_name("SIDE");
    verb_->add_option("--vertex", vertex_)->type_name("N");
    verb_->add_option("--area", area_)->type_name("A");
    verb_->add_option("--product", product_)->expected(2)->type_name("A B");
}

Source DivideVerb::source() const
{
    if (file_.empty())
        wrong_use("which FILE? Give the one that holds the parcel");
    Source source;
    source.file = file_;
    if (verb_->count("--layer") > 0)
        source.layer = layer_;
    if (verb_->count("--feature") > 0)
        source.feature = whole("--feature", feature_);
    return source;
}

Request DivideVerb::request() const
{
    const bool parallel = verb_->count("--parallel") > 0;
    const bool perpendicular = verb_->count("--perpendicular") > 0;
    const bool vertex = verb_->count("--vertex") > 0;
    if (parallel + perpendicular + vertex != 1)
        wrong_use("give one of --parallel SIDE, --perpendicular SIDE and --vertex N");
    const bool product = verb_->count("--product") > 0;
    if (product == (verb_->count("--area") > 0))
        wrong_use("give one of --area A and --product A B");

    Request request;
    if (parallel) {
        request.cut = Cut::parallel;
        request.number = whole("--parallel", parallel_);
    } else if (perpendicular) {
        request.cut = Cut::perpendicular;
        request.number = whole("--perpendicular", perpendicular_);
    } else {
        request.cut = Cut::through_vertex;
        request.number = whole("--vertex", vertex_);
    }
    request.given = product ? AreaGiven::as_product : AreaGiven::as_value;
    request.value1 = product ? amount("--product", product_[0]) : amount("--area", area_);
    request.value2 = product ? amount("--product", product_[1]) : 0.0;
    if (!std::isfinite(request.area()) || !(request.area() > 0.0))
        wrong_use("--product: the product of the two is not a number above 0");
    return request;
}

std::string DivideVerb::run() const
{
    if (help_)
        return divide_help();
    const Request asked = request();
    const Parcel parcel = read_parcel(source());
    PrintedDivision printed;
    const Outcome outcome = divide_in_print(parcel.ring, asked, printed);
    if (outcome != Outcome::divided)
        throw division_failure(outcome, parcel, asked, printed);
    return division_table(parcel, asked, printed);
}

}  // namespace tool
