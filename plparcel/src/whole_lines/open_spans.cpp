#include "whole_lines/open_spans.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace plparcel {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// The spans of one slab by where they begin; of each half and quarter of the places, where the first of its spans ends.
class Ends {
public:
    explicit Ends(std::size_t places)
    {
        while (leaves_ < places)
            leaves_ *= 2;
        least_.assign(2 * leaves_, kNone);
    }

    void set(std::size_t left, std::size_t right)
    {
        std::size_t node = leaves_ + left;
        least_[node] = right;
        for (node /= 2; node > 0; node /= 2)
            least_[node] = std::min(least_[2 * node], least_[2 * node + 1]);
    }

    // The last span that begins before `before` and ends before `bound`; kNone for none.
    std::size_t last_ending(std::size_t before, std::size_t bound) const
    {
        std::size_t node = leaves_ + before;
        while (node > 1 && (node % 2 == 0 || least_[node - 1] >= bound))
            node /= 2;
        if (node <= 1)
            return kNone;
        --node;
        while (node < leaves_)
            node = least_[2 * node + 1] < bound ? 2 * node + 1 : 2 * node;
        return node - leaves_;
    }

    // Whether a span that begins behind `after` ends before `bound`.
    bool has_within(std::size_t after, std::size_t bound) const
    {
        for (std::size_t node = leaves_ + after; node > 1; node /= 2)
            if (node % 2 == 0 && least_[node + 1] < bound)
                return true;
        return false;
    }

private:
    std::size_t leaves_ = 1;
    std::vector<std::size_t> least_;
};

class Sweep {
public:
    Sweep(const std::vector<LineSpan>& spans, std::size_t places)
        : spans_(spans), ends_(places), at_(places, kNone)
    {}

    std::vector<OpenRun> run(const std::vector<SpanBreak>& breaks)
    {
        struct Event {
            std::size_t slab;
            int kind;  // 0 a span ends below the slab, 1 one begins, 2 a break
            std::size_t index;
        };
        std::vector<Event> events;
        for (std::size_t i = 0; i < spans_.size(); ++i) {
            events.push_back({spans_[i].first_slab, 1, i});
            events.push_back({spans_[i].last_slab + 1, 0, i});
        }
        for (std::size_t i = 0; i < breaks.size(); ++i)
            events.push_back({breaks[i].slab, 2, i});
        std::stable_sort(events.begin(), events.end(), [](const Event& a, const Event& b) {
            return a.slab != b.slab ? a.slab < b.slab : a.kind < b.kind;
        });
        for (const Event& event : events) {
            slab_ = event.slab;
            if (event.kind == 0)
                end(event.index);
            else if (event.kind == 1)
                begin(event.index);
            else
                part(breaks[event.index].place);
        }
        return std::move(runs_);
    }

private:
    // Of the open spans none holds another, so that they end in the order in which they begin.
    using Open = std::map<std::size_t, std::size_t>;  // where it begins: since which slab

    const LineSpan& span_at(std::size_t left) const { return spans_[at_[left]]; }

    void close(std::size_t left, std::size_t since)
    {
        if (since < slab_)
            runs_.push_back({at_[left], since, slab_ - 1});
    }

    void begin(std::size_t index)
    {
        const LineSpan& span = spans_[index];
        at_[span.left] = index;
        ends_.set(span.left, span.right);
        if (ends_.has_within(span.left, span.right))
            return;
        auto around = open_.lower_bound(span.left);
        while (around != open_.begin() && span_at(std::prev(around)->first).right > span.right) {
            --around;
            close(around->first, around->second);
            around = open_.erase(around);
        }
        open_[span.left] = slab_;
    }

    // Those that held no other span are open now.
    void end(std::size_t index)
    {
        const LineSpan& span = spans_[index];
        ends_.set(span.left, kNone);
        const auto place = open_.find(span.left);
        if (place == open_.end())
            return;
        close(place->first, place->second);
        const auto next = open_.erase(place);
        const bool has_before = next != open_.begin();
        const std::size_t before = has_before ? std::prev(next)->first : 0;
        std::size_t bound = next == open_.end() ? kNone : span_at(next->first).right;
        for (std::size_t left = ends_.last_ending(span.left, bound);
             left != kNone && (!has_before || left > before); left = ends_.last_ending(left, bound)) {
            open_[left] = slab_;
            bound = span_at(left).right;
        }
    }

    void part(std::size_t place)
    {
        for (auto around = open_.lower_bound(place); around != open_.begin();) {
            --around;
            if (span_at(around->first).right <= place)
                return;
            close(around->first, around->second);
            around->second = slab_;
        }
    }

    const std::vector<LineSpan>& spans_;
    Ends ends_;
    std::vector<std::size_t> at_;  // the span that begins at a place
    Open open_;
    std::size_t slab_ = 0;
    std::vector<OpenRun> runs_;
};

}  // namespace

std::vector<OpenRun> open_runs(const std::vector<LineSpan>& spans, const std::vector<SpanBreak>& breaks,
                               std::size_t places)
{
    return Sweep(spans, places).run(breaks);
}

}  // namespace plparcel
