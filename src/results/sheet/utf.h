#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qor {

// UTF-8 to whole characters and to UTF-16, and back. What is no character becomes U+FFFD.
[[nodiscard]] std::u32string ToUtf32(std::string_view text);
[[nodiscard]] std::u16string ToUtf16(std::string_view text);
void AppendUtf8(std::string& out, std::uint32_t character);

} // namespace qor
