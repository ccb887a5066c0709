#pragma once

// `plcalc divide`: its arguments, and its work from file to table.

#include <string>
#include <vector>

#include "request.h"
#include "verb.h"

namespace tool {

class DivideVerb : public Verb {
public:
    explicit DivideVerb(CLI::App& app);

private:
    Output work() const override;
    Request request() const;

    std::string parallel_;
    std::string perpendicular_;
    std::string vertex_;
    std::string area_;
    std::vector<std::string> product_;
};

}  // namespace tool
