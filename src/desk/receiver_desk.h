#pragma once

#include "base/outcome.h"
#include "platform/timers.h"

#include <functional>
#include <string>

namespace qor {

class InstrumentSelection;
class ReceiverAccess;
class ReceiverSearch;
class SetupStore;
struct AnalyserSetup;
struct Platform;
struct Session;

/// Which receiver measures, as the operator has it: choosing, looking for the external one, its set-up, and
/// the question behind a loss.
class ReceiverDesk {
public:
    ReceiverDesk(Session& session, const Platform& platform, SetupStore& store, ReceiverAccess& access,
                 ReceiverSearch& search, InstrumentSelection& instrument);

    /// Levels are read with the instrument's own receiver, and the choice is kept.
    void UseInternal();
    /// Levels are read with an external receiver, which is looked for; the choice is kept. Nothing is told:
    /// the panel shows what has come of it.
    void UseExternal();
    /// The same for this session alone, at `address` or, without one, at the stored one. Refused when no
    /// receiver is there.
    Outcome UseExternalNow(std::string address);
    /// The receiver of the last session is looked for, unless the instrument's own was chosen: once the
    /// instrument is ready, one address at a time, without a window.
    void LookAtStart();

    /// Keeps an address and tries it: its answer to *IDN?, or why there is none.
    Outcome TryAddress(const std::string& address);

    /// What the set-up dialog shows: what is kept, and what the analyser says. Refused when it does not
    /// answer any more.
    Outcome OpenSetup(AnalyserSetup& setup);
    /// Keeps a set-up and sends it. Refused, and nothing has happened, when a field is wrong.
    Outcome Install(const AnalyserSetup& setup);

    /// A run is over: a receiver that was lost in it is asked about once the carriers are off.
    void NoteLoss();
    /// The program ends: nothing is looked for and nothing asked any more.
    void Leave();

private:
    void OnTimer();
    void LookFurther();
    void AskAboutLoss();
    void GoOnWithout();
    [[nodiscard]] bool UsesAnalyser() const;
    bool FindOne();
    [[nodiscard]] bool CarriersAreOff() const;
    [[nodiscard]] std::function<bool(const std::string&, int, int)> Progress();

    Session& m_Session;
    const Platform& m_Platform;
    SetupStore& m_Store;
    ReceiverAccess& m_Access;
    ReceiverSearch& m_Search;
    InstrumentSelection& m_Instrument;
    Timer m_Timer;
    bool m_LookAtStart = false;
    int m_ScanPlace = -1; ///< of the scan at the start; -1: the address comes first
    bool m_LossToAsk = false;
    int m_LossTicks = 0; ///< since the run was over
    bool m_Busy = false; ///< a question or a search of it is under way
    bool m_Over = false;
};

} // namespace qor
