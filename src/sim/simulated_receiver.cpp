#include "sim/simulated_receiver.h"

#include <algorithm>
#include <cmath>

namespace qor::sim {

namespace {

constexpr VisaSession Manager = 1;
constexpr VisaSession Session = 2;
constexpr int LookMs = 5; ///< while an answer is in the making
constexpr int WhileWaitMs = 50;

} // namespace

VisaStatus SimulatedVisa::OpenDefaultRM(VisaSession& manager) {
    manager = Manager;
    return visa::Success;
}

VisaStatus SimulatedVisa::Open(VisaSession manager, std::string_view, VisaSession& session) {
    if (manager != Manager)
        return visa::ErrorInvalidObject;
    m_Receiver.Clear();
    m_TimeoutMs = 2000;
    m_Open = true;
    session = Session;
    return visa::Success;
}

VisaStatus SimulatedVisa::Close(VisaSession session) {
    if (session == Session)
        m_Open = false;
    return visa::Success;
}

VisaStatus SimulatedVisa::SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) {
    if (session != Session || !m_Open)
        return visa::ErrorInvalidObject;
    if (attribute == VisaAttribute::TimeoutMs)
        m_TimeoutMs = value;
    return visa::Success;
}

VisaStatus SimulatedVisa::Write(VisaSession session, std::string_view text) {
    if (session != Session || !m_Open)
        return visa::ErrorInvalidObject;
    if (m_Receiver.CutsNow()) {
        m_Open = false;
        return visa::ErrorConnectionLost;
    }
    m_Receiver.Write(text, m_Clock.TickMs());
    return visa::Success;
}

VisaStatus SimulatedVisa::Read(VisaSession session, std::size_t limit, std::string& reply) {
    reply.clear();
    if (session != Session || !m_Open)
        return visa::ErrorInvalidObject;
    const std::int64_t begin = m_Clock.TickMs();
    std::int64_t lived = begin;
    m_Abandon = false;
    for (;;) {
        const std::int64_t now = m_Clock.TickMs();
        if (auto answer = m_Receiver.Read(now)) {
            reply = *answer + '\n';
            reply.resize(std::min(reply.size(), limit));
            return visa::Success;
        }
        if (now - begin >= m_TimeoutMs || m_Abandon) {
            m_Receiver.Clear(); // what comes late answers nobody
            return visa::ErrorTimeout;
        }
        if (now - lived >= WhileWaitMs && m_WhileWaiting) {
            m_WhileWaiting();
            lived = m_Clock.TickMs();
        }
        m_Clock.Sleep(LookMs);
    }
}

void SimulatedSensor::ReadMeasurement(std::uint32_t, int, int, double& watts) {
    constexpr double Deafness = -73; // dBm
    const double level = m_Receiver.Level();
    watts = std::pow(10.0, (level < Deafness ? -120 : level) / 10) / 1000;
}

} // namespace qor::sim
