#include "reports/many_report.h"

#include <algorithm>

#include "reports/parcel_reports.h"
#include "reports/refusal.h"
#include "text/numbers.h"
#include "text/table.h"

namespace tool {
namespace {

using Cells = std::vector<std::string>;

// The two ends of each line below each other, where they do not fit beside each other.
std::vector<Cells> an_end_a_row(const std::vector<Cells>& rows)
{
    std::vector<Cells> ends = {{"Parcel", "line", "", "E", "N", "cut off"}};
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const Cells& row = rows[i];
        ends.push_back({row[0], row[1], "from", row[2], row[3], row[6]});
        ends.push_back({"", "", "to", row[4], row[5], ""});
    }
    return ends;
}

}  // namespace

std::string ManyReport::refuse(const Failure& failure, const std::string& reason)
{
    ++refused_;
    file_ = failure.place.file;
    refusals_[reason].add([&] { return failure.place.feature; });
    if (status_ == ExitStatus::done || failure.status < status_)
        status_ = failure.status;
    if (keep_ == Keep::json)
        parcels_.push_back(
            {{"parcel", failure.place.text()}, {"status", "refused"}, {"reason", sentence(failure)}});
    return reason;
}

std::string ManyReport::add(const Failure& problem)
{
    return refuse(problem, problem.problem);
}

// Each clause once. Only the first are kept: of an odd scale every parcel may say another figure.
void ManyReport::note(const Parcel& parcel)
{
    constexpr std::size_t kMaxClauses = 5;
    for (const std::string& clause : parcel.assumed)
        if (assumed_.size() < kMaxClauses &&
            std::find(assumed_.begin(), assumed_.end(), clause) == assumed_.end())
            assumed_.push_back(clause);
}

std::string ManyReport::add(const Answer& answer)
{
    note(answer.parcel);
    if (!answer.printed.done())
        return refuse(refusal(answer), refusal_reason(answer));
    ++divided_;
    if (keep_ == Keep::json)
        parcels_.push_back(division_json(answer));
    if (keep_ == Keep::rows)
        keep_rows(answer);
    return "";
}

void ManyReport::keep_rows(const Answer& answer)
{
    const PrintedDivision& printed = answer.printed;
    const int decimals = printed.resolution.end_decimals;
    for (std::size_t i = 0; i < printed.lines.size(); ++i) {
        const PL_LINE_2D_record& line = printed.lines[i];
        rows_.push_back({answer.parcel.place.feature, std::to_string(i + 1), fixed(line.start.x, decimals),
                         fixed(line.start.y, decimals), fixed(line.end.x, decimals),
                         fixed(line.end.y, decimals),
                         fixed(printed.areas[i], printed.resolution.area_decimals)});
    }
}

Output ManyReport::summary(std::size_t passed_over, std::size_t hidden) const
{
    std::string text =
        "Divided  " + std::to_string(divided_) + " of " + std::to_string(divided_ + refused_) + " parcels\n";
    if (refused_ > 0)
        text += "Refused  " + std::to_string(refused_) + " in " + file_ + "\n";
    for (const auto& [reason, refused] : refusals_)
        text += "  " + std::to_string(refused.count()) + ": " + reason + " (" + refused.text() + ")\n";
    if (passed_over > 0)
        text += "Skipped, without an area  " + std::to_string(passed_over) + "\n";
    if (hidden > 0)
        text += "Skipped, in paper space or not shown  " + std::to_string(hidden) + "\n";
    return {text, status_};
}

Output ManyReport::table(std::size_t passed_over, std::size_t hidden) const
{
    std::vector<std::vector<std::string>> rows = {
        {"Parcel", "line", "from E", "from N", "to E", "to N", "cut off"}};
    rows.insert(rows.end(), rows_.begin(), rows_.end());
    Output output = summary(passed_over, hidden);
    if (!rows_.empty())
        output.text = columns(fit_terminal(rows) ? rows : an_end_a_row(rows)) + "\n" + output.text;
    for (auto clause = assumed_.rbegin(); clause != assumed_.rend(); ++clause)
        output.text = "Assumed  " + *clause + "\n" + (clause == assumed_.rbegin() ? "\n" : "") + output.text;
    return output;
}

Output ManyReport::json(const std::vector<std::string>& written) const
{
    Json json;
    json["parcels"] = parcels_;
    json["divided"] = divided_;
    json["refused"] = refused_;
    if (!written.empty())
        json["written"] = written;
    return {dumped(json), status_};
}

}  // namespace tool
