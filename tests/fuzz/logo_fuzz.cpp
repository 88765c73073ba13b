// Any bytes as a company's picture: refused, or read as a picture of a bounded size.
#include "results/paint/logo_file.h"
#include "results/report/bitmap_reader.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto picture = qor::ReadLogo(bytes);
    if (!picture)
        return 0;
    const auto pixels = static_cast<long long>(picture->pixels.size());
    if (picture->width < 1 || picture->height < 1 || pixels > qor::MostPixels ||
        pixels != static_cast<long long>(picture->width) * picture->height)
        std::abort();
    for (const std::uint32_t pixel : picture->pixels) {
        if (pixel > 0xFFFFFF)
            std::abort();
    }
    return 0;
}
