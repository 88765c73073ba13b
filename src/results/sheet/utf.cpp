#include "results/sheet/utf.h"

namespace qor {

namespace {

constexpr std::uint32_t Replacement = 0xFFFD;

/// The character at `at`, which moves behind it.
std::uint32_t NextCharacter(std::string_view text, std::size_t& at) {
    const auto byte = static_cast<unsigned char>(text[at++]);
    if (byte < 0x80)
        return byte;
    const int more = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
    if (byte < 0xC2 || byte > 0xF4)
        return Replacement;
    std::uint32_t character = byte & (0x3FU >> more);
    for (int i = 0; i < more; ++i) {
        if (at >= text.size() || (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80)
            return Replacement;
        character = character << 6 | (static_cast<unsigned char>(text[at++]) & 0x3F);
    }
    const bool tooLong = (more == 2 && character < 0x800) || (more == 3 && character < 0x10000);
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    return tooLong || surrogate || character > 0x10FFFF ? Replacement : character;
}

} // namespace

std::u32string ToUtf32(std::string_view text) {
    std::u32string out;
    for (std::size_t at = 0; at < text.size();)
        out += static_cast<char32_t>(NextCharacter(text, at));
    return out;
}

std::u16string ToUtf16(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::uint32_t character = NextCharacter(text, at);
        if (character < 0x10000) {
            out += static_cast<char16_t>(character);
        } else {
            out += static_cast<char16_t>(0xD7C0 + (character >> 10));
            out += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        }
    }
    return out;
}

void AppendUtf8(std::string& out, std::uint32_t character) {
    if ((character >= 0xD800 && character < 0xE000) || character > 0x10FFFF)
        character = Replacement;
    if (character < 0x80) {
        out += static_cast<char>(character);
        return;
    }
    int more = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    out += static_cast<char>((0x1F80U >> more & 0xFFU) | character >> (6 * more));
    while (--more >= 0)
        out += static_cast<char>(0x80 | (character >> (6 * more) & 0x3F));
}

} // namespace qor
