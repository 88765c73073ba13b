#pragma once

#include "bands/power_table.h"
#include "base/outcome.h"
#include "link/command_queue.h"
#include "platform/timers.h"
#include "service/calibration_protocol.h"
#include "service/drive_row.h"
#include "service/service_activity.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qor {

class FactoryMode;
class LevelSources;
class ReceiverState;
class WorkingSet;
struct LinkState;
struct Platform;

/// Timers of a calibration and their periods in ms: a step of the search, the end of a run.
enum CalibrationTimer : int { CalibrationStepTimer = 19, calclosetimer = 30 };
inline constexpr int CalibrationStepPeriod = 100;
inline constexpr int CalibrationClosePeriod = 1500;

/// How far a calibration has come.
struct CalibrationProgress {
    bool isOn = false;
    bool isStopping = false;
    int done = 0; ///< points written
    int total = 0;
    int secondsLeft = 0;
    int tone = 0;
    int mhz = 0;
    int dBm = 0;
    float drive = 0;              ///< V
    std::optional<float> reading; ///< dBm at the receiver
    std::vector<std::string> log; ///< a line for each point, "925, 36.0, 1.234"
};

/// What a calibration works with.
struct CalibrationRooms {
    FactoryMode& factory;
    LinkState& link;
    const WorkingSet& working;
    const ReceiverState& receiver;
    LevelSources& sources;
};

/// A run of the power calibration: for each tone, frequency and level the drive voltage is looked for by
/// halving, with an external receiver behind an attenuator, and written into the table of the instrument,
/// each byte confirmed.
///
/// A timer makes the steps, one whenever the line has nothing to do. Whatever ends a run switches both
/// carriers off and keeps the protocol of what was written.
class PowerCalibration final : public ServiceActivity, private Asker {
public:
    PowerCalibration(const CalibrationRooms& rooms, const Platform& platform, std::filesystem::path folder,
                     std::function<void(const Outcome&)> tell);

    /// What stands in the way of a run, or of its check; `noTone` where neither tone is ticked.
    [[nodiscard]] Outcome Check(const CalibrationPlan& plan, const Outcome& noTone) const;
    /// Begins a run. Nothing stands in its way.
    void Begin(const CalibrationPlan& plan);
    /// Begins where an unfinished run has ended.
    void Continue(CalibrationProtocol protocol);
    /// An unfinished run of the instrument and the band in force.
    [[nodiscard]] std::optional<CalibrationProtocol> Unfinished() const;
    /// The operator's stop: a pair of bytes that is under way is finished.
    void PressStop();
    /// An error of the instrument ends the run.
    void InstrumentRefuses();

    [[nodiscard]] bool IsOn() const { return m_Progress.isOn; }
    [[nodiscard]] const CalibrationProgress& Progress() const { return m_Progress; }
    [[nodiscard]] const std::filesystem::path& ProtocolPath() const { return m_Protocol.Path(); }

    void Stop() override;
    void ContactIsLost() override;

private:
    /// A point that is still to do.
    struct Task {
        int tone;
        int mhz;
        std::size_t level; ///< index in the row
    };

    [[nodiscard]] TableOwner Owner() const;
    void Plan();
    void Start(CalibrationProtocol protocol);
    void OnStep();
    void OnClose();
    void BeginTone();
    void BeginRow();
    void FirstDrive();
    void QueueDrive();
    void QueuePower(int dBm);
    void QueueFrequency(bool first);
    [[nodiscard]] std::optional<float> Read();
    void TakeReading(float reading);
    void PointIsFound();
    void WritePair(const CalibrationPoint& point);
    void Answered(int tag, std::string_view reply) override;
    void PairIsOver(bool confirmed, const std::string& place);
    void NextPoint();
    void CountTime();
    void End(Outcome outcome, std::string_view how);
    void GoIdle();
    void SaveEnd(std::string_view how);
    [[nodiscard]] std::size_t LearnsTo() const;
    [[nodiscard]] const Task& Now() const { return m_Tasks[m_Task]; }

    CalibrationRooms m_Rooms;
    const Platform& m_Platform;
    std::filesystem::path m_Folder;
    std::function<void(const Outcome&)> m_Tell;
    Timer m_StepTimer;
    Timer m_CloseTimer;

    CalibrationProgress m_Progress;
    CalibrationProtocol m_Protocol;
    std::vector<Task> m_Tasks;
    std::size_t m_Task = 0;
    std::vector<int> m_Levels;
    DriveRow m_FirstRow; ///< of the tone: the others begin near it
    DriveRow m_Row;      ///< of the frequency in progress
    bool m_RowIsFirst = false;
    float g_calDrive = 0; ///< V on the instrument now
    int m_Millivolts = 0; ///< the same as it was sent
    bool m_Begun = false; ///< a tick has passed since the start
    bool m_UpperRange = false;
    bool m_Repeated = false; ///< the point was begun again from 0 to 5 V
    int m_Tries = 0;         ///< readings of the point that did not come
    bool m_PairIsOut = false;
    CalibrationPoint m_Pair;
    Outcome m_Ending = Outcome::Done(); ///< what is told once the carriers are off
    std::string m_How;
    std::int64_t m_PointSinceMs = 0;
    std::int64_t m_ClosingSinceMs = 0;
    double m_MsPerPoint = 0;
    bool m_WriteFailed = false; ///< of the protocol, told once
};

} // namespace qor
