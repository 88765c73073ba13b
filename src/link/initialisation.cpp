#include "link/initialisation.h"

#include "bands/catalogue.h"
#include "link/band_activation.h"
#include "link/commands.h"
#include "link/firmware.h"
#include "link/link_events.h"
#include "link/run_control.h"
#include "link/switch_unit.h"
#include "link/working_set.h"

namespace qor {

namespace {

/// Once one character of the serial number was not answered the others are not, either: two ticks are 200 ms.
constexpr int ShortWaitMs = 100;

} // namespace

Initialisation::Initialisation(LinkState& link, WorkingSet& working, Channel& channel,
                               BandActivation& activation, const LinkParts& parts, LinkEvents& events,
                               const RunControl& run)
    : m_Link(link), m_Working(working), m_Channel(channel), m_Activation(activation), m_Events(events),
      m_Run(run), m_BandWaitTimer(parts.timers, HardBandInitOn, [this] { OnBandWaitTimer(); }) {
    m_Channel.SetReplies(*this);
}

void Initialisation::Begin() {
    if (m_Ready)
        m_Before = Known{*m_Ready, m_Link.position};
    m_Ready.reset();
    m_SerialIsRead = m_BandWasKept = false;
    m_BandWaitTimer.Stop();
    m_Link.chain.Begin();
    m_Link.identity.Forget();
    m_Link.position.ForgetBand();
    m_Working.SetBridge(false);
    m_Working.DoubtBand();
    m_Channel.BeginConversation();
    m_Link.queue.Append(command::Begin);
    m_Link.queue.Append(command::Identity);
}

/// Queues the commands of the chain's step; nothing once the chain is over.
void Initialisation::DoInitPA() {
    switch (m_Link.chain.Step()) {
    case InitMemory:
        QueueMemoryReads();
        break;
    case InitBandPosition:
        m_Link.queue.Append(command::Reflection);
        m_Link.queue.Append(command::Position);
        break;
    case InitBandText:
        if (m_Run.InstrumentListens())
            m_Link.queue.Append(UseReceiver(m_Working.ImIndex()));
        if (m_Link.position.Band() != BandNone)
            m_BandWaitTimer.Start(BandWaitPeriod);
        break;
    case InitEnd:
        QueueEnd();
        break;
    default:
        break;
    }
}

void Initialisation::NextStep() {
    m_Link.chain.Advance();
    DoInitPA();
}

void Initialisation::IdentityReply() {
    Transaction& transaction = m_Link.transaction;
    if (transaction.Holds(SwitchUnitName)) {
        if (!m_Link.connection.IsProbing())
            m_Link.unit.Found(m_Link.connection.LastPort(), InstrumentSettings);
        return;
    }
    if (!m_Link.identity.TakeBanner(transaction.Text()))
        return;
    transaction.Text().clear();
    transaction.Finish();
    if (!m_Link.connection.IsProbing())
        m_Channel.SwitchOffWhatIsOwed();
    NextStep();
}

void Initialisation::QueueMemoryReads() {
    const float firmware = m_Link.identity.Firmware();
    CommandQueue& queue = m_Link.queue;
    if (ReadsMemoryAsText(firmware)) {
        queue.Ask(ReadMemory(95), TagTypeCode, *this);
        if (HasModelText(firmware))
            for (int tag = TagModelFirst; tag <= TagModelLast; ++tag)
                queue.Ask(ReadMemory(tag), tag, *this);
    } else if (HasMemory(firmware)) {
        queue.Ask(ReadMemoryByte('x'), TagSerialHigh, *this);
        queue.Ask(ReadMemoryByte('y'), TagSerialLow, *this);
        queue.Ask(ReadMemoryByte('t'), TagOption, *this);
    } else {
        NextStep(); // nothing to read
    }
}

void Initialisation::Answered(int tag, std::string_view reply) {
    Identity& identity = m_Link.identity;
    const bool readsMemory = m_Link.chain.Step() == InitMemory;
    if (tag == TagSerialHigh) {
        identity.TakeSerialHigh(MemoryByte(reply, 'x'));
    } else if (tag == TagSerialLow) {
        identity.TakeSerialLow(MemoryByte(reply, 'y'));
    } else if (tag == TagOption) {
        if (const auto option = MemoryByte(reply, 't'))
            m_Working.SetBridge((*option & 1) != 0);
        if (readsMemory)
            NextStep();
    } else if (tag == TagTypeCode) {
        identity.TakeTypeCode(MemoryValue(reply));
        if (readsMemory && !HasModelText(identity.Firmware()))
            NextStep();
    } else if (tag >= TagSerialFirst && tag <= TagModelLast) {
        if (tag == TagSerialFirst || tag == TagModelFirst)
            identity.BeginText();
        identity.TakeCharacter(MemoryValue(reply));
        if (tag == TagModelLast) {
            identity.EndModelText();
            if (readsMemory)
                NextStep();
        } else if (tag == TagSerialLast) {
            identity.EndSerialText();
            SerialIsRead();
        } else if (tag < TagSerialLast && reply.empty()) {
            m_Link.queue.ShortenWaits(*this, ShortWaitMs);
        }
    }
}

// ----- the band

void Initialisation::PositionReply(int position) {
    std::string command = SelectPosition(position);
    if (m_Link.chain.Step() == InitBandPosition) {
        TakePosition(std::move(command), position);
        NextStep();
        return;
    }
    // The echo of the band in force keeps that band: two bands share a position on some instruments.
    if (command != m_Link.position.Command() || m_Link.position.Band() == BandNone)
        TakeMeaning(std::move(command), position);
    if (m_Link.position.Band() != BandNone)
        m_Working.SelectBand(m_Link.position.Band());
}

/// The band of a position by the table of model and firmware.
void Initialisation::TakeMeaning(std::string command, int position) {
    const auto meaning = BandOfPosition(position, m_Link.identity.Model(), m_Link.identity.Firmware(),
                                        m_Link.position.AwsChosen());
    m_Link.position.Set(std::move(command), meaning ? meaning->band : int{BandNone});
    if (meaning && meaning->forcesTwoToneIm3) {
        m_Working.SelectOrder(1);
        m_Working.SelectMethod(ModeTwoTone);
    }
}

/// The position of a new conversation. What seems to be the instrument before, where it was before, keeps the
/// operator's band; its serial number, read later, has the last word.
void Initialisation::TakePosition(std::string command, int position) {
    const bool keeps = m_Before && m_Before->IsKindOf(m_Link.identity) &&
                       m_Before->position.Command() == command && m_Before->position.Band() != BandNone &&
                       BandPosition(m_Before->position.Band(), m_Link.identity.Model(),
                                    m_Link.identity.Firmware()) == position;
    m_Position = position;
    if (keeps)
        m_Link.position.Set(std::move(command), m_Before->position.Band());
    else
        TakeMeaning(std::move(command), position);
    m_BandWasKept = keeps;
    ShowBand();
}

/// False for a model that is none: its name was spoilt on the line.
bool Initialisation::CarriesAnyBand() const {
    const Identity& identity = m_Link.identity;
    for (int band = BandAmps; band <= BandFqC010; ++band)
        if (BandPosition(band, identity.Model(), identity.Firmware()))
            return true;
    return false;
}

void Initialisation::ShowBand() {
    const int band = m_Link.position.Band();
    m_Link.chain.WaitForChoice(band == BandNone && CarriesAnyBand());
    if (band != BandNone)
        m_Working.SelectBand(band);
    else
        m_Working.DoubtBand();
}

void Initialisation::OnBandWaitTimer() {
    if (m_Link.chain.WaitsForPower() && !m_Activation.PowersFit())
        return;
    m_BandWaitTimer.Stop();
    const int band = m_Working.Band();
    if (!m_Link.chain.WaitsForPower() && m_Link.unit.Band() != SwitchUnitBand(band))
        m_Channel.QueueSwitchUnit(band);
    if (Activate(false))
        NextStep();
}

void Initialisation::HardBandInit(bool byOperator) {
    Chain& chain = m_Link.chain;
    if (chain.WaitsForChoice() && !m_Working.BandIsSet())
        return; // something else than a band was chosen
    chain.WaitForChoice(false);
    m_BandWasKept = false;
    m_BandWaitTimer.Stop();
    // A band command may have dropped what waits: the end of the chain with it, if it is quick.
    if (chain.IsUnderWay() && chain.IsPastBand() && !m_Link.queue.Holds(command::WriteStatus))
        chain.GoBackTo(InitBandText);
    if (Activate(byOperator) && chain.Step() >= InitBandText)
        NextStep(); // before its third step the chain comes to the band by itself
}

bool Initialisation::Activate(bool byOperator) {
    Chain& chain = m_Link.chain;
    const Outcome done = m_Activation.Activate(m_Link.identity.Firmware());
    if (!m_Activation.HasOrder())
        m_Events.Tell(Outcome::Refused("Not Supported"));
    if (!done) {
        if (done.Text().empty())
            return false;
        m_Events.Tell(done);
        if (chain.IsUnderWay()) {
            chain.WaitForPower(true);
            m_BandWaitTimer.Start(PowerWaitPeriod);
        }
        return false;
    }
    chain.WaitForPower(false);
    if (BandActivation::TakesPart(m_Working.Band()))
        m_Events.BandActivated(byOperator);
    return true;
}

void Initialisation::Abort() {
    StopBandWait();
    if (!m_Link.chain.IsUnderWay())
        return;
    m_Link.queue.Clear();
    m_Link.chain.Abort();
}

// ----- the end

void Initialisation::QueueEnd() {
    if (!m_SerialIsRead)
        for (int tag = TagSerialFirst; tag <= TagSerialLast; ++tag)
            m_Link.queue.Ask(ReadMemory(tag), tag, *this);
    m_Link.chain.TakeStatus(Chain::InitialStatus);
    m_Link.queue.Append(std::string(command::WriteStatus) + static_cast<char>(Chain::InitialStatus));
    m_Link.chain.Advance();
}

void Initialisation::SerialIsRead() {
    m_Link.chain.SerialIsRead();
    m_SerialIsRead = true;
    if (m_Before)
        Compare();
    m_Ready = m_Link.identity;
}

/// Everything is known: is it the instrument before, and does it stand where it stood?
void Initialisation::Compare() {
    const bool sameKind = m_Before->IsKindOf(m_Link.identity);
    const bool bothNumbered = m_Before->identity.HasSerial() && m_Link.identity.HasSerial();
    const bool sameSerial = m_Before->identity.Serial() == m_Link.identity.Serial();
    if (m_BandWasKept && !(bothNumbered && sameSerial))
        FollowPosition();
    m_BandWasKept = false;
    if (!sameKind || (bothNumbered && !sameSerial))
        // shown to the operator
        m_Events.Tell(Outcome::Refused("Ein anderes Geraet als vorher ist angeschlossen."));
    else if (m_Link.position.Band() != m_Before->position.Band())
        // shown to the operator
        m_Events.Tell(Outcome::Refused("Die Breite des Geraets hat sich geaendert."));
    m_Before.reset();
}

/// It may not be the instrument that the operator has chosen the band for: the position decides, and its band
/// is activated anew.
void Initialisation::FollowPosition() {
    const int kept = m_Link.position.Band();
    TakeMeaning(m_Link.position.Command(), m_Position);
    if (m_Link.position.Band() == kept)
        return;
    m_Link.queue.Clear();
    m_Link.chain.GoBackTo(InitBandText);
    ShowBand();
    DoInitPA();
}

} // namespace qor
