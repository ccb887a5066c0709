#include "verbs/verbs.h"

#include "answers/measure.h"
#include "reading/parcel_file.h"
#include "reports/parcel_reports.h"
#include "verbs/help.h"

namespace tool {

MeasureVerb::MeasureVerb(CLI::App& app) : Verb(app, "measure", measure_help())
{
    options().add_flag("--json", json_);
}

Output MeasureVerb::work() const
{
    ParcelFile file(source());
    const Parcel parcel = only_parcel(file, source()).parcel;
    require_usable(parcel);
    const Measures measures = measure(parcel);
    return {json_ ? measures_json(parcel, measures) : measures_table(parcel, measures)};
}

}  // namespace tool
