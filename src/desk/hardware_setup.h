#pragma once

#include "link/channel.h"
#include "platform/timers.h"
#include "service/hardware_init.h"
#include "service/memory_talk.h"
#include "service/service_activity.h"

#include <map>
#include <string>
#include <vector>

namespace qor {

class Connection;
class MemoryDesk;
struct Platform;
struct Session;

inline constexpr int Repowertimer = 31;
inline constexpr int RepowerPeriod = 2000; ///< ms

/// Gives an instrument its identity and its limits: asked about the bridge, shown byte for byte with what
/// stands there now, confirmed, written, and then re-powered and looked for again.
class HardwareSetup final : public ServiceActivity {
public:
    HardwareSetup(Session& session, const Platform& platform, Channel& channel, Connection& connection,
                  MemoryDesk& memory);

    /// Begins with `fields`. What is wrong with them, else done; the rest follows by itself. A serial number
    /// that is too large is replaced in them.
    HardInitCheck Initialise(HardInitFields& fields);

    void Stop() override;
    void ContactIsLost() override;

private:
    enum class Phase { None, Reading, Writing, Option, Repower };

    void ReadOld();
    void Confirm(const Outcome& read);
    [[nodiscard]] std::string Preview(const std::vector<MemoryWriteCommand>& commands) const;
    void WriteAll(std::vector<MemoryWriteCommand> commands);
    void ReadOption(const Outcome& written);
    void WriteOption(const Outcome& read);
    void Finished(const Outcome& written);
    void Fail(const Outcome& outcome);
    void RecordPending();
    void OnRepower();
    [[nodiscard]] bool IsOurs() const;

    Session& m_Session;
    const Platform& m_Platform;
    Channel& m_Channel;
    Connection& m_Connection;
    MemoryDesk& m_Memory;
    MemoryTalk m_Talk;
    Timer m_Timer;

    Phase m_Phase = Phase::None;
    HardInitFields m_Fields;
    bool m_Bridge = false;
    std::map<int, int> m_Old;    ///< what stands at an address of the own page
    std::optional<int> m_Option; ///< the option byte as it was read between the writes
    std::string m_Status;
};

} // namespace qor
