#include "results/document_curve.h"

#include <algorithm>

namespace qor {

namespace {

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

LoadedCurve CurveOf(const ResultDocument& document) {
    LoadedCurve curve;
    curve.name = document.source;
    if (!document.genuine)
        curve.name += " " + std::string(NotFromData);
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
