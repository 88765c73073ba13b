#pragma once

#include "results/result_document.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// Language of a report, as `ReportLang.ccz` counts it. It need not be that of the screen.
enum class ReportLanguage { German = 0, English = 1 };

/// Size of the page in pixels. Places count from its top left.
inline constexpr int PageWidth = 956;
inline constexpr int PageHeight = 1212;
/// Size of the plot that stands in its lower half.
inline constexpr int PlotPictureWidth = 956;
inline constexpr int PlotPictureHeight = 606;

/// A font of the page: Liberation Sans drawn so wide that its characters have an average width.
struct PageFont {
    int height = 0; ///< of a line, pixels: ascent and descent
    int width = 0;  ///< average of a character, pixels

    /// Size of the letters in pixels, as a font is asked for.
    [[nodiscard]] double Size() const { return height * 2048.0 / (AscentUnits + DescentUnits); }
    /// Factor to a character's width in a font of that size.
    [[nodiscard]] double Stretch() const { return width * 2048.0 / (AverageUnits * Size()); }
    /// From the upper edge of a line to the line on which its letters stand, pixels.
    [[nodiscard]] double Ascent() const { return Size() * AscentUnits / 2048.0; }
    bool operator==(const PageFont&) const = default;

private:
    // Measures of the typeface in units of 1/2048 of its size. The average counts the letters as often as
    // they occur in a text; the mean of all characters that newer font files state is much wider.
    static constexpr double AscentUnits = 1854;
    static constexpr double DescentUnits = 434;
    static constexpr double AverageUnits = 904;
};

inline constexpr PageFont TitleFont{40, 16};
inline constexpr PageFont RowFont{21, 8};

/// A text on the page; x, y is the upper left corner of its line.
struct PageText {
    int x = 0;
    int y = 0;
    std::string text;
    PageFont font = RowFont;
    std::uint32_t colour = 0; ///< 0xRRGGBB
    bool operator==(const PageText&) const = default;
};

/// A rectangle on the page.
struct PagePlace {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const PagePlace&) const = default;
};

/// What stands on the page, and where.
struct ReportPage {
    ReportLanguage language = ReportLanguage::German;
    std::vector<PageText> texts; ///< from the title down, the left column before the right one
    PagePlace plot;
    std::optional<PagePlace> logo;
};

/// A marker of the panel as it reads there; one without a position is not on the page.
struct ReportMarker {
    std::string position; ///< seconds or MHz
    std::string level;    ///< in the unit of the result
};

/// What the page states besides the result.
struct ReportExtras {
    ReportLanguage language = ReportLanguage::German;
    bool keepSerial = false; ///< the serial number of the device has a row
    bool alarmOff = false;   ///< no limit is in force, its row is left out
    std::array<ReportMarker, 3> markers;
    /// Size of the company's picture, if there is one.
    std::optional<PagePlace> logo;
};

/// Lays a result out.
[[nodiscard]] ReportPage LayOutPage(const ResultDocument& document, const ReportExtras& extras);

/// Place of a picture of that size in the upper right corner: as it is where it fits 400 x 97, else made
/// smaller in proportion.
[[nodiscard]] PagePlace LogoPlace(int width, int height);
/// A text of the plot in the language of the report; its German original is the key.
[[nodiscard]] std::string InReportLanguage(ReportLanguage language, std::string_view text);

} // namespace qor
