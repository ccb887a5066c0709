#pragma once

// Many things in the plane, of which only the boxes of groups are in memory.

#include <algorithm>
#include <cstddef>
#include <vector>

#include "boundary/box_tree.h"

namespace plparcel {

/// Boxes around groups of things that follow one another, around groups of these, and so on: good where what follows one
/// another lies near each other. Two bytes are kept for a thing.
class BoxLevels {
public:
    /// The box of the next thing.
    void add(const Box& box)
    {
        if (count_ % kInGroup == 0)
            levels_.front().push_back(box);
        else
            levels_.front().back() = both(levels_.front().back(), box);
        ++count_;
    }

    /// After the last, before the first question.
    void finish()
    {
        while (levels_.back().size() > kBranches) {
            std::vector<Box> above;
            const std::vector<Box>& below = levels_.back();
            for (std::size_t i = 0; i < below.size(); ++i)
                if (i % kBranches == 0)
                    above.push_back(below[i]);
                else
                    above.back() = both(above.back(), below[i]);
            levels_.push_back(std::move(above));
        }
    }

    /// Calls `note` with the number of each thing whose group may lie within the distance.
    template <class Note> void near(const Reach& reach, double distance, const Note& note) const
    {
        for (std::size_t i = 0; i < levels_.back().size(); ++i)
            visit(levels_.size() - 1, i, reach, distance, note);
    }

private:
    static constexpr std::size_t kInGroup = 16;
    static constexpr std::size_t kBranches = 8;

    template <class Note>
    void visit(std::size_t level, std::size_t number, const Reach& reach, double distance,
               const Note& note) const
    {
        if (!reach.comes_near(levels_[level][number], distance))
            return;
        const std::size_t in_it = level == 0 ? kInGroup : kBranches;
        const std::size_t count = level == 0 ? count_ : levels_[level - 1].size();
        for (std::size_t i = number * in_it; i < std::min(number * in_it + in_it, count); ++i)
            if (level == 0)
                note(i);
            else
                visit(level - 1, i, reach, distance, note);
    }

    std::size_t count_ = 0;
    std::vector<std::vector<Box>> levels_ = {{}};
};

}  // namespace plparcel
