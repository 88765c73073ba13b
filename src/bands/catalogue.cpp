#include "bands/catalogue.h"

#include "bands/plan_tables.h"

#include <algorithm>

namespace qor {

namespace {

// Fields of the receive loss table.
enum LossField : int {
    NoLoss = -1,
    LossLte700 = 0,
    LossDigDiv,
    LossAmps,
    LossEgsm,
    LossDcs,
    LossPcs,
    LossTdScdmaB,
    LossUmts,
    LossUmts2,
    LossWiMax,
    LossAws,
    LossTdScdmaA,
    LossTdScdmaC,
};

// Stores and loss table know the TD-SCDMA bands by other letters: A as B, F as A, E as C.
constexpr BandInfo Bands[] = {
    {BandAmps, "AMPS 800", "AMPS 800", "AMPS", "amps_", "Tx (Carrier): 869-894MHz    Rx (IM): 824-849MHz",
     "AMPS 800", LossAmps},
    {BandEgsm, "EGSM 900", "EGSM 900", "EGSM", "egsm_", "Tx (Carrier): 925-960MHz    Rx (IM): 880-915MHz",
     "EGSM 900", LossEgsm},
    {BandLte, "LTE 700", "LTE 700", "LTE", "lte_", "Tx (Carrier): 745-793MHz    Rx (IM): 698-730MHz",
     "LTE 700", LossLte700},
    {BandDcs, "DCS 1800", "DCS 1800", "DCS", "dcs_", "Tx (Carrier): 1805-1880MHz    Rx (IM): 1710-1785MHz",
     "DCS 1800", LossDcs},
    {BandUmts, "UMTS 2100", "UMTS 2100", "UMTS", "umts_",
     "Tx (Carrier): 2110-2170MHz    Rx (IM): 1920-2060MHz", "UMTS 2100", LossUmts},
    {BandPcs, "PCS 1900", "PCS 1900", "PCS", "pcs_", "Tx (Carrier): 1930-1990MHz    Rx (IM): 1850-1910MHz",
     "PCS 1900", LossPcs},
    {BandWiMax, "WiMax 3500", "WiMax 3500", "WiMax", "wimax_",
     "Tx (Carrier): 3510-3594MHz    Rx (IM): 3410-3484MHz", "WiMax 3500", LossWiMax},
    {BandTdScdmaA, "TD-A", "TD-SCDMA-A", "TD-SCDMA-A", "td_", "", "TD-SCDMA-A", LossTdScdmaB},
    {BandTdScdmaF, "TD-F", "TD-SCDMA-F", "TD-SCDMA-F", "tda_",
     "Tx (Carrier): 1900-1920MHz    Rx (IM): 1880-1890MHz", "TD-SCDMA-F", LossTdScdmaA},
    {BandUmts2, "UMTS2 2600", "UMTS2 2600", "UMTS2", "umts2_",
     "Tx (Carrier): 2620-2690MHz    Rx (IM): 2500-2580MHz", "UMTS2 2600", LossUmts2},
    {BandDigDiv, "DIG-DIV", "DIG-DIV", "DIG-DIV", "dig-div_",
     "Tx (Carrier): 791-821MHz    Rx (IM): 832-862MHz", "DIG-DIV", LossDigDiv},
    {BandAws, "AWS", "AWS", "AWS", "aws_", "Tx (Carrier): 1930-2155MHz    Rx (IM): 1710-1910MHz", "AWS",
     LossAws},
    {BandTdScdmaE, "TD-E", "TD-SCDMA-E", "TD-SCDMA-E", "tdc_",
     "Tx (Carrier): 2350-2400MHz    Rx (IM): 2300-2340MHz", "TD-SCDMA-E", LossTdScdmaC},
    {BandWifi, "", "", "Wifi", "wifi_", "Tx (Carrier): 2442-2484MHz    Rx (IM): 2400-2428MHz", "WIFI",
     NoLoss},
    {BandTetra390, "Tetra 390", "Tetra 390", "TETRA 390", "TETRA_A_",
     "Tx (Carrier): 390-397.5MHz    Rx (IM): 380-385MHz", "TETRA 390", NoLoss},
    {BandTetra392, "Tetra 392", "Tetra 392", "TETRA 392", "TETRA_B_",
     "Tx (Carrier): 392-400MHz    Rx (IM): 380-388MHz", "TETRA 392", NoLoss},
    // Chosen on the instrument's front only; they can be shown and set up, not measured.
    {BandTetra422, "", "", "TETRA 422", "TETRA_C_", "", "", NoLoss},
    {BandTetra462, "", "", "TETRA 462", "TETRA_D_", "", "", NoLoss},
    {BandLte700L, "LTE 700 L", "", "LTE700L", "LTE700L_", "Tx (Carrier): 728-760.0MHz    Rx (IM): 698-716MHz",
     "LTE700L", NoLoss},
    {BandLte700U, "LTE 700 U", "", "LTE700U", "LTE700U_", "Tx (Carrier): 728-760MHz    Rx (IM): 776-798MHz",
     "LTE700U", NoLoss},
};

constexpr std::string_view FqC010Text = "FQ-C010";

/// An edge of a tone's range, whole MHz: without a 3-dB bridge, and what the bridge adds.
struct Edge {
    int base;
    int perBridge = 0;

    [[nodiscard]] constexpr int With(int bridge) const { return base + perBridge * bridge; }
};

struct LimitRow {
    int band;
    int f1From;
    Edge f1To;
    Edge f2From;
    int f2To;
    int txLow, txHigh;
    int rxLow, rxHigh;
};

constexpr LimitRow LimitRows[] = {
    {BandAmps, 869, {880, 14}, {885, -16}, 894, 869, 894, 824, 849},
    {BandEgsm, 925, {939, 21}, {946, -21}, 960, 925, 960, 880, 915},
    {BandLte, 745, {793}, {745}, 793, 745, 793, 698, 730},
    {BandDcs, 1805, {1840, 40}, {1855, -50}, 1880, 1805, 1880, 1710, 1785},
    {BandUmts, 2110, {2130, 40}, {2150, -40}, 2170, 2110, 2170, 1920, 2060},
    {BandPcs, 1930, {1950, 40}, {1972, -42}, 1990, 1930, 1990, 1850, 1910},
    {BandWiMax, 3510, {3544, 50}, {3560, -50}, 3594, 3510, 3594, 3410, 3484},
    {BandTdScdmaA, 2020, {2020}, {2025}, 2025, 2020, 2025, 2015, 2015},
    {BandTdScdmaF, 1900, {1920}, {1900}, 1920, 1900, 1920, 1880, 1890},
    {BandUmts2, 2620, {2690}, {2620}, 2690, 2620, 2690, 2500, 2580},
    {BandDigDiv, 790, {822}, {790}, 822, 790, 822, 832, 862},
    {BandAws, 1930, {2155}, {1930}, 2155, 1930, 2155, 1710, 1920},
    {BandTdScdmaE, 2350, {2400}, {2350}, 2400, 2350, 2400, 2300, 2340},
    {BandTetra390, 390, {397}, {390}, 397, 390, 397, 380, 385},
    {BandTetra392, 392, {400}, {400}, 392, 392, 400, 380, 388},
    {BandTetra422, 422, {430}, {430}, 422, 422, 430, 410, 418},
    {BandTetra462, 462, {470}, {470}, 462, 462, 470, 462, 470},
};

constexpr char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameText(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

} // namespace

const BandInfo* FindBand(int number) {
    const auto* const row = std::find_if(std::begin(Bands), std::end(Bands),
                                         [&](const BandInfo& b) { return b.number == number; });
    return row != std::end(Bands) ? row : nullptr;
}

std::optional<int> BandByText(std::string_view bandText) {
    for (const BandInfo& band : Bands)
        if (SameText(band.bandText, bandText))
            return band.number;
    return std::nullopt;
}

std::string_view BandText(int number) {
    if (number == BandFqC010) // a name on the panel and nothing else
        return FqC010Text;
    const BandInfo* const band = FindBand(number);
    return band ? band->bandText : NoBandText;
}

std::string_view CarrierText(const BandInfo& band, int imIndex) {
    if (band.number == BandTetra392 && imIndex == 2)
        return "Tx (Carrier): 392.5-400MHz    Rx (IM): 380-388MHz";
    return band.carrierText;
}

float ImFrequency(int band, ImCoefficients c, float f1, float f2) {
    const auto high = static_cast<float>(c.high);
    const auto low = static_cast<float>(c.low);
    return UsesUpperProduct(band) ? high * f2 - low * f1 : high * f1 - low * f2;
}

std::optional<FrequencyPlan> DefaultPlan(int band, int imIndex, int bridge) {
    return FindPlan(PlanSource::Setup, band, imIndex, bridge);
}

std::optional<FrequencyPlan> StartPlan(int band, int imIndex, int bridge) {
    return FindPlan(PlanSource::Start, band, imIndex, bridge);
}

std::optional<FrequencyPlan> ActivationPlan(int band, int imIndex, int bridge) {
    return FindPlan(PlanSource::Activation, band, imIndex, bridge);
}

std::optional<BandLimits> LimitsOf(int band, int bridge) {
    for (const LimitRow& row : LimitRows)
        if (row.band == band)
            return BandLimits{row.f1From,
                              row.f1To.With(bridge),
                              row.f2From.With(bridge),
                              row.f2To,
                              row.txLow,
                              row.txHigh,
                              row.rxLow,
                              row.rxHigh};
    return std::nullopt;
}

std::optional<SubBands> SubBandsOf(int band, int imIndex) {
    switch (band) {
    case BandTdScdmaA:
    case BandTdScdmaF:
    case BandTdScdmaE:
    case BandTetra390:
    case BandTetra392:
    case BandTetra422:
    case BandTetra462:
        return std::nullopt;
    case BandUmts2:
        return SubBands{2620, 2695, 2620, 2695};
    case BandDigDiv:
        if (imIndex != 2)
            return SubBands{791, 821, 791, 821};
        [[fallthrough]];
    default:
        const auto limits = LimitsOf(band, 0);
        if (!limits)
            return std::nullopt;
        return SubBands{limits->f1From, limits->f1To, limits->f2From, limits->f2To};
    }
}

} // namespace qor
