#include "results/report/picture.h"

namespace qor {

namespace {

constexpr std::size_t HeaderSize = 54;
constexpr std::uint32_t InfoSize = 40;

void PutNumber(std::string& to, std::size_t at, std::uint32_t number, int bytes) {
    for (int i = 0; i < bytes; ++i)
        to[at + static_cast<std::size_t>(i)] = static_cast<char>(number >> 8 * i & 0xFF);
}

/// Header and room for the rows; each begins at a multiple of four.
std::string EmptyBitmap(int width, int height, int bits, std::size_t& rowBytes) {
    rowBytes = (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) / 8 + 3) / 4 * 4;
    const std::size_t size = HeaderSize + rowBytes * static_cast<std::size_t>(height);
    std::string file(size, '\0');
    file[0] = 'B';
    file[1] = 'M';
    PutNumber(file, 2, static_cast<std::uint32_t>(size), 4);
    PutNumber(file, 10, HeaderSize, 4);
    PutNumber(file, 14, InfoSize, 4);
    PutNumber(file, 18, static_cast<std::uint32_t>(width), 4);
    PutNumber(file, 22, static_cast<std::uint32_t>(height), 4);
    PutNumber(file, 26, 1, 2);
    PutNumber(file, 28, static_cast<std::uint32_t>(bits), 2);
    return file;
}

} // namespace

std::string FormatBitmap(const Picture16& picture) {
    std::size_t rowBytes = 0;
    std::string file = EmptyBitmap(picture.width, picture.height, 16, rowBytes);
    const auto width = static_cast<std::size_t>(picture.width);
    const std::uint16_t* pixel = picture.pixels.data();
    for (int row = picture.height - 1; row >= 0; --row) {
        char* to = file.data() + HeaderSize + rowBytes * static_cast<std::size_t>(row);
        for (std::size_t x = 0; x < width; ++x, ++pixel, to += 2) {
            to[0] = static_cast<char>(*pixel & 0xFF);
            to[1] = static_cast<char>(*pixel >> 8);
        }
    }
    return file;
}

std::string FormatBitmap(const PictureRgb& picture) {
    std::size_t rowBytes = 0;
    std::string file = EmptyBitmap(picture.width, picture.height, 24, rowBytes);
    const auto width = static_cast<std::size_t>(picture.width);
    const std::uint32_t* pixel = picture.pixels.data();
    for (int row = picture.height - 1; row >= 0; --row) {
        char* to = file.data() + HeaderSize + rowBytes * static_cast<std::size_t>(row);
        for (std::size_t x = 0; x < width; ++x, ++pixel, to += 3) {
            for (int i = 0; i < 3; ++i)
                to[i] = static_cast<char>(*pixel >> 8 * i & 0xFF);
        }
    }
    return file;
}

} // namespace qor
