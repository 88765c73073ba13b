#include "results/report/report_maker.h"

#include "base/atomic_write.h"
#include "base/setup_store.h"
#include "results/report/bitmap_reader.h"
#include "results/report/paper.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <memory>

namespace qor {

namespace {

constexpr std::string_view LogoStore = "bitmap3.bmp";
constexpr std::string_view LanguageStore = "ReportLang.ccz";
constexpr std::string_view PlotFile = "datacurve.bmp";
constexpr std::string_view PageFile = "report.bmp";
constexpr std::string_view PageJpeg = "report.jpg";
constexpr std::string_view PrintFile = "datacurveReport.bmp";
/// A picture of MostPixels in four bytes each, and its head.
constexpr std::size_t LongestPicture = 4 * static_cast<std::size_t>(MostPixels) + 4096;

std::string EndingOf(const std::filesystem::path& path) {
    std::string ending = path.extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending == ".jpeg" ? ".jpg" : ending;
}

/// Nothing when it cannot be read or is too long for a picture.
std::optional<std::string> ReadPictureFile(const std::filesystem::path& path) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored))
        return std::nullopt; // reading a pipe would wait for ever
    const std::uintmax_t size = std::filesystem::file_size(path, ignored);
    if (ignored || size > LongestPicture)
        return std::nullopt;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"), &std::fclose);
    if (!file)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    return bytes;
}

Outcome NotWritten(const std::string& problem) {
    return Outcome::Refused("Speichern file misserfolg\n" + problem);
}

Outcome Write(const std::filesystem::path& path, const std::string& bytes) {
    if (bytes.empty())
        return Outcome::Refused(std::string(NoBitmap));
    const std::string problem = WriteAtomically(path, bytes);
    return problem.empty() ? Outcome::Done() : NotWritten(problem);
}

/// The plot as it stands on the page.
Picture16 PlotOn(const Picture16& page) {
    Picture16 plot{PlotPictureWidth, PlotPictureHeight, {}};
    plot.pixels.assign(page.pixels.end() - PlotPictureWidth * PlotPictureHeight, page.pixels.end());
    return plot;
}

PrintJob JobOf(const Picture16& page) {
    PrintJob job{"printer", page.width, page.height, page.pixels.data(), {}};
    job.place = [&page](const PaperFacts& paper) {
        return PlaceOnPaper(paper, page.width, page.height, PrintDivisor);
    };
    return job;
}

} // namespace

bool ReportMaker::IsPageFile(const std::filesystem::path& path) {
    const std::string ending = EndingOf(path);
    return ending == ".pdf" || ending == ".jpg" || ending == ".bmp";
}

Outcome ReportMaker::TakeLogo(const std::filesystem::path& path) {
    const auto bytes = ReadPictureFile(path);
    const auto picture = bytes && m_Forms ? m_Forms->ReadPicture(*bytes) : std::nullopt;
    if (!picture)
        return Outcome::Refused(std::string(NoBitmap));
    if (!m_Store.Write(LogoStore, bytes->starts_with("BM") ? *bytes : FormatBitmap(*picture)))
        return NotWritten(m_Store.PathOf(LogoStore).string());
    return Outcome::Done();
}

Outcome ReportMaker::UseLogo(const std::filesystem::path& path) {
    const auto bytes = ReadPictureFile(path);
    m_Logo = bytes && m_Forms ? m_Forms->ReadPicture(*bytes) : std::nullopt;
    return m_Logo ? Outcome::Done() : Outcome::Refused(path.string() + ": " + std::string(NoBitmap));
}

Outcome ReportMaker::LoadLogo(std::optional<PictureRgb>& logo) const {
    if (m_Logo) {
        logo = m_Logo;
        return Outcome::Done();
    }
    if (!m_Store.Exists(LogoStore))
        return Outcome::Done(); // none was ever chosen: the corner stays white
    const auto bytes = ReadPictureFile(m_Store.PathOf(LogoStore));
    logo = bytes ? ReadBitmap(*bytes) : std::nullopt;
    return logo ? Outcome::Done() : Outcome::Refused(std::string(NoBitmap));
}

ReportLanguage ReportMaker::Language() const {
    if (m_Language)
        return *m_Language;
    return m_Store.Read(LanguageStore, 1).value_or("") == "1" ? ReportLanguage::English
                                                              : ReportLanguage::German;
}

Outcome ReportMaker::ChooseLanguage(ReportLanguage language) {
    m_Language.reset();
    if (!m_Store.Write(LanguageStore, language == ReportLanguage::English ? "1" : "0"))
        return NotWritten(m_Store.PathOf(LanguageStore).string());
    return Outcome::Done();
}

void ReportMaker::Keep(std::string_view name, const std::string& bytes) {
    m_Store.Write(name, bytes); // one that cannot be written is missed by nobody
}

Outcome ReportMaker::PaintPage(const ReportSubject& subject, PaintedPage& page) const {
    ReportExtras extras{Language(), subject.keepSerial, subject.alarmOff, subject.markers, std::nullopt};
    std::optional<PictureRgb> logo;
    if (Outcome loaded = LoadLogo(logo); !loaded)
        return loaded;
    if (logo)
        extras.logo = PagePlace{0, 0, logo->width, logo->height};
    if (m_Forms)
        page =
            m_Forms->PaintPage(LayOutPage(subject.document, extras), subject.plot, logo ? &*logo : nullptr);
    return page.picture.pixels.empty() ? Outcome::Refused(std::string(NoBitmap)) : Outcome::Done();
}

Outcome ReportMaker::FormPage(const ReportSubject& subject, const std::filesystem::path& name,
                              std::string& bytes) const {
    PaintedPage page;
    if (Outcome painted = PaintPage(subject, page); !painted)
        return painted;
    const std::string ending = EndingOf(name);
    bytes = ending == ".bmp" ? FormatBitmap(page.picture) : m_Forms->Jpeg(page.picture);
    if (ending == ".pdf" && !bytes.empty())
        bytes = m_Forms->Pdf(bytes, page.texts);
    return bytes.empty() ? Outcome::Refused(std::string(NoBitmap)) : Outcome::Done();
}

Outcome ReportMaker::WritePage(const ReportSubject& subject, const std::filesystem::path& path,
                               WorkingFiles working) {
    if (working == WorkingFiles::None) {
        std::string bytes;
        const Outcome formed = FormPage(subject, path, bytes);
        return formed ? Write(path, bytes) : formed;
    }
    PaintedPage page;
    if (Outcome painted = PaintPage(subject, page); !painted)
        return painted;
    const std::string ending = EndingOf(path);
    Keep(PlotFile, FormatBitmap(PlotOn(page.picture)));
    const std::string bitmap = FormatBitmap(page.picture);
    if (ending == ".bmp")
        return Write(path, bitmap);
    Keep(PageFile, bitmap);
    const std::string jpeg = m_Forms->Jpeg(page.picture);
    if (ending == ".jpg")
        return Write(path, jpeg);
    Keep(PageJpeg, jpeg);
    return Write(path, jpeg.empty() ? jpeg : m_Forms->Pdf(jpeg, page.texts));
}

Outcome ReportMaker::WritePlot(const PlotSubject& plot, const std::filesystem::path& path,
                               WorkingFiles working) {
    if (!m_Forms)
        return Outcome::Refused(std::string(NoBitmap));
    const Picture16 picture = m_Forms->PaintPlot(plot);
    if (EndingOf(path) == ".bmp")
        return Write(path, FormatBitmap(picture));
    if (working == WorkingFiles::Kept)
        Keep(PlotFile, FormatBitmap(picture));
    return Write(path, m_Forms->Jpeg(picture));
}

void ReportMaker::KeepPrinted(const PaintedPage& page) {
    Keep(PlotFile, FormatBitmap(PlotOn(page.picture)));
    Keep(PrintFile, FormatBitmap(page.picture));
}

Outcome ReportMaker::Print(const Picture16& page, Printers* printers, const std::string& printer) {
    const std::string name = printer.empty() && printers ? printers->DefaultName() : printer;
    if (name.empty() || !printers || !printers->Print(name, JobOf(page)))
        return Outcome::Refused("Drucken misserfolg.");
    return Outcome::Done();
}

Outcome ReportMaker::PrintToFile(const Picture16& page, Printers* printers,
                                 const std::filesystem::path& path) {
    if (!printers || !printers->PrintToFile(path, JobOf(page)))
        return Outcome::Refused("Drucken misserfolg.");
    return Outcome::Done();
}

} // namespace qor
