#pragma once

#include "platform/clock.h"

#include <string>
#include <string_view>

namespace qor {

/// "calibration-RT-DB22-SIM01-EGSM-20260401-120000.csv": a protocol of the service, of one instrument and
/// band.
[[nodiscard]] std::string ProtocolName(std::string_view kind, std::string_view model, std::string_view serial,
                                       int band, const LocalTime& now);
/// What all names of a kind, instrument and band begin with.
[[nodiscard]] std::string ProtocolNameBegin(std::string_view kind, std::string_view model,
                                            std::string_view serial, int band);

} // namespace qor
