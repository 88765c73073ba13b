#pragma once

namespace qor {

class BandActivation;
class Channel;
struct Platform;
struct Session;

/// Walks the instrument from an open port to ready: identity, memory, reflection path, band position, the
/// band's settings, serial number. `g_init` names the step; replies raise it and call DoInitPA again.
class Initialisation {
public:
    Initialisation(Session& session, const Platform& platform, Channel& channel, BandActivation& activation);

    /// Begins the full chain from the identity on.
    void StartFullChain();
    /// Short entry for a reconnection: firmware and model are not asked again.
    int InitPA();
    /// Queues the commands of the step that g_init names; nothing once the chain is over.
    void DoInitPA();
    /// Makes the band and order the operator has just selected the working set; clears the plot.
    void HardBandInit();

    void IdentityReply();
    /// Names the band of an echoed or asked switch position and, during the chain, goes on.
    void PositionReply(int position);
    void MemoryReply();
    /// A memory read is over without a text reply: read on the wait timer, or never answered.
    void MemoryReadMissed(int tag);
    void OnBandWaitTimer(); ///< HardBandInitOn

private:
    void Prepare();
    void NextStep();
    void QueueMemoryReads();
    void MemoryReadDone(int tag);

    Session& m_Session;
    const Platform& m_Platform;
    Channel& m_Channel;
    BandActivation& m_Activation;
};

} // namespace qor
