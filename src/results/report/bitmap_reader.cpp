#include "results/report/bitmap_reader.h"

#include <algorithm>
#include <array>

namespace qor {

namespace {

constexpr std::uint32_t White = 0xFFFFFF;

enum Compression : std::uint32_t { Plain = 0, Runs8 = 1, Runs4 = 2, Masks = 3, MasksWithAlpha = 6 };

/// Bytes that are asked for behind the end count as 0; the sizes are checked before.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : m_Bytes(bytes) {}
    [[nodiscard]] std::size_t Size() const { return m_Bytes.size(); }
    [[nodiscard]] std::uint32_t At(std::size_t at) const {
        return at < m_Bytes.size() ? static_cast<unsigned char>(m_Bytes[at]) : 0;
    }
    [[nodiscard]] std::uint32_t Two(std::size_t at) const { return At(at) | At(at + 1) << 8; }
    [[nodiscard]] std::uint32_t Four(std::size_t at) const { return Two(at) | Two(at + 2) << 16; }

private:
    std::string_view m_Bytes;
};

/// A colour's bits in a pixel.
struct Channel {
    std::uint32_t mask = 0;

    [[nodiscard]] std::uint32_t Of(std::uint32_t pixel) const {
        if (mask == 0)
            return 0;
        std::uint32_t most = mask;
        std::uint32_t value = pixel & mask;
        for (; (most & 1) == 0; most >>= 1)
            value >>= 1;
        return static_cast<std::uint32_t>(static_cast<std::uint64_t>(value) * 255 / most);
    }
};

struct Header {
    std::size_t pixelsAt = 0;
    int width = 0;
    int height = 0;
    bool fromTop = false;
    std::uint32_t bits = 0;
    std::uint32_t compression = Plain;
    std::array<Channel, 3> channels; ///< red, green, blue of 16 and 32 bits
    std::array<std::uint32_t, 256> palette{};
};

void ReadPalette(const Bytes& file, std::size_t at, std::size_t entrySize, std::uint32_t count,
                 Header& header) {
    for (std::uint32_t i = 0; i < count; ++i)
        header.palette[i] = file.Four(at + i * entrySize) & White;
}

bool ReadMasks(const Bytes& file, std::size_t infoSize, Header& header) {
    if (header.compression == Masks || header.compression == MasksWithAlpha) {
        // Behind the header of 40 bytes, within a longer one: at the same place.
        for (std::size_t i = 0; i < 3; ++i)
            header.channels[i].mask = file.Four(54 + 4 * i);
        if (infoSize == 40)
            header.pixelsAt = std::max<std::size_t>(header.pixelsAt, 66);
        return header.bits == 16 || header.bits == 32;
    }
    header.channels = header.bits == 16 ? std::array<Channel, 3>{{{0x7C00}, {0x03E0}, {0x001F}}}
                                        : std::array<Channel, 3>{{{0xFF0000}, {0x00FF00}, {0x0000FF}}};
    return true;
}

/// False for what is no picture of a form that is read.
bool ReadHeader(const Bytes& file, Header& header) {
    if (file.Size() < 26 || file.At(0) != 'B' || file.At(1) != 'M')
        return false;
    header.pixelsAt = file.Four(10);
    const std::uint32_t infoSize = file.Four(14);
    const bool oldest = infoSize == 12;
    std::int64_t width = 0;
    std::int64_t height = 0;
    if (oldest) {
        width = file.Two(18);
        height = file.Two(20);
        header.bits = file.Two(24);
    } else {
        if (infoSize < 40 || infoSize > 1024 || file.Size() < 54)
            return false;
        width = static_cast<std::int32_t>(file.Four(18));
        height = static_cast<std::int32_t>(file.Four(22));
        header.bits = file.Two(28);
        header.compression = file.Four(30);
    }
    header.fromTop = height < 0;
    height = header.fromTop ? -height : height;
    if (width <= 0 || height <= 0 || width * height > MostPixels || header.pixelsAt >= file.Size())
        return false;
    header.width = static_cast<int>(width);
    header.height = static_cast<int>(height);
    switch (header.bits) {
    case 1:
    case 4:
    case 8: {
        const std::uint32_t most = 1U << header.bits;
        const std::uint32_t stated = oldest ? most : file.Four(46);
        ReadPalette(file, 14 + infoSize, oldest ? 3 : 4, stated == 0 || stated > most ? most : stated,
                    header);
        const std::uint32_t runs = header.bits == 8 ? Runs8 : Runs4;
        return header.compression == Plain || (header.bits > 1 && header.compression == runs);
    }
    case 16:
    case 32:
        return ReadMasks(file, infoSize, header) &&
               (header.compression == Plain || header.compression == Masks ||
                header.compression == MasksWithAlpha);
    case 24:
        return header.compression == Plain;
    default:
        return false;
    }
}

/// Colour of the pixel at x of a row that is stored as it is.
std::uint32_t PixelOf(const Bytes& file, const Header& header, std::size_t row, std::size_t x) {
    switch (header.bits) {
    case 24:
        return file.Four(row + 3 * x) & White;
    case 16:
    case 32: {
        const std::uint32_t pixel = header.bits == 16 ? file.Two(row + 2 * x) : file.Four(row + 4 * x);
        return header.channels[0].Of(pixel) << 16 | header.channels[1].Of(pixel) << 8 |
               header.channels[2].Of(pixel);
    }
    default: {
        const std::size_t bit = x * header.bits;
        const std::uint32_t shift = 8 - header.bits - static_cast<std::uint32_t>(bit % 8);
        return header.palette[file.At(row + bit / 8) >> shift & ((1U << header.bits) - 1)];
    }
    }
}

std::size_t RowBytes(const Header& header) {
    return (static_cast<std::size_t>(header.width) * header.bits + 31) / 32 * 4;
}

/// Some programs leave out what fills the last row up.
bool HoldsAllRows(const Bytes& file, const Header& header) {
    const std::size_t last = (static_cast<std::size_t>(header.width) * header.bits + 7) / 8;
    return file.Size() - header.pixelsAt >=
           RowBytes(header) * (static_cast<std::size_t>(header.height) - 1) + last;
}

void ReadRows(const Bytes& file, const Header& header, PictureRgb& picture) {
    const auto width = static_cast<std::size_t>(header.width);
    const auto height = static_cast<std::size_t>(header.height);
    const std::size_t rowBytes = RowBytes(header);
    for (std::size_t y = 0; y < height; ++y) {
        const std::size_t row = header.pixelsAt + rowBytes * (header.fromTop ? y : height - 1 - y);
        for (std::size_t x = 0; x < width; ++x)
            picture.pixels[y * width + x] = PixelOf(file, header, row, x);
    }
}

/// Run lengths, from the bottom row up: a count and what is repeated; 0 and a count of single pixels; or 0
/// with 0 for the end of a row, 1 for the end of all, 2 for a step to the right and up.
class RunReader {
public:
    RunReader(const Bytes& file, const Header& header, PictureRgb& picture)
        : m_File(file), m_Header(header), m_Picture(picture), m_At(header.pixelsAt) {}

    void Read() {
        while (m_At + 1 < m_File.Size() && m_Row < m_Header.height) {
            const std::uint32_t count = m_File.At(m_At);
            const std::uint32_t code = m_File.At(m_At + 1);
            m_At += 2;
            if (count > 0) {
                for (std::uint32_t i = 0; i < count; ++i)
                    Put(m_Header.bits == 8 ? code : i % 2 == 0 ? code >> 4 : code & 0xF);
            } else if (code == 0) {
                m_X = 0;
                ++m_Row;
            } else if (code == 1) {
                return;
            } else if (code == 2) {
                m_X = std::min(m_X + static_cast<int>(m_File.At(m_At)), m_Header.width);
                m_Row += static_cast<int>(m_File.At(m_At + 1)); // the loop ends beyond the last
                m_At += 2;
            } else {
                PutSingles(code);
            }
        }
    }

private:
    void PutSingles(std::uint32_t count) {
        for (std::uint32_t i = 0; i < count; ++i) {
            if (m_Header.bits == 8)
                Put(m_File.At(m_At + i));
            else
                Put(m_File.At(m_At + i / 2) >> (i % 2 == 0 ? 4 : 0) & 0xF);
        }
        const std::size_t bytes = m_Header.bits == 8 ? count : (count + 1) / 2;
        m_At += (bytes + 1) / 2 * 2;
    }
    void Put(std::uint32_t entry) {
        if (m_X < m_Header.width && m_Row < m_Header.height) {
            const int y = m_Header.fromTop ? m_Row : m_Header.height - 1 - m_Row;
            m_Picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_Header.width) +
                             static_cast<std::size_t>(m_X)] = m_Header.palette[entry];
            ++m_X;
        }
    }

    const Bytes& m_File;
    const Header& m_Header;
    PictureRgb& m_Picture;
    std::size_t m_At;
    int m_X = 0;
    int m_Row = 0; ///< from the bottom
};

} // namespace

std::optional<PictureRgb> ReadBitmap(std::string_view bytes) {
    const Bytes file(bytes);
    Header header;
    if (!ReadHeader(file, header))
        return std::nullopt;
    const bool runs = header.compression == Runs8 || header.compression == Runs4;
    if (!runs && !HoldsAllRows(file, header))
        return std::nullopt;
    PictureRgb picture{header.width, header.height, {}};
    picture.pixels.assign(static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.height),
                          White);
    if (runs)
        RunReader(file, header, picture).Read();
    else
        ReadRows(file, header, picture);
    return picture;
}

} // namespace qor
