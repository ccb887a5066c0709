#pragma once

// The options that ask for a division: which cut, how much, which side of it.

#include <string>
#include <vector>

#include "answers/question.h"
#include "verbs/parcel_requests.h"
#include "verbs/verb.h"

namespace tool {

/// A verb that divides.
class CuttingVerb : public Verb {
protected:
    CuttingVerb(CLI::App& app, const std::string& name, const std::string& help_text);

    /// Whether any of the options is given.
    bool asks_for_cut() const;

    /// The request, without what stands in columns.
    ///
    /// @throws Failure  wrong_use where the options do not make one
    Asked asked() const;

    /// The requests for the parcels of a file. The lines along which a side is asked for are read.
    ///
    /// @param[in] source  of the file
    /// @throws Failure    as asked(), ParcelRequests, other_lines()
    ParcelRequests requests(const ParcelFile& file, const Source& source) const;

    /// The files beside that of the parcels from which requests are read.
    std::vector<std::string> request_files() const;

private:
    void set_cut(Asked& asked) const;
    void set_line(Asked& asked) const;
    void set_side(Asked& asked, const std::string& option, const std::string& text) const;
    void set_choice(Asked& asked) const;
    void set_amounts(Asked& asked) const;
    void set_rounding(Asked& asked) const;
    std::vector<double> numbers(const std::string& option, const std::string& text, std::size_t count) const;

    std::string parallel_;
    std::string perpendicular_;
    std::string vertex_;
    std::string side_;
    std::string side_near_;
    std::string facing_;
    std::string along_;
    std::string side_from_;
    std::string vertex_from_;
    std::string within_;
    std::string vertex_near_;
    std::string bearing_;
    std::string segment_;
    std::string place_;
    std::string through_;
    std::string alternative_;
    std::string pieces_;
    std::string area_;
    std::string width_;
    std::vector<std::string> product_;
    std::string share_;
    std::string areas_;
    std::string area_from_;
    std::string share_from_;
    std::string parts_;
    std::string decimals_;
    std::string tolerance_;
    bool opposite_ = false;
};

}  // namespace tool
