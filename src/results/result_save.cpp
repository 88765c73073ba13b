#include "bands/catalogue.h"
#include "bands/setup_store.h"
#include "bands/tenths.h"
#include "core/session.h"
#include "core/text_format.h"
#include "display/curve_store.h"
#include "platform/clock.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "results/atomic_write.h"
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

/// Level in the unit of a file; what was not measured stays 0.0 in either unit.
float InUnit(float level, float reference) {
    return level == 0.0f ? 0.0f : level - reference;
}

/// 2-tone points in time order. A run that was stopped has rows up to its last measured point only: a row
/// for a point that is not there would state a level nobody measured.
std::vector<ResultFile::Row> TwoToneRows(const CurveState& curve, float reference) {
    const int time = std::max(curve.tone2SetTimes, 1);
    auto count =
        static_cast<std::size_t>(std::clamp(curve.g_testTimeMs / time + 1, 0, static_cast<int>(CurvePoints)));
    while (count > 0 && curve.g_levelUp[count - 1] == 0.0f)
        --count;
    std::vector<ResultFile::Row> rows;
    rows.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const int ms = static_cast<int>(i) * time;
        rows.push_back({ms / 1000.0, InUnit(curve.g_levelUp[i], reference)});
    }
    return rows;
}

std::vector<ResultFile::Row> SweepRows(const CurveState& curve, std::span<const float> levels,
                                       float reference) {
    const std::size_t length = std::min(GridLength(curve.g_freqGrid), levels.size());
    std::vector<ResultFile::Row> rows;
    for (std::size_t i = 0; i < length; ++i) {
        if (levels[i] != 0.0f)
            rows.push_back({static_cast<double>(curve.g_freqGrid[i]), InUnit(levels[i], reference)});
    }
    return rows;
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
    const std::string name = path.filename().string();
    const bool isText = name.size() > 1 && (name.back() == 't' || name.back() == 'T');
    if (!isText)
        return Refuse("Speichern file misserfolg\n" + path.string() + ": results are saved as .dat or .txt.");
    const auto result = Collect();
    if (!result)
        return Refuse("Does not support the current selection!");
    const char form = name[name.size() - 2];
    const std::string bytes = EncodeResult(FormatResult(*result), form == 'a' || form == 'A');
    if (const std::string problem = WriteAtomically(path, bytes); !problem.empty())
        return Refuse("Speichern file misserfolg\n" + problem);
    return true;
}

/// What the curve store and the set-up of the band say of the measurement; nothing when the band does not
/// have the order.
std::optional<ResultFile> ResultFiles::Collect() {
    const CurveState& curve = m_Session.curve;
    ResultState& results = m_Session.results;
    results.g_comment = m_Store.Read("Add_comments.ccz", LongestComment).value_or("");

    ResultFile file;
    // A curve that came from a file keeps that file's header, if it had one.
    if (curve.g_fromFile && results.loaded && results.loaded->form != ResultFile::Form::Oldest) {
        file = *results.loaded;
    } else {
        if (!DescribeSetup(file))
            return std::nullopt;
        file.order = OrderOf(m_Session.select.m_IMIndex);
        if (!curve.g_fromFile) { // the instrument connected did not measure what a file held
            file.model = OneLine(m_Session.link.g_ModelName);
            file.serial = OneLine(m_Session.link.g_DeviceSN);
        }
        const LocalTime now = m_Platform.clock.Now();
        file.date = std::to_string(now.year) + ZeroPadded(now.month, 2) + ZeroPadded(now.day, 2);
        file.time = ZeroPadded(now.hour, 2) + ":" + ZeroPadded(now.minute, 2);
    }
    file.twoTone = m_Session.run.g_TestMode == ModeTwoTone;
    file.inDbc = curve.g_UnitDbc != 0;
    const float reference = file.inDbc ? curve.g_CarrierDbm : 0.0f;
    if (file.twoTone) {
        file.up = TwoToneRows(curve, reference);
    } else {
        file.up = SweepRows(curve, curve.g_levelUp, reference);
        file.down = SweepRows(curve, curve.g_levelDown, reference);
    }
    file.limitText = m_Session.panel.m_AlarmText;
    if (!IsDecimal(file.limitText)) // a field left empty would make a file that cannot be read back
        file.limitText = Fixed(static_cast<double>(curve.g_alarmLevel), 1);
    file.dutSerial = OneLine(results.m_DutSerial);
    file.comment = results.g_comment;
    std::erase_if(file.comment, [](char c) { return c == '\r' || c == '\0'; });
    return file;
}

/// Tones and powers from the band's plan and stores.
bool ResultFiles::DescribeSetup(ResultFile& file) {
    const PlanState& plan = m_Session.plan;
    const int imIndex = m_Session.select.m_IMIndex;
    // The band of the run: a reconnection may have found the instrument's switch elsewhere.
    const int number = HoldsPoints(m_Session.curve) && plan.g_MeasBand != BandNone
                           ? plan.g_MeasBand
                           : m_Session.select.m_BandId;
    const BandInfo* band = FindBand(number);
    if (!band || imIndex < 1 || imIndex > (IsTetra(number) ? 3 : 5))
        return false;
    const PowerSetting power = ReadPowerStore(m_Store, band->prefix);
    file.tone1.power = static_cast<float>(NumberIn(power.tone1) / 10.0) - plan.g_powerOffset;
    file.tone2.power = static_cast<float>(NumberIn(power.tone2) / 10.0) - plan.g_powerOffset;

    FrequencyPlan tones;
    if (number == BandTdScdmaA) { // two fixed tones and no sweep
        tones.f1 = tones.f1Start = tones.f1Stop = tones.f1Fix = ReadTdScdmaAF1(m_Store);
        tones.f2 = tones.f2Start = tones.f2Stop = tones.f2Fix = 2025.0f;
    } else if (const auto stored = ReadPlanStore(m_Store, band->prefix, imIndex)) {
        tones = *stored;
    } else if (const auto standard = DefaultPlan(number, imIndex, plan.g_bridge3dB)) {
        tones = *standard;
    } else {
        return false;
    }
    const bool twoTone = m_Session.run.g_TestMode == ModeTwoTone;
    file.tone1.fix = twoTone ? tones.f1 : tones.f1Fix;
    file.tone2.fix = twoTone ? tones.f2 : tones.f2Fix;
    file.tone1.start = tones.f1Start;
    file.tone1.stop = tones.f1Stop;
    file.tone2.start = tones.f2Start;
    file.tone2.stop = tones.f2Stop;
    return true;
}

} // namespace qor
