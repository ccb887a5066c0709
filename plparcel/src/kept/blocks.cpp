#include "kept/blocks.h"

#include <utility>

namespace plparcel {
namespace {

// Four megabytes: what lies around a few thousand parcels.
constexpr std::size_t kSlots = 512;

std::uint64_t place_of(std::uint32_t number)
{
    return std::uint64_t{number} * Blocks::kSize;
}

}  // namespace

Blocks::Blocks(std::optional<Scratch> file) : file_(std::move(file))
{
    if (file_)
        slots_.resize(kSlots);
}

Blocks::Slot& Blocks::slot(std::uint32_t number) const
{
    return slots_[file_ ? number % kSlots : number];
}

std::uint32_t Blocks::put(Block block)
{
    std::uint32_t number = count_;
    if (free_.empty()) {
        ++count_;
    } else {
        number = free_.back();
        free_.pop_back();
    }
    if (file_)
        file_->write(place_of(number), block.data(), kSize);
    else if (number == slots_.size())
        slots_.emplace_back();
    slot(number) = {number, std::make_unique<const Block>(std::move(block))};
    return number;
}

std::shared_ptr<const Blocks::Block> Blocks::get(std::uint32_t number) const
{
    if (!file_)
        return slot(number).block;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        const Slot& known = slot(number);
        if (known.number == number && known.block != nullptr)
            return known.block;
    }
    Block block(kSize);
    file_->read(place_of(number), block.data(), kSize);
    std::shared_ptr<const Block> read =
        std::make_unique<const Block>(std::move(block));  // see SharedSides::Index
    const std::lock_guard<std::mutex> lock(mutex_);
    slot(number) = {number, read};
    return read;
}

void Blocks::drop(std::uint32_t number)
{
    Slot& known = slot(number);
    if (known.number == number)
        known.block = nullptr;
    free_.push_back(number);
}

}  // namespace plparcel
