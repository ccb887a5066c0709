#include "verbs/verbs.h"

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <system_error>
#include <thread>
#include <unordered_set>

#include "answers/chosen_side.h"
#include "answers/neighbour_points.h"
#include "console/interrupt.h"
#include "console/ordered_work.h"
#include "console/terminal.h"
#include "files/pending_output.h"
#include "plan/drawing.h"
#include "plan/plan.h"
#include "reports/division_file.h"
#include "reports/many_report.h"
#include "reports/neighbour_tally.h"
#include "reports/parcel_reports.h"
#include "reports/refusal.h"
#include "sheet/canvas.h"
#include "text/name_list.h"
#include "verbs/help.h"
#include "verbs/title_block.h"
#include "writing/division_writer.h"

namespace tool {
namespace {

// More threads than any machine has cores.
constexpr long long kMaxJobs = 1024;

// For each job, batches that are read before their turn, so that no job waits for the disk.
constexpr std::size_t kBatchesAhead = 2;

// Nobody looks for more files than this.
constexpr std::size_t kMaxFiles = 20;

constexpr long long kMaxAreaDecimals = 12;

// Within this, unit of the parcels, the boundaries of two parcels are one, unless the command line says otherwise.
constexpr double kSharedWithin = 1e-3;

bool ends_with(const std::string& text, const std::string& ending)
{
    return text.size() > ending.size() &&
           text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

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

// Parcels that are divided together.
struct Batch {
    std::vector<ReadParcel> read;
    std::vector<bool> is_read;  // of each parcel, whether it has a ring; what is wrong may be in the request
    std::deque<Asked> asked;    // of each parcel, where it is not the same of all; answers refer to them
    std::vector<std::optional<Answer>> answers;  // nothing for a parcel with a problem
    std::vector<Insertion> insertions;           // points of neighbours in the pieces
    std::vector<std::string> kept;
};

// Large enough that handing it on costs little, small enough that parcels of many vertices do not fill the memory.
constexpr std::size_t kMaxParcels = 64;
constexpr std::size_t kMaxVertices = 1 << 15;

// What is asked of a parcel by columns of its own; where they do not say it, that is the parcel's problem.
Asked own_request(ReadParcel& read, ParcelRequests& requests)
{
    try {
        if (!read.problem)
            return requests.of(read);
    } catch (const Failure& problem) {
        read.problem = problem;
    }
    return {};
}

// Empty after the last parcel.
std::unique_ptr<Batch> next_batch(ParcelFile& file, ParcelRequests& requests)
{
    auto batch = std::make_unique<Batch>();
    for (std::size_t vertices = 0; batch->read.size() < kMaxParcels && vertices < kMaxVertices;) {
        std::optional<ReadParcel> read = file.next();
        if (!read)
            break;
        vertices += read->parcel.ring.size();
        batch->is_read.push_back(!read->problem);
        if (requests.differ())
            batch->asked.push_back(own_request(*read, requests));
        batch->read.push_back(std::move(*read));
    }
    return batch;
}

// Divides the parcels of a batch. Nothing of GDAL is touched.
//
// points: of neighbours, for the pieces; may be null
void divide_batch(Batch& batch, const ParcelRequests& requests, const ManyReport& report,
                  const NeighbourPoints* points)
{
    const bool differ = requests.differ() || requests.common().choice.by != SideChoice::By::number;
    if (!requests.differ() && differ)
        batch.asked.assign(batch.read.size(), requests.common());
    for (std::size_t i = 0; i < batch.read.size(); ++i) {
        ReadParcel& read = batch.read[i];
        std::optional<Answer> answer;
        try {
            if (differ && !read.problem)
                batch.asked[i] = with_side(std::move(batch.asked[i]), read.parcel);
            if (!read.problem)
                answer.emplace(tool::answer(read.parcel, differ ? batch.asked[i] : requests.common()));
        } catch (const Failure& problem) {
            read.problem = problem;
        }
        const bool shares = points != nullptr && answer && answer->printed.done();
        batch.insertions.push_back(shares ? points->insert_in_pieces(*answer) : Insertion());
        batch.kept.push_back(answer ? report.kept_of(*answer) : "");
        batch.answers.push_back(std::move(answer));
    }
}

// Divides all parcels of the file, a batch at a time.
void divide_all(ParcelFile& file, ParcelRequests& requests, const ManyReport& report, std::size_t jobs,
                const NeighbourPoints* points, const std::function<void(Batch&)>& take)
{
    OrderedWork<Batch> work(jobs, [&](Batch& batch) { divide_batch(batch, requests, report, points); });
    for (bool more = true; more || work.pending() > 0;) {
        while (more && work.pending() <= kBatchesAhead * jobs) {
            std::unique_ptr<Batch> batch = next_batch(file, requests);
            more = !batch->read.empty();
            if (more)
                work.put(std::move(batch));
        }
        if (work.pending() > 0)
            take(*work.take());
    }
}

}  // namespace

// New points on boundaries that parcels share. The file is read once to divide its parcels, once more for the neighbours'
// corners, then to write the pieces, and at last for the neighbours that are no parcels of ours; once more where only some
// of these have heights.
class NeighbourWork {
public:
    NeighbourWork(ParcelFile& file, ParcelRequests& requests, std::size_t jobs, double within)
        : whole_(file.all_of_layer()), points_(within), tally_(within)
    {
        const InterruptGuard guard;
        const ManyReport nothing(ManyReport::Keep::counts);
        divide_all(file, requests, nothing, jobs, nullptr, [&](Batch& batch) {
            for (const std::optional<Answer>& answer : batch.answers)
                if (answer)
                    points_.note(*answer);
            for (const ReadParcel& read : batch.read)
                if (whole_)
                    ours_.insert(read.parcel.place.feature);
            guard.check();
        });
    }

    /// Reads the neighbours' corners.
    ///
    /// @param[in] all  the source where all parcels of the layer are ours
    void note_layer(const Source& all)
    {
        const InterruptGuard guard;
        points_.note_layer([&](const auto& take) {
            ParcelFile layer(whole_ ? *whole_ : all);
            while (const std::optional<ReadParcel> read = layer.next()) {
                if (!read->problem)
                    take(read->parcel);
                if (is_neighbour(*read) && read->problem)
                    tally_.add_unread();
                else if (is_neighbour(*read))
                    heights_.add(read->parcel.heights);
                guard.check();
            }
        });
        if (heights_.partly())
            count_heights();
    }

    /// The heights of the neighbours that get points.
    const KnownHeights& heights() const { return heights_; }

    const NeighbourPoints& points() const { return points_; }
    NeighbourTally& tally() { return tally_; }

    /// Writes those that get points.
    void write(DivisionWriter& writer)
    {
        each_neighbour([&](ReadParcel& read) {
            const Insertion insertion = insert_in(read);
            if (insertion.points > 0)
                writer.add_neighbour(read, insertion);
        });
    }

    /// Gives an undivided parcel its points.
    Insertion insert_in(ReadParcel& read)
    {
        const Insertion insertion = points_.insert_in(read.parcel);
        read.has_new_points = insertion.points > 0;
        tally_.add_neighbour(insertion);
        return insertion;
    }

private:
    void each_neighbour(const std::function<void(ReadParcel&)>& take)
    {
        if (!whole_)
            return;
        const InterruptGuard guard;
        ParcelFile layer(*whole_);
        while (std::optional<ReadParcel> read = layer.next()) {
            guard.check();
            if (!read->problem && is_neighbour(*read))
                take(*read);
        }
    }

    // A parcel far away must not cost the heights of those that get points.
    void count_heights()
    {
        heights_ = {};
        each_neighbour([&](ReadParcel& read) {
            if (points_.insert_in(read.parcel).points > 0)
                heights_.add(read.parcel.heights);
        });
    }

    bool is_neighbour(const ReadParcel& read) const
    {
        return whole_ && ours_.count(read.parcel.place.feature) == 0;
    }

    std::optional<Source> whole_;           // where some parcels of the layer are not ours
    std::unordered_set<std::string> ours_;  // by feature
    KnownHeights heights_;
    NeighbourPoints points_;
    NeighbourTally tally_;
};

namespace {

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

DivideVerb::DivideVerb(CLI::App& app) : CuttingVerb(app, "divide", divide_help())
{
    options().add_flag("--json", json_);
    options().add_option("--plan", plan_)->type_name("PLAN");
    options().add_option("--paper", paper_)->type_name("A4|A3");
    options().add_option("--area-decimals", area_decimals_)->type_name("N");
    options().add_option("--title", titles_)->type_name("KEY=VALUE")->expected(1)->take_all();
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
                  "' can be written and read back to the last digit; name it .gpkg for a GeoPackage");
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

// The files that are read beside that of the parcels.
std::vector<std::string> DivideVerb::other_files() const
{
    std::vector<std::string> files = request_files();
    if (given("--title-block"))
        files.push_back(title_block_);
    return files;
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

std::unique_ptr<DivisionWriter> DivideVerb::make_writer(const ParcelFile& file, const std::string& out,
                                                        const NeighbourWork* neighbours) const
{
    const NeighbourHeights heights =
        neighbours != nullptr ? NeighbourHeights(neighbours->heights()) : std::nullopt;
    return out.empty() ? nullptr : DivisionWriter::make(out, overwrite_, file, heights, other_files());
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

ReportStyle DivideVerb::report_style() const
{
    return ends_with(report_, ".md") ? ReportStyle::markdown : ReportStyle::plain;
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
    const bool one_parcel = file.count() == 1;
    Output output = one_parcel ? one(file, requests, out, neighbours.get(), wishes)
                               : many(file, requests, out, neighbours.get());
    if (!to_standard_output())
        return output;
    // Where parcels were refused, which and why.
    std::cerr << (output.status != ExitStatus::done ? output.text + output.end : output.notes);
    return {"", output.status, [scratch, out](const auto& take) { read_out(out, take); }};
}

}  // namespace tool
