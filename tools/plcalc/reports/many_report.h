#pragma once

// What the program tells about many parcels: a row for each line, and a summary.

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "answers/printed_division.h"
#include "answers/request.h"
#include "console/output.h"
#include "reading/parcel_reader.h"
#include "text/json.h"

namespace tool {

/// Why parcels were refused, and which.
struct Refusals {
    std::size_t count = 0;
    std::vector<std::string> first_names;
};

class ManyReport {
public:
    /// What is kept of each parcel: of a million, what nobody prints would fill the memory.
    enum class Keep { rows, json, counts };

    ManyReport(const Asked& asked, Keep keep) : asked_(asked), keep_(keep) {}

    /// A parcel that was read.
    ///
    /// @param[in] read     the parcel
    /// @param[in] printed  its division, or null when there was a problem with the parcel
    /// @return why it was refused; empty when it was divided
    std::string add(const ReadParcel& read, const PrintedDivision* printed);

    /// Rows, where they were kept, and summary. Its status is not `done` when a parcel was refused: that of the
    /// refusal, the smallest when there are several.
    ///
    /// @param[in] passed_over  features that bound no area
    Output table(std::size_t passed_over) const;

    /// One object per parcel in "parcels", the counts, and the names of files that were written.
    Output json(const std::vector<std::string>& written) const;

private:
    void keep_rows(const ReadParcel& read, const PrintedDivision& printed);
    Output summary(std::size_t passed_over) const;
    std::string refuse(const ReadParcel& read, const Failure& failure, const std::string& reason);

    const Asked& asked_;
    Keep keep_;
    std::vector<std::vector<std::string>> rows_;
    Json parcels_ = Json::array();
    std::size_t divided_ = 0;
    std::size_t refused_ = 0;
    std::map<std::string, Refusals> refusals_;
    ExitStatus status_ = ExitStatus::done;
};

}  // namespace tool
