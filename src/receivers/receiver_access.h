#pragma once

#include "base/reading.h"
#include "platform/visa.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qor {

class SetupStore;
class WallClock;

/// Every word to an external receiver passes through here. All calls take their time: a read up to the
/// session's timeout, a reading of the power sensor up to 10 s; the libraries let the window live meanwhile.
///
/// A failed transfer is never reported: it leaves HasFailed true unless the line could be opened anew at
/// once. Whoever reads levels then sets the receiver up again (WasReopened) before one counts.
class ReceiverAccess {
public:
    ReceiverAccess(SetupStore& store, const WallClock& clock, VisaLibrary* visa, PowerSensorLibrary* sensor)
        : m_Store(store), m_Clock(clock), m_Visa(visa), m_Sensor(sensor) {}

    /// Writes a text as it is and returns nothing; with an empty text reads a reply, up to its first zero.
    /// A query takes two calls. With the power sensor in use every transfer fails and touches no line.
    std::string VisaIO(std::string_view text);
    /// False when the last transfer of VisaIO failed.
    [[nodiscard]] bool Went() const { return m_Went; }
    /// Both calls of a query; nothing when one of them failed.
    [[nodiscard]] std::optional<std::string> Query(std::string_view command);
    /// Writes texts one after the other until one fails for good.
    template <typename Texts> bool Write(const Texts& texts) {
        bool went = true;
        for (const auto& text : texts) {
            VisaIO(text);
            went = went && m_Went;
            if (HasFailed())
                return false;
        }
        return went;
    }
    /// The power sensor: missing when it has no result, -80 dBm for what lies below its floor. It is asked
    /// again while there is no level above the floor, so many times and 10 s at most.
    [[nodiscard]] Reading ReadSensor(int tries = 1);

    /// A transfer failed and could not be repaired at once.
    [[nodiscard]] bool HasFailed() const { return g_VisaFail != 0; }
    void ClearFailure() { g_VisaFail = 0; }
    /// The line was opened anew after a failure; what the receiver was told before may not hold any more.
    [[nodiscard]] bool WasReopened() const { return m_Reopened; }
    void Accept() { m_Reopened = false; }

    /// Three readings in a row that did not come, or another instrument at the address, are a loss.
    void CountReading(bool came) { m_Missed = came ? 0 : m_Missed + 1; }
    void Disown() { m_Missed = LossAfter; }
    [[nodiscard]] bool IsLost() const { return m_Missed >= LossAfter; }
    void ForgetReadings() { m_Missed = 0; }

    /// The call under way is given up, and all that follow fail at once until Resume.
    void BreakOff();
    void Resume() { m_BrokenOff = false; }
    [[nodiscard]] bool IsBrokenOff() const { return m_BrokenOff; }

    // For finding receivers.

    /// Closes what is open and opens the library; false when there is none.
    bool OpenManager();
    /// Opens an address and writes a first text, which tells whether somebody is there.
    VisaStatus TryOpen(std::string_view address, std::string_view text);
    bool SetTimeout(std::uint32_t ms);
    /// Timeout and buffers of a level meter; what fails ends it.
    bool SetUpMeter();
    bool OpenSensor();
    [[nodiscard]] bool UsesSensor() const { return m_SensorOpen; }
    [[nodiscard]] std::string SensorName() const { return m_Sensor ? m_Sensor->Name() : std::string(); }
    [[nodiscard]] bool ReachesGpib() const { return m_Visa && m_Visa->IsInstalled(); }
    void LimitOpen(int ms) const {
        if (m_Visa)
            m_Visa->LimitOpen(ms);
    }
    /// Closes the sessions, the sensor's too.
    void Close();

    /// The address of `gpib_addr.ccz`, or one that was named for this session; empty without one.
    [[nodiscard]] std::string Address() const;
    void NameAddress(std::string address) { m_NamedAddress = std::move(address); }

private:
    static constexpr int LossAfter = 3;

    bool Transfer(std::string_view text, std::string& reply);
    [[nodiscard]] Reading ReadSensorOnce(int timeoutMs);
    void CloseVisa();
    void Reconnect();

    SetupStore& m_Store;
    const WallClock& m_Clock;
    VisaLibrary* m_Visa;
    PowerSensorLibrary* m_Sensor;
    std::string m_NamedAddress;
    std::uint32_t g_VisaRM = 0;        ///< the library's resource manager
    std::uint32_t g_VisaSession = 0;   ///< the analyser
    std::uint32_t g_SensorSession = 0; ///< the power sensor
    int g_VisaFail = 0;                ///< 1: the last failure still stands
    bool m_SensorOpen = false;
    bool m_Went = true;
    bool m_Reopened = false;
    bool m_BrokenOff = false;
    int m_Missed = 0; ///< readings in a row
};

} // namespace qor
