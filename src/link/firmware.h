#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qor {

/// Firmware of a port that has not been identified yet.
inline constexpr float UnidentifiedFirmware = 1.7f;

/// True when the banner's digits say `tenths` / 10 or later: FirmwareFrom(v, 57) is 5.7 and later. The number
/// itself lies a hair below its decimal, so decimals are never compared.
[[nodiscard]] bool FirmwareFrom(float firmVersion, int tenths);

/// The version in a banner: the first of 1.0, 1.1, ... below 20.0 that stands behind a "v"; 10 more where
/// "ev" stands there.
[[nodiscard]] std::optional<float> VersionInBanner(std::string_view banner);

/// The model in a banner: from "RT-" up to the next blank, comma or line end; empty when there is none.
[[nodiscard]] std::string ModelInBanner(std::string_view banner);

} // namespace qor
