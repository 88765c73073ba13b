#include "bands/catalogue.h"
#include "bands/records.h"
#include "base/atomic_write.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "desk/session.h"
#include "platform/clock.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "results/read_document.h"
#include "results/result_files.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::size_t LongestComment = 340;

bool IsTetra(int band) {
    return band == BandTetra390 || band == BandTetra392;
}

/// A text that is to stay one line of the file.
std::string OneLine(std::string text) {
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
    return text;
}

/// 2-tone points in time order. A run that was stopped has points up to its last measured one only: a row for
/// a point that is not there would state a level nobody measured.
std::vector<ResultPoint> TwoTonePoints(const Curve& curve) {
    const int time = std::max(curve.TimePerPoint(), 1);
    auto count =
        static_cast<std::size_t>(std::clamp(curve.Length() / time + 1, 0, static_cast<int>(CurvePoints)));
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

ResultVerdict VerdictOf(int verdict) {
    if (IsInstrumentError(verdict))
        return ResultVerdict::Error;
    return verdict == VerdictNone     ? ResultVerdict::None
           : verdict == VerdictPassed ? ResultVerdict::Passed
                                      : ResultVerdict::Failed;
}

} // namespace

ResultFiles::ResultFiles(Session& session, const Platform& platform, SetupStore& store)
    : m_Session(session), m_Platform(platform), m_Store(store) {}

bool ResultFiles::Refuse(std::string text) {
    m_LastProblem = std::move(text);
    m_Platform.user.Message(m_LastProblem);
    return false;
}

bool ResultFiles::DataSave(const std::filesystem::path& path) {
    m_LastProblem.clear();
    std::error_code ignored;
    if (std::filesystem::exists(path, ignored) &&
        !m_Platform.user.Ask("The file has already existed. Do you want to replace it?\n\n" + path.string(),
                             "Speichern DATen File")) {
        m_LastProblem = path.string() + ": not replaced.";
        return false;
    }
    const auto document = Document();
    if (!document)
        return Refuse("Does not support the current selection!");
    if (PointsOf(*document) == 0)
        return Refuse("Keine Messpunkte zum Speichern!");
    if (IsDatName(path) && !document->genuine)
        return Refuse("Nur was aus einer .dat stammt, wird wieder eine .dat.");
    std::string bytes;
    if (const Outcome written = m_Forms.Write(*document, path, m_Session.results.autoSave.Templates(), bytes);
        !written)
        return Refuse(written.Text());
    if (const std::string problem = WriteAtomically(path, bytes); !problem.empty())
        return Refuse("Speichern file misserfolg\n" + problem);
    return true;
}

std::optional<ResultDocument> ResultFiles::Document() const {
    const Curve& curve = m_Session.curve;
    const ResultState& results = m_Session.results;

    ResultDocument document;
    // A curve that came from a file keeps that file's head, if it had one.
    const bool stated = curve.IsFromFile() && results.loaded.IsShown() && results.loaded.Document()->hasHead;
    if (stated) {
        document = *results.loaded.Document();
    } else {
        if (!DescribeSetup(document))
            return std::nullopt;
        const LocalTime now = m_Platform.clock.Now();
        document.date = std::to_string(now.year) + ZeroPadded(now.month, 2) + ZeroPadded(now.day, 2);
        document.time = ZeroPadded(now.hour, 2) + ":" + ZeroPadded(now.minute, 2);
        TakeCurve(document);
    }
    document.inDbc = curve.scale.InDbc();
    document.carrier = curve.scale.Carrier();
    document.limit = curve.limit.Level() + (document.inDbc ? curve.scale.Carrier() : 0.0f);
    if (curve.IsFromFile())
        JudgeRows(document); // the operator may have entered another limit
    document.deviceSerial = OneLine(results.device.Serial());
    document.comment = results.device.CommentOfCall().value_or(
        m_Store.Read("Add_comments.ccz", LongestComment).value_or(""));
    std::erase_if(document.comment, [](char c) { return c == '\r' || c == '\0'; });
    return document;
}

/// The levels of the curve store, and who has measured them.
void ResultFiles::TakeCurve(ResultDocument& document) const {
    const Curve& curve = m_Session.curve;
    if (!curve.IsFromFile()) { // the instrument connected did not measure what a file held
        document.model = OneLine(m_Session.link.identity.ModelName());
        document.serial = OneLine(m_Session.link.identity.Serial());
        document.firmware = m_Session.link.identity.Firmware();
    }
    ResultRun& run = document.runs.emplace_back();
    if (document.method == ResultMethod::TwoTone) {
        document.lengthMs = curve.Length();
        document.msPerPoint = curve.TimePerPoint();
        run.up = TwoTonePoints(curve);
    } else {
        run.up = SweepPoints(curve, curve.Up());
        run.down = SweepPoints(curve, curve.Down());
    }
    document.pointsTaken = document.pointsAsked = PointsOf(document);
    document.verdict = VerdictOf(curve.verdict.Value());
    document.error = curve.verdict.IsError() ? curve.verdict.Value() : 0;
}

/// Band, order, method, plan and powers by the set-up of the band. False when the band does not have the
/// order.
bool ResultFiles::DescribeSetup(ResultDocument& document) const {
    const WorkingSet& working = m_Session.working;
    const int imIndex = working.ImIndex();
    // The band of the run: a reconnection may have found the instrument's switch elsewhere.
    const int number = m_Session.curve.HoldsPoints() && working.BandOfRun() != BandNone ? working.BandOfRun()
                                                                                        : working.Band();
    const BandInfo* band = FindBand(number);
    if (!band || imIndex < 1 || imIndex > (IsTetra(number) ? 3 : 5))
        return false;
    const PowerSetting power = ReadPowerStore(m_Store, band->prefix);
    document.power1 = static_cast<float>(NumberIn(power.tone1) / 10.0) - working.PowerOffset();
    document.power2 = static_cast<float>(NumberIn(power.tone2) / 10.0) - working.PowerOffset();

    FrequencyPlan& tones = document.plan;
    if (number == BandTdScdmaA) { // two fixed tones and no sweep
        tones.f1 = tones.f1Start = tones.f1Stop = tones.f1Fix = ReadTdScdmaAF1(m_Store);
        tones.f2 = tones.f2Start = tones.f2Stop = tones.f2Fix = 2025.0f;
    } else if (const auto stored = ReadPlanStore(m_Store, band->prefix, imIndex)) {
        tones = *stored;
    } else if (const auto standard = DefaultPlan(number, imIndex, working.Bridge())) {
        tones = *standard;
    } else {
        return false;
    }
    document.band = number;
    document.order = OrderOf(imIndex);
    document.product = CoefficientsOf(imIndex);
    document.upperProduct = UsesUpperProduct(number);
    document.reflection = working.Path() == 1;
    const int mode = working.Method();
    document.method = mode == ModeTwoTone    ? ResultMethod::TwoTone
                      : mode == ModeSpectrum ? ResultMethod::Spectrum
                                             : ResultMethod::Sweep;
    return true;
}

} // namespace qor
