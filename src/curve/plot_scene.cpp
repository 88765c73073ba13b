#include "curve/plot_scene.h"

#include "base/text_format.h"
#include "curve/curve.h"
#include "curve/plot_ground.h"

#include <algorithm>
#include <array>
#include <optional>

namespace qor {

namespace {

constexpr Rgb PassGreen = 0x00FF00;
constexpr Rgb FailRed = 0xCD3700;
constexpr Rgb DownTextColour = 0xFF3700;
constexpr Rgb StatusColour = 0x00C8B4;
constexpr Rgb StampColour = 0x0000FF;
constexpr Rgb NearlyBlack = 0x000500;
constexpr Rgb BannerYellow = 0xFFC800; ///< of what is to be read before the verdict is believed
constexpr Rgb RunBlue = 0x0000FF;
constexpr Rgb BlueEdge = 0xB0B0FF;
constexpr int StampRows = 85;

// shown to the operator: errors of the instrument
constexpr std::array<std::string_view, 3> ErrorTexts = {
    "ERR0 - SYNTAX ERROR", "ERR1 - Parameter out of limits.", "ERR2 - PLL not locket."};
// shown to the operator
constexpr std::string_view AnyErrorText = "Fehler";
// shown to the operator
constexpr std::string_view PassText = "Durch";
// shown to the operator
constexpr std::string_view FailText = "Misserfolg";
// shown to the operator
constexpr std::string_view WorstText = "Meist Posten:";
// shown to the operator
constexpr std::string_view PowerTexts[] = {"Power 1:", "Power 2:"};

constexpr std::array<Rgb, 10> Palette = {0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0x128A87,
                                         0xFF7D19, 0x1E5050, 0xFF0000, 0x00FF00, 0xFF7D96};

double InUnit(const Curve& curve, float level) {
    return static_cast<double>(level) - (static_cast<double>(curve.scale.Reference()));
}

/// What the bar stands for: the newest point of the run in progress, the worst one when none is.
std::optional<float> BarLevel(const Curve& curve, const PlotFacts& facts) {
    if (!facts.runOn && curve.WorstLevel())
        return curve.WorstLevel();
    for (const auto row : {curve.ShownDown(curve.Row()), curve.ShownUp(curve.Row())}) {
        const auto last = std::find_if(row.rbegin(), row.rend(), IsPresent);
        if (last != row.rend())
            return *last;
    }
    return std::nullopt;
}

void AddBar(std::vector<PlotItem>& items, const Curve& curve, const PlotGeometry& plot,
            const PlotFacts& facts) {
    const auto level = curve.scale.ShowsBar() ? BarLevel(curve, facts) : std::nullopt;
    const int height = level ? std::min(plot.FreeHeightOf(*level), plot.axis - plot.top - 1) : 0;
    if (height <= 0)
        return;
    const bool over = curve.limit.AlarmOn() && curve.ExceedsLimit(*level);
    items.emplace_back(PlotBox{plot.left - BarLeft, plot.axis - height, BarWidth, height + 1,
                               over ? OverLimitRed : PassGreen});
}

/// A maximum, and the text that names it, which is kept on the plot.
struct Flag {
    int x = 0;
    int y = 0;
    PlotText text;

    [[nodiscard]] int Width() const { return static_cast<int>(text.text.size()) * text.size * 2 / 3; }
};

std::optional<Flag> FlagOn(const Curve& curve, const PlotGeometry& plot, bool down) {
    const float level = down ? curve.MaxDown().level : curve.MaxUp().level;
    const auto index =
        static_cast<std::size_t>(std::max(down ? curve.MaxDown().index : curve.MaxUp().index, 0));
    if (!IsPresent(level) || index >= CurvePoints)
        return std::nullopt;
    const bool sweep = curve.IsSweep();
    const double place = sweep ? static_cast<double>(curve.Grid()[index])
                               : static_cast<double>(index) * curve.TimePerPoint() / 1000.0;
    Flag flag;
    flag.x = XOfPoint(curve, plot, index);
    flag.y = plot.YOf(level);
    flag.text.text = !sweep ? "Max:<" : down ? "dwMax:<" : "upMax:<";
    flag.text.text += Fixed(place, 1) + ", " + Fixed(InUnit(curve, level), 1) + ">";
    flag.text.size = TextSize(plot);
    const int line = LineHeight(flag.text.size);
    flag.text.x = std::max(std::min(flag.x - 8, plot.right - flag.Width()), plot.left + 2);
    flag.text.y =
        down ? std::min(flag.y + 12, plot.axis - line - 2) : std::max(flag.y - 10 - line, plot.top + 2);
    return flag;
}

void AddFlag(std::vector<PlotItem>& items, const Curve& curve, const PlotGeometry& plot,
             const PlotColours& colours, bool down) {
    auto flag = FlagOn(curve, plot, down);
    if (!flag)
        return;
    items.emplace_back(
        PlotTriangle{flag->x, down ? flag->y + 2 : flag->y - 2, down, true, down ? FailRed : colours.flag});
    flag->text.colour = down ? DownTextColour : colours.frame;
    items.emplace_back(std::move(flag->text));
}

void AddMark(std::vector<PlotItem>& items, const MarkerMark& mark, const PlotColours& colours) {
    const Rgb colour = mark.down ? DownTextColour : colours.frame;
    if (mark.onPoint)
        items.emplace_back(
            PlotTriangle{mark.x, mark.down ? mark.y + 2 : mark.y - 2, mark.down, false, colour});
    items.emplace_back(
        PlotText{mark.labelX, mark.labelY, "M" + std::to_string(mark.marker + 1), colour, MarkerSize});
}

void AddStatusTexts(std::vector<PlotItem>& items, const Curve& curve, const PlotGeometry& plot,
                    const PlotFacts& facts) {
    std::string text = curve.FileName();
    if (text.empty() && curve.WorstShown())
        text = (facts.tagEndless ? Translated(facts, WorstText) + " " : "") +
               Fixed(InUnit(curve, *curve.WorstShown()), 1);
    if (!text.empty()) {
        if (text.ends_with(NotFromData))
            text.replace(text.size() - NotFromData.size(), NotFromData.size(),
                         Translated(facts, NotFromData));
        const int y = std::min(plot.bottom - 10, plot.height - LineHeight(TextSize(plot)));
        // The label of the axis stands on the right.
        const int room = plot.Span() - 8 * TextSize(plot);
        items.emplace_back(
            PlotText{plot.left, y, std::move(text), StatusColour, TextSize(plot), PlotAlign::Left, room});
    }
    const bool powered = facts.bandSelected && (facts.power1 >= 0.1 || facts.power2 >= 0.1);
    if (powered && !facts.g_calDisplay)
        items.emplace_back(PlotText{plot.left + 2, plot.top + 20,
                                    Translated(facts, PowerTexts[0]) + " " + Fixed(facts.power1, 1) +
                                        "dBm  " + Translated(facts, PowerTexts[1]) + " " +
                                        Fixed(facts.power2, 1) + "dBm",
                                    StatusColour, TextSize(plot)});
}

void AddBanner(std::vector<PlotItem>& items, const PlotGeometry& plot, const PlotFacts& facts) {
    if (facts.banner.empty() || facts.look != PlotLook::Screen)
        return;
    std::string text;
    for (const BannerPart& part : facts.banner)
        text += (text.empty() ? "" : "   ") + Translated(facts, part.label) +
                (part.value.empty() ? "" : " ") + part.value;
    const int size = std::min(TextSize(plot), plot.top - 6);
    items.emplace_back(PlotBox{plot.left, 1, plot.Span() + 1, plot.top - 2, BannerYellow});
    items.emplace_back(PlotText{(plot.left + plot.right) / 2, (plot.top - LineHeight(size)) / 2,
                                std::move(text), NearlyBlack, size, PlotAlign::Centre, plot.Span() - 8});
}

std::string_view ErrorText(int error) {
    const auto n = static_cast<std::size_t>(error - 2);
    return n < ErrorTexts.size() ? ErrorTexts[n] : AnyErrorText;
}

std::string PointsText(const RunFacts& run, const PlotFacts& facts) {
    std::string text = Translated(facts, PointsPattern);
    for (const auto& [place, number] : {std::pair("%1", run.taken), std::pair("%2", run.asked)})
        if (const std::size_t at = text.find(place); at != std::string::npos)
            text.replace(at, 2, std::to_string(number));
    return text;
}

/// The verdict of the run over the upper right of the plot; an error of the instrument over all its width.
void AddStamp(std::vector<PlotItem>& items, const Curve& curve, const PlotGeometry& plot,
              const PlotFacts& facts) {
    const RunFacts run = curve.Facts();
    const Verdict verdict = Judge(run);
    const int textY = plot.top + 4 * plot.marginY - 20;
    const bool stamped = curve.limit.AlarmOn() && curve.limit.StampOn();
    if (verdict == Verdict::Error) {
        // The upper part of a tall plot; never less than the rows of a stamp.
        const int last = std::max(plot.axis - 500, plot.top + 89);
        items.emplace_back(PlotBox{plot.left + 1, plot.top + 1, plot.Span() - 1, last - plot.top, FailRed});
        if (stamped)
            items.emplace_back(PlotText{(plot.left + plot.right) / 2, textY,
                                        Translated(facts, ErrorText(run.error)), StampColour, StampSize,
                                        PlotAlign::Centre, plot.Span() - 16, PlotFont::Stamp, NearlyBlack});
    }
    if (facts.g_calDisplay)
        return;
    const bool passed = verdict == Verdict::Passed;
    const bool failed = verdict == Verdict::Failed;
    const Rgb colour = passed ? PassGreen : FailRed;
    const int left = plot.right * 3 / 4;
    const int width = plot.right - left;
    if (stamped && (passed || failed)) {
        const std::string indent = facts.narrowScreen ? "" : passed ? "    " : " ";
        std::string text = indent + Translated(facts, passed ? PassText : FailText);
        items.emplace_back(PlotBox{left, plot.top + 5, width, StampRows, colour});
        items.emplace_back(PlotText{left + width / 2, textY, std::move(text), StampColour, StampSize,
                                    PlotAlign::Centre, width - 16, PlotFont::Stamp,
                                    failed ? std::optional(NearlyBlack) : std::nullopt});
    }
    if (!run.IsPartial())
        return;
    // Under the stamp and as a part of it; in a colour of its own where nothing is stamped.
    const int size = TextSize(plot);
    items.emplace_back(PlotBox{left, plot.top + 5 + StampRows, width, LineHeight(size) + 4,
                               stamped && (passed || failed) ? colour : BannerYellow});
    items.emplace_back(PlotText{left + width / 2, plot.top + 7 + StampRows, PointsText(run, facts),
                                NearlyBlack, size, PlotAlign::Centre, width - 8});
}

} // namespace

int TextSize(const PlotGeometry& plot) {
    return std::clamp(plot.height / 40, 15, 20);
}

PlotColours ColoursOf(PlotLook look, bool printMode) {
    const Rgb grid = printMode ? 0x000000 : 0x808A87;
    if (look == PlotLook::Screen)
        return {0x000000, 0xFFFFFF, 0xFFFF00, printMode ? NearlyBlack : 0xFFFF00, grid};
    return {0xFFFFFF, 0x190505, 0xFF00FF, printMode ? NearlyBlack : 0xFF00FF, grid};
}

Rgb TraceColour(std::size_t run, bool printMode) {
    const std::size_t entry = run % Palette.size();
    return printMode && entry == 0 ? NearlyBlack : Palette[entry];
}

std::optional<Rgb> TraceEdge(Rgb colour, PlotLook look) {
    return colour == RunBlue && look == PlotLook::Screen ? std::optional(BlueEdge) : std::nullopt;
}

std::vector<PlotBox> FlagTexts(const Curve& curve, const PlotGeometry& plot) {
    std::vector<PlotBox> boxes;
    for (const bool down : {false, true}) {
        if (down && !curve.IsSweep())
            break;
        if (const auto flag = FlagOn(curve, plot, down))
            boxes.push_back({flag->text.x, flag->text.y, flag->Width(), LineHeight(flag->text.size), 0});
    }
    return boxes;
}

PlotScene BuildScene(const Curve& curve, const PlotGeometry& plot, const PlotFacts& facts) {
    PlotScene scene;
    scene.ground.reserve(80);
    AddGround(scene.ground, curve, plot, facts);
    const PlotColours colours = ColoursOf(facts.look, facts.m_PrintMode);
    AddBar(scene.front, curve, plot, facts);
    if (!facts.g_calDisplay) {
        AddFlag(scene.front, curve, plot, colours, false);
        if (curve.IsSweep())
            AddFlag(scene.front, curve, plot, colours, true);
    }
    for (const MarkerMark& mark : facts.marks)
        AddMark(scene.front, mark, colours);
    AddBanner(scene.front, plot, facts);
    AddStatusTexts(scene.front, curve, plot, facts);
    AddStamp(scene.front, curve, plot, facts);
    return scene;
}

std::size_t TracePoints(const Curve& curve) {
    if (curve.IsSweep())
        return std::min(curve.Steps(), CurvePoints);
    return std::min(curve.LastPoint() + 2, CurvePoints);
}

} // namespace qor
