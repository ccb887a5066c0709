#pragma once

// Bytes that may be too many for the memory.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "plparcel/neighbours.h"

namespace plparcel {

/// Blocks of bytes, each with a number: in a file of the caller's, of which the last few are in memory as well, or all in
/// memory.
class Blocks {
public:
    static constexpr std::size_t kSize = 8192;
    using Block = std::vector<unsigned char>;

    /// @param[in] file  nothing keeps the blocks in memory
    explicit Blocks(std::optional<Scratch> file);

    /// The number by which the block is found again.
    std::uint32_t put(Block block);

    /// May be called by several threads at the same time, but not beside put() and drop().
    std::shared_ptr<const Block> get(std::uint32_t number) const;

    /// The block is not needed any more; another one takes its number and its place.
    void drop(std::uint32_t number);

private:
    struct Slot {
        std::uint32_t number = 0;
        std::shared_ptr<const Block> block;
    };

    Slot& slot(std::uint32_t number) const;

    std::optional<Scratch> file_;
    std::uint32_t count_ = 0;
    std::vector<std::uint32_t> free_;
    mutable std::mutex mutex_;         // for the slots
    mutable std::vector<Slot> slots_;  // without a file all blocks, else those that were asked for last
};

}  // namespace plparcel
