#pragma once

// A file for what would fill the memory, as a test can look into it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "plparcel/neighbours.h"

namespace parcel_test {

struct FileInMemory {
    std::vector<unsigned char> bytes = {};
    std::size_t reads = 0;
    bool is_torn = false;  // somebody wrote behind the end, or read there

    plparcel::Scratch scratch()
    {
        return {[this](std::uint64_t place, const void* from, std::size_t size) {
                    is_torn = is_torn || place > bytes.size();
                    bytes.resize(std::max<std::size_t>(bytes.size(), place + size));
                    std::memcpy(bytes.data() + place, from, size);
                },
                [this](std::uint64_t place, void* to, std::size_t size) {
                    ++reads;
                    is_torn = is_torn || place + size > bytes.size();
                    if (!is_torn)
                        std::memcpy(to, bytes.data() + place, size);
                }};
    }
};

}  // namespace parcel_test
