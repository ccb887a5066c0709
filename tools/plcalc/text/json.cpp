#include "text/json.h"

#include <optional>
#include <sstream>

#include "text/numbers.h"

namespace tool {

Json number(const std::string& text)
{
    const std::optional<double> value = parse_number(text);
    return value ? Json(*value) : Json();
}

Json number(double value, int decimals)
{
    return number(fixed(value, decimals));
}

std::string dumped(const Json& json)
{
    constexpr int kIndent = 2;
    return json.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string dumped_in_list(const Json& json)
{
    constexpr std::size_t kIndent = 4;
    const std::string indent(kIndent, ' ');
    std::istringstream lines(dumped(json));
    std::string text;
    for (std::string line; std::getline(lines, line);)
        text.append(text.empty() ? "" : "\n").append(indent).append(line);
    return text;
}

}  // namespace tool
