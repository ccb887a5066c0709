#pragma once

// `plcalc measure`: area, perimeter, sides and angles of a parcel.

#include "verbs/verb.h"

namespace tool {

class MeasureVerb : public Verb {
public:
    explicit MeasureVerb(CLI::App& app);

private:
    Output work() const override;

    bool json_ = false;
};

}  // namespace tool
