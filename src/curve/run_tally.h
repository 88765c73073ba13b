#pragma once

#include "curve/verdict.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace qor {

/// Levels that a pass over the curve asks for, and those of them that have come.
struct PassTally {
    int asked = 0;
    int taken = 0;
};

/// What has come of that which a press of the start button asks for, run by run; or what a file tells of its
/// curve. The facts it gives lack the limit, which is not its own.
class RunTally {
public:
    /// The receiver of the runs hears nothing below, dBm.
    void SetFloor(float dBm) { m_Floor = dBm; }
    /// A run begins in a row of the plot. What stood there before stays known.
    void Begin(std::size_t row);
    /// A level has become a point, dBm.
    void Take(float dBm);
    /// A pass is over.
    void Count(const PassTally& pass);
    void EndByItself() { m_End = RunEnd::ByItself; }
    /// In the middle of a pass, with `runsLeft` of a series behind it. Of what repeats until it is stopped a
    /// whole pass is enough.
    void EndWithin(RunEnd how, const PassTally& pass, int runsLeft, bool repeats);
    /// The instrument has answered with an error: 2 to 4.
    void NoteError(int error) { m_Error = error; }
    [[nodiscard]] bool HasError() const { return m_Error != 0; }
    /// The curve is that of a file.
    void Load(const RunFacts& facts);

    [[nodiscard]] RunFacts OfAll() const;
    /// Of the run in a row of the plot.
    [[nodiscard]] RunFacts OfRow(std::size_t row) const;
    /// Of the run made last alone. It is over as soon as a pass of it is.
    [[nodiscard]] RunFacts OfLast() const;

private:
    struct Levels {
        int asked = 0; ///< of all passes
        int taken = 0;
        int inWhole = 0; ///< asked for by those passes that lack nothing
        int passes = 0;
        PassTally rest; ///< of the pass that the run was ended in
        std::optional<float> highest;

        void Add(const Levels& other);
    };

    [[nodiscard]] Levels& Current();
    [[nodiscard]] RunFacts FactsOf(const Levels& levels, RunEnd end) const;

    Levels m_Gone;              ///< runs whose row has been taken by another
    std::vector<Levels> m_Runs; ///< by their row
    int m_RunsLeft = 0;
    bool m_Repeats = false;
    RunEnd m_End = RunEnd::None;
    int m_Error = 0;
    float m_Floor = RunFacts{}.floor;
    std::optional<RunFacts> m_Loaded;
};

} // namespace qor
