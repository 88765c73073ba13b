#pragma once

#include "base/reading.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qor {

class PowerSensorLibrary;
class SetupStore;
class VisaLibrary;

/// Every word to an external receiver passes through here. All calls block: a read for up to the session's
/// timeout, a reading of the power sensor for up to 10 s.
///
/// A failed transfer is never reported: it leaves HasFailed true unless the line could be opened anew at
/// once.
class ReceiverAccess {
public:
    ReceiverAccess(SetupStore& store, VisaLibrary* visa, PowerSensorLibrary* sensor)
        : m_Store(store), m_Visa(visa), m_Sensor(sensor) {}

    /// Sessions that a search for receivers has opened; 0 is none.
    void TakeAnalyser(std::uint32_t manager, std::uint32_t session);
    void TakeSensor(std::uint32_t session) { g_SensorSession = session; }
    /// Closes the sessions over the VISA library.
    void Close();

    /// Writes a text as it is and returns nothing; with an empty text reads a reply, up to its first zero.
    /// A query takes two calls.
    std::string VisaIO(std::string_view text);
    [[nodiscard]] std::string Query(std::string_view command);
    /// One try at the power sensor; nothing when there is no result.
    [[nodiscard]] std::optional<Reading> ReadSensor();
    /// A transfer failed and could not be repaired at once.
    [[nodiscard]] bool HasFailed() const { return g_VisaFail != 0; }

private:
    bool Transfer(std::string_view text, std::string& reply);
    void Reconnect();

    SetupStore& m_Store;
    VisaLibrary* m_Visa;
    PowerSensorLibrary* m_Sensor;
    std::uint32_t g_VisaRM = 0;        ///< the library's resource manager
    std::uint32_t g_VisaSession = 0;   ///< the analyser
    std::uint32_t g_SensorSession = 0; ///< the power sensor
    int g_VisaFail = 0;                ///< 1: the last failure still stands
};

} // namespace qor
