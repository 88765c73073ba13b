#pragma once

#include "bands/band.h"
#include "bands/records.h"

#include <array>
#include <optional>
#include <string>

namespace qor {

/// Measuring methods, as the store of the last one counts them.
enum TestMode : int { ModeTwoTone = 1, ModeSweep = 2, ModeSpectrum = 3 };

/// What is in force for the next measurement: the operator's selection, the plan and the powers that
/// activating it has made of it, and the corrections of the signal path.
///
/// Frequencies are MHz, powers tenths of dBm in five digits, losses dB.
class WorkingSet {
public:
    /// Losses of the cables, dB: of port 1 to the device, and of port 2 to it.
    struct PathLosses {
        float powerOffset;
        float port2;
    };
    /// One loss for each field of the receive loss table, dB.
    using RxLossTable = std::array<float, 13>;

    [[nodiscard]] int Band() const { return m_BandId; }
    [[nodiscard]] int ImIndex() const { return m_IMIndex; }
    [[nodiscard]] int Path() const { return m_PathMode; }
    [[nodiscard]] int Method() const { return g_TestMode; }
    void SelectBand(int band) {
        m_BandId = band;
        bandIsSet = band != BandNone;
    }
    /// False while it is not known whether the band selected stands at the instrument, too.
    [[nodiscard]] bool BandIsSet() const { return bandIsSet; }
    /// A connection is made or ended: the instrument says anew which band it stands in.
    void DoubtBand() { bandIsSet = false; }
    void SelectOrder(int imIndex) { m_IMIndex = imIndex; }
    void SelectPath(int path) { m_PathMode = path; }
    void SelectMethod(int mode) { g_TestMode = mode; }

    [[nodiscard]] const FrequencyPlan& Plan() const { return m_Plan; }
    /// Of the product that is measured: f1 times the one less f2 times the other, or the reverse.
    [[nodiscard]] ImCoefficients Coefficients() const { return {g_IMCoefHigh, g_IMCoefLow}; }
    void SetPlan(const FrequencyPlan& plan) { m_Plan = plan; }
    /// The tones of the 2-tone test alone.
    void SetTones(float f1, float f2) {
        m_Plan.f1 = f1;
        m_Plan.f2 = f2;
    }
    void SetStep(float step) { m_Plan.step = step; }
    /// A plan that goes before the stored one of a band and order, until the program ends.
    void SetSessionPlan(int band, int imIndex, const FrequencyPlan& plan) {
        m_SessionPlan = BandPlan{band, imIndex, plan};
    }
    void DropSessionPlan() { m_SessionPlan.reset(); }
    [[nodiscard]] std::optional<FrequencyPlan> SessionPlan(int band, int imIndex) const {
        const bool ofThese =
            m_SessionPlan && m_SessionPlan->band == band && m_SessionPlan->imIndex == imIndex;
        return ofThese ? std::optional(m_SessionPlan->plan) : std::nullopt;
    }
    /// While the inter-band mode is on: its product. Its plan belongs to no order of a band and stays in
    /// force.
    [[nodiscard]] const std::optional<ImCoefficients>& InterBand() const { return m_InterBand; }
    void SetInterBand(std::optional<ImCoefficients> product) { m_InterBand = product; }
    void SetCoefficients(ImCoefficients c) {
        g_IMCoefHigh = c.high;
        g_IMCoefLow = c.low;
    }

    /// Set powers of the tones, without compensation.
    [[nodiscard]] const std::string& Power1() const { return strpow1; }
    [[nodiscard]] const std::string& Power2() const { return strpow2; }
    void SetPower(std::string tone1, std::string tone2) {
        strpow1 = std::move(tone1);
        strpow2 = std::move(tone2);
    }
    void SetPower(const PowerSetting& power) { SetPower(power.tone1, power.tone2); }
    /// dB as the operator typed it, added to the power that goes out at band activation.
    [[nodiscard]] const std::string& Compensation1() const { return m_power1_compensation; }
    [[nodiscard]] const std::string& Compensation2() const { return m_power2_compensation; }
    void SetCompensation(std::string tone1, std::string tone2) {
        m_power1_compensation = std::move(tone1);
        m_power2_compensation = std::move(tone2);
    }

    /// With the 3 dB bridge fitted the tones may share the whole band.
    [[nodiscard]] int Bridge() const { return g_bridge3dB; }
    void SetBridge(bool fitted) { g_bridge3dB = fitted ? 1 : 0; }

    /// Loss of port 1 to the device: results state the power less this. 0 while a file is shown.
    [[nodiscard]] float PowerOffset() const { return g_powerOffset; }
    /// Loss of port 2 to the device. 0 while a file is shown.
    [[nodiscard]] float Port2Loss() const { return g_port2Loss; }
    /// The operator's losses, also while a file is shown.
    [[nodiscard]] PathLosses OperatorsLosses() const {
        return m_Aside.value_or(PathLosses{g_powerOffset, g_port2Loss});
    }
    void SetPathLosses(float port1, float port2);
    void SetPort2Loss(float port2);
    /// A file is shown, whose levels need no correction. Of several files in a row the first sets them aside.
    void PutLossesAside();
    /// False when none were set aside.
    bool TakeLossesBack();

    [[nodiscard]] const RxLossTable& RxLosses() const { return rxLoss; }
    void SetRxLosses(const RxLossTable& table) { rxLoss = table; }

    /// Corrections of each reading of the run.
    [[nodiscard]] float RxLossOfRun() const { return g_RxLoss; }
    [[nodiscard]] float BandRxLossOfRun() const { return g_BandRxLoss; }
    [[nodiscard]] int BandOfRun() const { return g_MeasBand; }
    void SetBandOfRun(int band) { g_MeasBand = band; }
    /// The loss of port 2 corrects the readings of the run that begins.
    void TakePathLossForRun() { g_RxLoss = g_port2Loss; }
    /// The loss of the band's field of the receive loss table does, too; below 0 the last one stays.
    void TakeBandLossForRun(int lossField) {
        if (lossField >= 0)
            g_BandRxLoss = rxLoss[static_cast<std::size_t>(lossField)];
    }
    void ClearBandLossOfRun() { g_BandRxLoss = 0; }

private:
    struct BandPlan {
        int band;
        int imIndex;
        FrequencyPlan plan;
    };

    int m_BandId = BandNone; ///< band of the operator's selection
    bool bandIsSet = false;  ///< m_BandId stands at the instrument, or a file's is shown
    int m_IMIndex = 1;       ///< 1 IM3 to 5 IM11, the order is twice this and one; 6 in the inter-band mode
    int m_PathMode = 1;      ///< 1 reflection, 2 transmission
    int g_TestMode = ModeTwoTone; ///< measuring method

    FrequencyPlan m_Plan; ///< g_f1, g_f2, g_f1Start to g_f2Fix, g_f2Start to g_f1Fix, g_SweepStep
    int g_IMCoefHigh = 2; ///< coefficients of the product that is measured
    int g_IMCoefLow = 1;

    std::optional<BandPlan> m_SessionPlan;     ///< of a file that is measured again
    std::optional<ImCoefficients> m_InterBand; ///< product of the inter-band mode while it is on

    std::string strpow1 = "00430";           ///< set power of tone 1
    std::string strpow2 = "00430";           ///< set power of tone 2
    std::string m_power1_compensation = "0"; ///< dB of tone 1
    std::string m_power2_compensation = "0"; ///< dB of tone 2
    int g_bridge3dB = 0;                     ///< 1 with the 3 dB bridge in the instrument

    float g_powerOffset = 0;           ///< loss of port 1 to the device
    float g_port2Loss = 0;             ///< loss of port 2 to the device
    std::optional<PathLosses> m_Aside; ///< both of them while a file is shown
    RxLossTable rxLoss{};              ///< by the field of the receive loss table
    float g_RxLoss = 0;                ///< added to each reading of the run
    float g_BandRxLoss = 0;            ///< added to each reading of the run
    int g_MeasBand = BandNone;         ///< band of the run
};

/// The plan that the operator wants of a band and order: that of this session, else the stored one; nothing
/// where he has said nothing. Of TD-SCDMA-A it has the two tones alone.
[[nodiscard]] std::optional<FrequencyPlan> OperatorsPlan(const WorkingSet& working, SetupStore& store,
                                                         int band, int imIndex);

} // namespace qor
