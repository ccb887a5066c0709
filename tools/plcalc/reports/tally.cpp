#include "reports/tally.h"

#include <algorithm>

namespace tool {

void Tally::refuse(const Failure& failure, const std::string& reason)
{
    ++refused_;
    file_ = failure.place.file;
    refusals_[reason].add([&] { return failure.place.called(); });
    if (status_ == ExitStatus::done || failure.status < status_)
        status_ = failure.status;
}

void Tally::note(const Parcel& parcel)
{
    constexpr std::size_t kMaxClauses = 5;
    for (const std::string& clause : parcel.assumed)
        if (assumed_.size() < kMaxClauses &&
            std::find(assumed_.begin(), assumed_.end(), clause) == assumed_.end())
            assumed_.push_back(clause);
}

std::string Tally::assumptions() const
{
    std::string text;
    for (const std::string& clause : assumed_)
        text += "Assumed  " + clause + "\n";
    return text + (text.empty() ? "" : "\n");
}

std::string Tally::summary(const std::string& was_done, std::size_t passed_over, std::size_t hidden) const
{
    std::string text =
        was_done + " " + std::to_string(done_) + " of " + std::to_string(done_ + refused_) + " parcels\n";
    if (refused_ > 0)
        text += "Refused  " + std::to_string(refused_) + " in " + file_ + "\n";
    for (const auto& [reason, refused] : refusals_)
        text += "  " + std::to_string(refused.count()) + ": " + reason + " (" + refused.text() + ")\n";
    if (passed_over > 0)
        text += "Skipped, without an area  " + std::to_string(passed_over) + "\n";
    if (hidden > 0)
        text += "Skipped, in paper space or not shown  " + std::to_string(hidden) + "\n";
    return text;
}

Json place_json(const Place& place)
{
    Json json = {{"parcel", place.without_name()}};
    if (!place.name.empty())
        json["name"] = place.name;
    return json;
}

Json refused_json(const Failure& failure)
{
    Json json = place_json(failure.place);
    json["status"] = "refused";
    json["reason"] = sentence(failure);
    return json;
}

// The parcels between what stands before and behind them in the object.
Output with_list(const Json& json, const std::shared_ptr<Spool>& parcels, ExitStatus status)
{
    Output output = {dumped(json), status};
    if (parcels->empty())
        return output;
    const std::size_t list = output.text.find("[]") + 1;
    output.end = "\n  " + output.text.substr(list);
    output.text.resize(list);
    output.body = [parcels](const auto& take) {
        const char* before = "\n";
        parcels->read([&](const std::string& parcel) {
            take(before + parcel);
            before = ",\n";
        });
    };
    return output;
}

}  // namespace tool
