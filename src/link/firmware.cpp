#include "link/firmware.h"

#include "base/text_format.h"

namespace qor {

std::optional<float> VersionInBanner(std::string_view banner) {
    std::string sought;
    // Stepped in 32-bit floats on purpose: the value is the one all firmware thresholds were set against.
    for (float candidate = 1.0f; candidate < 20.0f;
         candidate += 0.1f) { // NOLINT(clang-analyzer-security.FloatLoopCounter)
        sought = "v";
        AppendFixed(sought, static_cast<double>(candidate), 1);
        const std::size_t at = banner.find(sought);
        if (at == std::string_view::npos)
            continue;
        const bool extended = banner.find("e" + sought) != std::string_view::npos;
        return extended ? candidate + 10.0f : candidate;
    }
    return std::nullopt;
}

std::string ModelInBanner(std::string_view banner) {
    const std::size_t begin = banner.find("RT-");
    if (begin == std::string_view::npos)
        return {};
    const std::size_t end = banner.find_first_of(" ,\r\n", begin);
    return std::string(banner.substr(begin, end == std::string_view::npos ? end : end - begin));
}

} // namespace qor
