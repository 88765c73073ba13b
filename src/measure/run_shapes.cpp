// The commands and ticks that each shape of run begins with, and those of its further passes.
#include "bands/tenths.h"
#include "bands/working_plan.h"
#include "core/session.h"
#include "core/text_format.h"
#include "core/timer_ids.h"
#include "display/curve_store.h"
#include "link/commands.h"
#include "link/firmware.h"
#include "measure/inter_band.h"
#include "measure/measurement.h"
#include "platform/platform.h"
#include "platform/timers.h"
#include "receivers/receiver_access.h"
#include "results/report_lines.h"

#include <cmath>

namespace qor {

void Measurement::FillSweepReport() {
    const PlanState& plan = m_Session.plan;
    auto& lines = m_Session.results.g_reportLines;
    lines[ReportMode] = SweepText;
    lines[ReportFix] = TwoValues(plan.g_f1Fix, plan.g_f2Fix, "MHz");
    lines[ReportStart] = TwoValues(plan.g_f1Start, plan.g_f2Start, "MHz");
    lines[ReportStop] = TwoValues(plan.g_f1Stop, plan.g_f2Stop, "MHz");
}

/// The instrument's band again before the first run of a press, unless the installation is marked as having
/// one port only and the firmware keeps the band.
void Measurement::QueueBandReselection() {
    const std::string info = m_Store.Read("Install_info.ccz", 7).value_or("");
    const bool onePort = info.size() > 2 && WholeNumberIn(std::string_view(info).substr(2)) == 0;
    if (onePort && FirmwareFrom(m_Session.link.FirmVersion, 35))
        return;
    if (!m_Session.link.g_BandCmd.empty())
        m_Session.link.queue.Append(m_Session.link.g_BandCmd);
}

void Measurement::QueueSilence(int count) {
    for (int i = 0; i < count; ++i)
        m_Session.link.queue.Append("#SR");
}

void Measurement::QueuePathOnFirstRun() {
    if (m_Session.run.g_FirstRun && m_Session.panel.m_Path_sel == ReflectionText)
        m_Session.link.queue.Append("#SMREF");
}

void Measurement::StartTwoTone() {
    PlanState& plan = m_Session.plan;
    CurveState& curve = m_Session.curve;
    Panel& panel = m_Session.panel;
    RunState& run = m_Session.run;
    CommandQueue& queue = m_Session.link.queue;

    panel.m_f1_text = Fixed(plan.g_f1, 1);
    panel.m_f2_text = Fixed(plan.g_f2, 1);
    if (run.g_FirstRun)
        QueueBandReselection();
    queue.Append("#M2T1");
    queue.Append("#SR");
    if (run.g_FirstRun && FirmwareFrom(m_Session.link.FirmVersion, 35))
        queue.Append("#RECUT1");
    auto& lines = m_Session.results.g_reportLines;
    lines[ReportMode] = TwoToneText;
    lines[ReportFix] = TwoValues(plan.g_f1, plan.g_f2, "MHz");
    lines[ReportStart].clear();
    lines[ReportStop].clear();

    curve.g_pxPerStep = 0;
    curve.StoreDataPot = 0;
    curve.g_freqGrid.fill(0);
    ClearForSweep();
    if (panel.m_Path_sel == TransmissionText)
        queue.Append("#SMTRA");
    QueuePathOnFirstRun();
    QueueInterBandPower();
    queue.Append(WithTenths("#SFA", plan.g_f1), TagPlain);
    queue.Append(WithTenths("#SFB", plan.g_f2), TagLevel);
    if (!Internal())
        m_Receiver.VisaIO("INIT:CONT OFF");
    const float imFrequency = ImOf(plan.g_f1, plan.g_f2);
    curve.g_worstFreq = imFrequency;
    curve.g_worstLevel = 0;
    panel.m_fIM_text = Fixed(imFrequency, 1);
    if (!Internal()) {
        m_Receiver.VisaIO("FREQUENCY:CENTER " + Fixed(std::round(static_cast<double>(imFrequency) * 1e6), 0) +
                          "Hz");
        for (const char* text :
             {"CALC:MARK1 ON", "INIT;*WAI", "CALC:MARK:STAT ON", "CALC:MARK:TRAC 1", "CALC:MARK:MAX:AUTO ON"})
            m_Receiver.VisaIO(text);
    }
    run.g_SettleTicks = 0;
    RepeatTwoTone();
}

/// What each pass of a 2-tone run begins with.
void Measurement::RepeatTwoTone() {
    CurveState& curve = m_Session.curve;
    curve.StoreDataPot = 0;
    m_Session.run.ticks = 0;
    UpdateTimePerPoint(curve, Internal());
    if (Internal())
        m_Session.link.queue.Append("#IMP?", TagPrimeQueued);
    m_Platform.timers.SetTimer(T2messuretimer, curve.tone2SetTimes);
    m_Platform.timers.SetTimer(CurveTimer, CurvePeriod);
}

void Measurement::ClearForSweep() {
    ClearLevels(m_Session.curve);
    m_Session.link.queue.ClearParams();
    m_Session.link.g_CurParam = 0;
}

/// Carriers and pass selectors of firmware 5.3 and later. An inter-band run does the same before each pass.
void Measurement::QueueSweepPasses() {
    RunState& run = m_Session.run;
    CommandQueue& queue = m_Session.link.queue;
    const bool interBand = m_Session.interBand.g_bInterBand;
    run.g_SweepPause = 0;
    if (m_Session.curve.g_runIndex == 0 || interBand) {
        queue.Append("#MDNL0");
        if (!run.g_bSaEnclosed || interBand)
            QueueSilence(10);
    } else if (!run.g_bSaEnclosed) {
        if (run.g_SweepIntervalLeft == 0) {
            queue.Append("#SPA0");
            queue.Append("#SPB0");
            QueueSilence(10);
        }
        queue.Append("#MDNL0");
        QueueSilence(10);
    }
}

void Measurement::StartSweep(bool prepared) {
    PlanState& plan = m_Session.plan;
    CurveState& curve = m_Session.curve;
    Panel& panel = m_Session.panel;
    RunState& run = m_Session.run;
    const float firmware = m_Session.link.FirmVersion;
    CommandQueue& queue = m_Session.link.queue;

    panel.m_f1_text = Fixed(plan.g_f1Start, 1);
    panel.m_f2_text = Fixed(plan.g_f2Fix, 1);
    curve.g_worstFreq = 0;
    curve.g_worstLevel = 0;
    FillSweepReport();
    BuildGridInForce(m_Session, plan.g_MeasBand);
    ClearForSweep();
    if (run.g_FirstRun && !prepared)
        QueueBandReselection();
    if (FirmwareFrom(firmware, 53))
        QueueSweepPasses();
    // The first run of "Spectrum Analyze Enclosed" sweeps with the carriers off.
    if (m_Session.interBand.g_bInterBand || !run.g_bSaEnclosed || curve.g_runIndex != 0) {
        queue.Append("#SPA1");
        queue.Append("#SPB1");
    }
    if (!prepared)
        queue.Append("#SR");
    if (panel.m_Path_sel == TransmissionText)
        queue.Append("#SMTRA");
    if (!prepared) {
        if (run.g_FirstRun && FirmwareFrom(firmware, 35))
            queue.Append("#RECUT1");
        QueueInterBandPower();
        QueuePathOnFirstRun();
    }
    queue.Append(WithTenths("#SFB", plan.g_f2Fix));
    queue.Append(WithTenths("#SFA", plan.g_f1Start));
    queue.Append("#MSWL1");
    if (!FirmwareFrom(firmware, 18)) {
        queue.Append("#MDNL0");
        queue.Append("#MUPL1");
    } else if (Internal() && !FirmwareFrom(firmware, 37)) {
        queue.Append("#MDNL0");
    }
    if (prepared)
        queue.Append("#SR");
    MarkFirstStep(ImOf(plan.g_f1Start, plan.g_f2Fix));
    ArmSteps(sweeptimer, analyzerwaittimer, 0);
}

void Measurement::StartSpectrum() {
    PlanState& plan = m_Session.plan;
    CurveState& curve = m_Session.curve;
    RunState& run = m_Session.run;
    CommandQueue& queue = m_Session.link.queue;

    queue.Append(UseReceiver(1));
    m_Session.panel.m_f1_text = Fixed(plan.g_f1Start, 1);
    m_Session.panel.m_f2_text = Fixed(plan.g_f2Fix, 1);
    curve.g_worstFreq = 0;
    curve.g_worstLevel = 0;
    FillSweepReport();
    BuildSpectrumGrid(curve, plan.g_MeasBand, WorkingPlan(m_Session));
    ClearForSweep();
    if (run.g_FirstRun)
        QueueBandReselection();
    queue.Append("#SR");
    if (run.g_FirstRun && FirmwareFrom(m_Session.link.FirmVersion, 35))
        queue.Append("#RECUT1");
    queue.Append(WithTenths("#SFB", plan.g_f2Fix));
    queue.Append(WithTenths("#SFA", plan.g_f1Start));
    MarkFirstStep(SpectrumIm(plan.g_f1Start, plan.g_f2Fix));
    ArmSteps(spectrumtimer, spectrumwaittimer, 0);
}

/// The command last queued sets the first step: its reading follows it.
void Measurement::MarkFirstStep(float imFrequency) {
    CommandQueue& queue = m_Session.link.queue;
    queue.Last().tag = TagStepUp;
    queue.Last().param = imFrequency;
    if (Internal())
        queue.Append("#IMP?", TagLevelUpQueued, imFrequency);
    m_Session.panel.m_fIM_text = Fixed(imFrequency, 1);
}

void Measurement::ArmSteps(int stepTimer, int waitTimer, int receiverDelay) {
    RunState& run = m_Session.run;
    run.g_SweepPhase = PhaseUp;
    run.g_SweepMarkFirst = false;
    run.stepIndex = 1;
    run.g_f1Now = m_Session.plan.g_f1Start + m_Session.curve.g_SweepStep;
    if (Internal()) {
        m_Platform.timers.SetTimer(stepTimer, StepPeriod);
        m_Platform.timers.SetTimer(CurveTimer, CurvePeriod);
    } else {
        run.g_RecvDelay = receiverDelay;
        m_Platform.timers.SetTimer(waitTimer, AnalyserWaitPeriod);
    }
}

void Measurement::StartMeasRepData() {
    ++m_Session.run.passes;
    switch (m_Session.run.g_TestMode) {
    case ModeTwoTone:
        RepeatTwoTone();
        break;
    case ModeSweep:
        RepeatSweep();
        break;
    default:
        RepeatSpectrum();
        break;
    }
}

void Measurement::RepeatSweep() {
    const PlanState& plan = m_Session.plan;
    const float firmware = m_Session.link.FirmVersion;
    CommandQueue& queue = m_Session.link.queue;
    m_Session.curve.StoreDataPot = 0;
    queue.Append(WithTenths("#SFB", plan.g_f2Fix));
    queue.Append(WithTenths("#SFA", plan.g_f1Start));
    if (!FirmwareFrom(firmware, 18)) {
        queue.Append("#MDNL0");
        queue.Append("#MUPL1");
    } else if (FirmwareFrom(firmware, 53)) {
        m_Session.run.g_SweepPause = 0;
        queue.Append("#SPA0");
        queue.Append("#SPB0");
        QueueSilence(10);
        queue.Append("#MDNL0");
        QueueSilence(10);
        queue.Append("#SPA1");
        queue.Append("#SPB1");
        QueueSilence(4);
    } else if (Internal() && !FirmwareFrom(firmware, 37)) {
        queue.Append("#MDNL0");
    } else {
        queue.Append("#SR");
    }
    MarkFirstStep(ImOf(plan.g_f1Start, plan.g_f2Fix));
    ArmSteps(sweeptimer, analyzerwaittimer, 2);
}

void Measurement::RepeatSpectrum() {
    const PlanState& plan = m_Session.plan;
    CommandQueue& queue = m_Session.link.queue;
    m_Session.curve.StoreDataPot = 0;
    queue.Append(WithTenths("#SFB", plan.g_f2Fix));
    queue.Append(WithTenths("#SFA", plan.g_f1Start));
    queue.Append("#SR");
    MarkFirstStep(SpectrumIm(plan.g_f1Start, plan.g_f2Fix));
    ArmSteps(spectrumtimer, spectrumwaittimer, 2);
}

} // namespace qor
