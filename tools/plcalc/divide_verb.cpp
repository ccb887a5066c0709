#include "divide_verb.h"

#include "divide_report.h"
#include "help.h"
#include "many_report.h"
#include "printed_division.h"
#include "progress.h"

namespace tool {
namespace {

Output one(ParcelFile& file, const Asked& asked, bool json)
{
    const std::optional<ReadParcel> read = file.next();
    if (read->problem)
        throw *read->problem;
    const PrintedDivision printed = divide_in_print(read->parcel.ring, asked);
    if (!printed.done())
        throw division_failure(read->parcel, asked, printed);
    if (!json)
        return {division_table(read->parcel, asked, printed)};
    ManyReport report(asked);
    report.add(*read, &printed);
    return report.json();
}

Output many(ParcelFile& file, const Asked& asked, bool json)
{
    ManyReport report(asked);
    Progress progress("dividing", file.count());
    while (const std::optional<ReadParcel> read = file.next()) {
        if (read->problem) {
            report.add(*read, nullptr);
        } else {
            const PrintedDivision printed = divide_in_print(read->parcel.ring, asked);
            report.add(*read, &printed);
        }
        progress.step();
    }
    return json ? report.json() : report.table(file.passed_over());
}

}  // namespace

DivideVerb::DivideVerb(CLI::App& app) : CuttingVerb(app, "divide", divide_help())
{
    options().add_flag("--json", json_);
}

Output DivideVerb::work() const
{
    const Asked asked = this->asked();
    ParcelFile file(source());
    return file.count() == 1 ? one(file, asked, json_) : many(file, asked, json_);
}

}  // namespace tool
