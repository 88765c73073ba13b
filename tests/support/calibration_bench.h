#pragma once

#include "base/firmware.h"
#include "service/calibration_protocol.h"
#include "sim/simulated_receiver.h"
#include "support/wire_reading.h"

#include <memory>
#include <string>

namespace qor::test {

/// A program on its calibration page, with a receiver at the instrument's port behind an attenuator.
class CalibrationBench {
public:
    explicit CalibrationBench(const sim::InstrumentConfig& config, bool withAnalyser = false)
        : rig(config, withAnalyser ? &m_Visa : nullptr, withAnalyser ? nullptr : &m_Sensor),
          receiver(withAnalyser ? sim::ReceiverKind::Analyser : sim::ReceiverKind::Nrp, rig.instrument,
                   config.seed) {
        receiver.PutToPort(Cell);
        m_Visa.real = std::make_unique<sim::SimulatedVisa>(receiver, rig.time.clock);
        m_Sensor.real = std::make_unique<sim::SimulatedSensor>(receiver);
        rig.Store().Write("gpib_addr.ccz", "TCPIP0::lab::5025::SOCKET");
        rig.Store().Write("rs_ANALYZER_setup.ccz", "910#0#10#100#0#0#6#6#");
    }

    static constexpr double Cell = 50; ///< dB

    /// Ready on a band, the page open, both tones ticked over a few frequencies.
    bool Open(int band) {
        if (!rig.PowerOn() || !rig.SelectBand(band) || !rig.program.Receiver().UseExternalNow({}).IsDone())
            return false;
        S().factory.Enter("740261", rig.time.clock.TickMs());
        const bool open = rig.Done(rig.program.Service().PressPage(ServicePage::Calibration));
        CalibrationPlan plan = Desk().Plan();
        plan.attenuation = Cell;
        Desk().SetPlan(plan);
        return open && rig.RunUntilIdle();
    }
    /// The first frequencies of each tone, and levels around the change of the range.
    void Shorten(int frequencies, int from, int to) {
        CalibrationPlan plan = Desk().Plan();
        for (ToneRange* tone : {&plan.f1, &plan.f2})
            tone->stop = std::min(tone->stop, tone->start + (frequencies - 1) * tone->delta);
        plan.powStart = from;
        plan.powStop = to;
        Desk().SetPlan(plan);
    }
    /// Every entry of the tables holds a drive of nothing: what is read back has been written.
    void SpoilTables() {
        const int pages = FirmwareFrom(S().link.identity.Firmware(), 50) ? 108 : 56;
        for (int page = 0; page < pages; ++page)
            for (int address = 0; address < 256; ++address)
                static_cast<void>(rig.instrument.Execute(std::string("$KVTWE") + static_cast<char>(page) +
                                                         static_cast<char>(address) + '\0'));
    }
    bool Calibrate() { return rig.Done(Desk().PressRun()) && RunUntilOver(); }
    bool RunUntilOver(std::int64_t limitMs = 24LL * 3600 * 1000) {
        return rig.time.RunUntil([this] { return !Desk().Power().IsOn(); }, limitMs) && rig.RunUntilIdle();
    }
    bool RunUntilPoints(int count) {
        return rig.time.RunUntil([&] { return Desk().Power().Progress().done >= count; }, 3600 * 1000);
    }
    bool ReadBack() { return rig.Done(Desk().PressRead()) && rig.RunUntilRunIsOver(24LL * 3600 * 1000); }
    [[nodiscard]] bool CarriersAreOn() const {
        const sim::InstrumentSettings& now = rig.instrument.Settings();
        return now.carrier1 != 0 || now.carrier2 != 0 || now.twoTone != 0;
    }
    /// What stands in an entry of the instrument's tables, mV.
    [[nodiscard]] int Entry(const TablePlace& place) const {
        const auto at = [&](std::uint8_t page) {
            return rig.instrument.Memory().Read(page, place.address).value_or(0);
        };
        return at(place.pageHigh) * 256 + at(place.pageLow);
    }
    /// The protocol of the last run, as it lies on the disk.
    [[nodiscard]] CalibrationProtocol Protocol() {
        return CalibrationProtocol::Parse(FileText(rig.program.Calibrations().Power().ProtocolPath()))
            .value_or(CalibrationProtocol());
    }
    /// What the protocol calls written stands in the instrument.
    [[nodiscard]] bool ProtocolIsTrue() {
        const CalibrationProtocol protocol = Protocol();
        return std::ranges::all_of(protocol.Points(), [&](const CalibrationPoint& point) {
            return point.state != PointState::Written || Entry(point.place) == point.value;
        });
    }
    [[nodiscard]] Session& S() { return rig.S(); }
    [[nodiscard]] CalibrationDesk& Desk() { return rig.program.Calibrations(); }
    void LoseReceiver() { m_Sensor.gone = true; }
    [[nodiscard]] const std::vector<std::string>& VisaTexts() const { return m_Visa.texts; }

private:
    struct LateVisa final : VisaLibrary {
        VisaStatus OpenDefaultRM(VisaSession& m) override { return real->OpenDefaultRM(m); }
        VisaStatus Open(VisaSession m, std::string_view a, VisaSession& s) override {
            return real->Open(m, a, s);
        }
        VisaStatus Close(VisaSession s) override { return real->Close(s); }
        VisaStatus SetAttribute(VisaSession s, VisaAttribute a, std::uint32_t v) override {
            return real->SetAttribute(s, a, v);
        }
        VisaStatus Write(VisaSession s, std::string_view t) override {
            texts.emplace_back(t);
            return real->Write(s, t);
        }
        VisaStatus Read(VisaSession s, std::size_t n, std::string& r) override { return real->Read(s, n, r); }
        std::unique_ptr<sim::SimulatedVisa> real;
        std::vector<std::string> texts;
    } m_Visa;
    struct LateSensor final : PowerSensorLibrary {
        std::int32_t Init(std::string_view, bool, bool, std::uint32_t&) override { return 0; }
        void SetContAvAperture(std::uint32_t, int, double) override {}
        void SetContAvSmoothingEnabled(std::uint32_t, int, bool) override {}
        void ConfigureAvgNSRatio(std::uint32_t, int, double, double) override {}
        void Initiate(std::uint32_t) override {}
        void ReadMeasurement(std::uint32_t s, int c, int t, double& watts) override {
            if (!gone)
                real->ReadMeasurement(s, c, t, watts);
        }
        void Close(std::uint32_t) override {}
        std::unique_ptr<sim::SimulatedSensor> real;
        bool gone = false;
    } m_Sensor;

public:
    Rig rig;
    sim::Receiver receiver;
};

/// Largest difference of the powers that were read back from their targets, dB; 1000 when there are none.
[[nodiscard]] inline double LargestError(std::string_view protocol) {
    double largest = 1000;
    bool first = true;
    while (!protocol.empty()) {
        const std::string_view line = protocol.substr(0, protocol.find('\n'));
        protocol.remove_prefix(std::min(line.size() + 1, protocol.size()));
        if (line.starts_with("tone"))
            continue;
        const double error = std::abs(std::stod(std::string(line.substr(line.rfind(',') + 1))));
        largest = first ? error : std::max(largest, error);
        first = false;
    }
    return largest;
}

} // namespace qor::test
