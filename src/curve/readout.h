#pragma once

#include <optional>

namespace qor {

class Curve;

/// What the boxes below the plot stand for: the tones and the product set last, and the level read last.
/// Nothing in it before the first run or band.
class Readout {
public:
    /// MHz.
    void ShowTones(double f1, double f2) {
        m_F1 = f1;
        m_F2 = f2;
    }
    void ShowF1(double f1) { m_F1 = f1; }
    void ShowF2(double f2) { m_F2 = f2; }
    void ShowIm(double frequency) { m_Im = frequency; }
    [[nodiscard]] std::optional<double> F1() const { return m_F1; }
    [[nodiscard]] std::optional<double> F2() const { return m_F2; }
    [[nodiscard]] std::optional<double> Im() const { return m_Im; }

    /// A reading, dBm with its corrections. False when it comes too late: a stopped run shows its worst.
    bool ShowLevel(float dBm) {
        if (m_Frozen)
            return false;
        m_Level = dBm;
        return true;
    }
    /// The level a run leaves behind; nothing when it has none.
    void EndWith(std::optional<float> dBm) { m_Level = dBm; }
    /// The same for a stopped run, whose last replies are still to come.
    void FreezeAt(std::optional<float> dBm) {
        m_Level = dBm;
        m_Frozen = true;
    }
    void ClearLevel() {
        m_Level.reset();
        m_Frozen = false;
    }
    [[nodiscard]] std::optional<float> Level() const { return m_Level; } ///< dBm
    [[nodiscard]] bool IsFrozen() const { return m_Frozen; }

private:
    std::optional<double> m_F1; ///< MHz
    std::optional<double> m_F2; ///< MHz
    std::optional<double> m_Im; ///< MHz
    std::optional<float> m_Level;
    bool m_Frozen = false; ///< late replies change nothing
};

/// A level of dBm in the unit shown.
[[nodiscard]] float InShownUnit(const Curve& curve, float dBm);
/// Highest level of the curve in the unit shown; nothing when it has no point.
[[nodiscard]] std::optional<float> ShownWorstLevel(const Curve& curve);
/// MHz. Nothing for files too old to say it, too.
[[nodiscard]] std::optional<float> WorstFrequency(const Curve& curve);

} // namespace qor
