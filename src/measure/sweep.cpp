// Sweep: f1 rises with f2 held, then f2 falls with f1 held. Spectrum: the rising half alone, until stopped.
#include "bands/tenths.h"
#include "core/session.h"
#include "core/text_format.h"
#include "core/timer_ids.h"
#include "display/curve_store.h"
#include "link/commands.h"
#include "link/firmware.h"
#include "measure/measurement.h"
#include "platform/platform.h"
#include "platform/timers.h"
#include "receivers/receiver_access.h"

namespace qor {

namespace {

/// Ticks of the pause between the two halves from firmware 5.3 on.
constexpr int PauseSelect = 6;
constexpr int PauseCarriers = 12;
constexpr int PauseOver = 15;
/// Tick of the analyser wait that sets it up.
constexpr int AnalyserReady = 3;
/// No tick queues more than this.
constexpr std::size_t MostPerTick = 8;

/// A line much slower than the ticks fills the queue in a long sweep: the steps wait then, they are not lost.
bool HasRoom(const CommandQueue& queue) {
    return queue.CommSendPoint() + MostPerTick <= CommandQueue::Capacity;
}

} // namespace

void Measurement::SetUpAnalyser() {
    for (const char* text : {"INIT:CONT OFF", "CALC:MARK1 ON", "INIT;*WAI", "CALC:MARK:STAT ON",
                             "CALC:MARK:TRAC 1", "CALC:MARK:MAX:AUTO ON"})
        m_Receiver.VisaIO(text);
}

void Measurement::OnAnalyserWait(int timer) {
    RunState& run = m_Session.run;
    if (++run.g_RecvDelay < AnalyserReady)
        return;
    SetUpAnalyser();
    run.stepIndex = 1;
    run.g_f1Now = m_Session.plan.g_f1Start + m_Session.curve.g_SweepStep;
    run.g_RecvDelay = 0;
    m_Platform.timers.KillTimer(timer);
    m_Platform.timers.SetTimer(timer == analyzerwaittimer ? sweeptimer : spectrumtimer, ExternalStepPeriod);
    m_Platform.timers.SetTimer(CurveTimer, CurvePeriod);
}

void Measurement::QueueStep(std::string_view command, float frequency, int tag, float imFrequency) {
    m_Session.link.queue.Append(WithTenths(command, frequency), tag, imFrequency);
    if (Internal())
        m_Session.link.queue.Append("#IMP?", tag + 10, imFrequency);
}

void Measurement::NextUpStep() {
    RunState& run = m_Session.run;
    ++run.stepIndex;
    run.g_f1Now = m_Session.plan.g_f1Start + static_cast<float>(run.stepIndex) * m_Session.curve.g_SweepStep;
}

/// True while the carriers rest between the two halves.
bool Measurement::PauseBetweenSweeps() {
    RunState& run = m_Session.run;
    CommandQueue& queue = m_Session.link.queue;
    switch (run.g_SweepPause) {
    case 0:
        queue.Append("#SPA0");
        queue.Append("#SPB0");
        break;
    case PauseSelect:
        queue.Append("#MDNL1");
        break;
    case PauseCarriers:
        queue.Append("#SPA1");
        queue.Append("#SPB1");
        break;
    case PauseOver:
        run.g_SweepPause = 0;
        return false;
    default:
        break;
    }
    ++run.g_SweepPause;
    return true;
}

void Measurement::TurnToDownSweep() {
    RunState& run = m_Session.run;
    const PlanState& plan = m_Session.plan;
    const float firmware = m_Session.link.FirmVersion;
    CommandQueue& queue = m_Session.link.queue;
    run.g_SweepPhase = PhaseDown;
    if (!FirmwareFrom(firmware, 18)) {
        queue.Append("#MDNL1");
        queue.Append("#MUPL0");
    } else if (Internal() && !FirmwareFrom(firmware, 37)) {
        queue.Append("#MDNL1");
    }
    queue.Append(WithTenths("#SFA", plan.g_f1Fix));
    run.g_SweepMarkFirst = true;
    run.stepIndex = 1;
    run.g_f2Now = plan.g_f2Start - m_Session.curve.g_SweepStep;
    QueueStep("#SFB", plan.g_f2Start, TagStepDown, ImOf(plan.g_f1Fix, plan.g_f2Start));
}

void Measurement::OnSweepTimer() {
    RunState& run = m_Session.run;
    const PlanState& plan = m_Session.plan;
    if (!HasRoom(m_Session.link.queue))
        return;
    if (run.g_SweepPhase == PhaseUp) {
        if (static_cast<double>(run.g_f1Now - plan.g_f1Stop) < GridTolerance) {
            QueueStep("#SFA", run.g_f1Now, TagStepUp, ImOf(run.g_f1Now, plan.g_f2Fix));
            NextUpStep();
        } else if (!FirmwareFrom(m_Session.link.FirmVersion, 53) || !PauseBetweenSweeps()) {
            TurnToDownSweep();
        }
    } else if (run.g_SweepPhase == PhaseDown) {
        if (static_cast<double>(run.g_f2Now - plan.g_f2Stop) > -GridTolerance) {
            QueueStep("#SFB", run.g_f2Now, TagStepDown, ImOf(plan.g_f1Fix, run.g_f2Now));
            ++run.stepIndex;
            run.g_f2Now = plan.g_f2Start - static_cast<float>(run.stepIndex) * m_Session.curve.g_SweepStep;
        } else {
            m_Platform.timers.KillTimer(sweeptimer);
            run.g_SweepPhase = PhaseStepped;
        }
    }
}

void Measurement::OnSpectrumTimer() {
    RunState& run = m_Session.run;
    const PlanState& plan = m_Session.plan;
    if (run.g_SweepPhase != PhaseUp || !HasRoom(m_Session.link.queue))
        return;
    if (static_cast<double>(run.g_f1Now - plan.g_f1Stop) < GridTolerance) {
        QueueStep("#SFA", run.g_f1Now, TagStepUp, SpectrumIm(run.g_f1Now, plan.g_f2Fix));
        NextUpStep();
        return;
    }
    QueueStep("#SFA", plan.g_f1Fix, TagPlain, 0); // its reading stores nothing
    run.g_SweepMarkFirst = true;
    m_Platform.timers.KillTimer(spectrumtimer);
    run.g_SweepPhase = PhaseStepped;
}

void Measurement::BeforeSend() {
    const LinkState& link = m_Session.link;
    if (link.g_CurParam > 0 && !Internal() && (link.g_CurTag == TagStepUp || link.g_CurTag == TagStepDown) &&
        FindOnGrid(m_Session.curve, link.g_CurParam) >= 0) {
        const std::string reading = m_Receiver.ReadLevel(true);
        StoreAtGrid(reading, link.g_CurParam, link.g_CurTag == TagStepDown);
        m_Session.curve.g_curveDirty = 1;
        ShowLevel(static_cast<float>(NumberIn(reading)) + m_Session.plan.g_RxLoss +
                  m_Session.plan.g_BandRxLoss);
        RefreshWorstTexts();
    }
    const float next = m_Session.link.queue.Head().param;
    if (next > 0) {
        std::string& shown = m_Session.panel.m_fIM_text;
        shown.clear();
        AppendFixed(shown, next, 1);
        if (!Internal()) // retuned before the tones move
            m_Receiver.VisaIO("FREQUENCY:CENTER " + Fixed(NumberIn(shown) * 1000000.0, 0) + "Hz");
    }
}

void Measurement::LineIdle() {
    RunState& run = m_Session.run;
    CommandQueue& queue = m_Session.link.queue;
    if (run.g_SweepPhase == PhaseStepped) {
        // A slow line may still owe the last level when the closing delay is over.
        if (!queue.Empty() || m_Session.link.tagCommPend != 0)
            return;
        if (m_Session.curve.g_runCount == m_Session.curve.g_runIndex + 1 && !run.tagEndless) {
            queue.Append("#SPA0");
            queue.Append("#SPB0");
            queue.Append("#MSWL0");
        }
        run.g_SweepPhase = PhaseClosing;
        queue.Append(WithTenths("#SFB", m_Session.plan.g_f2Fix));
    } else if (run.g_SweepPhase == PhaseClosing) {
        if (!Internal())
            m_Receiver.VisaIO("INIT:CONT ON");
        SettleCurve();
        SettleVerdict(m_Session.curve);
        --run.g_SweepPhase;
    } else if (run.g_SweepPhase > PhaseDecide) {
        --run.g_SweepPhase;
    } else if (run.g_SweepPhase == PhaseDecide) {
        m_Session.panel.m_f2_text = Fixed(m_Session.plan.g_f2Fix, 1);
        DecideSweepEnd();
    }
}

void Measurement::DecideSweepEnd() {
    RunState& run = m_Session.run;
    CurveState& curve = m_Session.curve;
    SettleCurve();
    if (run.g_TestMode == ModeSpectrum) {
        StartMeasRepData();
        return;
    }
    if (run.tagEndless && (run.EndlessTimes == 0 || ++run.FinishedEndlessTimes <= run.EndlessTimes)) {
        if (run.g_bReplaceData) {
            StartMeasRepData();
            return;
        }
        ++run.passes;
        if (SaveRepeat() && (run.EndlessTimes == 0 || run.EndlessTimes > run.FinishedEndlessTimes))
            StartMeas();
        return; // the last one ends on the next tick
    }
    if (!run.tagEndless && curve.g_runCount > curve.g_runIndex + 1) {
        if (!run.g_bSweepIntervalOk)
            return; // the pause between two runs
        if (run.g_SweepIntervalLeft > 0) {
            for (const char* text : {"#MSWL0", "#SPA0", "#SPB0"})
                m_Session.link.queue.Append(text);
            run.g_bSweepIntervalOk = false;
            m_Platform.timers.SetTimer(intervaltimer, IntervalPeriod);
        } else {
            NextSweepRun();
        }
        return;
    }
    CountLastPass();
    m_Session.panel.m_ReadingText = Fixed(NumberIn(m_Session.panel.m_WorstLevelText), 1);
    m_Session.panel.m_fIM_text = m_Session.panel.m_WorstFreqText;
    for (const char* text : {"#SMREF", "#SPA0", "#SPB0"})
        m_Session.link.queue.Append(text);
    SettleVerdict(curve);
    CommonFinish();
    run.g_SweepPhase = PhaseIdle;
    m_Platform.timers.KillTimer(CurveTimer);
}

void Measurement::NextSweepRun() {
    ++m_Session.run.passes;
    ++m_Session.curve.g_runIndex;
    m_Session.run.g_FirstRun = false;
    StartMeas();
}

void Measurement::OnIntervalTimer() {
    RunState& run = m_Session.run;
    if (run.g_SweepIntervalLeft > 0) {
        --run.g_SweepIntervalLeft;
        return;
    }
    run.g_SweepIntervalLeft = run.g_SweepInterval;
    m_Platform.timers.KillTimer(intervaltimer);
    run.g_bSweepIntervalOk = true;
    NextSweepRun();
}

} // namespace qor
