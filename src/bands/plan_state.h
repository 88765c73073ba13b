#pragma once

#include "bands/band.h"

#include <array>
#include <optional>
#include <string>

namespace qor {

/// The working set of the selected band and order, and the corrections of the signal path.
struct PlanState {
    float g_f1 = 0; ///< MHz, as all frequencies here
    float g_f2 = 0;
    float g_f1Start = 0;
    float g_f2Start = 0;
    float g_f1Stop = 0;
    float g_f2Stop = 0;
    float g_f1Fix = 0;
    float g_f2Fix = 0;
    int g_IMCoefHigh = 2;
    int g_IMCoefLow = 1;

    std::string strpow1 = "00430"; ///< tenths of dBm, five digits
    std::string strpow2 = "00430";
    std::string m_power1_compensation = "0"; ///< dB, added to the power sent at band activation
    std::string m_power2_compensation = "0";
    int g_bridge3dB = 0; ///< 1: the tones may share the whole band

    float g_powerOffset = 0; ///< dB, loss of port 1 to the device: files state the power less this
    float g_port2Loss = 0;   ///< dB, loss of port 2 to the device
    /// g_powerOffset and g_port2Loss while a file is shown, whose levels need none.
    struct PathLosses {
        float powerOffset;
        float port2;
    };
    std::optional<PathLosses> lossesAside;
    std::array<float, 13> rxLoss{}; ///< dB, by the field of the receive loss table
    float g_RxLoss = 0;             ///< dB, added to each reading of the run
    float g_BandRxLoss = 0;         ///< dB, added to each reading of the run
    int g_MeasBand = BandNone;      ///< band of the run

    // Limits for the calibration pages, whole MHz.
    int m_calF1Start = 0;
    int m_calF1Stop = 0;
    int m_calF2Start = 0;
    int m_calF2Stop = 0;
    int m_calF1Delta = 1;
    int m_calF2Delta = 1;
    std::string m_rxCalF1;
    std::string m_rxCalF2;
    int g_TxLow = 0;
    int g_TxHigh = 0;
    int g_RxLow = 0;
    int g_RxHigh = 0;
};

} // namespace qor
