#include "results/result_document.h"

#include "bands/catalogue.h"
#include "base/tenths.h"

#include <algorithm>
#include <array>

namespace qor {

namespace {

/// A worst point gives way only to a level that is higher by more than this. Floats of decimal levels lie a
/// hair beside them.
constexpr double WorstMargin = 0.05 + 0.0005;

constexpr std::array<std::string_view, 4> VerdictWords = {"none", "passed", "failed",
                                                          "error"}; ///< by their verdict

double Product(const ResultDocument& document, double f1, double f2) {
    const auto [high, low] = document.product;
    return document.upperProduct ? high * f2 - low * f1 : high * f1 - low * f2;
}

float Tenths(double frequency) {
    return static_cast<float>(ToTenths(frequency) / 10.0);
}

} // namespace

float InUnit(const ResultDocument& document, float level) {
    return level == 0.0f || !document.inDbc ? level : level - document.carrier;
}

std::string_view UnitText(const ResultDocument& document) {
    return document.inDbc ? "dBc" : "dBm";
}

std::string_view BandName(const ResultDocument& document) {
    const BandInfo* band = FindBand(document.band);
    return document.hasHead && band ? band->reportText : std::string_view();
}

std::string OrderText(const ResultDocument& document) {
    if (!document.hasHead || document.order == 0)
        return {};
    return (document.interBand.empty() ? "IM" : "Inter-band IM") + std::to_string(document.order);
}

std::string DateText(const ResultDocument& document) {
    const std::string& date = document.date;
    if (date.size() != 8)
        return {};
    return date.substr(0, 4) + "-" + date.substr(4, 2) + "-" + date.substr(6) + " " + document.time;
}

bool IsPartial(const ResultDocument& document) {
    return document.pointsTaken < document.pointsAsked;
}

std::string_view VerdictWord(ResultVerdict verdict) {
    return VerdictWords[static_cast<std::size_t>(verdict)];
}

std::optional<ResultVerdict> VerdictOfWord(std::string_view word) {
    const auto* const at = std::find(VerdictWords.begin(), VerdictWords.end(), word);
    if (at == VerdictWords.end())
        return std::nullopt;
    return static_cast<ResultVerdict>(at - VerdictWords.begin());
}

int DistanceFromPass(const ResultDocument& document) {
    switch (document.verdict) {
    case ResultVerdict::Passed:
        return IsPartial(document) ? 1 : 0;
    case ResultVerdict::None:
        return 2;
    case ResultVerdict::Failed:
        return 3;
    case ResultVerdict::Error:
        break;
    }
    return 4;
}

float TwoToneProduct(const ResultDocument& document) {
    return static_cast<float>(
        Product(document, static_cast<double>(document.plan.f1), static_cast<double>(document.plan.f2)));
}

ResultTones TonesAt(const ResultDocument& document, const ResultPoint& point, bool down) {
    const FrequencyPlan& plan = document.plan;
    if (document.method == ResultMethod::TwoTone)
        return {plan.f1, plan.f2};
    const double high = document.product.high;
    const double low = document.product.low;
    if (down) {
        const auto f1 = static_cast<double>(plan.f1Fix);
        const double f2 = document.upperProduct ? (point.x + low * f1) / high : (high * f1 - point.x) / low;
        return {plan.f1Fix, Tenths(f2)};
    }
    const auto f2 = static_cast<double>(plan.f2Fix);
    const double f1 = document.upperProduct ? (high * f2 - point.x) / low : (point.x + low * f2) / high;
    return {Tenths(f1), plan.f2Fix};
}

std::optional<ResultWorst> WorstOf(const ResultDocument& document) {
    const ResultPoint* worst = nullptr;
    for (const auto half : {&ResultRun::up, &ResultRun::down}) {
        for (const ResultRun& run : document.runs) {
            for (const ResultPoint& point : run.*half) {
                if (point.HasLevel() &&
                    (!worst ||
                     static_cast<double>(point.level) - static_cast<double>(worst->level) > WorstMargin))
                    worst = &point;
            }
        }
    }
    if (!worst)
        return std::nullopt;
    const bool timed = document.method == ResultMethod::TwoTone;
    return ResultWorst{worst->level, timed ? TwoToneProduct(document) : static_cast<float>(worst->x)};
}

std::size_t PointsOf(const ResultDocument& document) {
    if (document.runs.empty())
        return 0;
    const auto count = [](const std::vector<ResultPoint>& points) {
        return std::count_if(points.begin(), points.end(), [](const auto& p) { return p.HasLevel(); });
    };
    return static_cast<std::size_t>(count(document.runs.back().up) + count(document.runs.back().down));
}

} // namespace qor
