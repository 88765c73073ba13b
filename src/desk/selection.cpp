#include "desk/selection.h"

#include "base/setup_store.h"
#include "curve/markers.h"
#include "desk/guards.h"
#include "desk/session.h"
#include "link/connection.h"
#include "link/instrument_selection.h"
#include "platform/operator.h"
#include "platform/platform.h"

namespace qor {

Selection::Selection(Session& session, const Platform& platform, SetupStore& store,
                     InstrumentSelection& instrument, Connection& connection)
    : m_Session(session), m_Platform(platform), m_Store(store), m_Instrument(instrument),
      m_Connection(connection) {}

Outcome Selection::SelectBand(int band) {
    WorkingSet& working = m_Session.working;
    const LinkState& link = m_Session.link;
    if (Outcome off = RunIsOff(m_Session); !off)
        return off;
    if (!MayChooseBand(link))
        return Outcome::Refused("Please select band after initailization completed.");
    if (working.Band() == band && !link.chain.WaitsForChoice()) {
        working.SelectBand(BandNone);
        return Outcome::Done();
    }
    if (link.identity.Model() != "RT-C010" && LacksSecondPort(m_Store)) {
        m_Connection.ScanComm();
        return Outcome::Refused({});
    }
    if (Outcome carries = m_Instrument.Carries(band); !carries)
        return carries;
    ClearPlot(m_Session.curve, m_Session.markers);
    return m_Instrument.SelectBand(band);
}

/// A run, or a shown file without an instrument, keeps its set-up.
Outcome Selection::MayChoose() const {
    Outcome off = NothingRuns(m_Session);
    return off ? MayChangeSetup(m_Session) : off;
}

Outcome Selection::SelectOrder(int imIndex) {
    if (Outcome free = MayChoose(); !free)
        return free;
    if (m_Session.interBand.IsOn()) // the inter-band mode has an order of its own
        return Outcome::Refused({});
    ClearPlot(m_Session.curve, m_Session.markers);
    m_Instrument.SelectOrder(imIndex);
    return PortIsOpen(m_Platform);
}

Outcome Selection::SelectMethod(int mode) {
    if (mode == ModeSweep && !m_Session.link.chain.HasBeenHeard())
        return Outcome::Refused("Initialisieren, bitte warten!");
    if (Outcome off = RunIsOff(m_Session); !off)
        return off;
    if (Outcome free = MayChoose(); !free)
        return free;
    if (mode != ModeTwoTone && m_Session.working.Band() == BandTdScdmaA)
        return Outcome::Refused({});
    const bool changed = m_Session.working.Method() != mode;
    m_Session.working.SelectMethod(mode);
    if (changed) {
        ClearPlot(m_Session.curve, m_Session.markers);
        m_Instrument.Activate();
        m_Store.Write("testmode.ccz", std::to_string(mode));
    }
    return Outcome::Done();
}

Outcome Selection::SelectPath(int path) {
    if (Outcome off = RunIsOff(m_Session); !off)
        return off;
    if (Outcome open = PortIsOpen(m_Platform); !open)
        return open;
    if (Outcome free = MayChangeSetup(m_Session); !free)
        return free;
    if (m_Session.working.Path() == path)
        return Outcome::Done();
    m_Instrument.SelectPath(path);
    m_Store.Write("reftrans.ccz", std::to_string(path));
    return Outcome::Done();
}

} // namespace qor
