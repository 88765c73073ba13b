#pragma once

#include "sim/device.h"
#include "sim/instrument_memory.h"
#include "sim/models.h"
#include "sim/pim_model.h"
#include "sim/power_stage.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qor::sim {

struct InstrumentConfig {
    std::string model = "RT-DB22";
    std::string firmware = "6.2"; ///< "1.8" to "6.9", or "ev1.0" to "ev9.9"
    std::string serial = "SIM01"; ///< 1 to 11 printable characters
    std::uint64_t seed = 1;
    bool bridge3dB = false;
    std::string memory{};         ///< bytes written before, as InstrumentMemory::TakeLines has them
    int position = 0;             ///< of the band switch at power-on
    double detectorSlope = 31;    ///< mV a dB
    double detectorOffset = 2780; ///< mV at 0 dBm
};

/// What is wrong with a configuration, for the one who typed it; empty when nothing is.
[[nodiscard]] std::string ConfigFault(const InstrumentConfig& config);

/// Everything that commands set. Frequencies in tenths of MHz, powers in tenths of dBm, as they come.
struct InstrumentSettings {
    int position = 0;
    int order = 3;
    int externalReceiver = 0;
    int frequency1 = 0;
    int frequency2 = 0;
    int power1 = 430;
    int power2 = 430;
    int carrier1 = 0; ///< 1: on
    int carrier2 = 0;
    int sweepStart1 = 0;
    int sweepStart2 = 0;
    int sweepStop1 = 0;
    int sweepStop2 = 0;
    int sweepStep = 10;
    int twoTone = 0;
    int sweep = 0;
    int passDown = 0;
    int passUp = 0;
    int twoToneSeconds = 5;
    int drive = 0;        ///< mV, of a power calibration
    int drivenByHand = 0; ///< 1 from "#KVTAL" until a frequency or a power is set
    int bandSetup = 1;    ///< 0 from "#BDT0" until "#BDT1"
    std::uint8_t status = 'd';
};

/// One analyser, seen from its serial connector: a command in, its reply out.
///
/// To add a command: a row in instrument.cpp's table when it is a text with a number behind it, else a case
/// in Execute.
class Instrument final : public Device {
public:
    /// The configuration must be free of faults; throws std::invalid_argument otherwise.
    explicit Instrument(const InstrumentConfig& config);

    /// Carries out one command, given without its carriage return. The reply comes with its carriage return
    /// and line feed; it is empty where the instrument stays silent.
    [[nodiscard]] std::string Execute(std::string_view command) override;

    /// Time on the instrument's own clock, microseconds; it never runs backwards.
    void SetTime(std::int64_t microseconds) override;
    [[nodiscard]] std::uint64_t Seed() const override { return m_Config.seed; }
    void SetLooseContact(bool loose) override { m_Pim.SetLooseContact(loose); }
    /// Connects a signal generator at the receiver's frequency, or takes it off. What is no number cannot be
    /// read.
    void FeedSignal(std::optional<double> dbm) { m_Generator = dbm; }

    [[nodiscard]] const InstrumentConfig& Config() const { return m_Config; }
    [[nodiscard]] const InstrumentSettings& Settings() const { return m_Settings; }
    [[nodiscard]] const InstrumentMemory& Memory() const { return m_Memory; }
    /// Called with each byte that is written to its memory: page, address, value.
    void SetOnWrite(std::function<void(int, int, int)> onWrite) { m_Memory.SetOnWrite(std::move(onWrite)); }
    /// Its power goes off and comes back: what is not in its memory is as the factory's set-up has left it.
    void Repower() { m_Settings = m_AtPowerOn; }
    /// Band behind the switch, null when there is none.
    [[nodiscard]] const BandHardware* Band() const;
    /// What stands at the port now, as a receiver tuned to the selected order meets it.
    [[nodiscard]] Excitation AtPort() const;
    [[nodiscard]] const PimModel& Pim() const { return m_Pim; }

private:
    struct NumberCommand;
    static const NumberCommand NumberCommands[];

    [[nodiscard]] std::string SetNumber(const NumberCommand& row, std::string_view command);
    [[nodiscard]] std::string ReadMemoryText(std::string_view command) const;
    [[nodiscard]] std::string ReadMemoryBytes(std::string_view command) const;
    [[nodiscard]] std::string WriteMemoryBytes(std::string_view command);
    [[nodiscard]] std::string Status(std::string_view command);
    [[nodiscard]] std::string Level();
    [[nodiscard]] std::string Detector();
    [[nodiscard]] double ReadReceiver();
    [[nodiscard]] double Millivolts(double dbm) const;
    [[nodiscard]] double LevelBehindDetector(double dbm) const;
    [[nodiscard]] Tone AtPort(int tone) const;

    InstrumentConfig m_Config;
    const ModelHardware& m_Model;
    Firmware m_Firmware;
    InstrumentSettings m_Settings;
    InstrumentSettings m_AtPowerOn;
    InstrumentMemory m_Memory;
    PimModel m_Pim;
    PowerStage m_Power;
    std::optional<double> m_Generator;
    std::optional<std::int64_t> m_TimeUs;
};

} // namespace qor::sim
