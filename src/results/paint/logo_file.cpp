#include "results/paint/logo_file.h"

#include "results/report/bitmap_reader.h"

#include <memory>
#include <png.h>
#include <turbojpeg.h>

namespace qor {

namespace {

std::optional<PictureRgb> EmptyPicture(long long width, long long height) {
    if (width <= 0 || height <= 0 || width > MostPixels || height > MostPixels || width * height > MostPixels)
        return std::nullopt;
    PictureRgb picture{static_cast<int>(width), static_cast<int>(height), {}};
    picture.pixels.resize(static_cast<std::size_t>(width * height));
    return picture;
}

std::optional<PictureRgb> ReadPng(std::string_view bytes) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    const std::unique_ptr<png_image, void (*)(png_imagep)> held(&image, &png_image_free);
    if (!png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()))
        return std::nullopt;
    auto picture = EmptyPicture(image.width, image.height);
    if (!picture)
        return std::nullopt;
    image.format = PNG_FORMAT_BGR;
    std::string rows(PNG_IMAGE_SIZE(image), '\0');
    const png_color white{255, 255, 255};
    if (!png_image_finish_read(&image, &white, rows.data(), 0, nullptr))
        return std::nullopt;
    const auto* from = reinterpret_cast<const unsigned char*>(rows.data());
    for (std::uint32_t& pixel : picture->pixels) {
        pixel = static_cast<std::uint32_t>(from[2] << 16 | from[1] << 8 | from[0]);
        from += 3;
    }
    return picture;
}

std::optional<PictureRgb> ReadJpeg(std::string_view bytes) {
    const std::unique_ptr<void, int (*)(tjhandle)> reader(tjInitDecompress(), &tjDestroy);
    if (!reader)
        return std::nullopt;
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    int width = 0;
    int height = 0;
    int sampling = 0;
    int colours = 0;
    if (tjDecompressHeader3(reader.get(), data, bytes.size(), &width, &height, &sampling, &colours) != 0)
        return std::nullopt;
    auto picture = EmptyPicture(width, height);
    if (!picture)
        return std::nullopt;
    auto* to = reinterpret_cast<unsigned char*>(picture->pixels.data());
    // A scan too many is an attack on the time it takes; what else is odd is shown as far as it can be.
    const int failed = tjDecompress2(reader.get(), data, bytes.size(), to, width, 4 * width, height,
                                     TJPF_BGRX, TJFLAG_LIMITSCANS);
    if (failed && tjGetErrorCode(reader.get()) == TJERR_FATAL)
        return std::nullopt;
    for (std::uint32_t& pixel : picture->pixels)
        pixel &= 0xFFFFFF;
    return picture;
}

} // namespace

std::optional<PictureRgb> ReadLogo(std::string_view bytes) {
    if (bytes.starts_with("BM"))
        return ReadBitmap(bytes);
    if (bytes.starts_with("\x89PNG"))
        return ReadPng(bytes);
    if (bytes.starts_with("\xFF\xD8"))
        return ReadJpeg(bytes);
    return std::nullopt;
}

} // namespace qor
