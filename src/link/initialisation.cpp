#include "link/initialisation.h"

#include "core/session.h"
#include "core/timer_ids.h"
#include "display/curve_store.h"
#include "link/band_activation.h"
#include "link/channel.h"
#include "link/commands.h"
#include "link/firmware.h"
#include "platform/platform.h"
#include "platform/timers.h"

namespace qor {

namespace {

constexpr std::uint8_t InitialStatus = 0x64;

/// Model of the type code in the option byte; empty for a code that names none.
std::string_view ModelOfType(int optionByte) {
    switch (optionByte & 7) {
    case 0:
        return "RT-DA10";
    case 1:
        return "RT-K022";
    case 2:
        return "RT-N026";
    case 3:
        return "RT-S036";
    case 4:
        return "RT-DB22";
    case 6:
        return "RT-TETRA";
    default:
        return {};
    }
}

} // namespace

Initialisation::Initialisation(Session& session, const Platform& platform, Channel& channel,
                               BandActivation& activation)
    : m_Session(session), m_Platform(platform), m_Channel(channel), m_Activation(activation) {}

void Initialisation::Prepare() {
    LinkState& link = m_Session.link;
    link.g_bInitFlush = true;
    m_Channel.Reset();
    link.m_revdatastr.clear();
    m_Session.panel.m_Band_sel = NoBandText;
    link.firstSendArmed = true;
    m_Channel.Start();
    link.m_SetIMOrder.clear();
    link.queue.Append("#SR");
}

void Initialisation::StartFullChain() {
    m_Session.link.g_init = InitIdentity;
    m_Session.link.bandOfCommand = BandNone; // it may be another instrument
    DoInitPA();
}

int Initialisation::InitPA() {
    Prepare();
    m_Session.link.g_init = InitBandPosition;
    DoInitPA();
    return 1;
}

void Initialisation::DoInitPA() {
    LinkState& link = m_Session.link;
    switch (link.g_init) {
    case InitIdentity:
        Prepare();
        link.g_DeviceSN = "00000";
        link.queue.Append("#IDN?");
        link.FirmVersion = 0;
        break;
    case InitMemory:
        QueueMemoryReads();
        break;
    case InitBandPosition:
        link.queue.Append("#SMREF");
        link.queue.Append("#SAB?");
        break;
    case InitBandText:
        if (m_Session.receiver.tagReceiver == 1)
            link.queue.Append(UseReceiver(m_Session.select.m_IMIndex));
        m_Platform.timers.SetTimer(HardBandInitOn, BandWaitPeriod);
        break;
    case InitEnd:
        if (link.g_InitLamp > LampNothing)
            m_Session.panel.lamp = Lamp::Ready;
        link.m_SetIMOrder.clear();
        if (link.g_isSWStart) {
            link.serialRead.clear();
            link.memoryMissed = false;
            for (int tag = TagSerialFirst; tag <= TagSerialLast; ++tag)
                link.queue.Append(ReadMemory(tag), tag);
        }
        link.g_InstrStatus = InitialStatus;
        link.queue.Append(std::string("#SST") + static_cast<char>(InitialStatus));
        link.g_init = InitSerial;
        break;
    default:
        break;
    }
}

void Initialisation::QueueMemoryReads() {
    LinkState& link = m_Session.link;
    if (FirmwareFrom(link.FirmVersion, 61)) {
        link.queue.Append(ReadMemory(95), TagTypeCode);
        if (FirmwareFrom(link.FirmVersion, 62)) {
            link.g_EqName.clear();
            link.memoryMissed = false;
            for (int tag = TagModelFirst; tag <= TagModelLast; ++tag)
                link.queue.Append(ReadMemory(tag), tag);
        }
    } else if (FirmwareFrom(link.FirmVersion, 41)) {
        link.queue.Append("$KVTREdx0", TagSerialHigh);
        link.queue.Append("$KVTREdy0", TagSerialLow);
        link.queue.Append("$KVTREdt0", TagOption);
    } else {
        NextStep(); // nothing to read
    }
}

void Initialisation::NextStep() {
    ++m_Session.link.g_init;
    DoInitPA();
}

void Initialisation::IdentityReply() {
    LinkState& link = m_Session.link;
    if (link.m_revdatastr.find("MPX") == std::string::npos) {
        if (const auto version = VersionInBanner(link.m_revdatastr))
            link.FirmVersion = *version;
        if (std::string model = ModelInBanner(link.m_revdatastr); !model.empty()) {
            link.g_ModelName = model;
            link.m_revdatastr_name = model;
            link.m_Type = std::move(model);
        }
    }
    if (!FirmwareFrom(link.FirmVersion, 11))
        return;
    link.m_revdatastr.clear();
    link.tagtemp = 0;
    link.tagCommPend = 0;
    NextStep();
}

void Initialisation::PositionReply(int position) {
    LinkState& link = m_Session.link;
    std::string command = SelectPosition(position);
    // The code of the band in force keeps that band: two bands share a position on some instruments, and a
    // reconnection does not know the firmware that tells them apart.
    if (command != link.g_BandCmd || link.bandOfCommand == BandNone) {
        link.bandOfCommand = BandNone;
        const auto meaning = BandOfPosition(position, link.m_Type, link.FirmVersion, link.g_bAwsChosen != 0);
        if (meaning) {
            link.bandOfCommand = meaning->band;
            if (meaning->forcesTwoToneIm3) {
                m_Session.select.m_IMIndex = 1;
                m_Session.panel.m_IM_sel = "IM3";
                m_Session.run.g_TestMode = ModeTwoTone;
                m_Session.panel.m_Mode_sel = TwoToneText;
            }
        }
    }
    link.g_BandCmd = std::move(command);
    if (link.bandOfCommand != BandNone) {
        m_Session.select.m_BandId = link.bandOfCommand;
        m_Session.panel.m_Band_sel = BandText(link.bandOfCommand);
    }
    if (link.g_init == InitBandPosition)
        NextStep();
}

void Initialisation::MemoryReply() {
    LinkState& link = m_Session.link;
    const int tag = link.g_CurTag;
    // A reply that came too late must not count for the address asked now.
    const bool late = IsMemoryTag(tag) && link.m_revdatastr.find(link.TagCurrentCommand) == std::string::npos;
    const int value = MemoryValue(link.m_revdatastr);
    const bool isCharacter = value > 0 && value < 128;
    link.m_revdatastr.clear();
    if (late)
        return;

    if (link.g_init == InitMemory) {
        link.tagtemp = 0;
        link.tagCommPend = 0;
        if (tag >= TagModelFirst && tag <= TagModelLast) {
            if (isCharacter)
                link.g_EqName += static_cast<char>(value);
            if (tag == TagModelLast)
                MemoryReadDone(tag);
        } else if (tag == TagTypeCode) {
            if (const std::string_view model = ModelOfType(value); !model.empty()) {
                link.g_IMType = model;
                link.m_Type = model;
            }
            MemoryReadDone(tag);
        } else if (!FirmwareFrom(link.FirmVersion, 61)) {
            NextStep();
        }
    } else if (link.g_init >= InitSerial && link.g_isSWStart && tag >= TagSerialFirst &&
               tag <= TagSerialLast) {
        if (tag == TagSerialFirst)
            link.serialRead.clear(); // the reading may have been begun again while one was under way
        if (isCharacter)
            link.serialRead += static_cast<char>(value);
        if (tag == TagSerialLast) {
            if (!link.memoryMissed && !link.serialRead.empty()) {
                link.m_devSN = link.serialRead;
                link.g_DeviceSN = link.m_devSN;
            }
            if (link.g_init == InitSerial)
                link.g_init = InitSerialDone;
            link.g_isSWStart = false;
        }
        link.tagtemp = 0;
        link.tagCommPend = 0;
    }
}

void Initialisation::MemoryReadMissed(int tag) {
    m_Session.link.memoryMissed = tag != TagOption;
    MemoryReadDone(tag);
}

void Initialisation::MemoryReadDone(int tag) {
    LinkState& link = m_Session.link;
    if (link.g_init != InitMemory)
        return;
    const bool modelFollows = FirmwareFrom(link.FirmVersion, 62);
    if (tag == TagModelLast) {
        // A name with a hole in it is worse than the banner's.
        if (!link.g_EqName.empty() && !link.memoryMissed) {
            link.g_ModelName = link.g_EqName;
            link.m_revdatastr_name = link.g_EqName;
        }
        NextStep();
    } else if (tag == TagOption || (tag == TagTypeCode && !modelFollows)) {
        NextStep();
    }
}

void Initialisation::OnBandWaitTimer() {
    if (m_Session.panel.m_Band_sel == NoBandText)
        return;
    m_Platform.timers.KillTimer(HardBandInitOn);
    if (m_Activation.HardBandInit(HoldsPoints(m_Session.curve)))
        NextStep();
}

void Initialisation::HardBandInit() {
    LinkState& link = m_Session.link;
    // From firmware 6.0 on a band command drops what waits: the end of the chain with it, if it is quick.
    if (link.g_bInitFlush && link.g_init >= InitSerial && !link.queue.Holds("#SST"))
        link.g_init = InitBandText;
    if (m_Activation.HardBandInit(false) && link.g_init >= InitBandText)
        NextStep(); // before its third step the chain comes to the band by itself
}

} // namespace qor
