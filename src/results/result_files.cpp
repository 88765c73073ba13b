#include "results/result_files.h"

#include "bands/catalogue.h"
#include "bands/records.h"
#include "base/atomic_write.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "link/working_set.h"
#include "measure/run.h"
#include "platform/clock.h"
#include "results/read_document.h"
#include "results/result_state.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr std::size_t LongestComment = 340;

/// A text that is to stay one line of the file.
std::string OneLine(std::string text) {
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
    return text;
}

float AtDevice(const std::string& tenths, const RunRecord& record) {
    return static_cast<float>(NumberIn(tenths) / 10.0) - record.powerOffset;
}

ResultMethod MethodOf(int mode) {
    return mode == ModeTwoTone    ? ResultMethod::TwoTone
           : mode == ModeSpectrum ? ResultMethod::Spectrum
                                  : ResultMethod::Sweep;
}

/// All that a result states of its run but the levels.
void TakeRecord(const RunRecord& record, ResultDocument& document) {
    document.band = record.band;
    document.order = record.order;
    document.product = record.product;
    document.upperProduct = UsesUpperProduct(record.band);
    document.interBand = record.interBand;
    document.method = MethodOf(record.method);
    document.reflection = record.path == 1;
    document.plan = record.plan;
    if (record.band == BandTdScdmaA) { // two tones and no sweep
        FrequencyPlan& plan = document.plan;
        plan.f1Start = plan.f1Stop = plan.f1Fix = plan.f1;
        plan.f2Start = plan.f2Stop = plan.f2Fix = plan.f2;
    }
    document.power1 = AtDevice(record.power.tone1, record);
    document.power2 = AtDevice(record.power.tone2, record);
    document.model = OneLine(record.model);
    document.serial = OneLine(record.serial);
    document.receiver = OneLine(record.receiver);
    if (record.receiverFloor > RunFacts{}.floor)
        document.floor = record.receiverFloor;
}

/// 2-tone points in time order. A run that was stopped has points up to its last measured one only: a row for
/// a point that is not there would state a level nobody measured.
std::vector<ResultPoint> TwoTonePoints(const Curve& curve) {
    const int time = std::max(curve.TimePerPoint(), 1);
    std::size_t count = curve.Up().size();
    while (count > 0 && curve.Up()[count - 1] == 0.0f)
        --count;
    std::vector<ResultPoint> points;
    points.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        points.push_back({static_cast<int>(i) * time / 1000.0, curve.Up()[i]});
    return points;
}

std::vector<ResultPoint> SweepPoints(const Curve& curve, std::span<const float> levels) {
    const std::size_t length = std::min(curve.Steps(), levels.size());
    std::vector<ResultPoint> points;
    for (std::size_t i = 0; i < length; ++i) {
        if (levels[i] != 0.0f)
            points.push_back({static_cast<double>(curve.Grid()[i]), levels[i]});
    }
    return points;
}

/// Every run of a sweep; the last one stands in the live layer, those before it in the rows of the plot.
std::vector<ResultRun> RunsOf(const Curve& curve) {
    if (!curve.IsSweep())
        return {{TwoTonePoints(curve), {}}};
    std::vector<ResultRun> runs;
    for (std::size_t row = 0; row < curve.Row(); ++row)
        runs.push_back({SweepPoints(curve, curve.KeptUp(row)), SweepPoints(curve, curve.KeptDown(row))});
    runs.push_back({SweepPoints(curve, curve.Up()), SweepPoints(curve, curve.Down())});
    return runs;
}

} // namespace

Outcome ResultFiles::DataSave(const std::filesystem::path& path) {
    if (m_Rooms.curve.powers.IsOn())
        return Outcome::Refused("Gelesene Leistungen sind keine Messung: Sie stehen in ihrem Protokoll.");
    const auto document = Document();
    if (!document || PointsOf(*document) == 0)
        return Outcome::Refused("Keine Messpunkte zum Speichern!");
    if (IsDatName(path) && !document->genuine)
        return Outcome::Refused("Nur was aus einer .dat stammt, wird wieder eine .dat.");
    std::string bytes;
    if (Outcome written = m_Forms.Write(*document, path, m_Rooms.results.autoSave.Templates(), bytes);
        !written)
        return written;
    if (const std::string problem = WriteAtomically(path, bytes); !problem.empty())
        return Outcome::Refused("Speichern file misserfolg\n" + problem);
    m_Saved = document->runs;
    return Outcome::Done();
}

bool ResultFiles::HoldsUnsaved() const {
    return !m_Rooms.curve.IsFromFile() && !m_Rooms.curve.powers.IsOn() && m_Rooms.curve.HoldsPoints() &&
           RunsOf(m_Rooms.curve) != m_Saved;
}

std::optional<ResultDocument> ResultFiles::Document() const {
    const Curve& curve = m_Rooms.curve;
    if (curve.powers.IsOn())
        return std::nullopt;
    const ResultDocument* const file = curve.IsFromFile() ? m_Rooms.results.loaded.Document() : nullptr;
    ResultDocument document;
    if (file && file->hasHead) {
        document = *file;
        document.inDbc = curve.scale.InDbc();
        if (m_Rooms.results.loaded.IsInForce() || !document.limit) { // the operator may have entered another
            document.limit = curve.limit.Level() + curve.scale.Reference();
            JudgeRows(document);
        }
    } else {
        const RunRecord record = file ? SetupInForce() : m_Rooms.run.Record();
        if (record.band == BandNone)
            return std::nullopt;
        TakeRecord(record, document);
        if (!file)
            document.firmware = record.firmware;
        const LocalTime now = m_Clock.Now();
        document.date = std::to_string(now.year) + ZeroPadded(now.month, 2) + ZeroPadded(now.day, 2);
        document.time = ZeroPadded(now.hour, 2) + ":" + ZeroPadded(now.minute, 2);
        // Tones that differ have no power in common that levels could be below.
        const bool equal = std::abs(document.power1 - document.power2) < 0.05f;
        document.inDbc = curve.scale.InDbc() && equal;
        document.carrier = equal ? document.power1 : curve.scale.Carrier();
        document.limit = curve.limit.Level() + curve.scale.Reference();
        TakeCurve(document);
        if (file)
            document.genuine = file->genuine;
    }
    document.deviceSerial = OneLine(m_Rooms.results.device.Serial());
    document.comment = m_Rooms.results.device.CommentOfCall().value_or(
        m_Store.Read("Add_comments.ccz", LongestComment).value_or(""));
    std::erase_if(document.comment, [](char c) { return c == '\r' || c == '\0'; });
    return document;
}

/// The levels of the curve store and what they are worth.
void ResultFiles::TakeCurve(ResultDocument& document) const {
    const Curve& curve = m_Rooms.curve;
    document.runs = RunsOf(curve);
    if (!curve.IsSweep()) {
        document.msPerPoint = curve.TimePerPoint();
        document.lengthMs = curve.Length();
    }
    const RunFacts facts = curve.LastRunFacts();
    document.pointsTaken = static_cast<std::size_t>(facts.taken);
    document.pointsAsked = static_cast<std::size_t>(facts.asked);
    document.verdict = Judge(facts);
    document.error = facts.error;
}

/// The oldest files hold levels alone: saved again, they take the set-up of today, but no instrument. Band
/// BandNone when the band does not have the order.
RunRecord ResultFiles::SetupInForce() const {
    const WorkingSet& working = m_Rooms.working;
    const BandInfo* const band = FindBand(working.Band());
    const int imIndex = working.ImIndex();
    RunRecord record;
    if (!band)
        return record;
    auto plan = ReadPlanStore(m_Store, band->prefix, imIndex);
    if (!plan)
        plan = DefaultPlan(band->number, imIndex, working.Bridge());
    if (band->number == BandTdScdmaA)
        plan = FrequencyPlan{.f1 = ReadTdScdmaAF1(m_Store), .f2 = 2025.0f};
    if (!plan || imIndex < 1 || imIndex > 5)
        return record;
    record.band = band->number;
    record.imIndex = imIndex;
    record.order = OrderOf(imIndex);
    record.product = CoefficientsOf(imIndex);
    record.method = working.Method();
    record.path = working.Path();
    record.plan = *plan;
    record.power = ReadPowerStore(m_Store, band->prefix);
    record.powerOffset = working.OperatorsLosses().powerOffset;
    return record;
}

} // namespace qor
