#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace qor {

/// A picture as the report page is painted, filed and printed: 16 bits a pixel, five each for red, green and
/// blue from bit 10 down, the highest unused. Rows from the top, without a gap.
struct Picture16 {
    int width = 0;
    int height = 0;
    std::vector<std::uint16_t> pixels;
};

/// A picture in full colours, 0xRRGGBB. Rows from the top, without a gap.
struct PictureRgb {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// Five bits of a colour as eight: the lowest stay black, the highest are white.
[[nodiscard]] constexpr std::uint32_t EightBits(std::uint32_t five) {
    return five << 3 | five >> 2;
}

/// The bytes of a .bmp: "BM", pixels from byte 54, 1 plane, uncompressed, the bottom row first.
[[nodiscard]] std::string FormatBitmap(const Picture16& picture);
/// The same with 24 bits a pixel.
[[nodiscard]] std::string FormatBitmap(const PictureRgb& picture);

} // namespace qor
