#include "divide_verb.h"

#include "canvas.h"
#include "divide_report.h"
#include "help.h"
#include "many_report.h"
#include "pending_output.h"
#include "plan_content.h"
#include "progress.h"

namespace tool {

DivideVerb::DivideVerb(CLI::App& app) : CuttingVerb(app, "divide", divide_help())
{
    options().add_flag("--json", json_);
    options().add_option("--plan", plan_)->type_name("PLAN");
    options().add_option("--paper", paper_)->type_name("A4|A3");
    options().add_flag("--overwrite", overwrite_);
}

// Before any work: a name that cannot be written is a slip that need not wait.
void DivideVerb::check_outputs() const
{
    if (!paper_of(paper_))
        wrong_use("--paper: '" + paper_ + "' is neither A4 nor A3");
    if (given("--plan") && !Canvas::can_draw(plan_))
        wrong_use("--plan: '" + plan_ + "' does not end in .svg, .pdf or .png");
}

void DivideVerb::draw(const ReadParcel& read, const Asked& asked, const PrintedDivision& printed) const
{
    PendingOutput output(plan_, overwrite_);
    draw_plan(plan_of(read, asked, printed), *paper_of(paper_), output.path());
    output.commit();
}

Output DivideVerb::one(ParcelFile& file, const Asked& asked) const
{
    const std::optional<ReadParcel> read = file.next();
    if (!read)
        throw Failure(ExitStatus::unusable_input,
                      source().file + ": it cannot be read a second time; leave the file as it is");
    if (read->problem)
        throw *read->problem;
    const PrintedDivision printed = divide_in_print(read->parcel.ring, asked);
    if (!printed.done())
        throw division_failure(read->parcel, asked, printed);
    if (given("--plan"))
        draw(*read, asked, printed);
    if (!json_)
        return {division_table(read->parcel, asked, printed)};
    ManyReport report(asked);
    report.add(*read, &printed);
    return report.json();
}

Output DivideVerb::many(ParcelFile& file, const Asked& asked) const
{
    if (given("--plan"))
        file.refuse_choice("--plan draws one of them");
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
    return json_ ? report.json() : report.table(file.passed_over());
}

Output DivideVerb::work() const
{
    const Asked asked = this->asked();
    check_outputs();
    ParcelFile file(source());
    return file.count() == 1 ? one(file, asked) : many(file, asked);
}

}  // namespace tool
