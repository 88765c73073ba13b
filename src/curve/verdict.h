#pragma once

#include <optional>

namespace qor {

/// What a measurement is worth. None: it was not judged, it is on, or it is not complete.
enum class Verdict { None, Passed, Failed, Error };

/// How the runs of a press of the start button have come to their end.
enum class RunEnd {
    None, ///< they are on, or there were none
    ByItself,
    Stopped,  ///< by the operator
    CutShort, ///< by anything else
};

/// What is known of a measurement: all that its verdict rests on.
struct RunFacts {
    int asked = 0;                ///< readings that it asks for
    int taken = 0;                ///< of them, those whose level has come
    std::optional<float> highest; ///< dBm, of every level that came, wherever it has gone since
    RunEnd end = RunEnd::None;
    int error = 0; ///< reply of the instrument: 2 syntax error, 3 out of range, 4 PLL not locked; 0 none,
                   ///< any other: a file does not tell which
    bool hasFailed = false; ///< its file states so, because of a level that it does not hold
    double limit = 0;       ///< dBm
    bool watched = true;    ///< levels are held against the limit
    float floor = -1000;    ///< dBm: the receiver hears nothing below, and a limit there tells nothing

    [[nodiscard]] bool IsComplete() const { return taken > 0 && taken >= asked; }
    /// It is over before every level has come: "n of m points" stands beside whatever is said of it.
    [[nodiscard]] bool IsPartial() const { return end != RunEnd::None && taken < asked; }
};

/// True for a level (dBm) that stands above the limit by more than 0.01 dB.
[[nodiscard]] bool IsAboveLimit(float level, double limit);

/// The one author of every verdict. An error of the instrument outranks all; a level over the limit has
/// failed whatever else happened. Passed is earned by every level that was asked for, or by those that the
/// operator had seen when he stopped.
[[nodiscard]] Verdict Judge(const RunFacts& facts);

} // namespace qor
