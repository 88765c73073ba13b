#include "desk/receiver_desk.h"

#include "base/setup_store.h"
#include "desk/session.h"
#include "desk/tell.h"
#include "link/instrument_selection.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "receivers/analyser_setup.h"
#include "receivers/receiver_access.h"
#include "receivers/receiver_search.h"

namespace qor {

namespace {

constexpr int ReceiverTimer = 50;
constexpr int ReceiverPeriod = 100; ///< ms
/// Ticks after which the operator is asked whatever the line does.
constexpr int LongestSwitchOff = 30;
constexpr std::string_view InternalChosen = "internalreceiver.ccz";

// shown to the operator
constexpr const char* NotKept = "Oeffnen file Misserfolg";
// shown to the operator
constexpr const char* Lost = "Verbindung verloren";

} // namespace

ReceiverDesk::ReceiverDesk(Session& session, const Platform& platform, SetupStore& store,
                           ReceiverAccess& access, ReceiverSearch& search, InstrumentSelection& instrument)
    : m_Session(session), m_Platform(platform), m_Store(store), m_Access(access), m_Search(search),
      m_Instrument(instrument), m_Timer(platform.timers, ReceiverTimer, [this] { OnTimer(); }) {}

void ReceiverDesk::UseInternal() {
    m_LookAtStart = false;
    m_Session.receiver.UseInstrument();
    m_Store.Write(InternalChosen, "1");
    m_Instrument.UseOwnReceiver();
}

void ReceiverDesk::UseExternal() {
    m_LookAtStart = false;
    m_Session.receiver.UseExternal();
    m_Store.Remove(InternalChosen);
    m_Instrument.UseExternalReceiver();
    FindOne();
    if (m_Access.HasFailed() && m_Session.receiver.IsThere() && UsesAnalyser())
        AskAboutLoss();
}

Outcome ReceiverDesk::UseExternalNow(std::string address) {
    m_Session.receiver.UseExternal();
    m_Access.NameAddress(std::move(address));
    return m_Search.BeReady();
}

bool ReceiverDesk::UsesAnalyser() const {
    return m_Session.receiver.ExternalKind() == ReceiverAnalyser;
}

/// The address, the scan with its progress, the sensor.
bool ReceiverDesk::FindOne() {
    m_Busy = true;
    bool goesOn = true;
    const bool found = m_Search.TryAddress() ||
                       (m_Search.MayScan() &&
                        m_Search.TryScan([&](auto&&... step) { return goesOn = Progress()(step...); })) ||
                       (goesOn && m_Search.TrySensor());
    m_Busy = false;
    return found;
}

std::function<bool(const std::string&, int, int)> ReceiverDesk::Progress() {
    return [this](const std::string& address, int done, int total) {
        // shown to the operator
        static constexpr std::string_view What = "Suche Empfaenger";
        return m_Platform.user.Progress(std::string(What) + ": " + address, done, total) &&
               !m_Access.IsBrokenOff() && !m_Over;
    };
}

void ReceiverDesk::LookAtStart() {
    m_LookAtStart = !m_Store.Exists(InternalChosen);
    if (m_LookAtStart)
        m_Timer.Start(ReceiverPeriod);
}

void ReceiverDesk::OnTimer() {
    if (m_Busy)
        return;
    if (m_LossToAsk) {
        ++m_LossTicks;
        if (CarriersAreOff() || m_LossTicks >= LongestSwitchOff)
            AskAboutLoss();
    } else if (m_LookAtStart) {
        // Behind the instrument's own search, and not in the middle of a run.
        if (IsInitialised(m_Session) && !m_Session.run.IsOn())
            LookFurther();
    } else {
        m_Timer.Stop();
    }
}

/// One address of the search at the start.
void ReceiverDesk::LookFurther() {
    m_Busy = true;
    const bool found = m_ScanPlace < 0 ? m_Search.TryAddress() : m_Search.TryScanned(m_ScanPlace);
    ++m_ScanPlace;
    const bool more = m_Search.MayScan() && m_ScanPlace < ReceiverSearch::ScanLength;
    if (found || !more) {
        m_LookAtStart = false;
        if (!found) {
            m_Search.EndScan();
            m_Search.TrySensor();
        }
    }
    m_Busy = false;
}

Outcome ReceiverDesk::TryAddress(const std::string& address) {
    m_LookAtStart = false;
    if (!m_Store.Write("gpib_addr.ccz", address))
        return Outcome::Refused(NotKept);
    m_Busy = true;
    const bool found = m_Search.TryAddress();
    m_Busy = false;
    const ReceiverState& receiver = m_Session.receiver;
    return found ? Outcome::DoneWith(receiver.Identity())
                 : Outcome::Refused(receiver.Address() + ": " + receiver.Trouble());
}

Outcome ReceiverDesk::OpenSetup(AnalyserSetup& setup) {
    setup = ReadAnalyserSetup(m_Store).fields.value_or(AnalyserSetup{});
    if (!UsesAnalyser())
        return Outcome::Done(); // another receiver knows nothing of it
    TakeCentre(setup, m_Access.Query("FREQ:CENT?").value_or(""));
    TakeSpan(setup, m_Access.Query("FREQ:SPAN?").value_or(""));
    TakeReference(setup, m_Access.Query("DISP:TRAC:Y:RLEV?").value_or(""));
    if (!m_Access.HasFailed())
        return Outcome::Done();
    AskAboutLoss();
    return Outcome::Refused({});
}

Outcome ReceiverDesk::Install(const AnalyserSetup& setup) {
    if (Outcome good = CheckAnalyserSetup(setup); !good)
        return good;
    const bool kept = WriteAnalyserSetup(m_Store, setup);
    if (!UsesAnalyser())
        return kept ? Outcome::Done() : Outcome::DoneWith(NotKept);
    if (kept) {
        m_Access.Write(SetupCommands(setup));
        for (const char* question : {"CALC:MARK1:Y?", "FREQ:CENT?", "FREQ:SPAN?", "DISP:TRAC:Y:RLEV?"})
            if (!m_Access.HasFailed())
                static_cast<void>(m_Access.Query(question));
        m_Session.receiver.FindFault({});
    }
    if (m_Access.HasFailed())
        AskAboutLoss();
    return kept ? Outcome::Done() : Outcome::DoneWith(NotKept);
}

void ReceiverDesk::NoteLoss() {
    ReceiverState& receiver = m_Session.receiver;
    const bool failed = m_Access.IsLost() || (m_Access.HasFailed() && !m_Access.UsesSensor());
    if (receiver.InstrumentListens() || !receiver.IsThere() || !failed || m_Access.IsBrokenOff())
        return;
    receiver.Miss(Lost);
    m_LossToAsk = UsesAnalyser();
    m_LossTicks = 0;
    if (m_LossToAsk)
        m_Timer.Start(ReceiverPeriod);
}

void ReceiverDesk::Leave() {
    m_Over = true;
    m_LookAtStart = m_LossToAsk = false;
    m_Timer.Stop();
}

bool ReceiverDesk::CarriersAreOff() const {
    return !m_Session.run.IsOn() && (!m_Session.link.carriers.MayBeOn() || !m_Platform.comm.GetPortOpen()) &&
           LineIsIdle(m_Session.link);
}

/// "Extern" stays chosen, and the panel shows that nobody is there.
void ReceiverDesk::GoOnWithout() {
    m_Access.Disown();
    if (m_Session.receiver.IsThere())
        m_Session.receiver.Miss(Lost);
}

/// Once for each loss; No leaves it lost until the next start tries the address.
void ReceiverDesk::AskAboutLoss() {
    m_LossToAsk = false;
    m_Busy = true;
    m_Access.ClearFailure();
    if (m_Platform.user.Ask(RecoveryQuestion, RecoveryTitle) && !m_Over)
        static_cast<void>(Tell(m_Search.Recover(Progress()), m_Platform.user));
    else
        GoOnWithout();
    m_Busy = false;
}

} // namespace qor
