#pragma once

#include "bands/band.h"
#include "curve/verdict.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

enum class ResultMethod { TwoTone, Sweep, Spectrum };

using ResultVerdict = Verdict;

/// A level at its place.
struct ResultPoint {
    double x = 0;    ///< 2-tone: seconds since the start; else the frequency of the product in MHz
    float level = 0; ///< dBm, absolute in either unit; 0.0 where there is none

    [[nodiscard]] bool HasLevel() const { return level != 0.0f; }
    bool operator==(const ResultPoint&) const = default;
};

/// One run of a result.
struct ResultRun {
    std::vector<ResultPoint>
        up; ///< 2-tone: in time order, gaps included; sweep: the half in which tone 1 moves
    std::vector<ResultPoint> down; ///< sweep: the half in which tone 2 moves; both rise in frequency

    bool operator==(const ResultRun&) const = default;
};

/// The two tones that were on, MHz.
struct ResultTones {
    float f1 = 0;
    float f2 = 0;
};

/// What was measured: the one value from which every form of a result is written, and into which every reader
/// reads. A plain value that knows nothing of a session.
struct ResultDocument {
    /// The oldest files hold levels alone: of the head they know the method, and nothing else.
    bool hasHead = true;

    int band = BandNone;       ///< band of the carriers
    int order = 3;             ///< 3, 5, 7, 9, 11; 2 to 5 between bands; 0 unknown
    ImCoefficients product;    ///< frequency of the product: high * f1 - low * f2,
    bool upperProduct = false; ///< or, where it is received above the carriers, high * f2 - low * f1
    ResultMethod method = ResultMethod::TwoTone;
    std::string interBand;          ///< product between bands: the receive band, "DCS 1800"; else empty
    std::optional<bool> reflection; ///< reflection or transmission; files do not know

    std::string model;             ///< of the instrument that measured
    std::optional<float> firmware; ///< files do not know
    std::string serial;            ///< of the instrument that measured
    std::string receiver;          ///< the external one that measured, as it names itself; empty: the own one
    std::optional<float> floor;    ///< dBm: that one hears nothing below, and a limit there tells nothing
    std::string deviceSerial;      ///< of the device under test
    std::string date;              ///< "YYYYMMDD"
    std::string time;              ///< "HH:MM"
    std::string comment;           ///< as it is stored, line feeds alone
    bool statesRemarks = true;     ///< false: the form has no comment and no serial number of the device

    /// As measured, MHz; 0 for what a file does not state. A 2-tone file knows f1, f2 and the ends of the
    /// sweep, a sweep file the held tones and the ends; the step follows from its rows.
    FrequencyPlan plan;
    float power1 = 43; ///< dBm at the device under test
    float power2 = 43;

    bool inDbc = false;         ///< unit that the operator chose
    float carrier = 43;         ///< dBm, reference of dBc
    std::optional<float> limit; ///< dBm, absolute in either unit

    int msPerPoint = 0;          ///< 2-tone: time between points
    int lengthMs = 0;            ///< 2-tone: length of a run
    std::vector<ResultRun> runs; ///< at least one; the last one is what a .dat holds

    ResultVerdict verdict = ResultVerdict::None;
    int error = 0; ///< with Error, the instrument's reply: 2 syntax error, 3 out of range, 4 PLL not locked;
                   ///< 0 unknown
    std::size_t pointsTaken = 0; ///< n of "n of m points", of the last run
    std::size_t pointsAsked = 0; ///< m; 0: nobody knows
    /// The file states the verdict of its run beside its rows, because they alone do not tell it.
    bool marked = false;

    /// Name of the file it was read from; empty for a result of this session.
    std::string source;
    /// False for what came from anything else than a .dat: no official report is made of it.
    bool genuine = true;
};

/// The level in the unit of the document; 0.0 stays what it is: no level.
[[nodiscard]] float InUnit(const ResultDocument& document, float level);
/// "dBm" or "dBc".
[[nodiscard]] std::string_view UnitText(const ResultDocument& document);
/// Band as a report names it, "EGSM 900"; empty where it is not known.
[[nodiscard]] std::string_view BandName(const ResultDocument& document);
/// "IM3", "Inter-band IM2"; empty where it is not known.
[[nodiscard]] std::string OrderText(const ResultDocument& document);
/// "2026-03-07 09:05"; empty where it is not known.
[[nodiscard]] std::string DateText(const ResultDocument& document);
/// True for a result that is over before all of its points are there: "n of m points" stands beside its
/// verdict.
[[nodiscard]] bool IsPartial(const ResultDocument& document);

/// "passed", "failed", "error" or "none".
[[nodiscard]] std::string_view VerdictWord(ResultVerdict verdict);
[[nodiscard]] std::optional<ResultVerdict> VerdictOfWord(std::string_view word);
/// How far a result is from a bare pass: 0 for one, then partly passed, not judged, failed, ended by an
/// error.
[[nodiscard]] int DistanceFromPass(const ResultDocument& document);

/// Product of the two tones of a 2-tone result, MHz.
[[nodiscard]] float TwoToneProduct(const ResultDocument& document);
/// The tones that were on when a point was taken. In a sweep they follow from the held tone and the frequency
/// of the product, to the tenths of MHz that the instrument is set in; `down` tells the half.
[[nodiscard]] ResultTones TonesAt(const ResultDocument& document, const ResultPoint& point, bool down);

/// The highest level of all runs and the frequency of its product; nothing without a level. Of equal ones the
/// earliest counts, and a later one only where it is higher by more than 0.05 dB.
struct ResultWorst {
    float level = 0;     ///< dBm
    float frequency = 0; ///< MHz; in 2-tone that of the one product
};
[[nodiscard]] std::optional<ResultWorst> WorstOf(const ResultDocument& document);
/// Levels that are there in the last run.
[[nodiscard]] std::size_t PointsOf(const ResultDocument& document);

} // namespace qor
