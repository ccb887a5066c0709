#pragma once

// What became of the parcels of a layer: how many, which were refused and why, what was assumed.

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "answers/question.h"
#include "console/outcome.h"
#include "console/spool.h"
#include "text/json.h"
#include "text/name_list.h"

namespace tool {

class Tally {
public:
    /// A parcel that was worked on.
    void done() { ++done_; }

    /// A parcel that was refused.
    ///
    /// @param[in] reason  one for all parcels with the same problem
    void refuse(const Failure& failure, const std::string& reason);

    /// Keeps what was assumed of a parcel. Of many parcels only the first clauses are kept: of an odd scale every one may
    /// say another figure.
    void note(const Parcel& parcel);

    std::size_t done_count() const { return done_; }
    std::size_t refused_count() const { return refused_; }

    /// The smallest of the refusals' statuses.
    ExitStatus status() const { return status_; }

    /// Of any parcel, each clause once.
    const std::vector<std::string>& assumed() const { return assumed_; }

    /// "Assumed  X is East" in lines, and an empty line behind them; nothing where nothing was assumed.
    std::string assumptions() const;

    /// "Divided  2 of 5 parcels", the refusals by reason, and what was passed over.
    ///
    /// @param[in] was_done     "Divided"
    /// @param[in] passed_over  features that bound no area
    /// @param[in] hidden       features of a drawing that it does not show, or not in model space
    std::string summary(const std::string& was_done, std::size_t passed_over, std::size_t hidden) const;

private:
    std::size_t done_ = 0;
    std::size_t refused_ = 0;
    std::string file_;                          // of the refused ones
    std::map<std::string, NameList> refusals_;  // the parcels by reason
    std::vector<std::string> assumed_;
    ExitStatus status_ = ExitStatus::done;
};

/// Where a parcel is, and its name if it has one: with these its JSON begins.
Json place_json(const Place& place);

/// A parcel that was refused, as JSON lists it: where it is, and why.
Json refused_json(const Failure& failure);

/// JSON with a list of parcels that waits outside memory.
///
/// @param[in] json    with one list, an empty one, where the parcels go
/// @param[in] parcels as dumped_in_list() has them
Output with_list(const Json& json, const std::shared_ptr<Spool>& parcels, ExitStatus status);

}  // namespace tool
