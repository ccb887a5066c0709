// What stands on the command line of `plcalc divide`.

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

#include "files/pending_output.h"
#include "plan/layout.h"
#include "sheet/canvas.h"
#include "verbs/help.h"
#include "verbs/title_block.h"
#include "verbs/verbs.h"
#include "writing/division_writer.h"

namespace tool {
namespace {

// More threads than any machine has cores.
constexpr long long kMaxJobs = 1024;

constexpr long long kMaxAreaDecimals = 12;

bool ends_with(const std::string& text, const std::string& ending)
{
    return text.size() > ending.size() &&
           text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

}  // namespace

DivideVerb::DivideVerb(CLI::App& app) : CuttingVerb(app, "divide", divide_help())
{
    options().add_flag("--json", json_);
    options().add_option("--plan", plan_)->type_name("PLAN");
    options().add_option("--paper", paper_)->type_name("A4|A3");
    options().add_option("--area-decimals", area_decimals_)->type_name("N");
    options()
        .add_option("--title", titles_)
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false)  // one each time, because FILE may follow
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    options().add_option("--title-block", title_block_)->type_name("FILE");
    options().add_option("--report", report_)->type_name("REPORT");
    options().add_option("--points", points_)->type_name("POINTS");
    options().add_option("-o,--output", out_)->type_name("OUT");
    options().add_option("--format", format_)->type_name("ENDING");
    options().add_flag("--overwrite", overwrite_);
    options().add_flag("--neighbours", neighbours_);
    options().add_option("--shared-within", shared_within_)->type_name("D");
    options().add_option("--jobs", jobs_)->type_name("N");
}

// Before any work, so that a wrong name is reported at once.
void DivideVerb::check_outputs() const
{
    if (!paper_of(paper_))
        wrong_use("--paper: '" + paper_ + "' is neither A4 nor A3");
    if (given("--report") && !ends_with(report_, ".txt") && !ends_with(report_, ".md"))
        wrong_use("--report: '" + report_ + "' does not end in .txt or .md");
    require_list_name("--points", points_);
    check_names();
    for (const char* option : {"--area-decimals", "--title", "--title-block"})
        if (given(option) && !given("--plan"))
            wrong_use(std::string(option) + " is about a plan; name it with --plan PLAN");
    if (given("--plan") && !Canvas::can_draw(plan_))
        wrong_use("--plan: '" + plan_ + "' does not end in .svg, .pdf or .png");
    check_standard_output();
    check_neighbours();
    jobs();
    if (given("--output") && !to_standard_output() &&
        !DivisionWriter::can_write(DivisionWriter::file_for(out_)))
        wrong_use("--output: no format with the ending of '" + out_ +
                  "' can be written and read back to the last digit; write a GeoPackage (.gpkg)");
}

// No output may take the place of another.
void DivideVerb::check_names() const
{
    std::vector<std::string> names;
    if (given("--output") && !to_standard_output() &&
        DivisionWriter::can_write(DivisionWriter::file_for(out_)))
        names = DivisionWriter::files_for(DivisionWriter::file_for(out_));
    for (const std::string& name : {plan_, report_, points_}) {
        for (const std::string& other : names)
            if (!name.empty() && is_same_output(name, other))
                wrong_use("'" + name + "' is the name of two outputs; name each of them differently");
        names.push_back(name);
    }
}

void DivideVerb::check_neighbours() const
{
    if (given("--shared-within"))
        amount("--shared-within", shared_within_);
    if (given("--shared-within") && !neighbours_)
        wrong_use("--shared-within is about neighbours; add --neighbours");
    if (neighbours_ && !given("--output"))
        wrong_use("--neighbours writes parcels; name a file with -o");
    if (neighbours_ && to_standard_output() && !DivisionWriter::holds_all("pieces." + format_))
        wrong_use("--neighbours: this format holds the pieces only; name a file with -o");
}

bool DivideVerb::to_standard_output() const
{
    return given("--output") && out_ == "-";
}

void DivideVerb::check_standard_output() const
{
    if (!to_standard_output()) {
        if (given("--format"))
            wrong_use("--format is for -o -; the ending of a file chooses its format");
        return;
    }
    if (!given("--format"))
        wrong_use("-o -: name the format by its ending, as in --format geojson");
    if (json_)
        wrong_use("-o -: the standard output holds the pieces; leave --json out");
    if (!DivisionWriter::can_write("pieces." + format_))
        wrong_use("--format: no format with the ending '" + format_ +
                  "' can be written and read back to the last digit");
    if (EQUAL(format_.c_str(), "shp"))  // of which one part would get through
        wrong_use("-o -: a Shapefile is several files; choose another --format, such as gpkg");
}

// All processors of this machine, unless the command line says otherwise.
std::size_t DivideVerb::jobs() const
{
    if (!given("--jobs"))
        return std::max(1u, std::thread::hardware_concurrency());
    const long long jobs = whole("--jobs", jobs_);
    if (jobs < 1 || jobs > kMaxJobs)
        wrong_use("--jobs: '" + jobs_ + "' is not a number from 1 to " + std::to_string(kMaxJobs));
    return static_cast<std::size_t>(jobs);
}

// The file of the title block may be a pipe, which can be read only once.
PlanWishes DivideVerb::plan_wishes() const
{
    PlanWishes wishes;
    if (given("--area-decimals")) {
        const long long decimals = whole("--area-decimals", area_decimals_);
        if (decimals < 0 || decimals > kMaxAreaDecimals)
            wrong_use("--area-decimals: '" + area_decimals_ + "' is not a number from 0 to " +
                      std::to_string(kMaxAreaDecimals));
        wishes.area_decimals = static_cast<int>(decimals);
    }
    if (given("--title-block"))
        wishes.title_block = read_title_block(title_block_);
    for (const std::string& title : titles_)
        add_title(wishes.title_block, {"--title", ""}, title);
    return wishes;
}

ReportStyle DivideVerb::report_style() const
{
    return ends_with(report_, ".md") ? ReportStyle::markdown : ReportStyle::plain;
}

}  // namespace tool
