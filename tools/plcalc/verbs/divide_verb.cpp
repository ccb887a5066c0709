#include "verbs/verbs.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <system_error>

#include "answers/chosen_side.h"
#include "answers/neighbour_points.h"
#include "console/interrupt.h"
#include "console/terminal.h"
#include "files/pending_output.h"
#include "plan/drawing.h"
#include "plan/plan.h"
#include "reports/division_file.h"
#include "reports/many_report.h"
#include "reports/neighbour_tally.h"
#include "reports/parcel_reports.h"
#include "reports/refusal.h"
#include "text/name_list.h"
#include "verbs/batches.h"
#include "verbs/neighbour_work.h"
#include "writing/division_writer.h"

namespace tool {
namespace {

// Nobody looks for more files than this.
constexpr std::size_t kMaxFiles = 20;

// Within this, unit of the parcels, the boundaries of two parcels are one, unless the command line says otherwise.
constexpr double kSharedWithin = 1e-3;

std::string written_lines(const std::vector<std::string>& files)
{
    std::string text;
    for (const std::string& file : files)
        text += "Written  " + file + "\n";
    return text;
}

// Rows of a table of areas that were for no parcel: whoever wrote them expects a division.
std::string rows_left(const ParcelRequests& requests)
{
    NameList names;
    for (const std::string& name : requests.left())
        names.add([&] { return name; });
    return names.count() == 0
               ? ""
               : "Unused   " + std::to_string(names.count()) + (names.count() == 1 ? " row" : " rows") +
                     " of the areas, for no parcel (" + names.text() + ")\n";
}

// A folder that goes away with what is in it, for output that goes on to the standard output.
class ScratchFolder {
public:
    ScratchFolder() : path_((std::filesystem::temp_directory_path() / "plcalc-XXXXXX").string())
    {
        if (mkdtemp(path_.data()) == nullptr)
            throw Failure(ExitStatus::failed, {path_, ""}, "no folder can be made",
                          "set TMPDIR to one that can be written");
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

void read_out(const std::string& file, const std::function<void(const std::string&)>& take)
{
    constexpr std::size_t kBlock = 1 << 16;
    std::ifstream stream(file, std::ios::binary);
    std::string block(kBlock, '\0');
    while (stream.read(block.data(), kBlock) || stream.gcount() > 0)
        take(block.substr(0, static_cast<std::size_t>(stream.gcount())));
    if (!stream.eof())
        throw Failure(ExitStatus::failed, {file, ""}, "the file cannot be read back", "try it again");
}

// What a reader of the written files must know.
std::string written_notes(const DivisionWriter* writer)
{
    if (writer == nullptr)
        return "";
    std::string text = writer->lost_heights();
    if (!writer->left_over().empty())
        text += "Left     " + writer->left_over() + ": not of this run, which is without --neighbours\n";
    return text;
}

void add_batch(Batch& batch, ManyReport& report, DivisionWriter* writer, NeighbourWork* neighbours)
{
    for (std::size_t i = 0; i < batch.read.size(); ++i) {
        ReadParcel& read = batch.read[i];
        const std::optional<Answer>& answer = batch.answers[i];
        const std::string refused = answer ? report.add(*answer, batch.kept[i]) : report.add(*read.problem);
        const bool divided = answer && refused.empty();
        if (neighbours != nullptr && divided)
            neighbours->tally().add_pieces(batch.insertions[i], read.parcel.place);
        else if (neighbours != nullptr && batch.is_read[i])
            neighbours->insert_in(read);
        else if (neighbours != nullptr)
            neighbours->tally().add_unread();
        if (writer != nullptr && divided)
            writer->add(read, *answer);
        else if (writer != nullptr)
            writer->add_refused(read, refused);
    }
}

}  // namespace

// The files that are read beside that of the parcels.
std::vector<std::string> DivideVerb::other_files() const
{
    std::vector<std::string> files = request_files();
    if (given("--title-block"))
        files.push_back(title_block_);
    return files;
}

std::unique_ptr<NeighbourWork> DivideVerb::neighbour_work(const Source& source) const
{
    if (!neighbours_)
        return nullptr;
    const double within =
        given("--shared-within") ? amount("--shared-within", shared_within_) : kSharedWithin;
    ParcelFile file(source);
    ParcelRequests requests = this->requests(file, source);
    auto work = std::make_unique<NeighbourWork>(file, requests, jobs(), within);
    work->note_layer(source);
    return work;
}

std::unique_ptr<DivisionWriter> DivideVerb::make_writer(const ParcelFile& file, const std::string& out,
                                                        const NeighbourWork* neighbours) const
{
    const NeighbourHeights heights =
        neighbours != nullptr ? NeighbourHeights(neighbours->heights()) : std::nullopt;
    return out.empty() ? nullptr : DivisionWriter::make(out, overwrite_, file, heights, other_files());
}

// Draws the sheets of the plan, but does not move them into their place.
//
// Returns the names of the files.
std::vector<std::string> DivideVerb::draw(const PlanSheets& sheets, const ParcelFile& file,
                                          Outputs& outputs) const
{
    std::vector<std::string> names = sheets.files(plan_);
    if (names.size() > kMaxFiles)
        throw Failure(ExitStatus::wrong_use, {plan_, ""},
                      "the plan has " + std::to_string(sheets.count()) +
                          " sheets, which would be as many files",
                      "name it .pdf");
    std::vector<std::string> paths;
    for (const std::string& name : names) {
        outputs.push_back(std::make_unique<PendingOutput>(name, overwrite_, file.files(), other_files()));
        paths.push_back(outputs.back()->path());
    }
    try {
        sheets.draw(paths, names);
    } catch (const Failure&) {
        if (!outputs.empty() && outputs.back()->disk_is_full())
            throw disk_full(plan_);
        throw;
    }
    return names;
}

// Writes report and list of points, but does not move them into their place.
//
// Returns the names of the files.
std::vector<std::string> DivideVerb::write_texts(const Answer& answer, const ParcelFile& file,
                                                 Outputs& outputs) const
{
    std::vector<std::string> names;
    const auto write = [&](const std::string& name, const std::string& text) {
        outputs.push_back(std::make_unique<PendingOutput>(name, overwrite_, file.files(), other_files()));
        write_text_file(outputs.back()->path(), text, name);
        names.push_back(name);
    };
    if (given("--report"))
        write(report_, division_report(answer, report_style()));
    if (given("--points"))
        write(points_, point_list(answer));
    return names;
}

// Writes the report all the same, and with --json the refusal as a program reads it; the message follows in any case.
Output DivideVerb::refused(const Answer& answer, const ParcelFile& file) const
{
    const Failure failure = refusal(answer);
    if (failure.status != ExitStatus::cannot_cut)
        throw failure;
    std::vector<std::string> written;
    if (given("--report")) {
        PendingOutput output(report_, overwrite_, file.files(), other_files());
        write_text_file(output.path(), refusal_report(answer, failure, report_style()), report_);
        output.commit();
        written.push_back(report_);
    }
    if (!json_)
        throw failure;
    ManyReport report(ManyReport::Keep::json);
    report.add(answer, "");
    std::cerr << message(sentence(failure));
    return report.json(written, {});
}

Output DivideVerb::one(ParcelFile& file, ParcelRequests& requests, const std::string& out,
                       NeighbourWork* neighbours, const PlanWishes& wishes) const
{
    std::optional<ReadParcel> read = file.next();
    if (!read)
        throw vanished(source());
    if (read->problem)
        throw *read->problem;
    const Asked of_parcel = with_side(requests.of(*read), read->parcel);
    Answer answer = tool::answer(read->parcel, of_parcel);
    if (!answer.printed.done())
        return refused(answer, file);
    if (neighbours != nullptr)
        neighbours->tally().add_pieces(neighbours->points().insert_in_pieces(answer), read->parcel.place);
    // Both are written before either is moved into its place.
    const InterruptGuard guard;
    const std::unique_ptr<DivisionWriter> writer = make_writer(file, out, neighbours);
    if (writer != nullptr)
        writer->add(*read, answer);
    if (neighbours != nullptr)
        neighbours->write(*writer);
    Outputs outputs;
    std::optional<PlanSheets> plan;
    std::vector<std::string> sheets;
    if (given("--plan")) {
        plan.emplace(plan_of(answer, wishes), *paper_of(paper_));
        sheets = draw(*plan, file, outputs);
    }
    const std::vector<std::string> texts = write_texts(answer, file, outputs);
    guard.check();
    std::vector<std::string> written = writer != nullptr ? writer->commit() : std::vector<std::string>();
    for (const std::unique_ptr<PendingOutput>& output : outputs)
        output->commit();
    if (sheets.size() > 1)
        written.insert(written.end(), sheets.begin(), sheets.end());
    written.insert(written.end(), texts.begin(), texts.end());
    std::string left_over;
    if (plan)
        for (const std::string& sheet : plan->left_over(plan_))
            left_over +=
                "Left     " + sheet + ": from an earlier run with more sheets, not part of this plan\n";
    const std::string notes = written_notes(writer.get());
    if (!json_) {
        const std::string ends = left_over + rows_left(requests);
        Output output = {division_table(answer) + written_lines(written) + notes +
                         (neighbours != nullptr ? neighbours->tally().lines() : "") + ends};
        output.notes = division_notes(answer) + notes +
                       (neighbours != nullptr ? neighbours->tally().warnings() : "") + ends;
        return output;
    }
    std::cerr << notes << left_over;
    ManyReport report(ManyReport::Keep::json);
    report.add(answer, report.kept_of(answer));
    return report.json(written, requests.left(), neighbours != nullptr ? neighbours->tally().json() : Json());
}

Output DivideVerb::many(ParcelFile& file, ParcelRequests& requests, const std::string& out,
                        NeighbourWork* neighbours) const
{
    if (given("--plan"))
        file.refuse_several("and --plan draws only one");
    if (given("--report"))
        file.refuse_several("and --report is about one");
    if (given("--points"))
        file.refuse_several("and --points lists those of one");
    const InterruptGuard guard;
    const std::unique_ptr<DivisionWriter> writer = make_writer(file, out, neighbours);
    using Keep = ManyReport::Keep;
    ManyReport report(json_ ? Keep::json : writer != nullptr ? Keep::counts : Keep::rows);
    Progress progress("dividing", file.count());
    const NeighbourPoints* const points = neighbours != nullptr ? &neighbours->points() : nullptr;
    divide_all(file, requests, report, jobs(), points, [&](Batch& batch) {
        add_batch(batch, report, writer.get(), neighbours);
        for (std::size_t i = 0; i < batch.read.size(); ++i)
            progress.step();
        guard.check();
    });
    if (neighbours != nullptr)
        neighbours->write(*writer);
    const std::vector<std::string> written =
        writer != nullptr ? writer->commit() : std::vector<std::string>();
    const std::string notes = written_notes(writer.get());
    if (json_) {
        std::cerr << notes;
        return report.json(written, requests.left(),
                           neighbours != nullptr ? neighbours->tally().json() : Json());
    }
    Output output = report.table(file.passed_over(), file.hidden());
    output.end += (to_standard_output() ? "" : written_lines(written)) + notes +
                  (neighbours != nullptr ? neighbours->tally().lines() : "") + rows_left(requests);
    output.notes +=
        notes + (neighbours != nullptr ? neighbours->tally().warnings() : "") + rows_left(requests);
    return output;
}

Output DivideVerb::work() const
{
    asked();  // a wrong request is told before the file is read
    check_outputs();
    const PlanWishes wishes = plan_wishes();
    const Source source = this->source();
    const std::unique_ptr<NeighbourWork> neighbours = neighbour_work(source);
    ParcelFile file(source);
    ParcelRequests requests = this->requests(file, source);
    std::shared_ptr<ScratchFolder> scratch;
    std::string out = given("--output") ? DivisionWriter::file_for(out_) : "";
    if (to_standard_output())
        out = (scratch = std::make_shared<ScratchFolder>())->path() + "/pieces." + format_;
    Output output;
    try {
        const bool one_parcel = file.count() == 1;
        output = one_parcel ? one(file, requests, out, neighbours.get(), wishes)
                            : many(file, requests, out, neighbours.get());
    } catch (Failure& failure) {
        if (to_standard_output() && failure.place.file == out)
            failure.place.file = "the standard output";
        throw;
    }
    if (!to_standard_output())
        return output;
    // Where parcels were refused, which and why.
    std::cerr << (output.status != ExitStatus::done ? output.text + output.end : output.notes);
    return {"", output.status, [scratch, out](const auto& take) { read_out(out, take); }};
}

}  // namespace tool
