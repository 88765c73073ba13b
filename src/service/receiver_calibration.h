#pragma once

#include "bands/power_table.h"
#include "base/outcome.h"
#include "link/command_queue.h"
#include "service/memory_talk.h"
#include "service/service_activity.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qor {

class FactoryMode;
class WorkingSet;
struct LinkState;
struct Platform;

/// Characteristic of the receiver's detector, as the instrument keeps it: mV a dB, and mV at 0 dBm.
struct DetectorLine {
    int slope = 0;
    int offset = 0;
    bool operator==(const DetectorLine&) const = default;
};

/// From the detector's readings at -50 and at -80 dBm, mV.
[[nodiscard]] DetectorLine DetectorFrom(int volt50, int volt80);

/// Product of two carriers in whole MHz, where carriers and product lie within the ranges of the band.
[[nodiscard]] std::optional<int> SignalFrequency(const CalibrationRow& row, int band, int imIndex, double f1,
                                                 double f2);

/// Calibration of the instrument's receiver with a signal generator: two readings of its detector, and what
/// follows from them into its memory, for all bands and for the one in force.
class ReceiverCalibration final : public ServiceActivity, private Asker {
public:
    struct Rooms {
        FactoryMode& factory;
        LinkState& link;
        const WorkingSet& working;
    };
    enum class Signal { Strong, Weak }; ///< -50 and -80 dBm

    ReceiverCalibration(const Rooms& rooms, const Platform& platform,
                        std::function<void(const Outcome&)> tell);

    /// Carriers as they stand in the fields, MHz.
    [[nodiscard]] const std::string& F1() const { return m_rxCalF1; }
    [[nodiscard]] const std::string& F2() const { return m_rxCalF2; }
    /// What the generator has to be set to, whole MHz; nothing where no product falls into the band.
    [[nodiscard]] std::optional<int> SignalMhz() const { return m_Signal; }
    /// Readings in mV; nothing before the first, and while one is awaited.
    [[nodiscard]] std::optional<int> Reading(Signal signal) const;
    [[nodiscard]] bool IsReading() const;

    /// Another band: its carriers, and nothing is read.
    void TakeBand(const CalibrationRow& row);
    /// An edit, or another order: renews the hint. Refused without an order.
    Outcome SetCarriers(std::string f1, std::string f2);
    Outcome RenewHint();
    /// Asks the detector. One reading at a time.
    Outcome Read(Signal signal);
    /// Slope and offset into the memory.
    Outcome Write();

    void Stop() override;

private:
    void Answered(int tag, std::string_view reply) override;

    Rooms m_Rooms;
    const Platform& m_Platform;
    std::function<void(const Outcome&)> m_Tell;
    MemoryTalk m_Talk;
    std::string m_rxCalF1;
    std::string m_rxCalF2;
    std::optional<int> m_Signal; ///< MHz of the hint
    int g_volt50 = 0;            ///< -1 while it is awaited
    int g_volt80 = 0;
    std::optional<Signal> m_Awaited;
};

} // namespace qor
