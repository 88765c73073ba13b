#include "link/instrument_selection.h"

#include "bands/catalogue.h"
#include "link/band_activation.h"
#include "link/channel.h"
#include "link/commands.h"
#include "link/firmware.h"
#include "link/initialisation.h"
#include "link/run_control.h"
#include "link/working_set.h"
#include "platform/serial_control.h"

namespace qor {

namespace {

/// True when `given` is known and says something else than `wanted`.
bool Differs(std::string_view given, std::string_view wanted) {
    return !given.empty() && !wanted.empty() && given != wanted;
}

} // namespace

std::string InstrumentSelection::PositionOf(int band) const {
    const auto position = BandPosition(band, m_Link.identity.Model(), m_Link.identity.Firmware());
    return position ? SelectPosition(*position) : std::string();
}

Outcome InstrumentSelection::Carries(int band) const {
    return PositionOf(band).empty() ? Outcome::Refused("Nichts auswaehlen das breite.") : Outcome::Done();
}

Outcome InstrumentSelection::SelectBand(int band) {
    return SelectBand(band, true);
}

Outcome InstrumentSelection::SelectBand(int band, bool byOperator) {
    if (Outcome carries = Carries(band); !carries)
        return carries;
    if (ChoosesBandAtOnce(m_Link.identity.Firmware())) {
        // A reply under way is still awaited, so that it cannot answer the next command.
        m_Link.queue.Clear();
        m_Channel.Start();
    }
    if (m_Link.carriers.MayBeOn()) // no band is selected under them
        for (const std::string& off : m_Link.carriers.OffCommands())
            m_Link.queue.Append(off);
    m_Channel.QueueSwitchUnit(band);
    m_Link.position.Choose(PositionOf(band), band);
    m_Link.queue.Append(m_Link.position.Command());
    m_Working.SelectBand(band);
    if (band == BandTdScdmaA) { // measured in 2-tone at IM3 only
        m_Working.SelectOrder(1);
        m_Working.SelectMethod(ModeTwoTone);
    }
    Activate(byOperator);
    return Outcome::Done();
}

void InstrumentSelection::SelectOrder(int imIndex) {
    m_Working.SelectOrder(imIndex);
    Activate();
    if (m_Comm.GetPortOpen() && m_Run.InstrumentListens())
        m_Link.queue.Append(UseReceiver(imIndex));
}

void InstrumentSelection::SelectPath(int path) {
    m_Working.SelectPath(path);
    m_Link.queue.Append(SetPath(path));
}

void InstrumentSelection::UseOwnReceiver() {
    if (m_Comm.GetPortOpen())
        m_Link.queue.Append(UseReceiver(m_Working.ImIndex()));
}

void InstrumentSelection::UseExternalReceiver() {
    if (m_Comm.GetPortOpen())
        m_Link.queue.Append(command::ExternalReceiver);
}

void InstrumentSelection::Activate() {
    Activate(true);
}

void InstrumentSelection::Activate(bool byOperator) {
    const int step = m_Link.chain.Step();
    m_Init.HardBandInit(byOperator);
    m_Link.queue.ClearParams();
    if (m_Comm.GetPortOpen())
        return;
    // A command left waiting would open a port that was closed by hand, and no chain goes on behind it.
    m_Link.queue.Clear();
    m_Link.chain.GoBackTo(step);
}

/// What the instrument has once all that waits has gone out and was echoed.
GivenToInstrument InstrumentSelection::Coming() const {
    GivenToInstrument coming = m_Link.given;
    if (!m_Link.transaction.IsIdle())
        coming.Echoed(m_Link.transaction.Sent());
    m_Link.queue.ForEach([&coming](std::string_view text) { coming.Echoed(text); });
    return coming;
}

/// An external receiver is told at the start of its run, and the inter-band mode has orders of its own.
bool InstrumentSelection::ReceiverDiffers(const GivenToInstrument& given) const {
    return m_Run.InstrumentListens() && !m_Working.InterBand() &&
           Differs(given.Receiver(), UseReceiver(m_Working.ImIndex()));
}

bool InstrumentSelection::PowerDiffers(const GivenToInstrument& given) const {
    const auto power = [](std::string_view command, std::string_view tenths, std::string_view compensation) {
        return BandActivation::PowerCommand(command, tenths, compensation);
    };
    return Differs(given.Power1(), power(command::Power1, m_Working.Power1(), m_Working.Compensation1())) ||
           Differs(given.Power2(), power(command::Power2, m_Working.Power2(), m_Working.Compensation2()));
}

bool InstrumentSelection::StandsElsewhere() const {
    return Differs(m_Link.position.Command(), PositionOf(m_Working.Band()));
}

bool InstrumentSelection::DiffersFromInstrument() const {
    const bool bandDiffers =
        !PositionOf(m_Working.Band()).empty() && m_Link.position.Band() != m_Working.Band();
    const GivenToInstrument given = Coming();
    return bandDiffers || ReceiverDiffers(given) || PowerDiffers(given);
}

Outcome InstrumentSelection::PowersFit() const {
    return BandActivation::Fits(m_Working.Power1(), m_Working.Power2(), m_Working);
}

Outcome InstrumentSelection::BringToInstrument() {
    if (const Outcome chosen = SelectBand(m_Working.Band(), false); !chosen)
        return chosen;
    if (m_Run.InstrumentListens())
        m_Link.queue.Append(UseReceiver(m_Working.ImIndex()));
    m_Link.queue.Append(SetPath(m_Working.Path()));
    return Outcome::Done();
}

} // namespace qor
