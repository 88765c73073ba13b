#pragma once

#include "receivers/receiver_state.h"

#include <string>
#include <string_view>

namespace qor {

class PowerSensorLibrary;
class SetupStore;
class VisaLibrary;

/// Every word to an external receiver passes through here. All calls block: a read for up to the session's
/// timeout, a reading of the power sensor for up to 10 s.
///
/// A failed transfer is never reported: it leaves g_VisaFail set unless the line could be opened anew at
/// once.
class ReceiverAccess {
public:
    ReceiverAccess(ReceiverState& state, SetupStore& store, VisaLibrary* visa, PowerSensorLibrary* sensor)
        : m_State(state), m_Store(store), m_Visa(visa), m_Sensor(sensor) {}

    /// Writes a text as it is and returns nothing; with an empty text reads a reply, up to its first zero.
    /// A query takes two calls.
    std::string VisaIO(std::string_view text);
    /// One try at the power sensor: dBm, "-80" when there is no result.
    [[nodiscard]] std::string ReadSensor();
    /// A level in dBm as text from whatever receiver is in use. In a sweep step the analyser measures anew
    /// first, so that the level belongs to the frequency just set, and a silent sensor is asked again.
    [[nodiscard]] std::string ReadLevel(bool sweepStep);

private:
    bool Transfer(std::string_view text, std::string& reply);
    void Reconnect();
    std::string Query(std::string_view command);

    ReceiverState& m_State;
    SetupStore& m_Store;
    VisaLibrary* m_Visa;
    PowerSensorLibrary* m_Sensor;
};

} // namespace qor
