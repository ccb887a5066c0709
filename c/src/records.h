#pragma once

// Records of other versions: a caller's may be shorter or longer than ours.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "plcalc_c.h"

namespace plcalc_c {

/// No version's record is longer. A size beyond it is a mistake, and is not believed.
constexpr std::size_t kLongestRecord = 4096;

/// Sizes of the records of the first version, below which there are none.
template <typename Record> struct FirstVersion;
template <> struct FirstVersion<plc_parcel_report> {
    static constexpr std::size_t size = 80;
};
template <> struct FirstVersion<plc_request> {
    static constexpr std::size_t size = 112;
};
template <> struct FirstVersion<plc_amount> {
    static constexpr std::size_t size = 24;
};
template <> struct FirstVersion<plc_division_info> {
    static constexpr std::size_t size = 72;
};
template <> struct FirstVersion<plc_line_info> {
    static constexpr std::size_t size = 56;
};
template <> struct FirstVersion<plc_piece_info> {
    static constexpr std::size_t size = 56;
};
template <> struct FirstVersion<plc_held_info> {
    static constexpr std::size_t size = 40;
};

/// Whether some version of the record has the size that it states.
template <typename Record> bool has_known_size(const Record* record) noexcept
{
    static_assert(sizeof(Record) >= FirstVersion<Record>::size && sizeof(Record) <= kLongestRecord);
    static_assert(offsetof(Record, struct_size) == 0 && sizeof(Record) % 8 == 0);
    return record->struct_size >= FirstVersion<Record>::size && record->struct_size <= kLongestRecord;
}

/// Reads a caller's record. What it does not have is zero.
///
/// @return false for a size that no version has, and for fields beyond ours that are not zero
template <typename Record> bool read_record(const Record* from, Record& to) noexcept
{
    if (!has_known_size(from))
        return false;
    const std::size_t given = from->struct_size;
    const auto* bytes = reinterpret_cast<const unsigned char*>(from);
    if (given > sizeof(Record) &&
        std::any_of(bytes + sizeof(Record), bytes + given, [](unsigned char byte) { return byte != 0; }))
        return false;
    to = Record{};
    std::memcpy(&to, bytes, std::min(given, sizeof(Record)));
    return true;
}

/// Writes what a caller's record of a known size has room for, but for its size.
template <typename Record> void write_record(const Record& from, Record* to) noexcept
{
    constexpr std::size_t kHead = sizeof from.struct_size;
    const std::size_t size = std::min<std::size_t>(to->struct_size, sizeof(Record));
    std::memcpy(reinterpret_cast<unsigned char*>(to) + kHead,
                reinterpret_cast<const unsigned char*>(&from) + kHead, size - kHead);
}

}  // namespace plcalc_c
