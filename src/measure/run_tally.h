#pragma once

#include <algorithm>
#include <optional>

namespace qor {

/// Levels that a pass over the curve asks for, and those of them that have come.
struct PassTally {
    int asked = 0;
    int taken = 0;

    [[nodiscard]] bool IsWhole() const { return taken >= asked; }
};

/// How the runs of a press have come to their end.
enum class RunEnd {
    None, ///< they are on, or there were none
    ByItself,
    Stopped,  ///< by the operator
    CutShort, ///< by anything else
};

/// What has come of that which a press of the start button asks for.
class RunTally {
public:
    [[nodiscard]] RunEnd End() const { return m_End; }
    [[nodiscard]] int Asked() const { return m_Asked; }
    [[nodiscard]] int Taken() const { return m_Taken; }
    /// Every level that was asked for is there. What repeats until it is stopped asks for whole passes.
    [[nodiscard]] bool IsComplete() const { return m_Whole && m_Taken > 0 && m_Taken >= m_Asked; }
    /// Of all points since the press, whatever has become of them in the plot, dBm.
    [[nodiscard]] std::optional<float> Highest() const { return m_Highest; }

    void Take(float dBm) { m_Highest = std::max(m_Highest.value_or(dBm), dBm); }
    /// A pass is over.
    void Count(const PassTally& pass) {
        ++m_Passes;
        Add(pass);
        m_Whole = m_Whole && pass.IsWhole();
    }
    void EndByItself() { m_End = RunEnd::ByItself; }
    /// In the middle of a pass, with `runsLeft` of a series behind it. A pass of what repeats counts only
    /// where there is no whole one.
    void EndWithin(RunEnd how, const PassTally& pass, int runsLeft, bool repeats) {
        m_End = how;
        if (repeats && m_Passes > 0 && how == RunEnd::Stopped)
            return;
        Add(pass);
        m_Asked += runsLeft * pass.asked;
    }

private:
    void Add(const PassTally& pass) {
        m_Asked += pass.asked;
        m_Taken += std::min(pass.taken, pass.asked);
    }

    RunEnd m_End = RunEnd::None;
    int m_Passes = 0;
    int m_Asked = 0;
    int m_Taken = 0;
    bool m_Whole = true; ///< no pass that is over has lacked a level
    std::optional<float> m_Highest;
};

} // namespace qor
