#include "verbs/verbs.h"

#include <iostream>

#include "answers/measure.h"
#include "console/interrupt.h"
#include "console/terminal.h"
#include "reading/parcel_file.h"
#include "reports/many_measures.h"
#include "reports/parcel_reports.h"
#include "verbs/help.h"

namespace tool {

MeasureVerb::MeasureVerb(CLI::App& app) : Verb(app, "measure", measure_help())
{
    options().add_flag("--csv", csv_);
    options().add_flag("--json", json_);
}

Output MeasureVerb::one(ParcelFile& file) const
{
    const Parcel parcel = only_parcel(file, source()).parcel;
    require_usable(parcel);
    return {measures_table(parcel, measure(parcel), angle_unit())};
}

// A layer, or one parcel for a spreadsheet or a program.
Output MeasureVerb::many(ParcelFile& file) const
{
    using As = ManyMeasures::As;
    const InterruptGuard guard;
    ManyMeasures report(csv_ ? As::csv : json_ ? As::json : As::table, file.names_parcels(), angle_unit());
    Progress progress("measuring", file.count());
    while (const std::optional<ReadParcel> read = file.next()) {
        try {
            if (read->problem)
                throw *read->problem;
            require_usable(read->parcel);
            report.add(read->parcel, measure(read->parcel));
        } catch (const Failure& problem) {
            if (file.count() == 1)
                throw;
            report.add(problem);
        }
        progress.step();
        guard.check();
    }
    for (const std::string& clause : report.tally().assumed())
        if (csv_)
            std::cerr << message("assumed: " + clause);  // a table for spreadsheets has no place for it
    return report.output(file.passed_over(), file.hidden());
}

Output MeasureVerb::work() const
{
    if (csv_ && json_)
        wrong_use("give one of --csv and --json");
    ParcelFile file(source());
    return file.count() == 1 && !csv_ && !json_ ? one(file) : many(file);
}

}  // namespace tool
