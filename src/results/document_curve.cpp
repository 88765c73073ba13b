#include "results/document_curve.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int UnknownError = 1;

void PlaceSweep(const ResultRun& run, LoadedCurve& curve) {
    curve.grid.resize(CurvePoints);
    std::size_t length = 0;
    for (const auto* points : {&run.down, &run.up}) {
        for (const ResultPoint& point : *points)
            length = InsertIntoGrid(curve.grid, length, static_cast<float>(point.x));
    }
    curve.grid.resize(length);
    const auto place = [&](const std::vector<ResultPoint>& points, std::vector<float>& levels) {
        levels.resize(length);
        for (const ResultPoint& point : points) {
            const int index = FindInGrid(curve.grid, static_cast<float>(point.x));
            if (index < 0)
                continue;
            // Where the halves meet, both may stand in the first one: what is worse stays in view.
            float& level = levels[static_cast<std::size_t>(index)];
            level = level == 0.0f ? point.level : std::max(level, point.level);
        }
    };
    place(run.up, curve.up);
    place(run.down, curve.down);
}

} // namespace

RunFacts RunFactsOf(const ResultDocument& document) {
    RunFacts facts;
    facts.asked = static_cast<int>(document.pointsAsked);
    facts.taken = static_cast<int>(document.pointsTaken);
    if (document.floor)
        facts.floor = *document.floor;
    if (document.verdict == ResultVerdict::Error)
        facts.error = document.error != 0 ? document.error : UnknownError;
    for (const auto* points : {&document.runs.back().up, &document.runs.back().down})
        for (const ResultPoint& point : *points)
            if (point.HasLevel())
                facts.highest = std::max(facts.highest.value_or(point.level), point.level);
    const bool over =
        facts.highest && document.limit && IsAboveLimit(*facts.highest, static_cast<double>(*document.limit));
    facts.hasFailed = document.marked && document.verdict == ResultVerdict::Failed && !over;
    const bool isWhole = document.pointsTaken >= document.pointsAsked;
    if (document.marked && document.verdict == ResultVerdict::None)
        facts.end = RunEnd::CutShort; // it knows why
    else if (isWhole)
        facts.end = RunEnd::ByItself;
    else
        facts.end = document.verdict == ResultVerdict::Passed ? RunEnd::Stopped : RunEnd::CutShort;
    return facts;
}

LoadedCurve CurveOf(const ResultDocument& document) {
    LoadedCurve curve;
    curve.name = document.source;
    if (!document.genuine)
        curve.name += " " + std::string(NotFromData);
    curve.facts = RunFactsOf(document);
    curve.twoTone = document.method == ResultMethod::TwoTone;
    const ResultRun& run = document.runs.back();
    if (!curve.twoTone) {
        PlaceSweep(run, curve);
        return curve;
    }
    for (const ResultPoint& point : run.up)
        curve.up.push_back(point.level);
    curve.length = document.lengthMs;
    curve.msPerPoint = document.msPerPoint;
    if (document.hasHead)
        curve.imFrequency = TwoToneProduct(document);
    return curve;
}

} // namespace qor
