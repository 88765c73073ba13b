#pragma once

#include <cstdint>

namespace qor {

enum ExternalReceiver : int { ReceiverAnalyser = 1, ReceiverNrv = 2, ReceiverNrp = 3, ReceiverSensor = 4 };

struct ReceiverState {
    int tagReceiver = 1; ///< 1: the instrument's own receiver measures, 0: an external one
    int g_ExtRxKind = ReceiverAnalyser;
    std::uint32_t g_VisaRM = 0;
    std::uint32_t g_VisaSession = 0;
    int g_VisaFail = 0; ///< a transfer failed and could not be repaired at once
    std::uint32_t g_SensorSession = 0;
};

} // namespace qor
