#include "results/series_forms.h"
#include "results/statistics.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

/// A sweep of EGSM that was judged by -97 dBm, its levels from 900.0 MHz on in steps of 1 MHz.
ResultDocument Sweep(std::string serial, std::vector<float> levels, ResultVerdict verdict,
                     std::string time = "09:00") {
    ResultDocument document;
    document.band = BandEgsm;
    document.method = ResultMethod::Sweep;
    document.deviceSerial = std::move(serial);
    document.source = document.deviceSerial + ".dat";
    document.date = "20260307";
    document.time = std::move(time);
    document.limit = -97.0f;
    document.verdict = verdict;
    ResultRun& run = document.runs.emplace_back();
    for (const float level : levels)
        run.up.push_back({900.0 + static_cast<double>(run.up.size()), level});
    return document;
}

constexpr auto Passed = ResultVerdict::Passed;
constexpr auto Failed = ResultVerdict::Failed;

/// Worst levels -100, -102, -95 and, without a verdict, -99; margins 3, 5, -2, 2.
SeriesSummary Four() {
    return Summarise({SeriesRunOf(Sweep("C", {-110, -95, -112}, Failed, "11:00")),
                      SeriesRunOf(Sweep("A", {-100, -105, -120}, Passed, "09:00")),
                      SeriesRunOf(Sweep("D", {-99, 0, -111}, ResultVerdict::None, "12:00")),
                      SeriesRunOf(Sweep("B", {-104, -102, -108}, Passed, "10:00"))});
}

TEST(Statistics, TheFiguresOfASeries) {
    const SeriesSummary summary = Four();
    ASSERT_EQ(summary.kinds.size(), 1U);
    const SeriesStatistics& kind = summary.kinds[0];
    EXPECT_EQ(kind.passed, 2U);
    EXPECT_EQ(kind.failed, 1U);
    EXPECT_EQ(kind.withoutVerdict, 1U);
    EXPECT_NEAR(*kind.yield, 2.0 / 3, 1e-9) << "of those with a verdict";
    EXPECT_EQ(kind.levels, 4U);
    EXPECT_NEAR(*kind.mean, -99.0, 1e-9);
    EXPECT_NEAR(*kind.deviation, 2.943920, 1e-6) << "root of 26 / 3";
    EXPECT_EQ(*kind.worst, -95.0);
    EXPECT_NEAR(*kind.meanMargin, 2.0, 1e-9);
    EXPECT_NEAR(*kind.cpk, 0.226455, 1e-6) << "2 / (3 * 2.943920)";
    std::string order;
    for (const std::size_t index : kind.runs)
        order += summary.runs[index].device;
    EXPECT_EQ(order, "ABCD");
    EXPECT_EQ(summary.runs[0].worst->frequency, 901.0f);
    EXPECT_EQ(*summary.runs[0].Margin(), -2.0);
    // 0 h -100, 1 h -102, 2 h -95, 3 h -99: slope (1.5 + 1.5 + 2 + 0) / 5
    ASSERT_TRUE(kind.trend.line);
    EXPECT_NEAR(kind.trend.line->slope, 1.0, 1e-9);
    EXPECT_NEAR(kind.trend.line->level, -100.5, 1e-9);
    ASSERT_EQ(kind.spread.size(), 3U);
    EXPECT_EQ(kind.spread[0].place, 9000);
    EXPECT_EQ(kind.spread[0].median, -102.0f) << "between -104 and -100";
    EXPECT_EQ(kind.spread[1].low, -105.0f);
    EXPECT_EQ(kind.spread[1].median, -102.0f) << "of three: no level is none";
    EXPECT_EQ(kind.spread[1].high, -95.0f);
}

TEST(Statistics, KindsAreNotMixedAndLittleIsLittle) {
    ResultDocument other = Sweep("", {-80}, Failed);
    other.order = 5;
    other.source = "run 7.dat";
    other.limit.reset();
    ResultDocument timed = Sweep("T", {-90, -91, -89, -92}, Passed, "");
    timed.method = ResultMethod::TwoTone;
    timed.date.clear();
    timed.plan.f1 = 935;
    timed.plan.f2 = 960;
    timed.product = {2, 1};
    for (std::size_t i = 0; i < 4; ++i)
        timed.runs[0].up[i].x = static_cast<double>(i) * 0.6; // 0, 0.6 | 1.2, 1.8
    SeriesSummary summary =
        Summarise({SeriesRunOf(other), SeriesRunOf(timed), SeriesRunOf(Sweep("A", {}, ResultVerdict::None))});
    ASSERT_EQ(summary.kinds.size(), 3U);
    const SeriesStatistics& seconds = summary.kinds[0];
    EXPECT_TRUE(seconds.kind.OverTime());
    EXPECT_EQ(summary.runs[1].curve, (std::vector<CurvePlace>{{0, -90}, {1, -89}}))
        << "the highest of a second";
    EXPECT_EQ(summary.runs[1].worst->frequency, 910.0f);
    EXPECT_FALSE(seconds.deviation || seconds.cpk || seconds.trend.line);
    EXPECT_TRUE(seconds.trend.points.empty()) << "its time is not known";
    const SeriesStatistics& empty = summary.kinds[1];
    EXPECT_EQ(empty.levels, 0U);
    EXPECT_FALSE(empty.mean || empty.worst || empty.yield || empty.meanMargin);
    EXPECT_TRUE(empty.histogram.counts.empty());
    EXPECT_EQ(summary.runs[0].device, "run 7");
    EXPECT_FALSE(summary.kinds[2].meanMargin) << "no limit";
    EXPECT_EQ(*summary.kinds[2].yield, 0.0);
    const SeriesSummary alike =
        Summarise({SeriesRunOf(Sweep("A", {-100}, Passed)), SeriesRunOf(Sweep("B", {-100}, Passed))});
    EXPECT_EQ(*alike.kinds[0].deviation, 0.0);
    EXPECT_FALSE(alike.kinds[0].cpk) << "no deviation, no index";
    EXPECT_FALSE(alike.kinds[0].trend.line) << "one moment";
}

TEST(Statistics, Histograms) {
    const Histogram whole = HistogramOf({-100.0, -99.01, -99.0, -90.2});
    EXPECT_EQ(whole.step, 0.5);
    EXPECT_EQ(whole.from, -100.0);
    ASSERT_EQ(whole.counts.size(), 20U);
    EXPECT_EQ(whole.counts[0], 1);
    EXPECT_EQ(whole.counts[1], 1);
    EXPECT_EQ(whole.counts[2], 1) << "an edge belongs to the step above it";
    EXPECT_EQ(whole.counts[19], 1);
    const Histogram tenths = HistogramOf({static_cast<double>(-97.3f), -97.3, -97.0});
    EXPECT_EQ(tenths.step, 0.1);
    EXPECT_EQ(tenths.counts, (std::vector<int>{2, 0, 0, 1}));
    EXPECT_EQ(HistogramOf({-100}).counts, std::vector<int>{1});
}

TEST(Statistics, ARunInSeveralFilesCountsOnce) {
    std::string refused;
    const auto load = [](const std::filesystem::path& file, ResultDocument& document) {
        const std::string name = file.filename().string();
        document = Sweep(name, {-100, name[0] == 'x' && name.ends_with("csv") ? -95.0f : -101.0f}, Passed);
        document.runs[0].up.push_back({902.0, name.ends_with("xls") ? -101.004f : -101.0f});
        if (name.ends_with("txt"))
            document.time = "09:07"; // written later
        if (name == "y.dat")
            return Outcome::Refused("no result");
        return Outcome::Done();
    };
    std::string counted;
    for (const SeriesRun& run :
         LoadRuns({"a/1.xls", "a/1.TXT", "a/1.DAT", "b/1.txt", "a/2.csv", "a/2_sweep.xls", "a/3_detail.xls",
                   "a/3_sweep.xls", "a/4_sweep.dat", "x.dat", "x.csv", "y.dat", "y.txt"},
                  load, [&](const std::filesystem::path&file, const Outcome&) { refused += file.string(); }))
        counted += run.device + " ";
    EXPECT_EQ(counted, "1.DAT 1.txt 2.csv 3_detail.xls 4_sweep.dat x.dat x.csv y.txt ")
        << "another run under the same name counts, and so does a twin of one that cannot be read";
    EXPECT_EQ(refused, "y.dat");
    EXPECT_FALSE(IsSameRun(Sweep("", {-100, 0}, Passed), Sweep("", {-100, 0, -100}, Passed)));
    EXPECT_TRUE(IsSameRun(Sweep("", {-100, 0}, Passed), Sweep("", {-100}, Failed)));
}

TEST(Statistics, AsTableAndAsObject) {
    ResultDocument odd = Sweep("C \"x\", y", {-95}, Failed, "11:00");
    const std::string table =
        FormatSeriesCsv(Summarise({SeriesRunOf(Sweep("A", {-100, -101}, Passed)), SeriesRunOf(odd)}));
    EXPECT_NE(
        table.find(
            "\r\nrun,EGSM 900,IM3,sweep,A,A.dat,2026-03-07 09:00,-100.00,900.0,-97.00,3.00,passed,,,,,,\r\n"),
        std::string::npos)
        << table;
    EXPECT_NE(table.find(",\"C \"\"x\"\", y\","), std::string::npos);
    EXPECT_NE(
        table.find("\r\nseries,EGSM 900,IM3,sweep,,,,-95.00,,,0.50,,2,0.5000,-97.500,3.536,0.047,2.5000\r\n"),
        std::string::npos)
        << table;
    const std::string object = FormatSeriesJson(Summarise({SeriesRunOf(odd)}));
    EXPECT_NE(object.find("{\"device\":\"C \\\"x\\\", y\",\"file\":"), std::string::npos) << object;
    EXPECT_NE(object.find("\"deviation_db\":null"), std::string::npos);
    EXPECT_NE(object.find("\"curves\":[{\"mhz\":900.0,\"low\":-95.00,\"median\":-95.00,\"high\":-95.00}]"),
              std::string::npos);
    EXPECT_EQ(FormatSeriesJson(Summarise({})), "{\"count\":0,\"series\":[]}\n");
    EXPECT_EQ(TitleOf({BandEgsm, "", 3, ResultMethod::Sweep}, ReportLanguage::English),
              "EGSM 900, IM3, Sweep Mode");
}

} // namespace
} // namespace qor
