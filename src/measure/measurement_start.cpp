// From the press of the start button to a filled queue and armed ticks.
#include "bands/tenths.h"
#include "core/session.h"
#include "core/text_format.h"
#include "core/timer_ids.h"
#include "display/curve_store.h"
#include "link/channel.h"
#include "link/commands.h"
#include "link/connection.h"
#include "link/firmware.h"
#include "measure/measurement.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "platform/timers.h"
#include "receivers/receiver_access.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

/// Two values of a report row: the first filled up to 15 columns.
std::string TwoValues(double first, double second, std::string_view unit) {
    std::string row = Fixed(first, 1);
    row += unit;
    if (row.size() < 15)
        row.append(15 - row.size(), ' ');
    AppendFixed(row, second, 1);
    row += unit;
    return row;
}

} // namespace

Measurement::Measurement(Session& session, const Platform& platform, SetupStore& store, Channel& channel,
                         ReceiverAccess& receiver, ResultFiles& files)
    : m_Session(session), m_Platform(platform), m_Store(store), m_Channel(channel), m_Receiver(receiver),
      m_Files(files) {}

bool Measurement::Internal() const {
    return m_Session.receiver.tagReceiver == 1;
}

float Measurement::ImOf(float f1, float f2) const {
    const PlanState& plan = m_Session.plan;
    return ImFrequency(plan.g_MeasBand, {plan.g_IMCoefHigh, plan.g_IMCoefLow}, f1, f2);
}

float Measurement::SpectrumIm(float f1, float f2) const {
    return ImFrequency(m_Session.plan.g_MeasBand, {2, 1}, f1, f2);
}

FrequencyPlan Measurement::WorkingPlan() const {
    const PlanState& plan = m_Session.plan;
    return {plan.g_f1,      plan.g_f2,     plan.g_f1Start, plan.g_f1Stop,               plan.g_f2Fix,
            plan.g_f2Start, plan.g_f2Stop, plan.g_f1Fix,   m_Session.curve.g_SweepStep};
}

void Measurement::OnMeasButton(Connection& connection) {
    ResultState& results = m_Session.results;
    RunState& run = m_Session.run;
    LinkState& link = m_Session.link;
    if (!results.g_bKeepSerial)
        results.m_DutSerial.clear();
    if (run.runOn) {
        StopMeas();
        return;
    }
    results.g_listPanelOpen = false;
    for (std::string& name : results.g_fileList)
        name.clear();
    results.g_FileNo = 0;
    run.g_FirstRun = true;
    run.FinishedEndlessTimes = 0;
    run.passes = 0;
    run.g_SweepIntervalLeft = run.g_SweepInterval;
    run.g_bSweepIntervalOk = true;
    ResetCurve(m_Session.curve);
    if (run.tagEndless)
        m_Session.curve.g_worstText = "-300"; // any level is higher
    m_Session.panel.m_WorstFreqText.clear();
    m_Session.panel.m_WorstLevelText.clear();

    if (!m_Platform.comm.GetPortOpen()) {
        run.g_StartFail = StartAsking;
        if (!m_Platform.user.Ask("The device is disconnect. Connect it now?", "Oeffnen port erst!") ||
            !connection.ConnectDev()) {
            run.g_StartFail = StartRefused;
            return;
        }
        link.g_bStartAfterConnect = true;
        run.g_StartFail = StartDone;
        return;
    }
    BeginRun();
}

void Measurement::StartAfterConnect() {
    if (!m_Session.link.g_bStartAfterConnect)
        return;
    m_Session.link.g_bStartAfterConnect = false;
    BeginRun();
}

void Measurement::BeginRun() {
    LinkState& link = m_Session.link;
    if (link.g_InitLamp < LampStatus || link.g_bInitFlush) {
        m_Platform.user.Message("Initialisieren, bitte warten!");
        return;
    }
    m_Session.curve.g_MeasVerdict = VerdictNone;
    m_Session.panel.m_ReadingText.clear();
    if (link.m_revdatastr.find("SYNTAX ERROR") != std::string::npos ||
        link.m_revdatastr.find("OUT OF RANGE") != std::string::npos ||
        link.m_revdatastr.find("PLL NOT LOCKED") != std::string::npos)
        link.m_revdatastr.clear(); // the error of an earlier run does not condemn this one
    m_Channel.PauseStatusPoll();
    link.m_SetIMOrder = "0";
    m_Session.curve.g_shownRun = 0;
    if (!link.m_devSN.empty())
        link.g_DeviceSN = link.m_devSN; // a file that was shown has its own serial number
    if (link.queue.Empty() || FirmwareFrom(link.FirmVersion, 43))
        StartFirstRun();
    else
        m_Platform.timers.SetTimer(restarttimer, RestartPeriod);
}

void Measurement::OnRestartTimer() {
    if (!m_Session.link.queue.Empty())
        return;
    m_Platform.timers.KillTimer(restarttimer);
    StartFirstRun();
}

void Measurement::StartFirstRun() {
    StartMeas();
    if (!m_Session.run.runOn)
        m_Channel.ArmStatusPoll(); // refused: an idle link is watched as before
}

void Measurement::StartMeas() {
    RunState& run = m_Session.run;
    const PlanState& plan = m_Session.plan;
    FillFixedReportTexts();
    std::string prefix;
    if (!TakePath() || !TakeBandAndPlan(prefix))
        return;

    const PowerSetting power = ReadPowerStore(m_Store, prefix);
    m_Session.plan.strpow1 = power.tone1;
    m_Session.plan.strpow2 = power.tone2;
    const auto atDevice = [&plan](const std::string& stored) {
        return NumberIn(stored) / 10.0 - static_cast<double>(plan.g_powerOffset);
    };
    m_Session.results.g_reportLines[ReportPower] = TwoValues(atDevice(plan.strpow1), atDevice(plan.strpow2), "dBm");

    run.g_StartFail = StartDone;
    const bool prepared = (m_Session.link.g_InstrStatus & 0x04) != 0;
    switch (run.g_TestMode) {
    case ModeTwoTone:
        StartTwoTone();
        break;
    case ModeSweep:
        StartSweep(prepared);
        break;
    case ModeSpectrum:
        StartSpectrum();
        break;
    default:
        run.g_StartFail = StartRefused;
        m_Platform.user.Message("Auswaehlen Messung modell");
        return;
    }
    run.runOn = true;
    m_Session.panel.lamp = Lamp::Running;
}

void Measurement::FillFixedReportTexts() {
    static constexpr std::string_view Headings[] = {
        "    IM Messung Ergebnis Bericht",
        "Breite/Model/SN:",
        "IM Modell:",
        "Uebergeben/Reflex:",
        "Messung Methode:",
        "",
        "Exportieren Staerke:",
        "Fix Freq:",
        "Scannen Anfang Freq:",
        "Scannen Ende Freq:",
        "Meist Posten:",
        "Messung Datum:",
    };
    auto& lines = m_Session.results.g_reportLines;
    std::copy(std::begin(Headings), std::end(Headings), lines.begin());
    lines[ReportColumns] = "Signal Gen 1---Signal Gen 2";
}

bool Measurement::TakePath() {
    std::string& row = m_Session.results.g_reportLines[ReportPath];
    m_Session.plan.g_RxLoss = m_Session.plan.g_port2Loss;
    switch (m_Session.select.m_PathMode) {
    case 1:
        row = ReflectionText;
        return true;
    case 2:
        row = TransmissionText;
        return true;
    default:
        m_Session.run.g_StartFail = StartRefused;
        m_Platform.user.Message("Auswaehlen Uebergeben modell oder reflex modell.");
        return false;
    }
}

bool Measurement::TakeBandAndPlan(std::string& prefix) {
    PlanState& plan = m_Session.plan;
    RunState& run = m_Session.run;
    const int imIndex = m_Session.select.m_IMIndex;
    m_Session.curve.g_SweepStep = 1.0f;
    plan.g_MeasBand = m_Session.select.m_BandId;
    const BandInfo* band = FindBand(plan.g_MeasBand);
    if (!band || band->reportText.empty()) {
        run.g_StartFail = StartRefused;
        plan.g_BandRxLoss = 0;
        m_Platform.user.Message("Auswaehlen Breite");
        return false;
    }
    if (band->lossField >= 0)
        plan.g_BandRxLoss = plan.rxLoss[static_cast<std::size_t>(band->lossField)];

    const int number = band->number;
    const auto builtIn = StartPlan(number, imIndex, plan.g_bridge3dB);
    const bool fewOrders =
        number == BandTetra390 || number == BandTetra392 || number == BandLte700L || number == BandLte700U;
    if (!builtIn && fewOrders) {
        m_Platform.user.Message("Does not support the current selection!");
        return false;
    }
    if (imIndex < 1 || imIndex > 5) {
        run.g_StartFail = StartRefused;
        m_Platform.user.Message("Auswaehlen IM");
        return false;
    }
    prefix = band->prefix;
    if (builtIn)
        TakePlan(*builtIn);
    if (number == BandTdScdmaA) {
        plan.g_f1 = ReadTdScdmaAF1(m_Store);
        plan.g_f2 = 2025.0f;
    } else if (const auto stored = ReadPlanStore(m_Store, prefix, imIndex)) {
        TakePlan(*stored);
    }
    const ImCoefficients c = CoefficientsOf(imIndex);
    plan.g_IMCoefHigh = c.high;
    plan.g_IMCoefLow = c.low;

    auto& lines = m_Session.results.g_reportLines;
    lines[ReportBand] = std::string(band->reportText) + "/" + m_Session.link.g_ModelName + "/";
    lines[ReportIM] = "IM" + std::to_string(OrderOf(imIndex));
    return true;
}

void Measurement::TakePlan(const FrequencyPlan& from) {
    PlanState& plan = m_Session.plan;
    plan.g_f1 = from.f1;
    plan.g_f2 = from.f2;
    plan.g_f1Start = from.f1Start;
    plan.g_f1Stop = from.f1Stop;
    plan.g_f2Fix = from.f2Fix;
    plan.g_f2Start = from.f2Start;
    plan.g_f2Stop = from.f2Stop;
    plan.g_f1Fix = from.f1Fix;
    m_Session.curve.g_SweepStep = from.step;
}

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
    queue.Append(WithTenths("#SFA", plan.g_f1), TagPlain);
    queue.Append(WithTenths("#SFB", plan.g_f2), TagLevel);
    if (!Internal())
        m_Receiver.VisaIO("INIT:CONT OFF");
    const float imFrequency = ImOf(plan.g_f1, plan.g_f2);
    curve.g_worstFreq = imFrequency;
    curve.g_worstLevel = 0;
    panel.m_fIM_text = Fixed(imFrequency, 1);
    if (!Internal()) {
        m_Receiver.VisaIO("FREQUENCY:CENTER " + Fixed(std::round(static_cast<double>(imFrequency) * 1e6), 0) + "Hz");
        for (const char* text : {"CALC:MARK1 ON", "INIT;*WAI", "CALC:MARK:STAT ON", "CALC:MARK:TRAC 1",
                                 "CALC:MARK:MAX:AUTO ON"})
            m_Receiver.VisaIO(text);
    }
    run.g_SettleTicks = 0;
    RepeatTwoTone();
}

/// What each pass of a 2-tone run begins with.
void Measurement::RepeatTwoTone() {
    CurveState& curve = m_Session.curve;
    curve.StoreDataPot = 0;
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

/// Carriers and pass selectors of firmware 5.3 and later.
void Measurement::QueueSweepPasses() {
    RunState& run = m_Session.run;
    CommandQueue& queue = m_Session.link.queue;
    run.g_SweepPause = 0;
    if (m_Session.curve.g_runIndex == 0) {
        queue.Append("#MDNL0");
        if (!run.g_bSaEnclosed)
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
    BuildSweepGrid(curve, plan.g_MeasBand, {plan.g_IMCoefHigh, plan.g_IMCoefLow}, WorkingPlan());
    ClearForSweep();
    if (run.g_FirstRun && !prepared)
        QueueBandReselection();
    if (FirmwareFrom(firmware, 53))
        QueueSweepPasses();
    // The first run of "Spectrum Analyze Enclosed" sweeps with the carriers off.
    if (!(run.g_bSaEnclosed && curve.g_runIndex == 0)) {
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
    BuildSpectrumGrid(curve, plan.g_MeasBand, WorkingPlan());
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
