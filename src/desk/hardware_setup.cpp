#include "desk/hardware_setup.h"

#include "desk/guards.h"
#include "desk/memory_desk.h"
#include "desk/session.h"
#include "desk/tell.h"
#include "link/commands.h"
#include "link/connection.h"
#include "link/firmware.h"
#include "platform/operator.h"
#include "platform/platform.h"

#include <utility>

namespace qor {

namespace {

constexpr std::string_view Title = "Hardware Initialization";

} // namespace

HardwareSetup::HardwareSetup(Session& session, const Platform& platform, Channel& channel,
                             Connection& connection, MemoryDesk& memory)
    : m_Session(session), m_Platform(platform), m_Channel(channel), m_Connection(connection),
      m_Memory(memory), m_Talk(session.link.queue),
      m_Timer(platform.timers, Repowertimer, [this] { OnRepower(); }) {}

bool HardwareSetup::IsOurs() const {
    return m_Session.factory.Work() == ServiceWork::Initialisation;
}

HardInitCheck HardwareSetup::Initialise(HardInitFields& fields) {
    HardInitCheck check = CheckHardInit(fields);
    if (!check.outcome)
        return check;
    if (Outcome open = PortIsOpen(m_Platform); !open)
        return {std::move(open), {}};
    if (Outcome off = NothingRuns(m_Session); !off)
        return {std::move(off), {}};
    if (m_Session.link.chain.AwaitsIdentity()) // without its firmware nobody knows what to write where
        return {Outcome::Refused("Initialisieren, bitte warten!"), {}};
    OrderCarriersOff(m_Session);
    m_Fields = fields;
    m_Memory.BackUp({}, [this] { ReadOld(); });
    return check;
}

/// What stands now where something will be written.
void HardwareSetup::ReadOld() {
    if (!m_Session.factory.Begin(ServiceWork::Initialisation))
        return;
    m_Phase = Phase::Reading;
    m_Old.clear();
    m_Option.reset();
    const float firmware = m_Session.link.identity.Firmware();
    std::vector<MemoryCell> places;
    for (const MemoryWriteCommand& command : HardInitCommands(m_Fields, firmware, false))
        if (command.cell)
            places.push_back(*command.cell);
    places.push_back({OwnPage(firmware), OptionAddress, 0});
    m_Talk.Read(
        std::move(places), [this](std::size_t, const MemoryCell& cell) { m_Old[cell.address] = cell.value; },
        [this](const Outcome& outcome) { Confirm(outcome); });
}

void HardwareSetup::Confirm(const Outcome& read) {
    if (!read) {
        Fail(read);
        return;
    }
    Operator& user = m_Platform.user;
    m_Bridge = user.Ask("Is the equipment based on 3-dB bridge?", Title);
    if (!IsOurs())
        return; // left, or lost, while it was asked
    auto commands = HardInitCommands(m_Fields, m_Session.link.identity.Firmware(), m_Bridge);
    const bool wanted = user.Ask(Preview(commands), Title);
    if (!IsOurs())
        return;
    if (wanted)
        WriteAll(std::move(commands));
    else
        Fail(Outcome::Refused({}));
}

std::string HardwareSetup::Preview(const std::vector<MemoryWriteCommand>& commands) const {
    const auto old = [this](int address) {
        const auto found = m_Old.find(address);
        return found == m_Old.end() ? std::string("?") : std::to_string(found->second);
    };
    const float firmware = m_Session.link.identity.Firmware();
    // shown to the operator
    std::string text = "Das wird geschrieben (Adresse: jetzt -> neu):\n";
    for (const MemoryWriteCommand& command : commands) {
        text += ReadableCommand(command);
        if (command.cell)
            text += "    " + std::to_string(command.cell->address) + ": " + old(command.cell->address) +
                    " -> " + std::to_string(command.cell->value & 0xff);
        text += '\n';
    }
    const auto option = m_Old.find(OptionAddress);
    const int now = option == m_Old.end() ? 0 : option->second;
    text += ReadableCommand(WriteByte({OwnPage(firmware), OptionAddress, OptionByteOf(m_Fields, now)})) +
            "    " + std::to_string(OptionAddress) + ": " + old(OptionAddress) + " -> " +
            std::to_string(OptionByteOf(m_Fields, now)) + '\n';
    if (ReadsMemoryAsText(firmware)) // shown to the operator
        text += "Die Adressen 200 bis 210, aus denen die Seriennummer gelesen wird, aendern sich nicht.\n";
    // shown to the operator
    return text + "Schreiben?";
}

void HardwareSetup::WriteAll(std::vector<MemoryWriteCommand> commands) {
    m_Phase = Phase::Writing;
    m_Session.response.Begin();
    m_Status = "Waiting";
    m_Session.factory.Say(m_Status);
    m_Talk.Write(
        std::move(commands),
        [this](std::size_t, const MemoryCell& cell) {
            m_Session.factory.Say(m_Status += '.');
            if (cell != MemoryCell{}) {
                const auto old = m_Old.find(cell.address);
                m_Memory.Record("initialisation", cell,
                                old == m_Old.end() ? std::nullopt : std::optional(old->second), true);
            }
        },
        [this](const Outcome& outcome) { ReadOption(outcome); });
}

/// Read anew: the type has just been set, and it stands in the same byte.
void HardwareSetup::ReadOption(const Outcome& written) {
    if (!written) {
        Fail(written);
        return;
    }
    m_Phase = Phase::Option;
    m_Talk.Read(
        {{OwnPage(m_Session.link.identity.Firmware()), OptionAddress, 0}},
        [this](std::size_t, const MemoryCell& cell) { m_Option = cell.value; },
        [this](const Outcome& outcome) { WriteOption(outcome); }, "0");
}

void HardwareSetup::WriteOption(const Outcome& read) {
    const int page = OwnPage(m_Session.link.identity.Firmware());
    if (!read || !m_Option) {
        // shown to the operator
        Fail(read ? Outcome::Refused("Keine Antwort, Seite/Adresse: " + PlaceText(page, OptionAddress))
                  : read);
        return;
    }
    m_Talk.Write(
        {WriteByte({page, OptionAddress, OptionByteOf(m_Fields, *m_Option)})},
        [this](std::size_t, const MemoryCell& cell) {
            m_Memory.Record("initialisation", cell, m_Option, true);
        },
        [this](const Outcome& outcome) { Finished(outcome); });
}

void HardwareSetup::Finished(const Outcome& written) {
    if (!written) {
        Fail(written);
        return;
    }
    m_Session.link.queue.Clear();
    m_Channel.Stop(); // nothing is said to it until it was re-powered
    m_Phase = Phase::Repower;
    m_Session.factory.Say("Initialize finished.");
    m_Timer.Start(RepowerPeriod);
    m_Platform.user.Message("Initialization finished. \r\nRe-power your equipment.");
}

void HardwareSetup::OnRepower() {
    m_Timer.Stop();
    const bool repowered = m_Platform.user.Ask("Do you have Re-powered your equipment?", "Re-power");
    if (m_Phase != Phase::Repower)
        return;
    if (!repowered) {
        m_Timer.Start(RepowerPeriod);
        return;
    }
    m_Session.factory.Say({});
    Stop();
}

/// The sequence ends here, whatever it has written stands.
void HardwareSetup::Fail(const Outcome& outcome) {
    if (m_Phase == Phase::Writing || m_Phase == Phase::Option)
        RecordPending();
    m_Phase = Phase::None;
    m_Session.factory.Say(outcome.Text());
    m_Session.factory.End(ServiceWork::Initialisation);
    Tell(outcome, m_Platform.user);
}

/// A write that went out and was not confirmed: it may stand there or not.
void HardwareSetup::RecordPending() {
    if (const auto pending = m_Talk.Pending())
        m_Memory.Record("initialisation", *pending, {}, false);
}

void HardwareSetup::Stop() {
    if (m_Talk.IsOn())
        RecordPending();
    m_Talk.Drop();
    m_Timer.Stop();
    const bool wasSilent = std::exchange(m_Phase, Phase::None) == Phase::Repower;
    m_Session.factory.End(ServiceWork::Initialisation);
    if (wasSilent) // whoever is there now is looked for, and asked who it is
        m_Connection.SearchAgain();
}

/// Behind the last write it is what the operator was asked for: its cable may go, too.
void HardwareSetup::ContactIsLost() {
    if (m_Phase == Phase::Repower)
        return;
    const bool wasOn = m_Phase != Phase::None;
    Stop();
    if (wasOn) // shown to the operator
        m_Session.factory.Say("Kontakt zum Geraet verloren, der Vorgang ist abgebrochen.");
}

} // namespace qor
