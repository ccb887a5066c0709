#pragma once

// The measures of a layer: a row for each parcel, and a summary.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "answers/measure.h"
#include "answers/question.h"
#include "console/outcome.h"
#include "console/spool.h"
#include "reports/tally.h"
#include "text/angles.h"
#include "text/table.h"

namespace tool {

/// Rows wait outside memory, because a layer can hold a million parcels.
class ManyMeasures {
public:
    enum class As { table, csv, json };

    /// @param[in] as     what will be asked for
    /// @param[in] named  whether the parcels have names, for which the table then has a column
    /// @param[in] angles  as measures_json()
    ManyMeasures(As as, bool named, std::optional<AngleUnit> angles);

    /// A parcel that was measured.
    void add(const Parcel& parcel, const Measures& measures);

    /// A parcel that could not be measured; CSV and JSON name it, the table counts it.
    void add(const Failure& problem);

    /// The rows and, of a table, what was assumed and the summary. The status is the smallest of the refusals.
    ///
    /// @param[in] passed_over, hidden  as Tally::summary()
    Output output(std::size_t passed_over, std::size_t hidden) const;

    const Tally& tally() const { return tally_; }

private:
    std::vector<std::string> cells_of(const Parcel& parcel, const Measures& measures) const;
    Output table(std::size_t passed_over, std::size_t hidden) const;

    As as_;
    bool named_;
    std::optional<AngleUnit> angles_;
    Tally tally_;
    Columns columns_;
    std::shared_ptr<Spool> kept_ = std::make_shared<Spool>();  // lives on in the output
};

}  // namespace tool
