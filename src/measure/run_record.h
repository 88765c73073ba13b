#pragma once

#include "bands/catalogue.h"
#include "bands/records.h"

#include <string>

namespace qor {

/// What a run measures, taken once at its beginning: settings that change afterwards change no run that has
/// been made. Frequencies MHz, powers and losses as set.
struct RunRecord {
    int method = 1; ///< TestMode
    int path = 1;   ///< 1 reflection, 2 transmission
    int band = BandNone;
    int imIndex = 1;        ///< the operator's choice: 1 IM3 to 5 IM11; 6: between bands
    int order = 3;          ///< what is measured: 3 to 11, in spectrum 3; 2 to 5 between bands
    std::string interBand;  ///< band of the receiver, "DCS 1800", for a product between bands; else empty
    ImCoefficients product; ///< of the steps; in spectrum that of IM3
    FrequencyPlan plan;

    PowerSetting power;    ///< of the tones at the instrument, without compensation
    float powerOffset = 0; ///< dB, loss of port 1 to the device
    float rxLoss = 0;      ///< dB, added to each reading
    float bandRxLoss = 0;  ///< dB, added to each reading
    float carrier = 43;    ///< dBm, reference of dBc

    /// Frequency of the product of two tones, MHz.
    [[nodiscard]] float Product(float f1, float f2) const { return ImFrequency(band, product, f1, f2); }

    std::string model;
    float firmware = 0;
    std::string serial; ///< of the instrument
    /// Of an external receiver, its answer to *IDN?: printable, at most 100 characters. Empty when the
    /// instrument's own receiver measures.
    std::string receiver;
    float receiverFloor = -1000; ///< dBm with the losses; nothing below it can be heard
};

} // namespace qor
