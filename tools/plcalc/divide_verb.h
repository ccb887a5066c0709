#pragma once

// `plcalc divide`: one parcel, or every parcel of a layer.

#include "cut_options.h"

namespace tool {

class DivideVerb : public CuttingVerb {
public:
    explicit DivideVerb(CLI::App& app);

private:
    Output work() const override;

    bool json_ = false;
};

}  // namespace tool
