#include "results/statistics.h"

#include "base/tenths.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <numeric>
#include <tuple>

namespace qor {

namespace {

constexpr std::size_t MostSteps = 24;

void TakePlaces(std::vector<CurvePlace>& curve, const std::vector<ResultPoint>& points, bool overTime) {
    for (const ResultPoint& point : points) {
        if (point.HasLevel())
            curve.push_back({overTime ? static_cast<int>(point.x) : ToTenths(point.x), point.level});
    }
}

/// By place, the highest level of each.
void KeepHighest(std::vector<CurvePlace>& curve) {
    std::sort(curve.begin(), curve.end(), [](const CurvePlace& a, const CurvePlace& b) {
        return std::tuple(a.place, -a.level) < std::tuple(b.place, -b.level);
    });
    curve.erase(std::unique(curve.begin(), curve.end(),
                            [](const CurvePlace& a, const CurvePlace& b) { return a.place == b.place; }),
                curve.end());
    curve.shrink_to_fit();
}

/// Minutes since some day of "2026-03-07 09:05".
std::optional<double> MinutesOf(const std::string& date) {
    if (date.size() != 16)
        return std::nullopt;
    const auto number = [&date](std::size_t at, std::size_t length) {
        return WholeNumberIn(date.substr(at, length));
    };
    const std::chrono::year_month_day day(std::chrono::year(number(0, 4)),
                                          std::chrono::month(static_cast<unsigned>(number(5, 2))),
                                          std::chrono::day(static_cast<unsigned>(number(8, 2))));
    if (!day.ok())
        return std::nullopt;
    const auto days = std::chrono::sys_days(day).time_since_epoch().count();
    return static_cast<double>(days) * 1440.0 + number(11, 2) * 60.0 + number(14, 2);
}

void CountVerdict(SeriesStatistics& kind, ResultVerdict verdict) {
    if (verdict == ResultVerdict::Passed)
        ++kind.passed;
    else if (verdict == ResultVerdict::Failed)
        ++kind.failed;
    else
        ++kind.withoutVerdict;
}

Trend TrendOf(const std::vector<SeriesRun>& runs, const std::vector<std::size_t>& order) {
    Trend trend;
    std::optional<double> first;
    for (const std::size_t index : order) {
        const auto minutes = MinutesOf(runs[index].date);
        if (!minutes || !runs[index].worst)
            continue;
        first = first.value_or(*minutes);
        trend.points.push_back({(*minutes - *first) / 60.0, static_cast<double>(runs[index].worst->level)});
    }
    trend.line = FitLine(trend.points);
    return trend;
}

std::vector<Spread> SpreadOf(const std::vector<SeriesRun>& runs, const std::vector<std::size_t>& order) {
    std::vector<CurvePlace> all;
    for (const std::size_t index : order)
        all.insert(all.end(), runs[index].curve.begin(), runs[index].curve.end());
    std::sort(all.begin(), all.end(), [](const CurvePlace& a, const CurvePlace& b) {
        return std::tuple(a.place, a.level) < std::tuple(b.place, b.level);
    });
    std::vector<Spread> spread;
    for (std::size_t begin = 0; begin < all.size();) {
        std::size_t end = begin;
        while (end < all.size() && all[end].place == all[begin].place)
            ++end;
        const std::size_t upper = begin + (end - begin) / 2;
        const std::size_t lower = begin + (end - begin - 1) / 2;
        spread.push_back({all[begin].place, all[begin].level, (all[lower].level + all[upper].level) / 2,
                          all[end - 1].level});
        begin = end;
    }
    return spread;
}

void Measure(SeriesStatistics& kind, const std::vector<SeriesRun>& runs) {
    std::vector<double> levels;
    std::vector<double> margins;
    for (const std::size_t index : kind.runs) {
        const SeriesRun& run = runs[index];
        CountVerdict(kind, run.verdict);
        if (run.worst)
            levels.push_back(static_cast<double>(run.worst->level));
        if (const auto margin = run.Margin())
            margins.push_back(*margin);
    }
    if (kind.passed + kind.failed > 0)
        kind.yield = static_cast<double>(kind.passed) / static_cast<double>(kind.passed + kind.failed);
    kind.levels = levels.size();
    kind.mean = MeanOf(levels);
    kind.deviation = DeviationOf(levels);
    if (!levels.empty())
        kind.worst = *std::max_element(levels.begin(), levels.end());
    kind.meanMargin = MeanOf(margins);
    if (const auto deviation = DeviationOf(margins); deviation && *deviation > 0)
        kind.cpk = *kind.meanMargin / (3 * *deviation);
    kind.histogram = HistogramOf(levels);
    kind.trend = TrendOf(runs, kind.runs);
    kind.spread = SpreadOf(runs, kind.runs);
}

/// A level as its file states it. One in dBc is known below the carrier alone: a sheet rounds that.
double Stated(const ResultDocument& document, const ResultPoint& point, bool inDbc) {
    return static_cast<double>(inDbc ? InUnit(document, point.level) : point.level);
}

bool IsSameHalf(const ResultDocument& a, const std::vector<ResultPoint>& of, const ResultDocument& b,
                const std::vector<ResultPoint>& other) {
    constexpr double Hair = 0.0111; ///< two roundings of a hundredth
    const auto next = [](const std::vector<ResultPoint>& points, std::size_t& at) {
        while (at < points.size() && !points[at].HasLevel())
            ++at;
        return at < points.size();
    };
    const bool inDbc = a.inDbc && b.inDbc;
    for (std::size_t i = 0, j = 0;; ++i, ++j) {
        const bool more = next(of, i);
        if (more != next(other, j))
            return false;
        if (!more)
            return true;
        if (ToTenths(of[i].x) != ToTenths(other[j].x) ||
            std::abs(Stated(a, of[i], inDbc) - Stated(b, other[j], inDbc)) > Hair)
            return false;
    }
}

/// A name without its ending, and how welcome that is.
std::pair<std::string, int> RunName(const std::filesystem::path& file) {
    static constexpr std::string_view Endings[] = {".dat", ".txt", ".csv", ".xls"};
    std::string ending = file.extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    const auto* const at = std::find(std::begin(Endings), std::end(Endings), ending);
    std::string stem = file.stem().string();
    if (ending == ".xls") {
        for (const std::string_view form : {"_sweep", "_detail"}) {
            if (stem.ends_with(form))
                stem.resize(stem.size() - form.size());
        }
    }
    return {(file.parent_path() / stem).lexically_normal().string(), static_cast<int>(at - Endings)};
}

} // namespace

std::optional<double> SeriesRun::Margin() const {
    if (!worst || !limit)
        return std::nullopt;
    return static_cast<double>(*limit) - static_cast<double>(worst->level);
}

SeriesRun SeriesRunOf(const ResultDocument& document) {
    SeriesRun run;
    run.file = document.source;
    run.device = document.deviceSerial.empty() ? std::filesystem::path(document.source).stem().string()
                                               : document.deviceSerial;
    run.date = DateText(document);
    run.kind = {document.hasHead ? document.band : BandNone, document.interBand,
                document.hasHead ? document.order : 0, document.method};
    run.verdict = document.verdict;
    run.worst = WorstOf(document);
    run.limit = document.limit;
    for (const ResultRun& pass : document.runs) {
        TakePlaces(run.curve, pass.up, run.kind.OverTime());
        TakePlaces(run.curve, pass.down, run.kind.OverTime());
    }
    KeepHighest(run.curve);
    return run;
}

SeriesSummary Summarise(std::vector<SeriesRun> runs) {
    SeriesSummary summary;
    summary.runs = std::move(runs);
    std::map<SeriesKind, std::vector<std::size_t>> kinds;
    for (std::size_t i = 0; i < summary.runs.size(); ++i)
        kinds[summary.runs[i].kind].push_back(i);
    for (auto& [kind, indices] : kinds) {
        std::stable_sort(indices.begin(), indices.end(), [&](std::size_t a, std::size_t b) {
            return std::tie(summary.runs[a].date, summary.runs[a].file) <
                   std::tie(summary.runs[b].date, summary.runs[b].file);
        });
        SeriesStatistics& statistics = summary.kinds.emplace_back();
        statistics.kind = kind;
        statistics.runs = std::move(indices);
        Measure(statistics, summary.runs);
    }
    return summary;
}

bool IsSameRun(const ResultDocument& a, const ResultDocument& b) {
    if (a.method != b.method || a.order != b.order || a.runs.empty() || b.runs.empty())
        return false;
    if (!a.date.empty() && !b.date.empty() && a.date != b.date)
        return false;
    return IsSameHalf(a, a.runs.back().up, b, b.runs.back().up) &&
           IsSameHalf(a, a.runs.back().down, b, b.runs.back().down);
}

std::vector<SeriesRun>
LoadRuns(const std::vector<std::filesystem::path>& files,
         const std::function<Outcome(const std::filesystem::path&, ResultDocument&)>& load,
         const std::function<void(const std::filesystem::path&, const Outcome&)>& refused) {
    std::map<std::string, std::vector<std::size_t>> names;
    for (std::size_t i = 0; i < files.size(); ++i)
        names[RunName(files[i]).first].push_back(i);
    std::vector<std::optional<SeriesRun>> runs(files.size());
    for (auto& [name, indices] : names) {
        std::stable_sort(indices.begin(), indices.end(), [&](std::size_t a, std::size_t b) {
            return RunName(files[a]).second < RunName(files[b]).second;
        });
        std::vector<ResultDocument> counted;
        for (const std::size_t index : indices) {
            ResultDocument document;
            if (const Outcome read = load(files[index], document); !read) {
                refused(files[index], read);
                continue;
            }
            if (std::any_of(counted.begin(), counted.end(),
                            [&](const ResultDocument& other) { return IsSameRun(other, document); }))
                continue;
            runs[index] = SeriesRunOf(document);
            if (indices.size() > 1)
                counted.push_back(std::move(document));
        }
    }
    std::vector<SeriesRun> found;
    for (auto& run : runs) {
        if (run)
            found.push_back(std::move(*run));
    }
    return found;
}

std::optional<double> MeanOf(const std::vector<double>& values) {
    if (values.empty())
        return std::nullopt;
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

std::optional<double> DeviationOf(const std::vector<double>& values) {
    if (values.size() < 2)
        return std::nullopt;
    const double mean = *MeanOf(values);
    double sum = 0;
    for (const double value : values)
        sum += (value - mean) * (value - mean);
    return std::sqrt(sum / static_cast<double>(values.size() - 1));
}

Histogram HistogramOf(const std::vector<double>& values) {
    static constexpr double Steps[] = {0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 50, 100};
    constexpr double Hair = 1e-3; ///< decimals of floats lie a hair beside their edges
    Histogram histogram;
    if (values.empty())
        return histogram;
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    const auto stepOf = [](double value, double step) { return std::floor(value / step + Hair); };
    for (const double step : Steps) {
        histogram.step = step;
        histogram.from = stepOf(*low, step) * step;
        const double count = stepOf(*high, step) - stepOf(*low, step) + 1;
        histogram.counts.assign(static_cast<std::size_t>(std::min(count, 1e4)), 0);
        if (histogram.counts.size() <= MostSteps)
            break;
    }
    for (const double value : values) {
        const double at = stepOf(value, histogram.step) - stepOf(*low, histogram.step);
        ++histogram.counts[std::min(static_cast<std::size_t>(at), histogram.counts.size() - 1)];
    }
    return histogram;
}

std::optional<Trend::Line> FitLine(const std::vector<Trend::Point>& points) {
    const auto count = static_cast<double>(points.size());
    double hours = 0;
    double level = 0;
    for (const Trend::Point& point : points) {
        hours += point.hours / count;
        level += point.level / count;
    }
    double square = 0;
    double product = 0;
    for (const Trend::Point& point : points) {
        square += (point.hours - hours) * (point.hours - hours);
        product += (point.hours - hours) * (point.level - level);
    }
    if (!(square > 0))
        return std::nullopt;
    const double slope = product / square;
    return Trend::Line{level - slope * hours, slope};
}

} // namespace qor
