#pragma once

// `plcalc divide`: one parcel, or every parcel of a layer.

#include <memory>
#include <string>

#include "answers/answer.h"
#include "reading/parcel_file.h"
#include "verbs/cut_options.h"

namespace tool {

class DivisionWriter;
class ManyReport;
class PendingOutput;

class DivideVerb : public CuttingVerb {
public:
    explicit DivideVerb(CLI::App& app);

private:
    Output work() const override;

    void check_outputs() const;
    std::unique_ptr<DivisionWriter> make_writer(const ParcelFile& file) const;
    Output one(ParcelFile& file, const Asked& asked) const;
    void add(const ReadParcel& read, const Asked& asked, ManyReport& report, DivisionWriter* writer) const;
    Output many(ParcelFile& file, const Asked& asked) const;
    std::unique_ptr<PendingOutput> draw(const Answer& answer, const ParcelFile& file) const;

    bool json_ = false;
    bool overwrite_ = false;
    std::string plan_;
    std::string out_;
    std::string paper_ = "A4";
};

}  // namespace tool
