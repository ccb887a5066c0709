#include "verbs/amounts.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <sstream>

#include "text/numbers.h"

namespace tool {

double positive_number(const std::string& text)
{
    const std::optional<double> value = parse_number(text);
    if (!value || !std::isfinite(*value) || !(*value > 0.0))
        throw NotUnderstood("'" + text + "' is not a number above 0, with a point before the decimals");
    return *value;
}

plparcel::Amount share(const std::string& text)
{
    constexpr double kPercent = 100.0;
    const std::size_t slash = text.find('/');
    const bool percent = !text.empty() && text.back() == '%';
    if (slash == std::string::npos && !percent)
        throw NotUnderstood("'" + text + "' is not a share; write it as 1/3 or 25%");
    const double part = positive_number(percent ? text.substr(0, text.size() - 1) : text.substr(0, slash));
    const double of = percent ? kPercent : positive_number(text.substr(slash + 1));
    if (!(part < of))
        throw NotUnderstood("'" + text + "' is not less than the whole parcel");
    return plparcel::share(part, of);
}

plparcel::Amount product(const std::string& first, const std::string& second)
{
    const plparcel::Amount made = plparcel::product(positive_number(first), positive_number(second));
    if (!std::isfinite(made.first * made.second) || !(made.first * made.second > 0.0))
        throw NotUnderstood("the product of the two is not a number above 0");
    return made;
}

GivenAmount one_amount(const std::string& text)
{
    const std::size_t times = text.find('x');
    const bool starts_with_number = text.find_first_of("0123456789.") == 0;
    if (!text.empty() && (text[0] == 'w' || text[0] == 'W')) {
        const double width = positive_number(text.substr(1));
        return {plparcel::width(width), "width " + shortest(width)};
    }
    if (times != std::string::npos && starts_with_number) {
        const plparcel::Amount made = product(text.substr(0, times), text.substr(times + 1));
        return {made, shortest(made.first) + " x " + shortest(made.second)};
    }
    if (text.find_first_of("/%") != std::string::npos)
        return {share(text), text};
    const double area = positive_number(text);
    return {plparcel::area(area), shortest(area)};
}

GivenAmount one_share(const std::string& text)
{
    if (text.find_first_of("/%") != std::string::npos)
        return {share(text), text};
    const std::optional<double> part = parse_number(text);
    if (!part || !(*part > 0.0 && *part < 1.0))
        throw NotUnderstood("'" + text + "' is not a share; write it as 0.25, 1/4 or 25%");
    return {plparcel::share(*part, 1.0), "share " + shortest(*part)};
}

std::vector<std::string> parts_of_list(const std::string& list, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(list + separator);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(trimmed(part));
    return parts;
}

}  // namespace tool
