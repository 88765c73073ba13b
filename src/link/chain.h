#pragma once

#include "bands/band.h"

#include <cstdint>
#include <string>

namespace qor {

/// Steps of the initialisation chain.
enum InitStep : int {
    InitIdentity = 0,
    InitMemory = 1,
    InitBandPosition = 2,
    InitBandText = 3,
    InitEnd = 4,
    InitSerial = 5,
    InitSerialDone = 6,
};

/// What has answered last: nothing means that no run can begin.
enum InitLamp : int { LampNothing = 0, LampStatus = 1, LampRecut = 2, LampPower = 3 };

/// How far the conversation with the instrument has come, from the open port to ready.
class Chain {
public:
    [[nodiscard]] int Step() const { return g_init; }
    [[nodiscard]] bool AwaitsIdentity() const { return g_init == InitIdentity; }
    /// From the band's commands on: the identity is known, and the band.
    [[nodiscard]] bool IsPastBand() const { return g_init >= InitSerial; }
    /// It has begun and its end has not been reached.
    [[nodiscard]] bool IsUnderWay() const { return g_bInitFlush; }
    /// The instrument has answered what turns the lamp green: the operator may choose.
    [[nodiscard]] bool HasAnswered() const { return m_Answers; }
    /// The instrument has answered a setting in this conversation or the last one.
    [[nodiscard]] bool HasBeenHeard() const { return g_InitLamp > LampNothing; }
    /// It is over, and contact was not lost since: a run can begin.
    [[nodiscard]] bool IsReady() const { return g_InitLamp > LampNothing && !g_bInitFlush && m_Answers; }
    /// The instrument has named a position that stands for no band: a choice lets the chain go on.
    [[nodiscard]] bool WaitsForChoice() const { return m_WaitsForChoice; }
    /// A power was too high to be sent: the chain goes on when it is corrected.
    [[nodiscard]] bool WaitsForPower() const { return m_WaitsForPower; }

    /// The status byte that the instrument told last.
    [[nodiscard]] std::uint8_t Status() const { return g_InstrStatus; }
    /// It says that it is prepared: a sweep begins with less.
    [[nodiscard]] bool IsPrepared() const { return (g_InstrStatus & Prepared) != 0; }

    void Begin() {
        g_init = InitIdentity;
        g_bInitFlush = true;
        g_InitLamp = LampNothing;
        m_Answers = false;
        m_IsOpen = true;
        m_WaitsForChoice = m_WaitsForPower = false;
    }
    void Advance() { ++g_init; }
    void GoBackTo(int step) { g_init = step; }
    /// The serial number is read: the number of the step says so.
    void SerialIsRead() {
        if (g_init == InitSerial)
            g_init = InitSerialDone;
    }
    void WaitForChoice(bool waits) { m_WaitsForChoice = waits; }
    void WaitForPower(bool waits) { m_WaitsForPower = waits; }
    /// The echo of a power releases nobody: the lamp is green by then, or turns green at the end.
    void Answered(InitLamp what) {
        if (!m_IsOpen)
            return; // a late one, contact is over
        if (g_InitLamp < LampStatus && what != LampPower)
            m_Answers = true;
        if (g_InitLamp < LampStatus || what == LampPower)
            g_InitLamp = what;
    }
    void End() {
        g_bInitFlush = false;
        m_Answers = m_IsOpen; // the oldest firmware answers nothing that turns the lamp
    }
    /// It is given up on the way, and nothing that comes takes it up again.
    void Abort() {
        g_bInitFlush = false;
        g_init = InitSerialDone;
    }
    /// Contact is lost, or given up.
    void Lose() {
        m_IsOpen = m_Answers = false;
        m_WaitsForChoice = m_WaitsForPower = false;
        ForgetPrepared();
    }
    void ForgetPrepared() { g_InstrStatus &= static_cast<std::uint8_t>(~Prepared); }
    void TakeStatus(std::uint8_t status) { g_InstrStatus = status; }

    static constexpr std::uint8_t InitialStatus = 0x64;

private:
    static constexpr std::uint8_t Prepared = 0x04;

    int g_init = InitIdentity;    ///< step; it grows with every band change, too
    bool g_bInitFlush = false;    ///< the mark of its end waits in the queue, or will
    int g_InitLamp = LampNothing; ///< what has answered in this conversation
    bool m_Answers = false;       ///< the lamp is green but for a run
    bool m_IsOpen = false;        ///< the conversation is on: contact was not lost since it began
    bool m_WaitsForChoice = false;
    bool m_WaitsForPower = false;
    std::uint8_t g_InstrStatus = InitialStatus; ///< bit 0x20: reflection, bit 0x04: prepared
};

/// The band switch position in force and the band that it stands for.
class SwitchPosition {
public:
    /// The last "#SABn"; empty before the first.
    [[nodiscard]] const std::string& Command() const { return g_BandCmd; }
    /// The band it stands for, BandNone while that is not known.
    [[nodiscard]] int Band() const { return m_BandOfCommand; }
    /// Where PCS and AWS share a position: which of them was chosen last.
    [[nodiscard]] bool AwsChosen() const { return g_bAwsChosen != 0; }

    /// `band` is at the position that `command` selects.
    void Set(std::string command, int band) {
        g_BandCmd = std::move(command);
        m_BandOfCommand = band;
    }
    void Choose(std::string command, int band) {
        if (band == BandPcs || band == BandAws)
            g_bAwsChosen = band == BandAws ? 1 : 0;
        Set(std::move(command), band);
    }
    void ForgetBand() { m_BandOfCommand = BandNone; }

private:
    std::string g_BandCmd;          ///< the last "#SABn"
    int m_BandOfCommand = BandNone; ///< the band it stands for
    int g_bAwsChosen = 1;           ///< where PCS and AWS share a position: 1 is AWS
};

} // namespace qor
