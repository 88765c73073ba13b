#include "results/read_document.h"

#include "bands/catalogue.h"
#include "base/tenths.h"
#include "results/file_plan.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr float LeastLevel = 0.01f;    ///< dBm, what a level of 0 counts as
constexpr double LongestRun = 2147483; ///< s, what the set-up of a run allows

bool IsOver(float level, float limit) {
    return static_cast<double>(level) - static_cast<double>(limit) > 0.01 + 0.0005;
}

/// The reference of dBc is the power that both tones have.
void TakeReference(ResultDocument& document) {
    const int tenths1 = ToTenths(static_cast<double>(document.power1));
    const int tenths2 = ToTenths(static_cast<double>(document.power2));
    document.carrier = std::abs(tenths1 - tenths2) <= 1 ? document.power1 : 43.0f;
    if (!document.inDbc)
        return;
    for (ResultRun& run : document.runs) {
        for (auto* points : {&run.up, &run.down}) {
            for (ResultPoint& point : *points) {
                if (!point.HasLevel())
                    continue;
                point.level += document.carrier;
                if (!point.HasLevel())
                    point.level = LeastLevel;
            }
        }
    }
    if (document.limit)
        *document.limit += document.carrier;
}

std::size_t RowsOf(const ResultDocument& document) {
    return document.runs.back().up.size() + document.runs.back().down.size();
}

/// The limit lies where the receiver hears nothing.
bool IsBelowFloor(const ResultDocument& document) {
    return document.limit && document.floor && *document.limit < *document.floor;
}

ResultVerdict VerdictOfRows(const ResultDocument& document) {
    const ResultRun& run = document.runs.back();
    const std::size_t points = PointsOf(document);
    if (!document.limit || points == 0 || IsBelowFloor(document))
        return ResultVerdict::None;
    const auto over = [&document](const ResultPoint& point) {
        return point.HasLevel() && IsOver(point.level, *document.limit);
    };
    if (std::any_of(run.up.begin(), run.up.end(), over) ||
        std::any_of(run.down.begin(), run.down.end(), over))
        return ResultVerdict::Failed;
    return points == RowsOf(document) ? ResultVerdict::Passed : ResultVerdict::None;
}

/// The time per point and the length of a 2-tone run follow from its rows.
void TakeTimes(ResultDocument& document) {
    const std::vector<ResultPoint>& rows = document.runs.back().up;
    const auto ms = [&rows](std::size_t i) {
        return static_cast<int>(std::lround(std::min(rows[i].x, LongestRun) * 1000));
    };
    const std::size_t count = rows.size();
    document.lengthMs = count > 0 && ms(count - 1) > 0 ? ms(count - 1) : 1000;
    if (count > 1)
        document.msPerPoint = ms(1) - ms(0);
    if (count > 2 && document.msPerPoint == 0)
        document.msPerPoint = ms(2) - ms(1);
}

} // namespace

int BandOfTones(float f1, float f2, int selected) {
    const auto both = [f1, f2](float low, float high) {
        return f1 > low && f2 > low && f1 < high && f2 < high;
    };
    if (selected == BandLte700L || selected == BandLte700U)
        return selected;
    if (f1 < 800.0f)
        return f1 < 793.1f && f2 < 793.1f ? BandLte : BandDigDiv;
    if (f1 < 900.0f)
        return f1 > 868.9f && f2 > 868.9f ? BandAmps : BandDigDiv;
    if (f1 < 1800.0f)
        return BandEgsm;
    if (f1 < 1900.0f)
        return BandDcs;
    if (f1 < 1930.0f)
        return BandTdScdmaF;
    if (f1 < 2020.0f)
        return both(1929.0f, 1991.0f) ? BandPcs : BandAws;
    if (f1 == 2020.0f)
        return f2 == 2025.0f ? BandTdScdmaA : BandAws;
    if (f1 < 2350.0f)
        return both(2109.0f, 2171.0f) ? BandUmts : BandAws;
    if (f1 < 2620.0f)
        return BandTdScdmaE;
    return f1 < 3500.0f ? BandUmts2 : BandWiMax;
}

ResultTones HeldTones(const ResultDocument& document) {
    const FrequencyPlan& plan = document.plan;
    const bool twoTone = document.method == ResultMethod::TwoTone;
    return {twoTone ? plan.f1 : plan.f1Fix, twoTone ? plan.f2 : plan.f2Fix};
}

void TakeBand(ResultDocument& document, int selected) {
    const auto [f1, f2] = HeldTones(document);
    document.band = BandOfTones(f1, f2, selected);
    document.product = CoefficientsOf(document.order / 2);
    const auto inLte = [](float f) { return f > 744.9f && f < 793.1f; };
    const bool half = document.band == BandLte700L || document.band == BandLte700U;
    document.upperProduct =
        half ? UsesUpperProduct(document.band) : !(f1 > 868.9f || (inLte(f1) && inLte(f2)));
}

void CompleteRead(ResultDocument& document) {
    if (document.hasHead) {
        TakeBand(document, BandNone);
        TakeReference(document);
    }
    if (document.method == ResultMethod::TwoTone && !document.runs.empty())
        TakeTimes(document);
    else if (document.hasHead && !document.runs.empty())
        document.plan.step = PlanOf(document, document.plan).value_or(document.plan).step;
    JudgeRows(document);
}

void JudgeRows(ResultDocument& document) {
    if (document.runs.empty())
        return;
    const ResultVerdict rows = VerdictOfRows(document);
    if (!document.marked) {
        document.pointsTaken = PointsOf(document);
        document.pointsAsked = RowsOf(document);
        document.verdict = rows;
    } else if (document.verdict != ResultVerdict::Error &&
               (rows == ResultVerdict::Failed || IsBelowFloor(document))) {
        document.verdict = rows;
    }
}

bool RowsFlatter(const ResultDocument& document) {
    if (document.runs.empty() || DistanceFromPass(document) == 0)
        return false;
    ResultDocument rows = document;
    rows.runs = {document.runs.back()};
    rows.marked = false;
    for (auto* points : {&rows.runs.back().up, &rows.runs.back().down}) {
        for (ResultPoint& point : *points) {
            if (point.HasLevel())
                point.level += std::round(InUnit(document, point.level) * 100.0f) / 100.0f -
                               InUnit(document, point.level);
        }
    }
    JudgeRows(rows);
    return DistanceFromPass(rows) < DistanceFromPass(document);
}

ResultVerdict VerdictOfAllRuns(const ResultDocument& document) {
    ResultDocument worst = document;
    for (std::size_t i = 0; i + 1 < document.runs.size(); ++i) {
        ResultDocument one = document;
        one.runs = {document.runs[i]};
        one.marked = false;
        JudgeRows(one);
        if (PointsOf(one) < document.pointsTaken && one.verdict == ResultVerdict::Passed)
            one.verdict = ResultVerdict::None; // shorter than the last one, which may be short itself
        if (document.limit && DistanceFromPass(one) > DistanceFromPass(worst))
            worst.verdict = one.verdict;
    }
    return worst.verdict;
}

} // namespace qor
