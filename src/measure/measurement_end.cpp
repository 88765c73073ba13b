// How a run ends: by itself, by the stop button, or because the instrument is gone.
#include "bands/setup_store.h"
#include "bands/tenths.h"
#include "core/session.h"
#include "core/text_format.h"
#include "core/timer_ids.h"
#include "display/alarm.h"
#include "display/curve_store.h"
#include "link/channel.h"
#include "measure/measurement.h"
#include "platform/platform.h"
#include "platform/timers.h"
#include "receivers/receiver_access.h"
#include "results/file_list.h"
#include "results/result_files.h"

namespace qor {

/// The panel's idle look and the status poll, the same after every way a run ends.
void Measurement::CommonFinish() {
    m_Session.run.runOn = false;
    StopBeeper(m_Platform);
    m_Channel.ArmStatusPoll();
    m_Session.link.m_SetIMOrder.clear();
    m_Session.panel.lamp = Lamp::Ready;
}

void Measurement::StopMeas() {
    RunState& run = m_Session.run;
    const PlanState& plan = m_Session.plan;
    Panel& panel = m_Session.panel;
    CommandQueue& queue = m_Session.link.queue;
    queue.Clear();
    for (const int timer : {T2messuretimer, sweeptimer, spectrumtimer, analyzerwaittimer, spectrumwaittimer,
                            intervaltimer, restarttimer, CurveTimer})
        m_Platform.timers.KillTimer(timer);
    run.g_bSweepIntervalOk = true;
    run.g_SweepIntervalLeft = run.g_SweepInterval;
    run.g_SweepPhase = PhaseIdle;
    m_Session.link.g_CurParam = 0; // an external receiver is not read any more for the step under way
    if (run.g_TestMode == ModeTwoTone) {
        queue.Append("#M2T0");
    } else {
        panel.m_f1_text = Fixed(plan.g_f1Fix, 1);
        panel.m_f2_text = Fixed(plan.g_f2Fix, 1);
        if (run.g_TestMode == ModeSweep) // spectrum has never switched the carriers on
            for (const char* text : {"#MSWL0", "#SPA0", "#SPB0"})
                queue.Append(text);
    }
    SettleCurve();
    SettleVerdict(m_Session.curve);
    if (!Internal())
        m_Receiver.VisaIO("INIT:CONT ON");
    // The blank at its end keeps late replies out of the text.
    panel.m_ReadingText = Fixed(NumberIn(panel.m_WorstLevelText), 1) + ' ';
    panel.m_fIM_text = panel.m_WorstFreqText;
    queue.Append("#SMREF");
    CommonFinish();
}

/// Counts the pass that a run ends with, unless its numbered file has counted it.
void Measurement::CountLastPass() {
    RunState& run = m_Session.run;
    if (!run.tagEndless || run.g_bReplaceData)
        ++run.passes;
}

void Measurement::AbandonRun() {
    m_Session.link.g_bStartAfterConnect = false;
    m_Platform.timers.KillTimer(restarttimer);
    if (!m_Session.run.runOn) {
        StopBeeper(m_Platform); // of a run that waited for its turn
        return;
    }
    StopMeas();
    int& verdict = m_Session.curve.g_MeasVerdict;
    if (verdict == VerdictPassed)
        verdict = VerdictNone;
}

void Measurement::DropStart() {
    if (m_Session.run.runOn)
        return;
    AbandonRun();
    if (IsInitialised(m_Session))
        m_Channel.ArmStatusPoll();
}

/// Saves the run that has just ended as the next numbered file of the series and puts it into the list. False
/// when the series is over: contact was lost while the operator was asked about the file.
bool Measurement::SaveRepeat() {
    ResultState& results = m_Session.results;
    const std::filesystem::path path =
        NumberedFile(results, m_Session.run.g_TestMode == ModeTwoTone, m_Store);
    results.LastLoadPath = path.string();
    m_Files.DataSave(path);
    AddToFileList(results);
    m_Session.run.g_FirstRun = false;
    return m_Session.run.runOn;
}

} // namespace qor
