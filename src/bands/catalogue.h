#pragma once

#include "bands/band.h"

#include <optional>
#include <string>
#include <string_view>

namespace qor {

/// What the catalogue knows of a band, whatever the instrument.
struct BandInfo {
    int number;
    std::string_view menuText;    ///< item of the "Breite" menu, empty when it has none
    std::string_view setupText;   ///< item of the "Breite/Power" menu, empty when it has none
    std::string_view bandText;    ///< m_Band_sel, "EGSM"
    std::string_view prefix;      ///< of its store files, "egsm_"
    std::string_view carrierText; ///< ranges as the frequency dialog shows them
    std::string_view reportText;  ///< in the report's band row, "EGSM 900"; empty: no measurement starts
    int lossField;                ///< 0 to 12: its field of the receive loss table; -1: none
};

/// Tone sub-bands and ranges in whole MHz, as band activation hands them to the calibration pages.
struct BandLimits {
    int f1From, f1To; ///< tone 1; may run downward
    int f2From, f2To; ///< tone 2; may run downward
    int txLow, txHigh;
    int rxLow, rxHigh;
};

/// Where f1 and f2 stay on an instrument without a 3-dB bridge, MHz.
struct SubBands {
    int f1Low, f1High;
    int f2Low, f2High;
};

// shown to the operator
inline constexpr std::string_view NoBandText = "Nichts Breite Selektiert";

/// Row of a band number, or null for 14, 22 and unknown numbers.
[[nodiscard]] const BandInfo* FindBand(int number);
/// Band number of an m_Band_sel text, compared without regard to case; nothing when unknown.
[[nodiscard]] std::optional<int> BandByText(std::string_view bandText);
/// Text of any band number, NoBandText when it has none. Also names 18, 19 and 22.
[[nodiscard]] std::string_view BandText(int number);

/// Ranges as the frequency dialog of an order shows them: the row's, but for TETRA 392 at IM5.
[[nodiscard]] std::string_view CarrierText(const BandInfo& band, int imIndex);

/// True for the bands that receive above the carriers: DIG-DIV and LTE700U.
[[nodiscard]] constexpr bool UsesUpperProduct(int band) {
    return band == BandDigDiv || band == BandLte700U;
}

/// The instrument's order coefficients, index 1 to 5.
[[nodiscard]] constexpr ImCoefficients CoefficientsOf(int imIndex) {
    return {imIndex + 1, imIndex};
}

/// Frequency of the intermodulation product of tones f1 and f2, MHz: a f1 - b f2, or a f2 - b f1 where the
/// band receives above the carriers.
[[nodiscard]] float ImFrequency(int band, ImCoefficients c, float f1, float f2);

/// Default plan that the setup pages, a start and a saved file fall back on. `bridge` is 1 for an
/// instrument with a 3-dB bridge, else 0. Nothing when the band has no row for the order (index 1 to 5).
[[nodiscard]] std::optional<FrequencyPlan> DefaultPlan(int band, int imIndex, int bridge);
/// Built-in plan of a measurement start: the default one but for DIG-DIV.
[[nodiscard]] std::optional<FrequencyPlan> StartPlan(int band, int imIndex, int bridge);
/// Built-in plan of band activation; its step is 1 MHz in all rows.
[[nodiscard]] std::optional<FrequencyPlan> ActivationPlan(int band, int imIndex, int bridge);
/// Limits set at band activation; nothing for bands that set none.
[[nodiscard]] std::optional<BandLimits> LimitsOf(int band, int bridge);
/// Sub-bands that a plan of an order is held against; nothing for bands whose tones are free.
[[nodiscard]] std::optional<SubBands> SubBandsOf(int band, int imIndex);

/// Position 0 to 11 of the band switch that selects `band` on this model and firmware, or nothing when the
/// model does not carry the band.
[[nodiscard]] std::optional<int> BandPosition(int band, std::string_view model, float firmware);

/// What a band switch position stands for.
struct PositionMeaning {
    int band = BandNone;
    bool forcesTwoToneIm3 = false; ///< TD-SCDMA-A is measured in 2-tone at IM3 only
};
/// Band of an echoed position. `awsChosen` decides where PCS and AWS share a position. Nothing when the
/// position has no meaning on this model and firmware.
[[nodiscard]] std::optional<PositionMeaning> BandOfPosition(int position, std::string_view model,
                                                            float firmware, bool awsChosen);

} // namespace qor
