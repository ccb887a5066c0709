#include "reports/many_report.h"

#include "reports/parcel_reports.h"
#include "reports/refusal.h"
#include "text/numbers.h"
#include "text/table.h"

namespace tool {

std::string ManyReport::refuse(const Failure& failure, const std::string& reason)
{
    ++refused_;
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

std::string ManyReport::add(const Answer& answer)
{
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
    const int decimals = printed.resolution.decimals;
    for (std::size_t i = 0; i < printed.lines.size(); ++i) {
        const PL_LINE_2D_record& line = printed.lines[i];
        rows_.push_back({answer.parcel.place.feature, std::to_string(i + 1), fixed(line.start.x, decimals),
                         fixed(line.start.y, decimals), fixed(line.end.x, decimals),
                         fixed(line.end.y, decimals),
                         fixed(printed.areas[i], printed.resolution.area_decimals)});
    }
}

Output ManyReport::summary(std::size_t passed_over) const
{
    std::string text =
        "Divided  " + std::to_string(divided_) + " of " + std::to_string(divided_ + refused_) + " parcels\n";
    if (refused_ > 0)
        text += "Refused  " + std::to_string(refused_) + "\n";
    for (const auto& [reason, refused] : refusals_)
        text += "  " + std::to_string(refused.count()) + ": " + reason + " (" + refused.text() + ")\n";
    if (passed_over > 0)
        text += "Skipped, without an area  " + std::to_string(passed_over) + "\n";
    return {text, status_};
}

Output ManyReport::table(std::size_t passed_over) const
{
    std::vector<std::vector<std::string>> rows = {
        {"Parcel", "line", "from E", "from N", "to E", "to N", "cut off"}};
    rows.insert(rows.end(), rows_.begin(), rows_.end());
    Output output = summary(passed_over);
    if (!rows_.empty())
        output.text = columns(rows) + "\n" + output.text;
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
