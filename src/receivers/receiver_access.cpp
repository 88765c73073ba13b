#include "receivers/receiver_access.h"

#include "base/setup_store.h"
#include "base/text_format.h"
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
constexpr double SmallestMilliwatts = 5e-8;

} // namespace

void ReceiverAccess::TakeAnalyser(std::uint32_t manager, std::uint32_t session) {
    g_VisaRM = manager;
    g_VisaSession = session;
    g_VisaFail = 0;
}

void ReceiverAccess::Close() {
    if (!m_Visa || g_VisaRM == 0)
        return;
    m_Visa->Close(g_VisaSession);
    m_Visa->Close(g_VisaRM);
    g_VisaSession = 0;
    g_VisaRM = 0;
}

std::string ReceiverAccess::VisaIO(std::string_view text) {
    std::string reply;
    if (!Transfer(text, reply))
        g_VisaFail = 1;
    if (g_VisaFail != 0)
        Reconnect();
    return reply;
}

bool ReceiverAccess::Transfer(std::string_view text, std::string& reply) {
    if (!m_Visa)
        return false;
    if (!text.empty())
        return m_Visa->Write(g_VisaSession, text) >= 0;
    std::string bytes;
    if (m_Visa->Read(g_VisaSession, ReplyLimit, bytes) < 0)
        return false;
    reply = bytes.substr(0, std::min(bytes.find('\0'), ReplyLimit));
    return true;
}

void ReceiverAccess::Reconnect() {
    if (!m_Visa)
        return;
    m_Visa->Close(g_VisaSession);
    m_Visa->Close(g_VisaRM);
    g_VisaSession = 0;
    g_VisaRM = 0;
    if (m_Visa->OpenDefaultRM(g_VisaRM) < 0)
        return;
    std::string address = m_Store.Read("gpib_addr.ccz", AddressLimit).value_or("");
    address.resize(std::min(address.find_first_of(std::string_view("\r\n\0", 3)), address.size()));
    if (address.empty())
        return;
    // Whether somebody is there shows with the next transfer.
    m_Visa->Open(g_VisaRM, address, g_VisaSession);
    if (m_Visa->SetAttribute(g_VisaSession, VisaAttribute::TimeoutMs, AnalyserTimeoutMs) >= 0)
        g_VisaFail = 0;
}

std::string ReceiverAccess::Query(std::string_view command) {
    VisaIO(command);
    return VisaIO({});
}

std::optional<Reading> ReceiverAccess::ReadSensor() {
    double watts = 0;
    if (m_Sensor)
        m_Sensor->ReadMeasurement(g_SensorSession, SensorChannel, SensorTimeoutMs, watts);
    const double milliwatts = watts * 1000.0;
    // A sensor near its zero may give a negative power, which has no level.
    if (!std::isfinite(milliwatts) || milliwatts <= SmallestMilliwatts)
        return std::nullopt;
    return Reading::In(Fixed(10.0 * std::log(milliwatts) / std::log(10.0), 3));
}

} // namespace qor
