#pragma once

// Bytes that are too many to keep in memory.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>

namespace tool {

/// A file without a name, that goes away with this. Made with the first bytes that are written.
class ScratchFile {
public:
    /// @throws Failure  failed when they cannot be kept
    void write(std::uint64_t place, const void* bytes, std::size_t size);

    /// Reads bytes that were written. May be called by several threads at the same time.
    ///
    /// @throws Failure  failed when they cannot be read back
    void read(std::uint64_t place, void* bytes, std::size_t size) const;

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::unique_ptr<std::FILE, Close> file_;
};

}  // namespace tool
