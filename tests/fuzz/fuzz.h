#pragma once

#include "support/temp_dir.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace qor::test {

/// What has to hold whatever the bytes are.
inline void Require(bool condition) {
    if (!condition)
        std::abort();
}

/// The input, taken from its start; zeros when it is used up.
struct Bytes {
    const std::uint8_t* data;
    std::size_t size;

    std::uint8_t Next() {
        if (size == 0)
            return 0;
        --size;
        return *data++;
    }
    std::string Take(std::size_t count) {
        count = std::min(count, size);
        std::string text(reinterpret_cast<const char*>(data), count);
        data += count;
        size -= count;
        return text;
    }
};

} // namespace qor::test
