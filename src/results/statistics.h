#pragma once

#include "base/outcome.h"
#include "results/result_document.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qor {

/// A level of a curve at its place: tenths of MHz, in 2-tone whole seconds. Of several levels at one place,
/// as in the two halves of a sweep, the highest.
struct CurvePlace {
    int place = 0;
    float level = 0; ///< dBm
    bool operator==(const CurvePlace&) const = default;
};

/// What is measured alike: results of one kind can be compared.
struct SeriesKind {
    int band = BandNone;
    std::string interBand; ///< receive band of a product between bands
    int order = 0;
    ResultMethod method = ResultMethod::TwoTone;

    [[nodiscard]] bool OverTime() const { return method == ResultMethod::TwoTone; }
    auto operator<=>(const SeriesKind&) const = default;
};

/// One run of a series: a device, its worst point and its verdict.
struct SeriesRun {
    std::string file;   ///< its name
    std::string device; ///< serial number; of a device without one the file's name without its ending
    std::string date;   ///< "2026-03-07 09:05"; empty where it is not known
    SeriesKind kind;
    ResultVerdict verdict = ResultVerdict::None;
    std::optional<ResultWorst> worst; ///< nothing without a level
    std::optional<float> limit;       ///< dBm
    std::vector<CurvePlace> curve;    ///< by place

    /// How far the worst level lies below the limit, dB.
    [[nodiscard]] std::optional<double> Margin() const;
};
[[nodiscard]] SeriesRun SeriesRunOf(const ResultDocument& document);

/// How many values lie in steps of equal width; one on an edge belongs to the step above it.
struct Histogram {
    double from = 0; ///< lower edge of the first step, dBm
    double step = 1; ///< dB
    std::vector<int> counts;
};

/// Worst level over time.
struct Trend {
    struct Point {
        double hours = 0; ///< since the first run
        double level = 0; ///< dBm
    };
    std::vector<Point> points; ///< runs whose time is known, in order
    /// The straight line with the least squares; nothing with fewer than two moments.
    struct Line {
        double level = 0; ///< at 0 h, dBm
        double slope = 0; ///< dB an hour
    };
    std::optional<Line> line;
};

/// The levels of all runs at one place of the curve.
struct Spread {
    int place = 0; ///< as in CurvePlace
    float low = 0; ///< dBm
    float median = 0;
    float high = 0;
};

/// All runs of one kind.
struct SeriesStatistics {
    SeriesKind kind;
    std::vector<std::size_t> runs; ///< indices, by time and file; those whose time is not known first

    std::size_t passed = 0;
    std::size_t failed = 0;
    std::size_t withoutVerdict = 0; ///< none, or ended by an error: listed, and not counted in the yield
    std::optional<double> yield;    ///< passed, of those with a verdict; 0 to 1

    // Of the worst levels of the runs that have one.
    std::size_t levels = 0;
    std::optional<double> mean;      ///< dBm
    std::optional<double> deviation; ///< of a sample, dB; with two levels and more
    std::optional<double> worst;     ///< dBm
    Histogram histogram;
    Trend trend;
    std::vector<Spread> spread;

    // Of the runs with a limit.
    std::optional<double> meanMargin; ///< dB
    std::optional<double> cpk;        ///< mean margin over three sample deviations of the margins
};

struct SeriesSummary {
    std::vector<SeriesRun> runs;
    std::vector<SeriesStatistics> kinds; ///< by band, order and method
};
[[nodiscard]] SeriesSummary Summarise(std::vector<SeriesRun> runs);

/// True when both hold the last run of the same measurement, as far as their forms state it: day, method,
/// order, and every level to the hundredth. The time of a file is that of its writing.
[[nodiscard]] bool IsSameRun(const ResultDocument& a, const ResultDocument& b);

/// The runs of the files of a series. One that was filed in several forms counts once: of names that differ
/// in their ending alone, or in the "_sweep" and "_detail" of sheets, and hold the same run, a .dat goes
/// before .txt, .csv and .xls. `load` reads a file; one that it refuses is told to `refused` and left out.
[[nodiscard]] std::vector<SeriesRun>
LoadRuns(const std::vector<std::filesystem::path>& files,
         const std::function<Outcome(const std::filesystem::path&, ResultDocument&)>& load,
         const std::function<void(const std::filesystem::path&, const Outcome&)>& refused);

// Single rules, on plain numbers.
[[nodiscard]] std::optional<double> MeanOf(const std::vector<double>& values);
/// Of a sample; nothing for fewer than two values.
[[nodiscard]] std::optional<double> DeviationOf(const std::vector<double>& values);
/// Steps of 0.1, 0.2, 0.5, 1, 2, 5 ... dB: the narrowest with 24 steps at most.
[[nodiscard]] Histogram HistogramOf(const std::vector<double>& values);
[[nodiscard]] std::optional<Trend::Line> FitLine(const std::vector<Trend::Point>& points);

} // namespace qor
