#pragma once

#include "bands/power_table.h"
#include "measure/stepped_shape.h"
#include "platform/clock.h"

#include <filesystem>
#include <string>
#include <vector>

namespace qor {

/// The check of a power calibration: one tone at a time goes through the frequencies of the calibration at
/// each of its levels, and an external receiver measures what really comes out. One run a level, power over
/// frequency.
class ReadBack final : public SteppedShape {
public:
    ReadBack(const RunParts& parts, std::filesystem::path folder, const WallClock& clock);

    /// What is read back, before the run begins. The plan fits the tables.
    void SetPlan(const CalibrationPlan& plan);
    [[nodiscard]] std::size_t Levels() const { return m_Levels.size(); }
    /// Of the run record: the tones that it begins with.
    [[nodiscard]] FrequencyPlan Tones() const;

    void Begin() override;
    void Repeat() override { NextLevel(); }
    void Finish() override;
    void Stop() override;

    [[nodiscard]] bool HasFurtherLevel() const;
    /// The run of the next level, in a row of its own. The curve has counted it.
    void NextLevel();
    /// Nothing goes out: the power sensor has not settled yet.
    [[nodiscard]] bool HoldsLine() const;
    /// Where the powers were written; empty when that failed.
    [[nodiscard]] const std::filesystem::path& ProtocolPath() const { return m_Path; }

private:
    struct Power {
        int tone;
        float mhz;
        int target;  ///< dBm
        float level; ///< dBm at the port
    };

    void NextStep() override;
    void QueueCarriersOff() override;
    [[nodiscard]] float Kept(const Reading& reading) const override;
    void ShowKept(float dBm) override;
    void TonesMoved(float mhz, bool down) override;
    void Stored(float mhz, float dBm, bool down) override;
    [[nodiscard]] bool IsLastPass() const override { return !HasFurtherLevel(); }

    void BeginLevel(StartCommands commands);
    void AddPoint(StartCommands& commands, int tone, int mhz, int tag) const;
    void QueuePoint(int tone, int mhz, int tag);
    void WaitForSensor();
    [[nodiscard]] bool SensorSettles();
    [[nodiscard]] int Level() const;
    [[nodiscard]] int FirstTone() const { return m_Plan.useF1 ? 1 : 2; }
    [[nodiscard]] const std::vector<int>& Frequencies(int tone) const { return tone == 1 ? m_F1 : m_F2; }
    void SaveProtocol();

    std::filesystem::path m_Folder;
    const WallClock& m_Clock;
    CalibrationPlan m_Plan;
    std::vector<int> m_F1; ///< MHz
    std::vector<int> m_F2;
    std::vector<int> m_Levels; ///< dBm
    int g_SensorWait = 0;      ///< ticks waited for the sensor's first reading; 0: it is not waited for
    std::vector<Power> m_Powers;
    std::filesystem::path m_Path;
};

} // namespace qor
