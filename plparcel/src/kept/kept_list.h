#pragma once

// A list that may be too long for the memory.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "kept/blocks.h"

namespace plparcel {

/// A list in blocks, of which the last is in memory. The blocks must outlive it.
template <class T> class KeptList {
    static_assert(std::is_trivially_copyable_v<T> && sizeof(T) <= Blocks::kSize);

public:
    explicit KeptList(Blocks& blocks) : blocks_(&blocks) {}
    ~KeptList() { clear(); }
    KeptList(const KeptList&) = delete;
    KeptList& operator=(const KeptList&) = delete;
    KeptList(KeptList&& other) noexcept { *this = std::move(other); }
    KeptList& operator=(KeptList&& other) noexcept
    {
        std::swap(blocks_, other.blocks_);
        std::swap(numbers_, other.numbers_);
        std::swap(last_, other.last_);
        std::swap(size_, other.size_);
        return *this;
    }

    void add(const T& item)
    {
        if (size_ == numbers_.size() * kInBlock + kInBlock)
            numbers_.push_back(blocks_->put(std::exchange(last_, {})));
        last_.resize(Blocks::kSize);
        std::memcpy(last_.data() + size_ % kInBlock * sizeof(T), &item, sizeof(T));
        ++size_;
    }

    std::size_t size() const { return size_; }

    /// Reads a list that does not change meanwhile. Each thread has its own; what lies beside what was read last costs
    /// least.
    class Reader {
    public:
        explicit Reader(const KeptList& list) : list_(&list) {}

        T at(std::size_t i)
        {
            const std::size_t number = i / kInBlock;
            const unsigned char* bytes = list_->last_.data();
            if (number < list_->numbers_.size()) {
                if (block_ == nullptr || number != number_)
                    block_ = list_->blocks_->get(list_->numbers_[number]);
                number_ = number;
                bytes = block_->data();
            }
            T item;
            std::memcpy(&item, bytes + i % kInBlock * sizeof(T), sizeof(T));
            return item;
        }

    private:
        const KeptList* list_;
        std::size_t number_ = 0;
        std::shared_ptr<const Blocks::Block> block_;
    };

private:
    static constexpr std::size_t kInBlock = Blocks::kSize / sizeof(T);

    void clear()
    {
        for (const std::uint32_t number : numbers_)
            blocks_->drop(number);
    }

    Blocks* blocks_ = nullptr;
    std::vector<std::uint32_t> numbers_;
    Blocks::Block last_;
    std::size_t size_ = 0;
};

}  // namespace plparcel
