#pragma once

// Records of other versions: a caller's may be shorter or longer than ours.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#include "guard.h"
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
template <> struct FirstVersion<plc_range> {
    static constexpr std::size_t size = 32;
};
template <> struct FirstVersion<plc_feasible_info> {
    static constexpr std::size_t size = 24;
};
template <> struct FirstVersion<plc_nearest> {
    static constexpr std::size_t size = 40;
};
template <> struct FirstVersion<plc_alternative> {
    static constexpr std::size_t size = 56;
};
template <> struct FirstVersion<plc_alternatives_info> {
    static constexpr std::size_t size = 32;
};
template <> struct FirstVersion<plc_search> {
    static constexpr std::size_t size = 56;
};
template <> struct FirstVersion<plc_candidate> {
    static constexpr std::size_t size = 64;
};
template <> struct FirstVersion<plc_choice> {
    static constexpr std::size_t size = 32;
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

/// PLC_OK, or what is wrong with an array of so many records, the first of which says how long each is.
template <typename Record> std::int32_t check_records(const Record* records, std::int64_t count) noexcept
{
    if (count < 0)
        return PLC_NO_SUCH_INDEX;
    if (count == 0)
        return PLC_OK;
    if (records == nullptr)
        return PLC_NULL_POINTER;
    if (!has_known_size(records))
        return PLC_WRONG_SIZE;
    return index_of(count) > std::numeric_limits<std::size_t>::max() / records->struct_size
               ? PLC_OUT_OF_MEMORY
               : PLC_OK;
}

/// Reads a caller's array of records, which check_records() has found well, and hands each to `take`.
template <typename Record, typename Take>
std::int32_t read_records(const Record* records, std::int64_t count, const Take& take)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(records);
    for (std::size_t i = 0; i < index_of(count); ++i) {
        const auto* given = reinterpret_cast<const Record*>(bytes + i * records->struct_size);
        Record record;
        if (given->struct_size != records->struct_size || !read_record(given, record))
            return PLC_WRONG_SIZE;
        take(record);
    }
    return PLC_OK;
}

/// Writes what `record_of` makes of each element into a caller's array, as far as there is room. All get the first one's size.
template <typename Elements, typename Record, typename RecordOf>
void write_records(const Elements& elements, Record* records, std::int64_t room, const RecordOf& record_of)
{
    auto* bytes = reinterpret_cast<unsigned char*>(records);
    for (std::size_t i = 0; i < elements.size() && i < index_of(room); ++i) {
        auto* to = reinterpret_cast<Record*>(bytes + i * records->struct_size);
        to->struct_size = records->struct_size;
        write_record(record_of(elements[i]), to);
    }
}

}  // namespace plcalc_c
