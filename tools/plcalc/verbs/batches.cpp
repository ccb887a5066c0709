#include "verbs/batches.h"

#include <memory>
#include <utility>

#include "answers/chosen_side.h"
#include "console/ordered_work.h"

namespace tool {
namespace {

// For each job, batches that are read before their turn, so that no job waits for the disk.
constexpr std::size_t kBatchesAhead = 2;

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

}  // namespace

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

}  // namespace tool
