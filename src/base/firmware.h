#pragma once

namespace qor {

/// True when the banner's digits say `tenths` / 10 or later: FirmwareFrom(v, 57) is 5.7 and later. The number
/// itself lies a hair below its decimal, so decimals are never compared.
[[nodiscard]] bool FirmwareFrom(float firmVersion, int tenths);

} // namespace qor
