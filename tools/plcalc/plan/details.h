#pragma once

// Details of a plan: where points lie too near to each other for their names, that place once more, enlarged.

#include <cstddef>
#include <string>
#include <vector>

#include "plan/labels.h"
#include "plan/layout.h"
#include "plan/plan.h"

namespace tool {

struct Detail {
    std::string name;             ///< "Detail 1"
    PL_PNT2D_record middle = {};  ///< coordinates
    double radius = 0.0;          ///< of the circle that marks it on the plan, points
    double denominator = 1.0;     ///< its scale
};

class PlanDetails {
public:
    /// Details of the new points that have no name on the drawing, and of points whose dots touch. Where twice the
    /// scale would not part them there is none, and none beyond the twelfth: the table of points has all of them.
    PlanDetails(const Plan& plan, const PlanLayout& layout, const WithoutLabel& without);

    const std::vector<Detail>& all() const { return details_; }
    std::size_t sheets() const { return (details_.size() + kPerSheet - 1) / kPerSheet; }

    /// The window of a detail on its sheet.
    View view(const PlanLayout& layout, std::size_t detail) const;

    static constexpr std::size_t kPerSheet = 6;

private:
    std::vector<Detail> details_;
};

}  // namespace tool
