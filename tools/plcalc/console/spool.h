#pragma once

// Text that is too long to keep in memory.

#include <cstdio>
#include <functional>
#include <memory>
#include <string>

namespace tool {

/// Texts in a file without a name that goes away with it. The file is made with the first of them.
class Spool {
public:
    /// @throws Failure  failed when it cannot be kept
    void add(const std::string& text);

    bool empty() const { return file_ == nullptr; }

    /// Hands out the texts one by one, in the order in which they were added.
    ///
    /// @throws Failure  failed when they cannot be read back
    void read(const std::function<void(const std::string&)>& take) const;

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::unique_ptr<std::FILE, Close> file_;
};

}  // namespace tool
