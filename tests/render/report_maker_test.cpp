#include "base/setup_store.h"
#include "curve/curve.h"
#include "platform/print/qt_printers.h"
#include "results/paint/qt_page_forms.h"
#include "results/read_document.h"
#include "results/report/bitmap_reader.h"
#include "results/report/document_page.h"
#include "results/report/paper.h"
#include "results/report/report_maker.h"
#include "support/application.h"
#include "support/curves.h"
#include "support/documents.h"
#include "support/temp_dir.h"

#include <QBuffer>
#include <QImage>

#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>

namespace qor {
namespace {

std::string Content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void Fill(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// A 2-tone result of ten points, passed, with the plot it comes from.
struct Bench {
    test::TempDir dir;
    SetupStore store{dir.Path() / "stores"};
    QtPageForms forms{[](std::string_view text) { return "<" + std::string(text) + ">"; }};
    ReportMaker maker{&forms, store};
    std::unique_ptr<Curve> curve = std::make_unique<Curve>();
    ReportSubject subject{{}, {*curve, {}, {}}, false, false, {}};

    Bench() {
        test::NeedApplication();
        std::filesystem::create_directories(store.Directory());
        for (std::size_t i = 0; i < 10; ++i)
            curve->Add(-100.0f - static_cast<float>(i));
        curve->Update(true);
        curve->SearchMaxima();
        test::Complete(*curve);
        subject.plot.facts.power1 = subject.plot.facts.power2 = 43;
        subject.document.limit = -90.0f;
    }
    [[nodiscard]] std::filesystem::path File(const char* name) const { return dir.Path() / name; }
    [[nodiscard]] bool Says(ReportLanguage language, const std::string& text) {
        maker.UseLanguage(language);
        PaintedPage page;
        EXPECT_TRUE(maker.PaintPage(subject, page));
        return std::any_of(page.texts.begin(), page.texts.end(),
                           [&text](const LayerText& there) { return there.text == text; });
    }
};

std::string Png() {
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes.toStdString();
}

TEST(ReportMaker, EveryFormComesFromTheSamePage) {
    Bench bench;
    ASSERT_TRUE(bench.maker.WritePage(bench.subject, bench.File("a.bmp"), WorkingFiles::Kept));
    ASSERT_TRUE(bench.maker.WritePage(bench.subject, bench.File("a.PDF"), WorkingFiles::Kept));
    ASSERT_TRUE(bench.maker.WritePage(bench.subject, bench.File("a.jpg")));
    const std::string bitmap = Content(bench.File("a.bmp"));
    const std::string jpeg = Content(bench.File("a.jpg"));
    EXPECT_EQ(bitmap.size(), 54U + 956 * 1212 * 2);
    EXPECT_EQ(bitmap, Content(bench.store.PathOf("report.bmp")));
    EXPECT_EQ(jpeg, Content(bench.store.PathOf("report.jpg")));
    EXPECT_NE(Content(bench.File("a.PDF")).find(jpeg), std::string::npos);
    const auto page = ReadBitmap(bitmap);
    const auto plot = ReadBitmap(Content(bench.store.PathOf("datacurve.bmp")));
    ASSERT_TRUE(page && plot);
    EXPECT_EQ(plot->height, 606);
    EXPECT_TRUE(std::equal(plot->pixels.begin(), plot->pixels.end(), page->pixels.begin() + 956 * 606));

    bench.store.Remove("datacurve.bmp");
    ASSERT_TRUE(bench.maker.WritePlot(bench.subject.plot, bench.File("plot.bmp")));
    EXPECT_FALSE(bench.store.Exists("datacurve.bmp"));
    ASSERT_TRUE(bench.maker.WritePlot(bench.subject.plot, bench.File("plot.jpg"), WorkingFiles::Kept));
    EXPECT_EQ(Content(bench.File("plot.bmp")).size(), 54U + 956 * 606 * 2);
    EXPECT_EQ(Content(bench.File("plot.bmp")), Content(bench.store.PathOf("datacurve.bmp")));
    EXPECT_EQ(Content(bench.File("plot.jpg")).substr(0, 2), "\xFF\xD8");

    const Outcome refused = bench.maker.WritePage(bench.subject, bench.File("no/such/folder.pdf"));
    EXPECT_FALSE(refused);
    EXPECT_EQ(refused.Text().find("Speichern file misserfolg\n"), 0U);
    EXPECT_FALSE(ReportMaker(nullptr, bench.store).WritePage(bench.subject, bench.File("b.pdf")));
}

TEST(ReportMaker, ThePlotSpeaksTheLanguageOfTheReport) {
    Bench bench;
    EXPECT_TRUE(bench.Says(ReportLanguage::German, "Ziet: Sek."));
    EXPECT_TRUE(bench.Says(ReportLanguage::German, "Durch")) << "the stamp";
    EXPECT_TRUE(bench.Says(ReportLanguage::English, "Time: Sec."));
    EXPECT_TRUE(bench.Says(ReportLanguage::English, "Pass"));
    EXPECT_TRUE(bench.Says(ReportLanguage::English, "Power 1: 43.0dBm  Power 2: 43.0dBm"));
    EXPECT_TRUE(bench.Says(ReportLanguage::English, "Alarm Limit Line: -90.0dBm"));

    ReportMaker other(&bench.forms, bench.store);
    EXPECT_EQ(other.Language(), ReportLanguage::German);
    EXPECT_TRUE(other.ChooseLanguage(ReportLanguage::English));
    EXPECT_EQ(Content(bench.store.PathOf("ReportLang.ccz")), "1");
    EXPECT_EQ(ReportMaker(&bench.forms, bench.store).Language(), ReportLanguage::English);
}

TEST(ReportMaker, WithoutALimitNothingIsStamped) {
    const Bench bench;
    ResultDocument document = RandomDocument(3, ResultMethod::TwoTone, 20);
    for (const int stamps : {0, 1}) {
        PaintedPage page;
        ASSERT_TRUE(bench.maker.PaintPage(DocumentPage(document, {}).Subject(), page));
        EXPECT_EQ(
            std::count_if(page.texts.begin(), page.texts.end(),
                          [](const LayerText& t) { return t.text == "Durch" || t.text == "Misserfolg"; }),
            stamps);
        document.limit = -90.0f;
        JudgeRows(document);
    }
}

TEST(ReportMaker, TheCompanysPicture) {
    Bench bench;
    const auto corner = [&bench] {
        PaintedPage page;
        EXPECT_TRUE(bench.maker.PaintPage(bench.subject, page));
        return page.picture.pixels.empty() ? 0 : page.picture.pixels[16 * 956 + 950];
    };
    EXPECT_EQ(corner(), 0x7FFF) << "none was ever chosen";
    Fill(bench.File("logo.png"), Png());
    Fill(bench.File("text.png"), "no picture");
    ASSERT_TRUE(bench.maker.TakeLogo(bench.File("logo.png")));
    EXPECT_EQ(corner(), 0x001F);
    EXPECT_EQ(Content(bench.store.PathOf("bitmap3.bmp")).substr(0, 2), "BM");
    for (const char* name : {"text.png", "missing.bmp"}) {
        const Outcome refused = bench.maker.TakeLogo(bench.File(name));
        EXPECT_FALSE(refused);
        EXPECT_EQ(refused.Text(), NoBitmap);
    }
    EXPECT_EQ(corner(), 0x001F) << "the one before stays";

    Fill(bench.store.PathOf("bitmap3.bmp"), "BM and then nothing");
    const Outcome refused = bench.maker.WritePage(bench.subject, bench.File("a.pdf"), WorkingFiles::Kept);
    EXPECT_EQ(refused.Text(), NoBitmap);
    EXPECT_FALSE(std::filesystem::exists(bench.File("a.pdf")));
    EXPECT_FALSE(bench.store.Exists("report.bmp"));
    ASSERT_TRUE(bench.maker.UseLogo(bench.File("logo.png")));
    EXPECT_EQ(corner(), 0x001F) << "of this program alone";
    EXPECT_EQ(Content(bench.store.PathOf("bitmap3.bmp")), "BM and then nothing");
}

/// A printer that notes where the page would come to stand.
class NotedPrinters final : public Printers {
public:
    [[nodiscard]] std::vector<std::string> Names() const override { return {"first", "second"}; }
    [[nodiscard]] std::string DefaultName() const override { return standard; }
    [[nodiscard]] bool Print(const std::string& printer, const PrintJob& job) override {
        printed.push_back(printer);
        place = job.place({202, 289, 600, 300});
        return job.title == "printer" && job.pixels[0] == 0x7FFF;
    }
    [[nodiscard]] bool PrintToFile(const std::filesystem::path&, const PrintJob&) override { return false; }

    std::string standard = "second";
    std::vector<std::string> printed;
    PaperPlace place;
};

TEST(ReportMaker, Printing) {
    Bench bench;
    PaintedPage page;
    ASSERT_TRUE(bench.maker.PaintPage(bench.subject, page));
    NotedPrinters printers;
    EXPECT_TRUE(ReportMaker::Print(page.picture, &printers, ""));
    EXPECT_TRUE(ReportMaker::Print(page.picture, &printers, "first"));
    EXPECT_EQ(printers.printed, (std::vector<std::string>{"second", "first"}));
    EXPECT_EQ(printers.place.dotsWide, 4771) << "202 mm of 600 dots an inch, the page is 4780 wide";
    EXPECT_NEAR(printers.place.pixelsWide, 954.2, 0.01);
    EXPECT_EQ(printers.place.dotsHigh, 3030);
    EXPECT_EQ(printers.place.pixelsHigh, 1212);
    printers.standard.clear();
    for (Printers* given : {static_cast<Printers*>(&printers), static_cast<Printers*>(nullptr)}) {
        const Outcome refused = ReportMaker::Print(page.picture, given, "");
        EXPECT_FALSE(refused);
        EXPECT_EQ(refused.Text(), "Drucken misserfolg.");
    }
    EXPECT_EQ(printers.printed.size(), 2U);
    bench.maker.KeepPrinted(page);
    EXPECT_EQ(Content(bench.store.PathOf("datacurveReport.bmp")), FormatBitmap(page.picture));

    QtPrinters real;
    EXPECT_FALSE(ReportMaker::Print(page.picture, &real, "no such printer"));
    ASSERT_TRUE(ReportMaker::PrintToFile(page.picture, &real, bench.File("paper.pdf")));
    const std::string paper = Content(bench.File("paper.pdf"));
    EXPECT_EQ(paper.substr(0, 5), "%PDF-");
    EXPECT_NE(paper.find("/Image"), std::string::npos);
}

} // namespace
} // namespace qor
