#pragma once

#include "platform/clock.h"
#include "platform/visa.h"
#include "sim/analyser.h"

namespace qor::sim {

/// A VISA library with one simulated receiver, which answers at every address. It waits for an answer as a
/// real one does; the sessions are numbered 1, the manager, and 2.
class SimulatedVisa final : public VisaLibrary {
public:
    SimulatedVisa(Receiver& receiver, WallClock& clock) : m_Receiver(receiver), m_Clock(clock) {}

    void SetWhileWaiting(std::function<void()> whileWaiting) override {
        m_WhileWaiting = std::move(whileWaiting);
    }
    void Abandon() override { m_Abandon = true; }

    VisaStatus OpenDefaultRM(VisaSession& manager) override;
    VisaStatus Open(VisaSession manager, std::string_view address, VisaSession& session) override;
    VisaStatus Close(VisaSession session) override;
    VisaStatus SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) override;
    VisaStatus Write(VisaSession session, std::string_view text) override;
    VisaStatus Read(VisaSession session, std::size_t limit, std::string& reply) override;

private:
    Receiver& m_Receiver;
    WallClock& m_Clock;
    std::function<void()> m_WhileWaiting;
    bool m_Open = false;
    bool m_Abandon = false;
    std::int64_t m_TimeoutMs = 2000;
};

/// The library of a simulated USB power sensor. It hears nothing below -73 dBm.
class SimulatedSensor final : public PowerSensorLibrary {
public:
    explicit SimulatedSensor(Receiver& receiver) : m_Receiver(receiver) {}

    [[nodiscard]] std::string Name() override { return "QOR,SIM-SENSOR,SIM01,1.0"; }
    std::int32_t Init(std::string_view, bool, bool, std::uint32_t& session) override {
        session = 1;
        return 0;
    }
    void SetContAvAperture(std::uint32_t, int, double) override {}
    void SetContAvSmoothingEnabled(std::uint32_t, int, bool) override {}
    void ConfigureAvgNSRatio(std::uint32_t, int, double, double) override {}
    void Initiate(std::uint32_t) override {}
    void ReadMeasurement(std::uint32_t session, int channel, int timeoutMs, double& watts) override;
    void Close(std::uint32_t) override {}

private:
    Receiver& m_Receiver;
};

} // namespace qor::sim
