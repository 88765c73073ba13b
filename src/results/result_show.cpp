// A result file back into the curve store and onto the panel, as if it had just been measured.
#include "bands/catalogue.h"
#include "bands/setup_store.h"
#include "bands/tenths.h"
#include "core/session.h"
#include "core/text_format.h"
#include "display/curve_store.h"
#include "display/level_unit.h"
#include "display/markers.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "results/report_lines.h"
#include "results/result_files.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>

namespace qor {

namespace {

constexpr double LongestRun = 2147483; ///< s, what the set-up of a run allows

/// Band of a file by its two fixed tones, MHz. The two LTE 700 half bands share their tones with others, so
/// one that is selected stays.
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

/// Reads at most one byte more than a result can have.
bool ReadBytes(const std::filesystem::path& path, std::string& bytes, std::string& reason) {
    std::error_code unknown;
    const auto status = std::filesystem::status(path, unknown);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        // shown to the operator
        reason = "not a regular file"; // reading a pipe would wait for ever
        return false;
    }
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"), &std::fclose);
    if (!file) {
        reason = std::strerror(errno);
        return false;
    }
    bytes.resize(LongestResultFile + 1);
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    if (std::ferror(file.get())) {
        reason = std::strerror(errno);
        return false;
    }
    return true;
}

/// Power as one group of a store: five characters, the sign among them.
std::string StoredPower(float power) {
    std::string text = TenthsText(static_cast<double>(power));
    if (text.size() > 5)
        text.erase(1, text.size() - 5); // zeros behind a minus
    return text;
}

std::string WithCarriageReturns(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c == '\n')
            out += '\r';
        out += c;
    }
    return out;
}

} // namespace

bool ResultFiles::CurrentShow(const std::filesystem::path& path) {
    m_LastProblem.clear();
    if (path.empty())
        return true;
    std::string bytes;
    std::string reason;
    if (!ReadBytes(path, bytes, reason))
        return Refuse(path.string() + ": " + reason + ". Please choose another file.");
    ParsedResult parsed = ParseResult(bytes);
    if (!parsed.file)
        return Refuse(path.string() + ": " + parsed.problem + " Please choose another file.");
    Apply(*parsed.file, path);
    return true;
}

void ResultFiles::Apply(const ResultFile& file, const std::filesystem::path& path) {
    CurveState& curve = m_Session.curve;
    ClearPlot(m_Session);
    ClearLevels(curve);
    curve.g_freqGrid.fill(0);
    curve.g_worstText = path.filename().string();
    if (curve.g_worstText.find(".dat") == std::string::npos &&
        curve.g_worstText.find(".DAT") == std::string::npos)
        curve.g_worstText += " " + std::string(NotFromData);
    curve.g_MeasVerdict = VerdictPassed; // judged afresh by the limit check
    curve.g_shownRun = 0;                // a file holds one run
    curve.g_fromFile = 1;
    curve.g_worstFreq = curve.g_worstLevel = 0;
    m_Session.run.g_TestMode = file.twoTone ? ModeTwoTone : ModeSweep;
    m_Session.panel.m_Mode_sel = file.twoTone ? TwoToneText : SweepText;

    if (file.form != ResultFile::Form::Oldest)
        ApplyHeader(file);
    ApplyUnit(file);
    if (file.twoTone)
        ApplyTwoTone(file);
    else
        ApplySweep(file);
    m_Session.results.loaded = file;
    m_Session.results.loaded->up.clear();
    m_Session.results.loaded->down.clear();

    const bool internal = m_Session.receiver.tagReceiver == 1;
    UpdateCurveArrays(curve, internal);
    SearchMaxima(curve);
    curve.g_curveDirty = 1; // the plot has to follow
    RefreshMarkers(m_Session.markers);
    Panel& panel = m_Session.panel;
    const bool known = curve.g_worstLevel != 0;
    panel.m_WorstFreqText =
        known && curve.g_worstFreq > 0 ? Fixed(static_cast<double>(curve.g_worstFreq), 1) : "";
    panel.m_WorstLevelText = known ? Fixed(static_cast<double>(curve.g_worstLevel), 1) : "";
}

/// Texts, selection and stores by the header.
void ResultFiles::ApplyHeader(const ResultFile& file) {
    ResultState& results = m_Session.results;
    Panel& panel = m_Session.panel;
    PlanState& plan = m_Session.plan;
    results.m_DutSerial = file.dutSerial;
    results.g_bKeepSerial = !file.dutSerial.empty();
    m_Store.Write("Add_comments.ccz", WithCarriageReturns(file.comment));

    plan.strpow1 = StoredPower(file.tone1.power);
    plan.strpow2 = StoredPower(file.tone2.power);
    panel.m_f1_text = Fixed(static_cast<double>(file.tone1.fix), 1);
    panel.m_f2_text = Fixed(static_cast<double>(file.tone2.fix), 1);
    SelectionState& select = m_Session.select;
    select.m_BandId = BandOfTones(file.tone1.fix, file.tone2.fix, select.m_BandId);
    plan.g_MeasBand = select.m_BandId;
    const BandInfo* band = FindBand(select.m_BandId);
    panel.m_Band_sel = BandText(select.m_BandId);
    m_Store.Write(PowerStoreName(band->prefix), plan.strpow1 + plan.strpow2);
    select.m_IMIndex = file.order / 2;
    panel.m_IM_sel = file.order == 0 ? std::string() : "IM" + std::to_string(file.order);
    m_Session.link.g_DeviceSN = file.serial;

    auto& lines = results.g_reportLines;
    lines[ReportBand] = std::string(band->reportText) + "/" + file.model + "/" + file.serial;
    lines[ReportIM] = panel.m_IM_sel;
    lines[ReportMode] = panel.m_Mode_sel;
    const auto row = [](float first, float second, std::string_view unit) {
        return TwoValues(static_cast<double>(first), static_cast<double>(second), unit);
    };
    lines[ReportColumns] = "Signal Gen 1---Signal Gen 2";
    lines[ReportPower] = row(file.tone1.power, file.tone2.power, "dBm");
    lines[ReportFix] = row(file.tone1.fix, file.tone2.fix, "MHz");
    lines[ReportStart] = file.twoTone ? std::string() : row(file.tone1.start, file.tone2.start, "MHz");
    lines[ReportStop] = file.twoTone ? std::string() : row(file.tone1.stop, file.tone2.stop, "MHz");
    lines[ReportDate] = file.date.substr(0, 4) + "-" + file.date.substr(4, 2) + "-" + file.date.substr(6, 2) +
                        " " + file.time;
}

/// The panel takes the unit and the limit of the file.
void ResultFiles::ApplyUnit(const ResultFile& file) {
    CurveState& curve = m_Session.curve;
    Panel& panel = m_Session.panel;
    if (file.inDbc) {
        const int tenths1 = ToTenths(static_cast<double>(file.tone1.power));
        const int tenths2 = ToTenths(static_cast<double>(file.tone2.power));
        const bool same = std::abs(tenths1 - tenths2) <= 1;
        curve.g_CarrierDbm = same ? file.tone1.power - m_Session.plan.g_powerOffset : 43.0f;
    }
    ConvertLevelUnit(file.inDbc, m_Session);
    if (file.limit) {
        curve.g_alarmLevel = *file.limit;
        const float absolute = *file.limit + (file.inDbc ? curve.g_CarrierDbm : 0.0f);
        m_Store.Write("AlarmUp.ccz", Fixed(static_cast<double>(absolute), 1));
    }
    curve.g_alarmKept = curve.g_alarmLevel;
    panel.m_AlarmText = Fixed(static_cast<double>(curve.g_alarmLevel), 1);
}

void ResultFiles::ApplyTwoTone(const ResultFile& file) {
    CurveState& curve = m_Session.curve;
    const float reference = file.inDbc ? curve.g_CarrierDbm : 0.0f;
    const auto most =
        static_cast<std::size_t>(std::clamp(curve.g_plotWidth + 1, 1, static_cast<int>(CurvePoints)));
    const std::size_t count = std::min(file.up.size(), most);
    for (std::size_t i = 0; i < count; ++i)
        curve.g_levelUp[i] = file.up[i].level + reference;
    curve.StoreDataPot = static_cast<int>(count);
    const auto ms = [&file](std::size_t i) {
        return static_cast<int>(std::lround(std::min(file.up[i].x, LongestRun) * 1000));
    };
    curve.g_testTimeMs = count > 0 && ms(count - 1) > 0 ? ms(count - 1) : 1000;
    if (count > 1)
        curve.g_forcedMsPerPoint = ms(1) - ms(0);
    if (count > 2 && curve.g_forcedMsPerPoint == 0)
        curve.g_forcedMsPerPoint = ms(2) - ms(1);
    curve.g_pxPerStep = 0;
    if (file.form == ResultFile::Form::Oldest)
        return;
    const double f1 = static_cast<double>(file.tone1.fix);
    const double f2 = static_cast<double>(file.tone2.fix);
    const auto inLte = [](double f) { return f > 744.9 && f < 793.1; };
    const bool lower = f1 > 868.9 || (inLte(f1) && inLte(f2));
    const int k = file.order / 2;
    const double worst = lower ? (k + 1) * f1 - k * f2 : (k + 1) * f2 - k * f1;
    curve.g_worstFreq = static_cast<float>(worst);
}

void ResultFiles::ApplySweep(const ResultFile& file) {
    CurveState& curve = m_Session.curve;
    const float reference = file.inDbc ? curve.g_CarrierDbm : 0.0f;
    const std::span<float> grid(curve.g_freqGrid.data(), CurvePoints);
    std::size_t length = 0;
    for (const auto* rows : {&file.down, &file.up}) {
        for (const ResultFile::Row& row : *rows)
            length = InsertIntoGrid(grid, length, static_cast<float>(row.x));
    }
    const auto place = [&](const std::vector<ResultFile::Row>& rows, std::span<float> levels) {
        for (const ResultFile::Row& row : rows) {
            if (const int index = FindInGrid(grid.first(length), static_cast<float>(row.x)); index >= 0)
                levels[static_cast<std::size_t>(index)] = row.level + reference;
        }
    };
    place(file.up, curve.g_levelUp);
    place(file.down, curve.g_levelDown);
    if (length > 1)
        curve.g_SweepStep = curve.g_freqGrid[1] - curve.g_freqGrid[0];
    UpdatePixelsPerStep(curve);
}

} // namespace qor
