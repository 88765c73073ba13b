// Results through the program's own files in every form that can be read back.
#include "results/data_file.h"
#include "results/document_curve.h"
#include "results/read_document.h"
#include "results/result_forms.h"
#include "results/xlsx/xlsx_writer.h"
#include "support/documents.h"
#include "support/rig.h"

#include <gtest/gtest.h>
#include <random>

namespace qor {
namespace {

using test::FileText;
using test::Rig;

void Put(const Rig& rig, const std::string& name, const std::string& bytes) {
    std::ofstream(rig.dir / name, std::ios::binary) << bytes;
}

/// A .dat with remarks of its own, shown.
std::unique_ptr<Rig> Showing(const ResultDocument& document) {
    auto rig = std::make_unique<Rig>();
    Put(*rig, "run.dat", EncodeResult(FormatResult(document), true));
    EXPECT_TRUE(rig->program.Show().CurrentShow(rig->dir / "run.dat"));
    return rig;
}

ResultDocument Remarked(unsigned seed, ResultMethod method) {
    ResultDocument document = RandomDocument(seed, method, 40);
    document.limit = -90.0f;
    document.deviceSerial = "A17";
    document.comment = "first line\nsecond";
    return document;
}

TEST(ResultForms, AResultSavedInAnyFormIsShownAsItsDatIs) {
    for (const char* name : {"run.txt", "run.xls", "run.XLS", "run.csv", "run.sheets"}) {
        for (unsigned seed = 0; seed < 6; ++seed) {
            SCOPED_TRACE(std::string(name) + std::to_string(seed));
            const auto rig = Showing(Remarked(seed, seed % 2 ? ResultMethod::TwoTone : ResultMethod::Sweep));
            Session& s = rig->S();
            const ResultDocument first = *s.results.loaded.Document();
            ASSERT_TRUE(rig->program.Files().DataSave(rig->dir / name));
            rig->program.Stores().Write("Add_comments.ccz", "in force");
            s.results.device.EnterSerial("B18");
            const Outcome shows = rig->program.Show().CurrentShow(rig->dir / name);
            ASSERT_TRUE(shows) << shows.Text();

            const ResultDocument& shown = *s.results.loaded.Document();
            EXPECT_EQ(shown.runs, first.runs);
            EXPECT_EQ(shown.band, first.band);
            EXPECT_EQ(shown.order, first.order);
            EXPECT_EQ(shown.method, first.method);
            EXPECT_EQ(shown.inDbc, first.inDbc);
            EXPECT_EQ(shown.power1, first.power1);
            EXPECT_EQ(shown.model + shown.serial + DateText(shown),
                      first.model + first.serial + DateText(first));
            EXPECT_EQ(shown.source, name);
            EXPECT_FALSE(shown.genuine);
            // A sheet and a table have no remarks: those in force stay.
            const bool text = std::string_view(name) == "run.txt";
            EXPECT_EQ(s.results.device.Serial(), text ? "A17" : "B18");
            EXPECT_EQ(rig->program.Stores().Read("Add_comments.ccz", 99),
                      text ? "first line\r\nsecond" : "in force");
            EXPECT_FALSE(rig->program.Files().DataSave(rig->dir / "again.dat"))
                << "no original is made of it";
        }
    }
}

TEST(ResultForms, TheNameTellsTheFormAndTheBytesTellItAgain) {
    const auto rig = Showing(Remarked(4, ResultMethod::Sweep));
    ResultFiles& files = rig->program.Files();
    EXPECT_FALSE(files.Forms().Has("run.xlsx"));
    AddXlsx(files.Forms());
    for (const auto& [name, begin] : {std::pair{"a.dat", "\x66\x13"},
                                      {"a.report", "f1 "}, // ends in t
                                      {"a.format", "\x66\x13"},
                                      {"a.xls", "\xD0\xCF\x11\xE0"},
                                      {"a.xlsx", "PK"},
                                      {"a.csv", "run,half,"},
                                      {"a.cs", "\"f1: "}}) {
        const Outcome saved = files.DataSave(rig->dir / name);
        ASSERT_TRUE(saved) << name << saved.Text();
        EXPECT_EQ(FileText(rig->dir / name).substr(0, std::string_view(begin).size()), begin) << name;
    }
    // Renamed, a file is what its bytes are; only what is a .dat in both is an original.
    Put(*rig, "b.dat", FileText(rig->dir / "a.xls"));
    ASSERT_TRUE(rig->program.Show().CurrentShow(rig->dir / "b.dat"));
    EXPECT_FALSE(rig->S().results.loaded.Document()->genuine);
    const auto before = rig->S().results.loaded.Document()->source;
    for (const auto& [name, reason] :
         {std::pair{"a.xlsx", "This is not a result file, or its header is damaged."},
          {"none.xls", "No such file or directory."}}) {
        const Outcome shown = rig->program.Show().CurrentShow(rig->dir / name);
        EXPECT_FALSE(shown);
        EXPECT_EQ(shown.Text(), (rig->dir / name).string() + ": " + reason + " Please choose another file.");
        EXPECT_EQ(rig->S().results.loaded.Document()->source, before);
    }
}

/// Whatever a run was worth, no file of it is taken for a better one.
TEST(ResultForms, AFileNeverReloadsBetterThanItWas) {
    std::mt19937 random(20261123);
    const auto upTo = [&random](unsigned most) { return random() % (most + 1); };
    for (unsigned seed = 0; seed < 600; ++seed) {
        ResultDocument was =
            RandomDocument(seed, seed % 2 ? ResultMethod::TwoTone : ResultMethod::Sweep, 1 + upTo(40));
        const std::vector<ResultPoint>& up = was.runs.back().up;
        // The limit stands a hair beside a level, which itself lies beside its hundredths.
        was.limit =
            up[upTo(static_cast<unsigned>(up.size()) - 1)].level - static_cast<float>(upTo(30)) / 1000.0f;
        for (ResultPoint& point : was.runs.back().up)
            point.level += point.HasLevel() ? static_cast<float>(upTo(9)) / 1000.0f : 0.0f;
        JudgeRows(was);
        was.pointsAsked += upTo(2);
        if (was.verdict != ResultVerdict::Failed)
            was.verdict = static_cast<ResultVerdict>(upTo(3));
        if (was.verdict == ResultVerdict::Error)
            was.error = 2 + static_cast<int>(upTo(2));
        for (const char* name : {"a.dat", "a.txt", "a.xls", "a.csv", "a.sheets"}) {
            std::string bytes;
            ResultDocument back;
            ASSERT_TRUE(ResultForms().Write(was, name, {}, bytes));
            const Outcome read = ReadResult(bytes, name, back);
            ASSERT_TRUE(read) << seed << name << read.Text();
            if (!back.limit) { // a sheet is held against the one in force
                back.limit = was.limit;
                JudgeRows(back);
            }
            EXPECT_GE(DistanceFromPass(back), DistanceFromPass(was)) << seed << name;
            EXPECT_TRUE(!IsPartial(was) || IsPartial(back) || back.verdict != ResultVerdict::Passed)
                << seed << name;
        }
    }
}

TEST(ResultForms, ATableOfSeveralRunsIsWorthNoMoreThanTheWorstOfThem) {
    ResultDocument document = RandomDocument(8, ResultMethod::Sweep, 3);
    document.inDbc = false;
    document.limit = -90.0f;
    document.runs = {{{{890, -120}, {891, -60}}, {}}, {{{890, -120}, {891, -121}}, {}}};
    JudgeRows(document);
    EXPECT_EQ(document.verdict, ResultVerdict::Passed) << "the file of a series goes by its last run";
    std::string bytes;
    ResultDocument back;
    ASSERT_TRUE(ResultForms().Write(document, "a.csv", {}, bytes) && ReadResult(bytes, "a.csv", back));
    EXPECT_EQ(back.runs, document.runs);
    EXPECT_EQ(back.verdict, ResultVerdict::Failed);
    ASSERT_TRUE(ResultForms().Write(document, "a.dat", {}, bytes) && ReadResult(bytes, "a.dat", back));
    EXPECT_EQ(back.verdict, ResultVerdict::Passed);
    EXPECT_EQ(back.runs.size(), 1U);
    document.interBand = "DCS 1800";
    ASSERT_TRUE(ResultForms().Write(document, "a.csv", {}, bytes));
    EXPECT_EQ(ReadResult(bytes, "a.csv", back).Text(), "A result between bands cannot be shown.");
}

TEST(ResultForms, TheExternalReceiverStandsBehindTheZeroByte) {
    ResultDocument document = Remarked(4, ResultMethod::Sweep);
    JudgeRows(document);
    document.receiver = "Rohde&Schwarz,FSL-3,100,1.5";
    std::string bytes;
    ResultDocument back;
    for (const char* name : {"a.dat", "a.txt"}) {
        ASSERT_TRUE(ResultForms().Write(document, name, {}, bytes) && ReadResult(bytes, name, back));
        EXPECT_EQ(back.receiver, document.receiver);
        EXPECT_EQ(back.verdict, document.verdict);
        EXPECT_EQ(back.comment, document.comment);
        EXPECT_TRUE(bytes.ends_with("\r\nReceiver: Rohde&Schwarz,FSL-3,100,1.5")) << "unscrambled";
    }
    // With a limit where that one hears nothing there is no verdict, whatever the mark says.
    document.runs = {{{{890, -80}, {891, -80}}, {}}};
    document.receiver = "rsnrpz";
    document.floor = -73.0f;
    for (const auto& [limit, word] : {std::pair(-90.0f, "none"), {-73.5f, "none"}, {-70.0f, "passed"}}) {
        document.limit = limit;
        document.verdict = ResultVerdict::Passed;
        ASSERT_TRUE(ResultForms().Write(document, "a.dat", {}, bytes) && ReadResult(bytes, "a.dat", back));
        back.limit = limit;
        JudgeRows(back);
        EXPECT_EQ(VerdictWord(back.verdict), word) << limit;
        RunFacts facts = RunFactsOf(back);
        facts.limit = static_cast<double>(limit);
        EXPECT_EQ(Judge(facts) == Verdict::Passed, word == std::string_view("passed")) << limit;
    }
    EXPECT_EQ(back.receiver, "rsnrpz");
}

TEST(ResultForms, ATextIsMadeOfWhatStatesItsHead) {
    const auto written = [](const ResultDocument& document) {
        std::string bytes;
        return ResultForms().Write(document, "a.txt", {}, bytes).IsDone();
    };
    ResultDocument document = Remarked(1, ResultMethod::TwoTone);
    EXPECT_TRUE(written(document));
    document.limit.reset();
    EXPECT_FALSE(written(document));
    ASSERT_TRUE(ReadResult("half,level,unit,order,time_s\ntime,-100,dBm,3,0\n", "a.csv", document));
    document.limit = -90.0f;
    EXPECT_FALSE(written(document));
}

TEST(ResultForms, ASheetIsJudgedByTheLimitInForce) {
    ResultDocument document = RandomDocument(8, ResultMethod::Sweep, 3);
    document.inDbc = false;
    document.runs = {{{{890, -100}, {891, -101}}, {}}};
    document.limit = -90.0f;
    const auto rig = Showing(document);
    ASSERT_TRUE(rig->program.Files().DataSave(rig->dir / "run.xls"));
    document.limit = -100.5f;
    Put(*rig, "strict.dat", EncodeResult(FormatResult(document), true));
    ASSERT_TRUE(rig->program.Show().CurrentShow(rig->dir / "strict.dat"));
    ASSERT_TRUE(rig->program.Show().CurrentShow(rig->dir / "run.xls"));
    EXPECT_EQ(PanelOf(rig->S()).m_AlarmText, "-100.5");
    EXPECT_EQ(rig->S().curve.ShownVerdict(), Verdict::Failed);
    EXPECT_FALSE(rig->S().results.loaded.Document()->limit);
}

} // namespace
} // namespace qor
