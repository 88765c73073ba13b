#include "receivers/receiver_access.h"

#include "base/setup_store.h"
#include "base/text_format.h"
#include "platform/clock.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr std::size_t ReplyLimit = 100;
constexpr std::size_t AddressLimit = 200;
constexpr std::uint32_t AnalyserTimeoutMs = 5000;
constexpr std::uint32_t MeterTimeoutMs = 40000;
constexpr std::uint32_t MeterBuffer = 4000;
constexpr int SensorChannel = 1;
constexpr int SensorTimeoutMs = 10000;
constexpr double SmallestMilliwatts = 5e-8;
constexpr double NoResult = -80.0; // dBm

} // namespace

void ReceiverAccess::CloseVisa() {
    if (!m_Visa || g_VisaRM == 0)
        return;
    m_Visa->Close(g_VisaSession);
    m_Visa->Close(g_VisaRM);
    g_VisaSession = 0;
    g_VisaRM = 0;
}

void ReceiverAccess::Close() {
    CloseVisa();
    if (m_SensorOpen)
        m_Sensor->Close(g_SensorSession);
    m_SensorOpen = false;
}

std::string ReceiverAccess::VisaIO(std::string_view text) {
    std::string reply;
    m_Went = Transfer(text, reply);
    if (!m_Went)
        g_VisaFail = 1;
    if (g_VisaFail != 0 && !m_SensorOpen && !m_BrokenOff)
        Reconnect();
    return reply;
}

bool ReceiverAccess::Transfer(std::string_view text, std::string& reply) {
    if (!m_Visa || m_SensorOpen || m_BrokenOff)
        return false;
    if (!text.empty())
        return m_Visa->Write(g_VisaSession, text) >= 0;
    std::string bytes;
    if (m_Visa->Read(g_VisaSession, ReplyLimit, bytes) < 0)
        return false;
    reply = bytes.substr(0, std::min(bytes.find('\0'), ReplyLimit));
    return true;
}

std::string ReceiverAccess::Address() const {
    std::string address = m_NamedAddress;
    if (address.empty())
        address = m_Store.Read("gpib_addr.ccz", AddressLimit).value_or("");
    address.resize(std::min(address.find_first_of(std::string_view("\r\n\0", 3)), address.size()));
    return address;
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
    const std::string address = Address();
    if (address.empty() || m_BrokenOff)
        return;
    // Whether somebody is there shows with the next transfer.
    m_Visa->Open(g_VisaRM, address, g_VisaSession);
    if (m_Visa->SetAttribute(g_VisaSession, VisaAttribute::TimeoutMs, AnalyserTimeoutMs) >= 0) {
        g_VisaFail = 0;
        m_Reopened = true;
    }
}

std::optional<std::string> ReceiverAccess::Query(std::string_view command) {
    VisaIO(command);
    if (!m_Went)
        return std::nullopt;
    std::string reply = VisaIO({});
    return m_Went ? std::optional(std::move(reply)) : std::nullopt;
}

Reading ReceiverAccess::ReadSensor(int tries) {
    const std::int64_t end = m_Clock.TickMs() + SensorTimeoutMs;
    int left = SensorTimeoutMs;
    Reading reading = ReadSensorOnce(left);
    while (--tries > 0 && !m_BrokenOff && (left = static_cast<int>(end - m_Clock.TickMs())) > 0 &&
           (!reading.IsLevel() || static_cast<double>(reading.Dbm()) == NoResult))
        reading = ReadSensorOnce(left);
    return reading;
}

Reading ReceiverAccess::ReadSensorOnce(int timeoutMs) {
    double watts = 0;
    if (m_Sensor && !m_BrokenOff)
        m_Sensor->ReadMeasurement(g_SensorSession, SensorChannel, timeoutMs, watts);
    const double milliwatts = watts * 1000.0;
    if (milliwatts == 0 || !std::isfinite(milliwatts))
        return Reading::Missing();
    // A sensor near its zero may give a negative power, which has no level.
    if (milliwatts <= SmallestMilliwatts)
        return Reading::Of(NoResult);
    return Reading::In(Fixed(10.0 * std::log(milliwatts) / std::log(10.0), 3));
}

void ReceiverAccess::BreakOff() {
    m_BrokenOff = true;
    g_VisaFail = 1;
    if (m_Visa)
        m_Visa->Abandon();
    if (m_Sensor)
        m_Sensor->Abandon();
}

bool ReceiverAccess::OpenManager() {
    Close();
    g_VisaFail = 0;
    m_Reopened = false;
    m_Missed = 0;
    return m_Visa && !m_BrokenOff && m_Visa->OpenDefaultRM(g_VisaRM) >= 0;
}

VisaStatus ReceiverAccess::TryOpen(std::string_view address, std::string_view text) {
    if (!m_Visa || m_BrokenOff)
        return visa::ErrorNoLibrary;
    g_VisaSession = 0;
    const VisaStatus opened = m_Visa->Open(g_VisaRM, address, g_VisaSession);
    const VisaStatus written = m_Visa->Write(g_VisaSession, text);
    if (written < 0 && g_VisaSession != 0) {
        m_Visa->Close(g_VisaSession);
        g_VisaSession = 0;
    }
    return written < 0 && opened < 0 ? opened : written;
}

bool ReceiverAccess::SetTimeout(std::uint32_t ms) {
    return m_Visa && m_Visa->SetAttribute(g_VisaSession, VisaAttribute::TimeoutMs, ms) >= 0;
}

bool ReceiverAccess::SetUpMeter() {
    constexpr std::uint32_t FlushOnAccess = 1;
    return SetTimeout(MeterTimeoutMs) && m_Visa->SetBuf(g_VisaSession, MeterBuffer) >= 0 &&
           m_Visa->SetAttribute(g_VisaSession, VisaAttribute::ReadBufferMode, FlushOnAccess) >= 0 &&
           m_Visa->SetAttribute(g_VisaSession, VisaAttribute::WriteBufferMode, FlushOnAccess) >= 0;
}

bool ReceiverAccess::OpenSensor() {
    constexpr double Aperture = 0.01; // s
    constexpr double NoiseRatio = 0.1;
    constexpr double LongestAveraging = 64.0; // s
    Close();
    if (!m_Sensor || m_BrokenOff || m_Sensor->Init("USB::0x0aad::*", true, true, g_SensorSession) != 0)
        return false;
    m_SensorOpen = true;
    m_Sensor->SetContAvAperture(g_SensorSession, SensorChannel, Aperture);
    m_Sensor->SetContAvSmoothingEnabled(g_SensorSession, SensorChannel, true);
    m_Sensor->ConfigureAvgNSRatio(g_SensorSession, SensorChannel, NoiseRatio, LongestAveraging);
    m_Sensor->Initiate(g_SensorSession);
    return true;
}

} // namespace qor
