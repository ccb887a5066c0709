#include "verbs/verbs.h"

#include "console/interrupt.h"
#include "console/terminal.h"
#include "files/pending_output.h"
#include "plan/drawing.h"
#include "plan/plan.h"
#include "reports/many_report.h"
#include "reports/parcel_reports.h"
#include "reports/refusal.h"
#include "sheet/canvas.h"
#include "verbs/help.h"
#include "writing/division_writer.h"

namespace tool {
namespace {

std::string written_lines(const std::vector<std::string>& files, const ParcelFile& parcels)
{
    std::string text;
    for (const std::string& file : files)
        text += "Written  " + file + "\n";
    if (!files.empty() && parcels.lacks_heights())
        text += "Heights are not written: some vertices have none\n";
    return text;
}

}  // namespace

DivideVerb::DivideVerb(CLI::App& app) : CuttingVerb(app, "divide", divide_help())
{
    options().add_flag("--json", json_);
    options().add_option("--plan", plan_)->type_name("PLAN");
    options().add_option("--paper", paper_)->type_name("A4|A3");
    options().add_option("-o,--output", out_)->type_name("OUT");
    options().add_flag("--overwrite", overwrite_);
}

// Before any work, so that a wrong name is reported at once.
void DivideVerb::check_outputs() const
{
    if (!paper_of(paper_))
        wrong_use("--paper: '" + paper_ + "' is neither A4 nor A3");
    if (given("--plan") && source().ground_factor != 1.0)
        wrong_use("--plan: the plan shows lengths of the plane; leave --ground-factor out");
    if (given("--plan") && !Canvas::can_draw(plan_))
        wrong_use("--plan: '" + plan_ + "' does not end in .svg, .pdf or .png");
    if (given("--output") && !DivisionWriter::can_write(DivisionWriter::file_for(out_)))
        wrong_use("--output: no format with the ending of '" + out_ +
                  "' can be written and read back to the last digit; name it .gpkg for a GeoPackage");
}

std::unique_ptr<DivisionWriter> DivideVerb::make_writer(const ParcelFile& file) const
{
    if (!given("--output"))
        return nullptr;
    return DivisionWriter::make(DivisionWriter::file_for(out_), overwrite_, file);
}

// Draws the plan, but does not move it into its place; null if none is asked for.
std::unique_ptr<PendingOutput> DivideVerb::draw(const Answer& answer, const ParcelFile& file) const
{
    if (!given("--plan"))
        return nullptr;
    std::unique_ptr<PendingOutput> output = std::make_unique<PendingOutput>(plan_, overwrite_, file.files());
    try {
        draw_plan(plan_of(answer), *paper_of(paper_), output->path(), plan_);
    } catch (const Failure&) {
        if (output->disk_is_full())
            throw disk_full(plan_);
        throw;
    }
    return output;
}

Output DivideVerb::one(ParcelFile& file, const Asked& asked) const
{
    const std::optional<ReadParcel> read = file.next();
    if (!read)
        throw vanished(source());
    if (read->problem)
        throw *read->problem;
    const Answer answer = tool::answer(read->parcel, asked);
    if (!answer.printed.done())
        throw refusal(answer);
    // Both are written before either is moved into its place.
    const InterruptGuard guard;
    const std::unique_ptr<DivisionWriter> writer = make_writer(file);
    if (writer != nullptr)
        writer->add(*read, answer);
    const std::unique_ptr<PendingOutput> plan = draw(answer, file);
    guard.check();
    const std::vector<std::string> written =
        writer != nullptr ? writer->commit() : std::vector<std::string>();
    if (plan != nullptr)
        plan->commit();
    if (!json_)
        return {division_table(answer) + written_lines(written, file)};
    ManyReport report(ManyReport::Keep::json);
    report.add(answer);
    return report.json(written);
}

// Adds a parcel to the report and, if there is a writer, to the layers.
void DivideVerb::add(const ReadParcel& read, const Asked& asked, ManyReport& report,
                     DivisionWriter* writer) const
{
    if (read.problem) {
        const std::string reason = report.add(*read.problem);
        if (writer != nullptr)
            writer->add_refused(read, reason);
        return;
    }
    const Answer answer = tool::answer(read.parcel, asked);
    const std::string refused = report.add(answer);
    if (writer != nullptr && refused.empty())
        writer->add(read, answer);
    else if (writer != nullptr)
        writer->add_refused(read, refused);
}

Output DivideVerb::many(ParcelFile& file, const Asked& asked) const
{
    if (given("--plan"))
        file.refuse_several("and --plan draws only one");
    const InterruptGuard guard;
    const std::unique_ptr<DivisionWriter> writer = make_writer(file);
    using Keep = ManyReport::Keep;
    ManyReport report(json_ ? Keep::json : writer != nullptr ? Keep::counts : Keep::rows);
    Progress progress("dividing", file.count());
    while (const std::optional<ReadParcel> read = file.next()) {
        add(*read, asked, report, writer.get());
        progress.step();
        guard.check();
    }
    const std::vector<std::string> written =
        writer != nullptr ? writer->commit() : std::vector<std::string>();
    if (json_)
        return report.json(written);
    Output output = report.table(file.passed_over(), file.hidden());
    output.text += written_lines(written, file);
    return output;
}

Output DivideVerb::work() const
{
    const Asked asked = this->asked();
    check_outputs();
    ParcelFile file(source());
    return file.count() == 1 ? one(file, asked) : many(file, asked);
}

}  // namespace tool
