#pragma once

// `plcalc stakeout`: set-out values for the ends of dividing lines, or for any points.

#include <string>
#include <vector>

#include "answers/parcel.h"
#include "answers/resolution.h"
#include "answers/stakeout.h"
#include "verbs/cut_options.h"

namespace tool {

class StakeoutVerb : public CuttingVerb {
public:
    explicit StakeoutVerb(CLI::App& app);

private:
    Output work() const override;
    NamedPoint place(const std::string& option, const std::string& text, const Parcel& parcel) const;
    Setup setup(const Parcel& parcel) const;
    BaseLine base_line(const Parcel& parcel) const;
    std::vector<NamedPoint> points(const Parcel& parcel, Resolution& resolution) const;
    std::vector<NamedPoint> line_ends(const Parcel& parcel, Resolution& resolution) const;

    std::string station_;
    std::string orientation_;
    std::string base_;
    std::vector<std::string> points_;
    bool csv_ = false;
    bool json_ = false;
};

}  // namespace tool
