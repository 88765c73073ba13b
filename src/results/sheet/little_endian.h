#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qor {

// Whole numbers as the sheet forms hold them: low byte first.

inline void Put16(std::string& out, unsigned value) {
    out += static_cast<char>(value & 0xFF);
    out += static_cast<char>(value >> 8 & 0xFF);
}

inline void Put32(std::string& out, std::uint32_t value) {
    Put16(out, value & 0xFFFF);
    Put16(out, value >> 16);
}

/// Bytes beyond the end read as 0.
inline unsigned Get8(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
}

inline unsigned Get16(std::string_view bytes, std::size_t at) {
    return Get8(bytes, at) | Get8(bytes, at + 1) << 8;
}

inline std::uint32_t Get32(std::string_view bytes, std::size_t at) {
    return Get16(bytes, at) | Get16(bytes, at + 2) << 16;
}

} // namespace qor
