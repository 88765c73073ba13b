// From the press of the start button to the choice of a shape: guards, band, plan and corrections.
#include "bands/path_loss.h"
#include "bands/tenths.h"
#include "bands/working_plan.h"
#include "core/session.h"
#include "core/text_format.h"
#include "core/timer_ids.h"
#include "display/alarm.h"
#include "display/curve_store.h"
#include "display/markers.h"
#include "link/channel.h"
#include "link/connection.h"
#include "link/firmware.h"
#include "measure/measurement.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "platform/timers.h"
#include "results/report_lines.h"

#include <algorithm>

namespace qor {

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

void Measurement::OnMeasButton(Connection& connection) {
    ResultState& results = m_Session.results;
    RunState& run = m_Session.run;
    LinkState& link = m_Session.link;
    m_StartButton = &connection;
    if (!results.g_bKeepSerial)
        results.m_DutSerial.clear();
    if (run.runOn) {
        StopMeas();
        return;
    }
    RestorePathLoss(m_Session, m_Store);
    results.g_listPanelOpen = false;
    for (std::string& name : results.g_fileList)
        name.clear();
    results.g_FileNo = 0;
    run.g_FirstRun = true;
    run.FinishedEndlessTimes = 0;
    run.passes = 0;
    run.g_SweepIntervalLeft = run.g_SweepInterval;
    run.g_bSweepIntervalOk = true;
    ClearPlot(m_Session);
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
    if (!IsInitialised(m_Session)) {
        m_Platform.user.Message("Initialisieren, bitte warten!");
        return;
    }
    m_Session.curve.g_MeasVerdict = VerdictNone;
    m_Session.panel.m_ReadingText.clear();
    if (link.m_revdatastr.find("SYNTAX ERROR") != std::string::npos ||
        link.m_revdatastr.find("OUT OF RANGE") != std::string::npos ||
        link.m_revdatastr.find("PLL NOT LOCKED") != std::string::npos)
        link.m_revdatastr.clear(); // the error of an earlier run does not condemn this one
    StartBeeper(m_Session, m_Platform);
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
    if (m_Session.run.runOn)
        return;
    StopBeeper(m_Platform);
    m_Channel.ArmStatusPoll(); // refused: an idle link is watched as before
}

void Measurement::StartMeas() {
    if (m_Session.interBand.g_bInterBand) {
        StartMeasInterBand();
        return;
    }
    FillFixedReportTexts();
    if (!TakePath())
        return;
    const BandInfo* band = TakeBand(FindBand(m_Session.select.m_BandId));
    if (!band || !TakePlan(*band))
        return;
    TakePower(band->prefix);
    FillBandReport(*band, "IM" + std::to_string(OrderOf(m_Session.select.m_IMIndex)));
    StartShape(true);
}

/// Powers of the band's store; they describe the run in its report.
void Measurement::TakePower(std::string_view prefix) {
    const PlanState& plan = m_Session.plan;
    const PowerSetting power = ReadPowerStore(m_Store, prefix);
    m_Session.plan.strpow1 = power.tone1;
    m_Session.plan.strpow2 = power.tone2;
    const auto atDevice = [&plan](const std::string& stored) {
        return NumberIn(stored) / 10.0 - static_cast<double>(plan.g_powerOffset);
    };
    m_Session.results.g_reportLines[ReportPower] =
        TwoValues(atDevice(plan.strpow1), atDevice(plan.strpow2), "dBm");
}

/// Begins the run in the shape of the test method. Not every kind of run has a spectrum.
void Measurement::StartShape(bool spectrumToo) {
    RunState& run = m_Session.run;
    run.g_StartFail = StartDone;
    const bool prepared = (m_Session.link.g_InstrStatus & 0x04) != 0;
    switch (run.g_TestMode == ModeSpectrum && !spectrumToo ? 0 : run.g_TestMode) {
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

/// Makes `band` the band of the run; null, with the start refused, when nothing is measured in it.
const BandInfo* Measurement::TakeBand(const BandInfo* band) {
    PlanState& plan = m_Session.plan;
    plan.g_MeasBand = m_Session.select.m_BandId;
    if (!band || band->reportText.empty()) {
        m_Session.run.g_StartFail = StartRefused;
        plan.g_BandRxLoss = 0;
        m_Platform.user.Message("Auswaehlen Breite");
        return nullptr;
    }
    if (band->lossField >= 0)
        plan.g_BandRxLoss = plan.rxLoss[static_cast<std::size_t>(band->lossField)];
    return band;
}

void Measurement::FillBandReport(const BandInfo& band, std::string_view order) {
    auto& lines = m_Session.results.g_reportLines;
    lines[ReportBand] = std::string(band.reportText) + "/" + m_Session.link.g_ModelName + "/";
    lines[ReportIM] = order;
}

bool Measurement::TakePlan(const BandInfo& band) {
    PlanState& plan = m_Session.plan;
    const int imIndex = m_Session.select.m_IMIndex;
    const int number = band.number;
    m_Session.curve.g_SweepStep = 1.0f;
    const auto builtIn = StartPlan(number, imIndex, plan.g_bridge3dB);
    const bool fewOrders =
        number == BandTetra390 || number == BandTetra392 || number == BandLte700L || number == BandLte700U;
    if (!builtIn && fewOrders) {
        m_Platform.user.Message("Does not support the current selection!");
        return false;
    }
    if (imIndex < 1 || imIndex > 5) {
        m_Session.run.g_StartFail = StartRefused;
        m_Platform.user.Message("Auswaehlen IM");
        return false;
    }
    if (builtIn)
        SetWorkingPlan(m_Session, *builtIn);
    if (number == BandTdScdmaA) {
        plan.g_f1 = ReadTdScdmaAF1(m_Store);
        plan.g_f2 = 2025.0f;
    } else if (const auto stored = ReadPlanStore(m_Store, band.prefix, imIndex)) {
        SetWorkingPlan(m_Session, *stored);
    }
    const ImCoefficients c = CoefficientsOf(imIndex);
    plan.g_IMCoefHigh = c.high;
    plan.g_IMCoefLow = c.low;
    return true;
}

} // namespace qor
