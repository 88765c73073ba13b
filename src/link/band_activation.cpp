#include "link/band_activation.h"

#include "bands/catalogue.h"
#include "bands/setup_store.h"
#include "bands/tenths.h"
#include "bands/working_plan.h"
#include "core/session.h"
#include "core/text_format.h"
#include "display/curve_store.h"
#include "link/commands.h"
#include "link/firmware.h"
#include "measure/inter_band.h"
#include "platform/operator.h"
#include "platform/platform.h"

namespace qor {

namespace {

constexpr int HighestTenths = 460; ///< 46.0 dBm

} // namespace

BandActivation::BandActivation(Session& session, const Platform& platform, SetupStore& store)
    : m_Session(session), m_Platform(platform), m_Store(store) {}

bool BandActivation::HardBandInit(bool keepCurve) {
    PlanState& plan = m_Session.plan;
    const BandInfo* band = FindBand(m_Session.select.m_BandId);
    const bool wide = m_Session.link.m_Type == "RT-DB22" || m_Session.link.m_Type == "RT-L027";
    plan.m_calF1Delta = plan.m_calF2Delta = wide ? 2 : 1;
    if (!m_Session.interBand.g_bInterBand)
        m_Session.curve.g_SweepStep = 1.0f;
    if (!band || band->number == BandWifi)
        return m_Session.select.m_BandId != BandNone; // nothing to set, and the others can still be chosen

    TakeLimits();
    const PowerSetting power = ReadPowerStore(m_Store, band->prefix);
    plan.strpow1 = power.tone1;
    plan.strpow2 = power.tone2;
    TakeFrequencies(band->prefix);
    if (FirmwareFrom(m_Session.link.FirmVersion, 35))
        m_Session.link.queue.Append("#RECUT1");
    if (!QueuePower("#SPWA", plan.strpow1, plan.m_power1_compensation,
                    "f1The maximum value cannot be greater than 46dbm") ||
        !QueuePower("#SPWB", plan.strpow2, plan.m_power2_compensation,
                    "f2The maximum value cannot be greater than 46dbm"))
        return false;
    if (!keepCurve)
        ResetPlot();
    return true;
}

void BandActivation::TakeLimits() {
    PlanState& plan = m_Session.plan;
    const auto limits = LimitsOf(m_Session.select.m_BandId, plan.g_bridge3dB);
    if (!limits)
        return;
    plan.m_calF1Start = limits->f1From;
    plan.m_calF1Stop = limits->f1To;
    plan.m_calF2Start = limits->f2From;
    plan.m_calF2Stop = limits->f2To;
    plan.g_TxLow = limits->txLow;
    plan.g_TxHigh = limits->txHigh;
    plan.g_RxLow = limits->rxLow;
    plan.g_RxHigh = limits->rxHigh;
    plan.m_rxCalF1 = std::to_string(limits->txLow);
    plan.m_rxCalF2 = std::to_string(limits->txHigh);
}

void BandActivation::TakeFrequencies(std::string_view prefix) {
    PlanState& plan = m_Session.plan;
    const int band = m_Session.select.m_BandId;
    if (const InterBandState& inter = m_Session.interBand; inter.g_bInterBand) {
        // Its plan belongs to no order of the band and stays in force.
        const ImCoefficients c = InterBandCoefficients(InterBandOrder(inter));
        plan.g_IMCoefHigh = c.high;
        plan.g_IMCoefLow = c.low;
        return;
    }
    const int imIndex = m_Session.select.m_IMIndex;
    const ImCoefficients c = CoefficientsOf(imIndex);
    plan.g_IMCoefHigh = c.high;
    plan.g_IMCoefLow = c.low;
    if (band == BandTdScdmaA) {
        plan.g_f1 = ReadTdScdmaAF1(m_Store);
        plan.g_f2 = 2025.0f;
        return; // measured at these two tones only
    }
    if (const auto builtIn = ActivationPlan(band, imIndex, plan.g_bridge3dB))
        SetWorkingPlan(m_Session, *builtIn);
    else
        m_Platform.user.Message("Not Supported");

    const auto stored = ReadPlanStore(m_Store, prefix, imIndex);
    if (!stored)
        return; // the built-in values reach the instrument with the first run
    SetWorkingPlan(m_Session, *stored);
    CommandQueue& queue = m_Session.link.queue;
    queue.Append(WithTenths("#SFA", stored->f1));
    queue.Append(WithTenths("#SFB", stored->f2));
    queue.Append(WithTenths("#SSA", stored->f1Start));
    queue.Append(WithTenths("#SSB", stored->f2Start));
    queue.Append(WithTenths("#STA", stored->f1Stop));
    queue.Append(WithTenths("#STB", stored->f2Stop));
    queue.Append(WithTenths("#SWA", stored->step));
}

bool BandActivation::QueuePower(std::string_view command, const std::string& stored,
                                const std::string& compensation, std::string_view refusal) {
    const double dBm = NumberIn(stored) / 10.0 + NumberIn(compensation);
    if (ToTenths(dBm) > HighestTenths) {
        m_Platform.user.Message(refusal);
        return false;
    }
    m_Session.link.queue.Append(std::string(command) + TenthsText(dBm).substr(0, 5));
    return true;
}

void BandActivation::ResetPlot() {
    CurveState& curve = m_Session.curve;
    const PlanState& plan = m_Session.plan;
    Panel& panel = m_Session.panel;
    const int band = m_Session.select.m_BandId;
    const FrequencyPlan working = WorkingPlan(m_Session);
    const ImCoefficients c{plan.g_IMCoefHigh, plan.g_IMCoefLow};
    float imFrequency = 0;

    curve.g_MeasVerdict = VerdictNone;
    curve.g_shownRun = 0;
    panel.m_ReadingText.clear();
    switch (m_Session.run.g_TestMode) {
    case ModeTwoTone:
        panel.m_f1_text = Fixed(plan.g_f1, 1);
        panel.m_f2_text = Fixed(plan.g_f2, 1);
        curve.g_pxPerStep = 0;
        curve.StoreDataPot = 0;
        imFrequency = ImFrequency(band, c, plan.g_f1, plan.g_f2);
        UpdateTimePerPoint(curve, m_Session.receiver.tagReceiver == 1);
        break;
    case ModeSweep:
        panel.m_f1_text = Fixed(plan.g_f1Start, 1);
        panel.m_f2_text = Fixed(plan.g_f2Fix, 1);
        BuildGridInForce(m_Session, band);
        imFrequency = ImFrequency(band, c, plan.g_f1Start, plan.g_f2Fix);
        break;
    default:
        panel.m_f1_text = Fixed(plan.g_f1Start, 1);
        panel.m_f2_text = Fixed(plan.g_f2Fix, 1);
        BuildSpectrumGrid(curve, band, working);
        imFrequency = ImFrequency(band, {2, 1}, plan.g_f1Start, plan.g_f2Fix);
        break;
    }
    ClearLevels(curve);
    m_Session.link.queue.ClearParams();
    panel.m_fIM_text = Fixed(imFrequency, 1);
    curve.g_curveDirty = 1;
}

} // namespace qor
