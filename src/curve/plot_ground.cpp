#include "curve/plot_ground.h"

#include "base/text_format.h"
#include "curve/curve.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr int NumberWidth = 10;  ///< room of a character of the scale's numbers
constexpr int NumberHeight = 16; ///< room of a line of them
constexpr int NumbersDrop = 14;  ///< below the axis
constexpr int EndRoom = 30;      ///< the number at the end of the time axis keeps its neighbours off so far
constexpr Rgb TitleColour = 0x00FAE6;
constexpr Rgb LabelColour = 0x00C8B4;

// shown to the operator
constexpr std::string_view TimeText = "Ziet: Sek.";
// shown to the operator
constexpr std::string_view FrequencyText = "Freq: MHz";

struct Ground {
    std::vector<PlotItem>& items;
    const Curve& curve;
    const PlotGeometry& plot;
    const PlotFacts& facts;
    const PlotColours colours;
    int numbersEnd = -1000; ///< x up to which the numbers under the axis reach

    void Across(int y, int from, int to, Rgb colour) const {
        items.emplace_back(PlotBox{from, y, to - from + 1, 1, colour});
    }
    void Upright(int x, Rgb colour) const {
        items.emplace_back(PlotBox{x, plot.top, 1, plot.axis - plot.top, colour});
    }

    [[nodiscard]] static int HalfOf(std::string_view number) {
        return static_cast<int>(number.size()) * NumberWidth / 2;
    }
    /// A number under the axis with its middle at x, but inside the window; left out where it would run into
    /// the one before.
    void NumberUnder(int x, double value, bool always = false) {
        std::string text = Fixed(value, 1);
        const int half = HalfOf(text);
        x = std::min(x, plot.width - half);
        if (x - half < numbersEnd && !always)
            return;
        numbersEnd = x + half;
        items.emplace_back(PlotText{x, plot.axis + NumbersDrop, std::move(text), colours.scale, NumberSize,
                                    PlotAlign::Centre});
    }

    void LevelNumber(int y, double level) const {
        if (curve.scale.InDbc())
            level -= static_cast<double>(curve.scale.Carrier());
        if (facts.g_calDisplay)
            level += 150;
        items.emplace_back(
            PlotText{plot.left - 5, y - 7, Fixed(level, 1), colours.scale, NumberSize, PlotAlign::Right});
    }

    void Frame() const {
        Across(plot.axis, plot.left, plot.right, colours.frame);
        Across(plot.top, plot.left, plot.right, colours.frame);
        items.emplace_back(PlotBox{plot.left, plot.top, 1, plot.axis - plot.top + 1, colours.frame});
        items.emplace_back(PlotBox{plot.right, plot.top, 1, plot.axis - plot.top + 1, colours.frame});
    }

    void FrequencyGrid() {
        const auto perStep = static_cast<double>(plot.pxPerStep);
        const int spacing = static_cast<int>(plot.Span() / perStep / 10) + 1; // steps
        for (int i = 0; i * spacing * perStep <= plot.Span() + 1; ++i) {
            const double offset = i * spacing * perStep;
            NumberUnder(plot.left + static_cast<int>(offset),
                        i * spacing * static_cast<double>(curve.SweepStep()) +
                            static_cast<double>(curve.Grid()[0]));
            const double next = (i + 1) * spacing * perStep;
            if (next < plot.Span() - 0.5) // pixels per step err by a hair
                Upright(plot.left + static_cast<int>(next), colours.grid);
        }
    }

    void TimeGrid() {
        const int length = curve.Length();
        const int division = length < 5000 ? 200 : length < 11000 ? 500 : length / 10000 * 1000; // ms
        const int seconds = length / 1000;
        const int end = plot.left + plot.CurveWidth(); // right but for a window wider than the plot can be
        const auto secondsAt = [division](int i) { return static_cast<long long>(i) * division / 1000; };
        NumberUnder(plot.left, 0);
        const int endHalf = HalfOf(Fixed(length / 1000.0, 1));
        const int endFrom =
            std::min(end, plot.width - endHalf) - endHalf; // the number at the end begins there
        int i = 1;
        for (; static_cast<long long>(i) * division < length; ++i) {
            const auto ms = static_cast<long long>(i) * division;
            const int x = plot.left + static_cast<int>(ms * plot.CurveWidth() / length);
            Upright(x, colours.grid);
            const double number = static_cast<double>(ms) / 1000.0;
            const bool isFree = end - x >= EndRoom && x + HalfOf(Fixed(number, 1)) <= endFrom;
            if (isFree || secondsAt(i) == seconds)
                NumberUnder(x, number);
        }
        if (secondsAt(i - 1) != seconds)
            NumberUnder(end, length / 1000.0, true);
    }

    void LevelGrid() const {
        const double range =
            static_cast<double>(curve.scale.Top()) - static_cast<double>(curve.scale.Bottom());
        const double division = facts.g_calDisplay ? 1 : std::floor(range / 10) + 1; // dB
        const int slack = facts.g_calDisplay ? 0 : 20;
        const double pixels = division * plot.pxPerDb;
        int numbersTop = plot.axis + NumberHeight;
        for (int i = 0; pixels >= 1 || i == 0; ++i) {
            const int y = plot.axis - static_cast<int>(i * pixels);
            if (y - slack <= plot.top)
                break;
            if (y + NumberHeight <= numbersTop && y - NumberHeight >= plot.top) {
                LevelNumber(y, i * division + static_cast<double>(curve.scale.Bottom()));
                numbersTop = y;
            }
            const int next = plot.axis - static_cast<int>((i + 1) * pixels);
            if (next > plot.top && next < plot.axis)
                Across(next, plot.left + 1, plot.right, colours.grid);
        }
        LevelNumber(plot.top, static_cast<double>(curve.scale.Top()));
    }

    void LimitLine() const {
        if (!curve.limit.AlarmOn())
            return;
        const float limit = curve.limit.Level() + (curve.scale.Reference());
        Across(plot.YOf(limit), plot.left + 1, plot.right - 1, OverLimitRed);
    }
};

} // namespace

std::string Translated(const PlotFacts& facts, std::string_view text) {
    return facts.translate ? facts.translate(text) : std::string(text);
}

void AddGround(std::vector<PlotItem>& items, const Curve& curve, const PlotGeometry& plot,
               const PlotFacts& facts) {
    Ground ground{items, curve, plot, facts, ColoursOf(facts.look, facts.m_PrintMode)};
    const PlotColours& colours = ground.colours;
    items.emplace_back(PlotBox{0, 0, plot.width, plot.height, colours.background});
    items.emplace_back(PlotText{(plot.left + plot.right) / 2,
                                std::min(plot.top - 2 * plot.marginY, plot.top - LineHeight(TextSize(plot))),
                                std::string(PlotTitle), TitleColour, TextSize(plot), PlotAlign::Centre,
                                plot.Span()});
    items.emplace_back(PlotText{plot.right, plot.axis + plot.marginY + 20,
                                Translated(facts, curve.IsSweep() ? FrequencyText : TimeText), LabelColour,
                                TextSize(plot), PlotAlign::Right});
    items.emplace_back(
        PlotText{plot.left - 35, 7, curve.scale.InDbc() ? "dBc    " : "dBm    ", colours.scale, NumberSize});
    if (curve.scale.ShowsBar())
        items.emplace_back(PlotBox{plot.left - BarLeft - 2, plot.top - 2, BarWidth + 4,
                                   plot.axis - plot.top + 5, BarGround});
    if (curve.IsSweep())
        ground.FrequencyGrid();
    else
        ground.TimeGrid();
    ground.LevelGrid();
    ground.Frame(); // over the ends of the grid
    ground.LimitLine();
}

} // namespace qor
