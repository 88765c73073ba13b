#pragma once

#include "link/channel.h"
#include "link/command_queue.h"
#include "link/link_state.h"
#include "platform/timers.h"

#include <optional>
#include <string>
#include <string_view>

namespace qor {

class BandActivation;
class RunControl;
class WorkingSet;

inline constexpr int HardBandInitOn = 24; ///< timer that waits for the band
inline constexpr int BandWaitPeriod = 10; ///< ms
/// The same while a power is too high: the operator corrects it.
inline constexpr int PowerWaitPeriod = 500;

/// Walks the instrument from an open port to ready: identity, memory, reflection path, band position, the
/// band's settings, serial number. The chain's step says how far it has come; replies raise it.
///
/// Nothing is kept of the instrument before. If what answers is the same, by model, firmware and serial
/// number, in the same position, the operator's band stays; otherwise the position decides, and he is told.
class Initialisation final : private ChainReplies, private Asker {
public:
    Initialisation(LinkState& link, WorkingSet& working, Channel& channel, BandActivation& activation,
                   const LinkParts& parts, LinkEvents& events, const RunControl& run);

    /// A port has been opened: begins the conversation.
    void Begin();
    /// Makes the band and order just selected the working set. A curve that is not the operator's to clear
    /// stays.
    void HardBandInit(bool byOperator);
    /// The program ends: what the chain still wants is dropped, and answers begin no further step.
    void Abort();
    /// The band is awaited no more.
    void StopBandWait() { m_BandWaitTimer.Stop(); }

private:
    /// An instrument that was ready, and where it stood.
    struct Known {
        Identity identity;
        SwitchPosition position;
        [[nodiscard]] bool IsKindOf(const Identity& other) const {
            return identity.Model() == other.Model() && identity.Firmware() == other.Firmware();
        }
    };

    void IdentityReply() override;
    void PositionReply(int position) override;
    void Answered(int tag, std::string_view reply) override;

    void DoInitPA();
    void NextStep();
    void QueueMemoryReads();
    void QueueEnd();
    void SerialIsRead();
    void OnBandWaitTimer();
    [[nodiscard]] bool Activate(bool byOperator);
    void TakePosition(std::string command, int position);
    void TakeMeaning(std::string command, int position);
    void ShowBand();
    [[nodiscard]] bool CarriesAnyBand() const;
    void Compare();
    void FollowPosition();

    LinkState& m_Link;
    WorkingSet& m_Working;
    Channel& m_Channel;
    BandActivation& m_Activation;
    LinkEvents& m_Events;
    const RunControl& m_Run;
    Timer m_BandWaitTimer;
    std::optional<Known> m_Before;   ///< the instrument before this one, until the two are compared
    std::optional<Identity> m_Ready; ///< this one, once all of it is known
    int m_Position = 0;              ///< that it named in this conversation
    bool m_BandWasKept = false;      ///< the operator's band, not the position's, is in force
    bool m_SerialIsRead = false;
};

} // namespace qor
