#pragma once

#include "curve/marker_mark.h"
#include "curve/plot_geometry.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace qor {

using Rgb = std::uint32_t; ///< 0xRRGGBB

/// A plot on the black of the screen, or on the white of a picture for files and paper.
enum class PlotLook { Screen, Picture };

/// Colours that differ between the looks.
struct PlotColours {
    Rgb background;
    Rgb scale; ///< numbers of the axes
    Rgb frame; ///< the frame; also the up flag's text and the up markers
    Rgb flag;  ///< triangle of the up flag
    Rgb grid;
};

/// A word of the program, put into the language of the screen, and what it is about as it stands.
struct BannerPart {
    std::string label;
    std::string value;
};

/// What a paint shows besides the curve and its scale.
struct PlotFacts {
    PlotLook look = PlotLook::Screen;
    bool m_PrintMode = false;  ///< picture for a report: black grid, the first run's traces nearly black
    bool runOn = false;        ///< the bar shows the newest point, not the worst
    bool tagEndless = false;   ///< the worst level shown is announced as that of the runs
    bool bandSelected = true;  ///< the powers are those of a band
    bool g_calDisplay = false; ///< read-back curves: levels stand 150 above the scale, no flags, no stamp
    bool narrowScreen = false; ///< the short texts of the stamp
    double power1 = 0;         ///< dBm
    double power2 = 0;         ///< dBm
    std::vector<BannerPart> banner; ///< over the plot on the screen, in place of the title
    std::vector<MarkerMark> marks;
    /// Puts a text into the language of the screen; its German original is the key. None: German.
    std::function<std::string(std::string_view)> translate;
};

enum class PlotFont { Plain, Stamp };

enum class PlotAlign { Left, Centre, Right };

/// A filled rectangle; the straight lines of the plot are rectangles 1 pixel wide.
struct PlotBox {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    Rgb colour = 0;
    bool operator==(const PlotBox&) const = default;
};

/// A triangle 16 pixels wide and 8 high that stands on its apex or, upwards, under it.
struct PlotTriangle {
    int x = 0; ///< of the apex
    int y = 0;
    bool upwards = false;
    bool filled = false;
    Rgb colour = 0;
    bool operator==(const PlotTriangle&) const = default;
};

struct PlotText {
    int x = 0; ///< the end or the middle that `align` names
    int y = 0; ///< upper edge
    std::string text;
    Rgb colour = 0;
    int size = 0; ///< of the font, pixels
    PlotAlign align = PlotAlign::Left;
    int room = 0; ///< pixels the text is kept to by drawing it narrower; 0: any
    PlotFont font = PlotFont::Plain;
    std::optional<Rgb> outline{}; ///< where the colour alone does not stand out from what lies behind
    bool operator==(const PlotText&) const = default;
};

using PlotItem = std::variant<PlotBox, PlotTriangle, PlotText>;

/// A paint as plain data, in pixels of the window and in the order of painting. The traces come between.
struct PlotScene {
    std::vector<PlotItem> ground; ///< background, frame, grid, scale, limit line: changes with the scale only
    std::vector<PlotItem> front;  ///< level bar, flags, markers, texts, stamp: follows the measurement
};

// Sizes of the fonts, pixels. The texts of a large plot are read from a few metres; the numbers of the scale
// have to do with the margins, which do not grow.
inline constexpr int NumberSize = 16;
inline constexpr int MarkerSize = 15;
inline constexpr int StampSize = 46;
/// Of title, flags and status texts.
[[nodiscard]] int TextSize(const PlotGeometry& plot);
/// Height of a line of a font.
[[nodiscard]] constexpr int LineHeight(int size) {
    return size * 6 / 5;
}

// shown to the operator: how much of a measurement is there
inline constexpr std::string_view PointsPattern = "%1 von %2 Punkten";
inline constexpr std::string_view PlotTitle = "- - - ZANDVOSS QOR SYSTEM - - -";

[[nodiscard]] PlotColours ColoursOf(PlotLook look, bool printMode);
/// Colour of a run's traces: ten, then again from the first.
[[nodiscard]] Rgb TraceColour(std::size_t run, bool printMode);
/// Light edge of a trace that is hardly seen on the black of the screen.
[[nodiscard]] std::optional<Rgb> TraceEdge(Rgb colour, PlotLook look);
/// Where the texts of the flags on the maxima stand, a little more than they take.
[[nodiscard]] std::vector<PlotBox> FlagTexts(const Curve& curve, const PlotGeometry& plot);

/// The scene of the curve as it stands: the matrices are up to date and the maxima searched.
[[nodiscard]] PlotScene BuildScene(const Curve& curve, const PlotGeometry& plot, const PlotFacts& facts);

/// Points that a trace may show: all of a 2-tone run with the one more that an external receiver brings, the
/// whole grid in a sweep.
[[nodiscard]] std::size_t TracePoints(const Curve& curve);

} // namespace qor
