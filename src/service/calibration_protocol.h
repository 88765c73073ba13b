#pragma once

#include "bands/power_table.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// What became of a point.
enum class PointState {
    Written,     ///< both bytes were confirmed
    Unconfirmed, ///< sent, and not confirmed
    Replaced,    ///< a later point has taken its place in the table
};

/// A point of a power calibration.
struct CalibrationPoint {
    int tone = 1;
    int mhz = 0;
    int dBm = 0;
    float drive = 0;   ///< V
    float reading = 0; ///< dBm at the receiver
    TablePlace place;
    int value = 0; ///< mV as written
    PointState state = PointState::Written;
};

/// What is calibrated, and with what.
struct CalibrationHead {
    CalibrationPlan plan;
    std::string model;
    std::string serial;
    float firmware = 0;
    int band = BandNone;
    std::string receiver;
};

/// A power calibration as it is kept: a .csv of its set-up and of every point, which grows with each of them.
/// What a run leaves unfinished is taken up from it again.
class CalibrationProtocol {
public:
    static constexpr std::string_view Kind = "calibration"; ///< in its name
    /// The protocol in a text; nothing when it is none, or a line of it is damaged but the last.
    [[nodiscard]] static std::optional<CalibrationProtocol> Parse(std::string_view text);
    /// The newest unfinished one of this instrument and band in a folder, with its path in place.
    [[nodiscard]] static std::optional<CalibrationProtocol>
    FindUnfinished(const std::filesystem::path& folder, std::string_view model, std::string_view serial,
                   int band);

    CalibrationProtocol() = default;
    CalibrationProtocol(CalibrationHead head, std::filesystem::path path)
        : m_Head(std::move(head)), m_Path(std::move(path)) {}

    [[nodiscard]] const CalibrationHead& Head() const { return m_Head; }
    [[nodiscard]] const std::vector<CalibrationPoint>& Points() const { return m_Points; }
    [[nodiscard]] bool IsFinished() const { return m_End == Finished; }
    [[nodiscard]] const std::filesystem::path& Path() const { return m_Path; }
    /// The point that stands in the table, written and confirmed; null where there is none.
    [[nodiscard]] const CalibrationPoint* Find(int tone, int mhz, int dBm) const;

    /// Writes what there is, as at the beginning of a run. False when the file cannot be written.
    [[nodiscard]] bool Save() const;
    /// A point more, also in the file; an earlier one in its place is replaced by it. False when the file
    /// cannot be written.
    bool Add(const CalibrationPoint& point);
    /// The run is over: "finished", or why not. The whole file is written anew, with what was replaced.
    bool End(std::string_view how);

    [[nodiscard]] std::string Text() const;

    static constexpr std::string_view Finished = "finished";

private:
    CalibrationHead m_Head;
    std::filesystem::path m_Path;
    std::vector<CalibrationPoint> m_Points;
    std::string m_End;
};

} // namespace qor
