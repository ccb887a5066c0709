#pragma once

// Sorting what may be too much for the memory.

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "kept/kept_list.h"

namespace plparcel {

/// Sorts in runs that fit in memory, and merges these. n log n.
///
/// @tparam Less  a function object: whether one item comes before another
template <class T, class Less> class SortedList {
public:
    explicit SortedList(Blocks& blocks) : blocks_(&blocks) {}

    void add(const T& item)
    {
        if (run_.size() == kInRun)
            keep_run();
        run_.push_back(item);
    }

    /// Hands the items out in order.
    class Reader {
    public:
        /// @param[in] list  nothing is added any more
        explicit Reader(SortedList& list) : list_(&list)
        {
            std::sort(list.run_.begin(), list.run_.end(), Less());
            for (const KeptList<T>& run : list.runs_)
                runs_.emplace_back(run);
            for (std::size_t run = 0; run <= runs_.size(); ++run)
                push({run, 0, {}});
        }

        /// Nothing after the last.
        const T* front() const { return heads_.empty() ? nullptr : &heads_.front().item; }

        void pop()
        {
            std::pop_heap(heads_.begin(), heads_.end(), comes_after);
            const Head head = heads_.back();
            heads_.pop_back();
            push({head.run, head.index + 1, {}});
        }

    private:
        // The next item of a run.
        struct Head {
            std::size_t run;  // the last one is in memory
            std::size_t index;
            T item;
        };

        static bool comes_after(const Head& a, const Head& b) { return Less()(b.item, a.item); }

        void push(Head head)
        {
            const bool in_memory = head.run == runs_.size();
            if (head.index == (in_memory ? list_->run_.size() : list_->runs_[head.run].size()))
                return;
            head.item = in_memory ? list_->run_[head.index] : runs_[head.run].at(head.index);
            heads_.push_back(head);
            std::push_heap(heads_.begin(), heads_.end(), comes_after);
        }

        SortedList* list_;
        std::vector<typename KeptList<T>::Reader> runs_;
        std::vector<Head> heads_;  // a heap, the first in order at its front
    };

private:
    static constexpr std::size_t kInRun = std::size_t{1} << 16;

    void keep_run()
    {
        std::sort(run_.begin(), run_.end(), Less());
        KeptList<T> kept(*blocks_);
        for (const T& item : run_)
            kept.add(item);
        runs_.push_back(std::move(kept));
        run_.clear();
    }

    Blocks* blocks_;
    std::vector<KeptList<T>> runs_;
    std::vector<T> run_;
};

}  // namespace plparcel
