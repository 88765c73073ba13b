#include "receivers/receiver_access.h"

#include "bands/setup_store.h"
#include "core/text_format.h"
#include "platform/visa.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr std::size_t ReplyLimit = 100;
constexpr std::size_t AddressLimit = 20;
constexpr std::uint32_t AnalyserTimeoutMs = 5000;
constexpr int SensorChannel = 1;
constexpr int SensorTimeoutMs = 10000;
constexpr int SensorTriesInSweep = 99;
constexpr double SmallestMilliwatts = 5e-8;
constexpr std::string_view NoReading = "-80";
constexpr std::string_view MeasureAnew = "INIT;*WAI";

} // namespace

std::string ReceiverAccess::VisaIO(std::string_view text) {
    std::string reply;
    if (!Transfer(text, reply))
        m_State.g_VisaFail = 1;
    if (m_State.g_VisaFail != 0)
        Reconnect();
    return reply;
}

bool ReceiverAccess::Transfer(std::string_view text, std::string& reply) {
    if (!m_Visa)
        return false;
    if (!text.empty())
        return m_Visa->Write(m_State.g_VisaSession, text) >= 0;
    std::string bytes;
    if (m_Visa->Read(m_State.g_VisaSession, ReplyLimit, bytes) < 0)
        return false;
    reply = bytes.substr(0, std::min(bytes.find('\0'), ReplyLimit));
    return true;
}

void ReceiverAccess::Reconnect() {
    if (!m_Visa)
        return;
    m_Visa->Close(m_State.g_VisaSession);
    m_Visa->Close(m_State.g_VisaRM);
    m_State.g_VisaSession = 0;
    m_State.g_VisaRM = 0;
    if (m_Visa->OpenDefaultRM(m_State.g_VisaRM) < 0)
        return;
    std::string address = m_Store.Read("gpib_addr.ccz", AddressLimit).value_or("");
    address.resize(std::min(address.find_first_of(std::string_view("\r\n\0", 3)), address.size()));
    if (address.empty())
        return;
    // Whether somebody is there shows with the next transfer.
    m_Visa->Open(m_State.g_VisaRM, address, m_State.g_VisaSession);
    if (m_Visa->SetAttribute(m_State.g_VisaSession, VisaAttribute::TimeoutMs, AnalyserTimeoutMs) >= 0)
        m_State.g_VisaFail = 0;
}

std::string ReceiverAccess::Query(std::string_view command) {
    VisaIO(command);
    return VisaIO({});
}

std::string ReceiverAccess::ReadSensor() {
    double watts = 0;
    if (m_Sensor)
        m_Sensor->ReadMeasurement(m_State.g_SensorSession, SensorChannel, SensorTimeoutMs, watts);
    const double milliwatts = watts * 1000.0;
    // A sensor near its zero may give a negative power, which has no level.
    if (!std::isfinite(milliwatts) || milliwatts <= SmallestMilliwatts)
        return std::string(NoReading);
    return Fixed(10.0 * std::log(milliwatts) / std::log(10.0), 3);
}

std::string ReceiverAccess::ReadLevel(bool sweepStep) {
    switch (m_State.g_ExtRxKind) {
    case ReceiverAnalyser: {
        if (sweepStep)
            VisaIO(MeasureAnew);
        std::string level = Query("CALC:MARK1:Y?");
        if (!sweepStep)
            VisaIO(MeasureAnew); // ready for the next tick
        return level;
    }
    case ReceiverNrv:
        return Query("SENS:DATA:AMPL?");
    case ReceiverSensor: {
        std::string level = ReadSensor();
        for (int tries = 1; sweepStep && tries < SensorTriesInSweep && level == NoReading; ++tries)
            level = ReadSensor();
        return level;
    }
    default:
        return Query("MEAS?");
    }
}

} // namespace qor
