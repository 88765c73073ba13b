#include "core/selection.h"

#include "bands/catalogue.h"
#include "bands/setup_store.h"
#include "core/guards.h"
#include "core/session.h"
#include "core/timer_ids.h"
#include "display/curve_store.h"
#include "display/markers.h"
#include "link/channel.h"
#include "link/commands.h"
#include "link/connection.h"
#include "link/firmware.h"
#include "link/initialisation.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "platform/timers.h"

namespace qor {

Selection::Selection(Session& session, const Platform& platform, SetupStore& store, Channel& channel,
                     Initialisation& init, Connection& connection)
    : m_Session(session), m_Platform(platform), m_Store(store), m_Channel(channel), m_Init(init),
      m_Connection(connection) {}

void Selection::ResetPlot() {
    LinkState& link = m_Session.link;
    const int step = link.g_init;
    ClearPlot(m_Session);
    m_Init.HardBandInit();
    if (m_Platform.comm.GetPortOpen())
        return;
    // A command left waiting would open a port that was closed by hand, and no chain goes on behind it.
    link.queue.Clear();
    link.g_init = step;
}

bool Selection::SelectBand(int band) {
    SelectionState& select = m_Session.select;
    LinkState& link = m_Session.link;
    if (!RunIsOff(m_Session, m_Platform))
        return false;
    if (m_Session.panel.lamp == Lamp::NotReady) {
        m_Platform.user.Message("Please select band after initailization completed.");
        return false;
    }
    if (select.m_BandId == band) {
        select.m_BandId = BandNone;
        m_Session.panel.m_Band_sel = NoBandText;
        return true;
    }
    if (link.m_Type != "RT-C010" && LacksSecondPort(m_Store)) {
        m_Connection.ScanComm();
        return false;
    }
    const auto position = BandPosition(band, link.m_Type, link.FirmVersion);
    if (!position) {
        m_Platform.user.Message("Nichts auswaehlen das breite.");
        return false;
    }
    if (FirmwareFrom(link.FirmVersion, 60)) {
        // What waits is dropped; a reply under way is still awaited, so that it cannot answer the next
        // command.
        link.queue.Clear();
        m_Channel.Start();
        m_Session.curve.g_MeasVerdict = VerdictNone;
    }
    if (band == BandPcs || band == BandAws)
        link.g_bAwsChosen = band == BandAws ? 1 : 0;
    link.g_BandCmd = SelectPosition(*position);
    link.bandOfCommand = band;
    link.queue.Append(link.g_BandCmd);
    select.m_BandId = band;
    m_Session.panel.m_Band_sel = BandText(band);
    if (band == BandTdScdmaA) {
        select.m_IMIndex = 1;
        m_Session.panel.m_IM_sel = "IM3";
        m_Session.run.g_TestMode = ModeTwoTone;
        m_Session.panel.m_Mode_sel = TwoToneText;
    }
    ResetPlot();
    return true;
}

bool Selection::SelectOrder(int imIndex) {
    if (!RunIsOff(m_Session, m_Platform) || !MayChangeSetup(m_Session, m_Platform))
        return false;
    if (m_Session.interBand.g_bInterBand) // the inter-band mode has an order of its own
        return false;
    m_Session.select.m_IMIndex = imIndex;
    m_Session.panel.m_IM_sel = "IM" + std::to_string(OrderOf(imIndex));
    ResetPlot();
    if (!PortIsOpen(m_Platform))
        return false;
    if (m_Session.receiver.tagReceiver == 1)
        m_Session.link.queue.Append(UseReceiver(imIndex));
    return true;
}

bool Selection::SelectMethod(int mode) {
    if (mode == ModeSweep && m_Session.link.g_InitLamp < LampStatus) {
        m_Platform.user.Message("Initialisieren, bitte warten!");
        return false;
    }
    if (!RunIsOff(m_Session, m_Platform) || !MayChangeSetup(m_Session, m_Platform))
        return false;
    if (mode != ModeTwoTone && m_Session.select.m_BandId == BandTdScdmaA)
        return false;
    static constexpr std::string_view Texts[] = {TwoToneText, SweepText, SpectrumText};
    RunState& run = m_Session.run;
    const bool changed = run.g_TestMode != mode;
    run.g_TestMode = mode;
    m_Session.panel.m_Mode_sel = Texts[mode - 1];
    ShowRepetition();
    if (changed) {
        ResetPlot();
        m_Store.Write("testmode.ccz", std::to_string(mode));
    }
    return true;
}

void Selection::UseInternalReceiver() {
    m_Session.receiver.tagReceiver = 1;
    m_Store.Write("internalreceiver.ccz", "1");
    if (m_Platform.comm.GetPortOpen())
        m_Session.link.queue.Append(UseReceiver(m_Session.select.m_IMIndex));
}

void Selection::ShowRepetition() {
    const RunState& run = m_Session.run;
    std::string& text = m_Session.panel.m_SweepKind_text;
    // shown to the operator
    static constexpr std::string_view Kinds[] = {"Endless", "SA Enclosed", "Multi-times", "Single"};
    if (run.tagEndless || run.g_TestMode == ModeSpectrum)
        text = Kinds[0];
    else if (run.g_TestMode == ModeSweep && run.g_bSaEnclosed)
        text = Kinds[1];
    else if (run.g_TestMode == ModeSweep && m_Session.curve.g_runCount > 1)
        text = Kinds[2];
    else
        text = Kinds[3];
}

bool Selection::SelectPath(int path) {
    if (!RunIsOff(m_Session, m_Platform) || !PortIsOpen(m_Platform) || !MayChangeSetup(m_Session, m_Platform))
        return false;
    if (m_Session.select.m_PathMode == path)
        return true;
    m_Session.select.m_PathMode = path;
    m_Session.panel.m_Path_sel = path == 1 ? ReflectionText : TransmissionText;
    m_Session.link.queue.Append(path == 1 ? "#SMREF" : "#SMTRA");
    m_Store.Write("reftrans.ccz", std::to_string(path));
    return true;
}

} // namespace qor
