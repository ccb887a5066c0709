#include "verbs/neighbour_work.h"

#include <algorithm>

#include "console/interrupt.h"
#include "reports/many_report.h"
#include "verbs/batches.h"

namespace tool {
namespace {

long long number_of(const ReadParcel& read)
{
    return read.feature != nullptr ? read.feature->GetFID() : OGRNullFID;
}

}  // namespace

NeighbourWork::NeighbourWork(ParcelFile& file, ParcelRequests& requests, std::size_t jobs, double within)
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
                ours_.push_back(number_of(read));
        guard.check();
    });
    std::sort(ours_.begin(), ours_.end());
}

void NeighbourWork::note_layer(const Source& all)
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

void NeighbourWork::write(DivisionWriter& writer)
{
    each_neighbour([&](ReadParcel& read) {
        const Insertion insertion = insert_in(read);
        if (insertion.points > 0)
            writer.add_neighbour(read, insertion);
    });
}

Insertion NeighbourWork::insert_in(ReadParcel& read)
{
    const Insertion insertion = points_.insert_in(read.parcel);
    read.has_new_points = insertion.points > 0;
    tally_.add_neighbour(insertion);
    return insertion;
}

void NeighbourWork::each_neighbour(const std::function<void(ReadParcel&)>& take)
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
void NeighbourWork::count_heights()
{
    heights_ = {};
    each_neighbour([&](ReadParcel& read) {
        if (points_.insert_in(read.parcel).points > 0)
            heights_.add(read.parcel.heights);
    });
}

bool NeighbourWork::is_neighbour(const ReadParcel& read) const
{
    return whole_ && !std::binary_search(ours_.begin(), ours_.end(), number_of(read));
}

}  // namespace tool
