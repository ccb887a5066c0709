#pragma once

// A list of names in a message.

#include <cstddef>
#include <string>
#include <vector>

namespace tool {

/// Counts what it is given and keeps the first names of it. Nobody reads a longer list in a message.
class NameList {
public:
    /// @param[in] name  makes the name; called only for a name that is kept
    template <class MakeName> void add(MakeName name)
    {
        if (count_ < kMaxKept)
            kept_.push_back(name());
        ++count_;
    }

    std::size_t count() const { return count_; }

    /// The names with commas between them, and "..." at the end if there were more.
    std::string text() const;

private:
    static constexpr std::size_t kMaxKept = 5;

    std::size_t count_ = 0;
    std::vector<std::string> kept_;
};

}  // namespace tool
