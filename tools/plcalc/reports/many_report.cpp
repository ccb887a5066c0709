#include "reports/many_report.h"

#include <algorithm>
#include <utility>

#include "reports/instead.h"
#include "reports/parcel_reports.h"
#include "reports/refusal.h"
#include "text/json.h"
#include "text/numbers.h"

namespace tool {
namespace {

using Cells = std::vector<std::string>;

const Cells kWideHead = {"Parcel", "line", "from E", "from N", "to E", "to N", "cut off"};
const Cells kNarrowHead = {"Parcel", "line", "", "E", "N", "cut off"};

// A cell may hold anything but these.
constexpr char kCellEnd = '\x1f';
constexpr char kRowEnd = '\x1e';

std::string without_ends(std::string cell)
{
    std::replace_if(
        cell.begin(), cell.end(), [](char c) { return c == kCellEnd || c == kRowEnd; }, '?');
    return cell;
}

std::vector<Cells> rows_in(const std::string& text)
{
    std::vector<Cells> rows;
    Cells row;
    std::string cell;
    for (const char c : text) {
        if (c != kCellEnd && c != kRowEnd) {
            cell += c;
            continue;
        }
        row.push_back(std::move(cell));
        cell.clear();
        if (c == kRowEnd) {
            rows.push_back(std::move(row));
            row.clear();
        }
    }
    return rows;
}

// The two ends of a line below each other, where they do not fit beside each other.
std::vector<Cells> an_end_a_row(const Cells& row)
{
    return {{row[0], row[1], "from", row[2], row[3], row[6]}, {"", "", "to", row[4], row[5], ""}};
}

}  // namespace

std::string ManyReport::refuse(const Failure& failure, const std::string& reason, const Json& instead)
{
    tally_.refuse(failure, reason);
    if (keep_ == Keep::json) {
        Json parcel = refused_json(failure);
        if (!instead.is_null())
            parcel["instead"] = instead;
        kept_->add(dumped_in_list(parcel));
    }
    return reason;
}

std::string ManyReport::add(const Failure& problem)
{
    return refuse(problem, problem.problem, Json());
}

std::string ManyReport::kept_of(const Answer& answer) const
{
    const PrintedDivision& printed = answer.printed;
    if (!printed.done() || keep_ == Keep::counts)
        return "";
    if (keep_ == Keep::json)
        return dumped_in_list(division_json(answer));
    const int decimals = printed.resolution.end_decimals;
    std::string rows;
    for (std::size_t i = 0; i < printed.lines.size(); ++i) {
        const PrintedLine& line = printed.lines[i];
        const std::string name =
            std::to_string(line.line + 1) + (line.parts > 1 ? "." + std::to_string(line.part + 1) : "");
        rows += without_ends(answer.parcel.place.called()) + kCellEnd + name;
        for (const double value : {line.start.x, line.start.y, line.end.x, line.end.y})
            rows += kCellEnd + fixed(value, decimals);
        rows +=
            kCellEnd + fixed(printed.proven.held[line.line].area, printed.resolution.area_decimals) + kRowEnd;
    }
    return rows;
}

std::string ManyReport::add(const Answer& answer, const std::string& kept)
{
    tally_.note(answer.parcel);
    if (!answer.printed.done())
        return refuse_with_instead(answer);
    tally_.done();
    if (keep_ == Keep::rows)
        measure(kept);
    if (keep_ != Keep::counts)
        kept_->add(kept);
    return "";
}

std::string ManyReport::refuse_with_instead(const Answer& answer)
{
    const std::optional<Instead> instead = keep_ == Keep::json ? instead_of(answer) : std::nullopt;
    return refuse(refusal(answer, instead), refusal_reason(answer),
                  instead ? json_instead(answer.parcel, *instead) : Json());
}

void ManyReport::measure(const std::string& rows)
{
    if (kept_->empty()) {
        wide_.measure(kWideHead);
        narrow_.measure(kNarrowHead);
    }
    for (const Cells& row : rows_in(rows)) {
        wide_.measure(row);
        for (const Cells& end : an_end_a_row(row))
            narrow_.measure(end);
    }
}

Output ManyReport::table(std::size_t passed_over, std::size_t hidden) const
{
    Output output = {tally_.summary("Divided ", passed_over, hidden), tally_.status()};
    if (keep_ == Keep::rows && !kept_->empty()) {
        output.end = "\n" + output.text;
        output.text.clear();
        output.body = [kept = kept_, wide = wide_, narrow = narrow_](const auto& take) {
            const bool is_wide = wide.fit_terminal();
            take(is_wide ? wide.line(kWideHead) : narrow.line(kNarrowHead));
            kept->read([&](const std::string& rows) {
                std::string lines;
                for (const Cells& row : rows_in(rows)) {
                    if (is_wide)
                        lines += wide.line(row);
                    else
                        for (const Cells& end : an_end_a_row(row))
                            lines += narrow.line(end);
                }
                take(lines);
            });
        };
    }
    output.notes = tally_.assumptions();
    output.text = output.notes + output.text;
    return output;
}

Output ManyReport::json(const std::vector<std::string>& written, const std::vector<std::string>& unused_rows,
                        const Json& neighbours) const
{
    Json json;
    json["parcels"] = Json::array();
    json["divided"] = tally_.done_count();
    json["refused"] = tally_.refused_count();
    if (!written.empty())
        json["written"] = written;
    if (!unused_rows.empty())
        json["unused_rows"] = unused_rows;
    if (!neighbours.is_null())
        json["neighbours"] = neighbours;
    return with_list(json, kept_, tally_.status());
}

}  // namespace tool
