#pragma once

#include "base/outcome.h"
#include "platform/printer.h"
#include "results/report/page_forms.h"

#include <filesystem>
#include <optional>
#include <string>

namespace qor {

class SetupStore;

// shown to the operator: a picture that cannot be read or painted
inline constexpr std::string_view NoBitmap =
    "Not enough resource for the bitmap. Either reduce the bitmap dimension or\n"
    "switch to lower screen setting (e.g. 256-color mode), and try again.";

/// A result with all that its page shows of it.
struct ReportSubject {
    ResultDocument document;
    PlotSubject plot;
    bool keepSerial = false;
    bool alarmOff = false;
    std::array<ReportMarker, 3> markers;
};

/// Whether the pictures on the way to a file are kept beside the stores: `datacurve.bmp` the plot,
/// `report.bmp` and `report.jpg` the page, `datacurveReport.bmp` the page that was printed last.
enum class WorkingFiles { None, Kept };

/// Makes reports of results: page, picture, PDF and print.
class ReportMaker {
public:
    /// `forms` may be null: then everything is refused.
    ReportMaker(const PageForms* forms, SetupStore& store) : m_Forms(forms), m_Store(store) {}

    /// The company's picture is `path` from now on: it is checked, put into the stores as a .bmp, and stands
    /// on every page. A .bmp is taken as it is.
    Outcome TakeLogo(const std::filesystem::path& path);
    /// For this program alone: the picture and the language of the stores stay as they are.
    Outcome UseLogo(const std::filesystem::path& path);
    void UseLanguage(ReportLanguage language) { m_Language = language; }

    [[nodiscard]] ReportLanguage Language() const;
    Outcome ChooseLanguage(ReportLanguage language);

    /// Writes the page; .pdf, .jpg or .bmp by the ending.
    Outcome WritePage(const ReportSubject& subject, const std::filesystem::path& path,
                      WorkingFiles working = WorkingFiles::None);
    /// The bytes of such a file.
    Outcome FormPage(const ReportSubject& subject, const std::filesystem::path& name,
                     std::string& bytes) const;
    /// Writes the plot alone; .jpg or .bmp by the ending.
    Outcome WritePlot(const PlotSubject& plot, const std::filesystem::path& path,
                      WorkingFiles working = WorkingFiles::None);

    /// The page as it will be printed.
    Outcome PaintPage(const ReportSubject& subject, PaintedPage& page) const;
    /// Leaves the pictures of a page that is printed beside the stores.
    void KeepPrinted(const PaintedPage& page);
    /// Prints a page; an empty name is the default printer.
    static Outcome Print(const Picture16& page, Printers* printers, const std::string& printer);
    static Outcome PrintToFile(const Picture16& page, Printers* printers, const std::filesystem::path& path);

    /// True for an ending that WritePage takes.
    [[nodiscard]] static bool IsPageFile(const std::filesystem::path& path);

private:
    Outcome LoadLogo(std::optional<PictureRgb>& logo) const;
    void Keep(std::string_view name, const std::string& bytes);

    const PageForms* m_Forms;
    SetupStore& m_Store;
    std::optional<ReportLanguage> m_Language; ///< of this program; none: the stored one
    std::optional<PictureRgb> m_Logo;         ///< of this program; none: the stored one
};

} // namespace qor
