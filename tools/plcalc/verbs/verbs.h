#pragma once

// The verbs: each takes its options and goes its way from file to output.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "answers/printed_division.h"
#include "answers/question.h"
#include "answers/stakeout.h"
#include "plan/plan.h"
#include "reading/parcel_file.h"
#include "reports/division_file.h"
#include "verbs/cut_options.h"
#include "verbs/verb.h"

namespace tool {

class DivisionWriter;
class ManyReport;
class NeighbourWork;
class PendingOutput;
class PlanSheets;
struct StakeoutSheet;

/// `plcalc divide`: one parcel, or every parcel of a layer.
class DivideVerb : public CuttingVerb {
public:
    explicit DivideVerb(CLI::App& app);

private:
    Output work() const override;

    void check_outputs() const;
    void check_names() const;
    std::vector<std::string> other_files() const;
    void check_standard_output() const;
    bool to_standard_output() const;
    std::size_t jobs() const;
    std::unique_ptr<DivisionWriter> make_writer(const ParcelFile& file, const std::string& out,
                                                const NeighbourWork* neighbours) const;
    void check_neighbours() const;
    std::unique_ptr<NeighbourWork> neighbour_work(const Source& source) const;
    Output one(ParcelFile& file, ParcelRequests& requests, const std::string& out, NeighbourWork* neighbours,
               const PlanWishes& wishes) const;
    Output many(ParcelFile& file, ParcelRequests& requests, const std::string& out,
                NeighbourWork* neighbours) const;
    Output refused(const Answer& answer, const ParcelFile& file) const;
    ReportStyle report_style() const;
    using Outputs = std::vector<std::unique_ptr<PendingOutput>>;
    std::vector<std::string> draw(const PlanSheets& sheets, const ParcelFile& file, Outputs& outputs) const;
    std::vector<std::string> write_texts(const Answer& answer, const ParcelFile& file,
                                         Outputs& outputs) const;
    PlanWishes plan_wishes() const;

    bool json_ = false;
    bool overwrite_ = false;
    bool neighbours_ = false;
    std::string shared_within_;
    std::string plan_;
    std::string out_;
    std::string format_;
    std::string paper_ = "A4";
    std::string area_decimals_;
    std::vector<std::string> titles_;
    std::string title_block_;
    std::string report_;
    std::string points_;
    std::string jobs_;
};

/// `plcalc measure`: area, perimeter, sides and angles of a parcel, or area and perimeter of every parcel of a layer.
class MeasureVerb : public Verb {
public:
    explicit MeasureVerb(CLI::App& app);

private:
    Output work() const override;
    Output one(ParcelFile& file) const;
    Output many(ParcelFile& file) const;

    bool csv_ = false;
    bool json_ = false;
};

/// `plcalc stakeout`: set-out values for the ends of dividing lines, or for any points.
class StakeoutVerb : public CuttingVerb {
public:
    explicit StakeoutVerb(CLI::App& app);

private:
    Output work() const override;

    struct KnownPoints {
        std::vector<NamedPoint> control;  ///< whose names may be used
        std::vector<NamedPoint> listed;   ///< that are set out, too
    };

    KnownPoints known_points(const Source& source, const ParcelFile& file, Parcel& parcel) const;
    std::vector<NamedPoint> called(const std::string& text, const Parcel& parcel,
                                   const KnownPoints& known) const;
    std::vector<std::string> names_that_are_numbers(const Parcel& parcel, const KnownPoints& known) const;
    std::vector<std::string> write_points(const StakeoutSheet& sheet, const ParcelFile& file) const;
    NamedPoint place(const std::string& option, const std::string& text, const Parcel& parcel,
                     const KnownPoints& known) const;
    [[noreturn]] void no_place(const std::string& option, const std::string& text) const;
    Setup setup(const Parcel& parcel, const KnownPoints& known) const;
    BaseLine base_line(const Parcel& parcel, const std::optional<Asked>& asked) const;
    std::vector<NamedPoint> points(const Parcel& parcel, const std::optional<Asked>& asked,
                                   const KnownPoints& known, Resolution& resolution,
                                   std::vector<std::string>& assumed) const;

    std::string station_;
    std::string orientation_;
    std::string control_;
    std::string points_from_;
    std::string base_;
    std::string list_;
    bool overwrite_ = false;
    std::vector<std::string> points_;
    bool csv_ = false;
    bool json_ = false;
};

}  // namespace tool
