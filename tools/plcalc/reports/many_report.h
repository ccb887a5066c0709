#pragma once

// What the program tells about many parcels: a row for each line, and a summary.

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "answers/printed_division.h"
#include "console/outcome.h"
#include "console/spool.h"
#include "reports/tally.h"
#include "text/json.h"
#include "text/table.h"

namespace tool {

class ManyReport {
public:
    /// What is kept of each parcel, outside memory. Layers can hold a million; keep only what will be printed.
    enum class Keep { rows, json, counts };

    explicit ManyReport(Keep keep) : keep_(keep), kept_(std::make_shared<Spool>()) {}

    /// What will be kept of a division: made apart from `add`, because it can be made for several at the same time.
    ///
    /// @return empty where nothing is, and for a refusal
    std::string kept_of(const Answer& answer) const;

    /// A parcel that was divided or refused.
    ///
    /// @param[in] kept  as `kept_of` made it
    /// @return why it was refused; empty when it was divided
    std::string add(const Answer& answer, const std::string& kept);

    /// A parcel that could not be worked on.
    ///
    /// @return why
    std::string add(const Failure& problem);

    /// The rows, if they were kept, and the summary. If parcels were refused, the status is the smallest of
    /// the refusals.
    ///
    /// @param[in] passed_over  features that bound no area
    /// @param[in] hidden       features of a drawing that it does not show, or not in model space
    Output table(std::size_t passed_over, std::size_t hidden) const;

    /// One object per parcel in "parcels", the counts, and the names of files that were written.
    ///
    /// @param[in] unused_rows  names in a table of areas that no parcel has
    /// @param[in] neighbours   what is told of neighbours; null where they were not asked for
    Output json(const std::vector<std::string>& written, const std::vector<std::string>& unused_rows,
                const Json& neighbours = Json()) const;

private:
    void measure(const std::string& rows);
    std::string refuse(const Failure& failure, const std::string& reason, const Json& instead);
    std::string refuse_with_instead(const Answer& answer);

    Keep keep_;
    std::shared_ptr<Spool> kept_;  // lives on in the output
    Columns wide_;                 // a line in a row
    Columns narrow_;               // an end in a row
    Tally tally_;
};

}  // namespace tool
