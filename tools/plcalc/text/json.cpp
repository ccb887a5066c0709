#include "text/json.h"

#include <optional>

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

}  // namespace tool
