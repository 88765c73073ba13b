#include "results/paint/jpeg.h"

#include <memory>
#include <turbojpeg.h>

namespace qor {

std::string FormatJpeg(const Picture16& picture) {
    std::vector<std::uint32_t> full(picture.pixels.size());
    for (std::size_t i = 0; i < full.size(); ++i) {
        const std::uint32_t pixel = picture.pixels[i];
        full[i] =
            EightBits(pixel >> 10 & 0x1F) << 16 | EightBits(pixel >> 5 & 0x1F) << 8 | EightBits(pixel & 0x1F);
    }
    const std::unique_ptr<void, int (*)(tjhandle)> compressor(tjInitCompress(), &tjDestroy);
    std::string bytes;
    if (!compressor)
        return bytes;
    bytes.resize(tjBufSize(picture.width, picture.height, TJSAMP_444));
    auto* to = reinterpret_cast<unsigned char*>(bytes.data());
    unsigned long size = bytes.size();
    const int failed = tjCompress2(compressor.get(), reinterpret_cast<const unsigned char*>(full.data()),
                                   picture.width, 4 * picture.width, picture.height, TJPF_BGRX, &to, &size,
                                   TJSAMP_444, 100, TJFLAG_NOREALLOC);
    bytes.resize(failed ? 0 : size);
    return bytes;
}

} // namespace qor
