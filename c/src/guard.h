#pragma once

// What keeps a C host safe from C++: exceptions become codes, numbers of the host's become sizes.

#include <cstddef>
#include <cstdint>
#include <limits>

#ifdef __cpp_exceptions
#include <new>
#include <stdexcept>
#endif

#include "plcalc_c.h"

namespace plcalc_c {

/// The code of `work`, or of the exception that it throws. Built without exceptions, nothing is thrown.
template <typename Work> std::int32_t guarded(const Work& work) noexcept
{
#ifdef __cpp_exceptions
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return PLC_OUT_OF_MEMORY;
    } catch (const std::length_error&) {
        return PLC_OUT_OF_MEMORY;
    } catch (...) {
        return PLC_FAILED;
    }
#else
    return work();
#endif
}

/// An index as the library counts; one that no list has for a number below 0 or beyond what a size holds.
inline std::size_t index_of(std::int64_t number) noexcept
{
    constexpr std::size_t kNoSuchIndex = std::numeric_limits<std::size_t>::max();
    if (number < 0 || static_cast<std::uint64_t>(number) >= kNoSuchIndex)
        return kNoSuchIndex;
    return static_cast<std::size_t>(number);
}

/// PLC_OK, or what is wrong with an array of so many elements, each of so many doubles.
inline std::int32_t check_array(const double* numbers, std::int64_t count, std::size_t doubles_each) noexcept
{
    if (count < 0)
        return PLC_NO_SUCH_INDEX;
    if (count > 0 && numbers == nullptr)
        return PLC_NULL_POINTER;
    if (index_of(count) > std::numeric_limits<std::size_t>::max() / sizeof(double) / doubles_each)
        return PLC_OUT_OF_MEMORY;
    return PLC_OK;
}

}  // namespace plcalc_c
