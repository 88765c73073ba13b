#pragma once

#include <string_view>

namespace qor {

// Words for path and method that the panel, the reports and the files share.
// shown to the operator
inline constexpr std::string_view ReflectionText = "Reflex Modell";
// shown to the operator
inline constexpr std::string_view TransmissionText = "Uegerbegen Modell";
// shown to the operator
inline constexpr std::string_view TwoToneText = "2 Ton Modell";
// shown to the operator
inline constexpr std::string_view SweepText = "Scannen Modell";
// shown to the operator
inline constexpr std::string_view SpectrumText = "Spectrum Mode";

} // namespace qor
