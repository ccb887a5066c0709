#include "divide_verb.h"

#include <cmath>

#include "exit_status.h"
#include "help.h"
#include "numbers.h"
#include "printed_division.h"
#include "report.h"

namespace tool {
DivideVerb::DivideVerb(CLI::App& app) : Verb(app, "divide", divide_help())
{
    options().add_option("--parallel", parallel_)->type_name("SIDE");
    options().add_option("--perpendicular", perpendicular_)->type_name("SIDE");
    options().add_option("--vertex", vertex_)->type_name("N");
    options().add_option("--area", area_)->type_name("A");
    options().add_option("--product", product_)->expected(2)->type_name("A B");
}

Request DivideVerb::request() const
{
    const bool parallel = given("--parallel");
    const bool perpendicular = given("--perpendicular");
    const bool vertex = given("--vertex");
    if (parallel + perpendicular + vertex != 1)
        wrong_use("give one of --parallel SIDE, --perpendicular SIDE and --vertex N");
    const bool product = given("--product");
    if (product == given("--area"))
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

Output DivideVerb::work() const
{
    const Request asked = request();
    const Parcel parcel = read_parcel(source());
    PrintedDivision printed;
    const Outcome outcome = divide_in_print(parcel.ring, asked, printed);
    if (outcome != Outcome::divided)
        throw division_failure(outcome, parcel, asked, printed);
    return {division_table(parcel, asked, printed)};
}

}  // namespace tool
