#include "curve/curve.h"
#include "curve/plot_scene.h"
#include "support/curves.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qor {
namespace {

constexpr Rgb Red = 0xFF0000;
constexpr Rgb Green = 0x00FF00;
constexpr Rgb FailRed = 0xCD3700;
constexpr Rgb GridGrey = 0x808A87;

/// A curve laid out in the window of a picture: L 60, T 30, R 916, B 551, 521 pixels for 90 dB.
struct Paper {
    std::unique_ptr<Curve> curve = std::make_unique<Curve>();
    PlotFacts facts;
    int width = 956;

    PlotScene Scene() {
        plot = ComputeLayout(*curve, width, 606);
        curve->Update(true);
        curve->SearchMaxima();
        return BuildScene(*curve, plot, facts);
    }
    PlotGeometry plot;
};

template <class Shape> std::vector<Shape> All(const std::vector<PlotItem>& items) {
    std::vector<Shape> shapes;
    for (const PlotItem& item : items) {
        if (const auto* shape = std::get_if<Shape>(&item))
            shapes.push_back(*shape);
    }
    return shapes;
}

std::optional<PlotText> Find(const std::vector<PlotItem>& items, std::string_view part) {
    for (const PlotText& text : All<PlotText>(items)) {
        if (text.text.find(part) != std::string::npos)
            return text;
    }
    return std::nullopt;
}

std::optional<PlotBox> FindBox(const std::vector<PlotItem>& items, Rgb colour) {
    for (const PlotBox& box : All<PlotBox>(items)) {
        if (box.colour == colour)
            return box;
    }
    return std::nullopt;
}

/// The numbers under the axis with their places.
std::vector<std::pair<std::string, int>> NumbersUnderAxis(Paper& paper) {
    std::vector<std::pair<std::string, int>> numbers;
    for (const PlotText& text : All<PlotText>(paper.Scene().ground)) {
        if (text.y == paper.plot.axis + 14)
            numbers.emplace_back(text.text, text.x - paper.plot.left);
    }
    return numbers;
}

std::vector<std::string> LevelNumbers(Paper& paper) {
    std::vector<std::string> numbers;
    for (const PlotText& text : All<PlotText>(paper.Scene().ground)) {
        if (text.align == PlotAlign::Right && text.size == NumberSize)
            numbers.push_back(text.text);
    }
    return numbers;
}

int UprightLines(Paper& paper) {
    int lines = 0;
    for (const PlotBox& box : All<PlotBox>(paper.Scene().ground))
        lines += box.width == 1 && box.colour == GridGrey;
    return lines;
}

TEST(PlotScale, TheTimeIsDividedByItsLength) {
    struct Case {
        int ms;
        std::string second; ///< number of the first division
        int lines;          ///< of the grid
        std::string last;
    };
    for (const Case& c :
         {Case{3000, "0.2", 14, "3.0"}, Case{4000, "0.2", 19, "4.0"}, Case{5000, "0.5", 9, "5.0"},
          Case{10000, "0.5", 19, "10.0"}, Case{11000, "1.0", 10, "11.0"}, Case{120000, "12.0", 9, "120.0"},
          Case{125000, "12.0", 10, "125.0"}, Case{0, "0.2", 4, "1.0"}}) {
        Paper paper;
        paper.curve->SetLength(c.ms);
        const auto numbers = NumbersUnderAxis(paper);
        ASSERT_GE(numbers.size(), 3U) << c.ms;
        EXPECT_EQ(numbers[0], std::pair(std::string("0.0"), 0));
        EXPECT_EQ(numbers[1].first, c.second) << c.ms;
        EXPECT_EQ(UprightLines(paper), c.lines) << c.ms;
        EXPECT_EQ(numbers.back(), std::pair(c.last, paper.plot.Span())) << c.ms;
        for (std::size_t i = 1; i < numbers.size(); ++i)
            EXPECT_GE(numbers[i].second - numbers[i - 1].second, 30) << c.ms << " at " << i;
    }
    Paper paper;
    paper.curve->SetLength(5400); // the last division reads the length in whole seconds already
    EXPECT_EQ(NumbersUnderAxis(paper).back(), std::pair(std::string("5.0"), 792));
    paper.width = 2500; // 2000 columns at most: the time ends there
    EXPECT_EQ(NumbersUnderAxis(paper).back().second, 1851);
    paper.curve->SetLength(120000);
    EXPECT_EQ(NumbersUnderAxis(paper).back(), std::pair(std::string("120.0"), 2000));
}

TEST(PlotScale, ASweepIsNumberedInItsSteps) {
    Paper paper;
    Curve& curve = *paper.curve;
    curve.SetGrid(test::EvenGrid(890, 0.5f, 41), 0.5f);
    const auto numbers = NumbersUnderAxis(paper); // 21.4 pixels a step: a number at every fifth
    ASSERT_EQ(numbers.size(), 9U);
    EXPECT_EQ(numbers[1], std::pair(std::string("892.5"), 106));
    EXPECT_EQ(numbers[8], std::pair(std::string("910.0"), 855));
    EXPECT_EQ(UprightLines(paper), 7);
    EXPECT_TRUE(Find(paper.Scene().ground, "Freq: MHz"));
    curve.SetTimeAxis();
    EXPECT_TRUE(Find(paper.Scene().ground, "Ziet: Sek."));
}

TEST(PlotScale, LevelsAreNumberedInTheUnitShown) {
    Paper paper;
    EXPECT_EQ(LevelNumbers(paper), (std::vector<std::string>{"-150.0", "-140.0", "-130.0", "-120.0", "-110.0",
                                                             "-100.0", "-90.0", "-80.0", "-70.0", "-60.0"}));
    const auto lines = All<PlotBox>(paper.Scene().ground);
    paper.curve->scale.SetUnit(1);
    EXPECT_EQ(LevelNumbers(paper).front(), "-193.0");
    EXPECT_EQ(LevelNumbers(paper).back(), "-103.0");
    EXPECT_TRUE(Find(paper.Scene().ground, "dBc    "));
    const auto shifted = All<PlotBox>(paper.Scene().ground);
    ASSERT_EQ(shifted.size(), lines.size());
    EXPECT_TRUE(std::equal(lines.begin(), lines.end() - 1, shifted.begin())) << "all but the limit stay";

    Paper calibration;
    calibration.facts.g_calDisplay = true;
    EXPECT_EQ(LevelNumbers(calibration).front(), "0.0");
    EXPECT_EQ(LevelNumbers(calibration).back(), "90.0");
    calibration.curve->scale.SetRange(calibration.curve->scale.Top(), -65);
    EXPECT_EQ(LevelNumbers(calibration),
              (std::vector<std::string>{"85.0", "86.0", "87.0", "88.0", "89.0", "90.0"}));

    for (const auto& [top, bottom] : {std::pair{-60.0f, -60.0f}, {0.0f, -1e30f}, {-100.0f, -60.0f}}) {
        Paper odd;
        odd.curve->scale.SetRange(top, bottom);
        EXPECT_LE(odd.Scene().ground.size(), 60U);
    }
}

TEST(PlotScale, TheLimitLineKeepsOffTheFrame) {
    struct Case {
        float limit;
        int dbc;
        int off;
        std::optional<int> y;
    };
    for (const Case& c : {Case{-105, 0, 0, 551 - 260}, Case{-148, 1, 0, 551 - 260}, Case{-200, 0, 0, 550},
                          Case{0, 0, 0, 31}, Case{-105, 0, 1, std::nullopt}}) {
        Paper paper;
        paper.curve->limit.Take(c.limit);
        paper.curve->scale.SetUnit(c.dbc);
        paper.curve->limit.SetAlarm(!(c.off));
        const auto line = FindBox(paper.Scene().ground, Red);
        ASSERT_EQ(line.has_value(), c.y.has_value()) << c.limit;
        if (line) {
            EXPECT_EQ(*line, (PlotBox{61, *c.y, 855, 1, Red})) << c.limit;
        }
    }
}

TEST(PlotFlags, TheMaximaAreNamedInTheUnitShown) {
    Paper paper;
    Curve& curve = *paper.curve;
    curve.SetLength(5000);
    curve.Put(20, -105);
    auto flag = Find(paper.Scene().front, "Max:<2.0, -105.0>");
    ASSERT_TRUE(flag);
    const int x = 60 + 856 * 20 / 50;
    EXPECT_EQ(All<PlotTriangle>(paper.Scene().front),
              (std::vector<PlotTriangle>{{x, 551 - 260 - 2, false, true, 0xFFFF00}}));
    EXPECT_EQ(flag->x, x - 8);
    EXPECT_EQ(flag->y, 551 - 260 - 28);
    curve.scale.SetUnit(1);
    EXPECT_TRUE(Find(paper.Scene().front, "Max:<2.0, -148.0>"));
    curve.Put(49, -60); // in the upper right corner the text stays on the plot
    flag = Find(paper.Scene().front, "Max:<4.9, -103.0>");
    ASSERT_TRUE(flag);
    EXPECT_LT(flag->x + 17 * 9, 916);
    EXPECT_GT(flag->y, 30);
    paper.facts.g_calDisplay = true;
    EXPECT_TRUE(All<PlotTriangle>(paper.Scene().front).empty());

    Paper sweep;
    sweep.curve->SetGrid(std::vector<float>{890, 895.5f}, 1);
    sweep.curve->Put(0, -110);
    sweep.curve->Put(1, -100, CurveSide::Down);
    sweep.facts.look = PlotLook::Picture;
    sweep.facts.m_PrintMode = true;
    const PlotScene scene = sweep.Scene();
    const auto up = Find(scene.front, "upMax:<890.0, -110.0>");
    const auto down = Find(scene.front, "dwMax:<895.5, -100.0>");
    ASSERT_TRUE(up && down);
    EXPECT_EQ(up->colour, 0xFF00FFU);
    EXPECT_EQ(down->colour, 0xFF3700U);
    const auto triangles = All<PlotTriangle>(scene.front);
    ASSERT_EQ(triangles.size(), 2U);
    EXPECT_EQ(triangles[0].colour, 0x000500U) << "print: the up flag is nearly black, its text is not";
    EXPECT_EQ(triangles[1], (PlotTriangle{916, 551 - 289 + 2, true, true, FailRed}));
}

TEST(PlotStamp, TheVerdictDecides) {
    struct Case {
        int verdict;      ///< 0 none, 1 failed, 2 to 4 errors, 5 passed, 6 passed and stopped at 2 of 3
        std::string text; ///< empty: none
        Rgb area;         ///< 0: none
        int last;         ///< row of the area
        bool alarmOff = false, stampOff = false, calDisplay = false, narrow = false;
    };
    for (const Case& c :
         {Case{0, "", 0, 0}, Case{1, " Misserfolg", FailRed, 119},
          Case{1, "Misserfolg", FailRed, 119, false, false, false, true}, Case{5, "    Durch", Green, 119},
          Case{6, "    Durch", Green, 119}, Case{5, "Durch", Green, 119, false, false, false, true},
          Case{2, "ERR0 - SYNTAX ERROR", FailRed, 119},
          Case{3, "ERR1 - Parameter out of limits.", FailRed, 119},
          Case{4, "ERR2 - PLL not locket.", FailRed, 119, false, false, true},
          Case{4, "", FailRed, 119, false, true}, Case{5, "", 0, 0, true}, Case{5, "", 0, 0, false, true},
          Case{1, "", 0, 0, false, true}, Case{1, "", 0, 0, true}, Case{1, "", 0, 0, false, false, true}}) {
        Paper paper;
        RunTally& tally = paper.curve->tally;
        if (c.verdict >= 2 && c.verdict <= 4)
            tally.NoteError(c.verdict);
        if (c.verdict == 1)
            tally.Take(-80);
        tally.EndWithin(c.verdict == 0 ? RunEnd::None : RunEnd::Stopped, {3, c.verdict == 6 ? 2 : 3}, 0,
                        false);
        paper.curve->limit.SetAlarm(!(c.alarmOff));
        paper.curve->limit.SetStamp(!(c.stampOff));
        paper.facts.g_calDisplay = c.calDisplay;
        paper.facts.narrowScreen = c.narrow;
        const PlotScene scene = paper.Scene();
        std::string text;
        for (const PlotText& item : All<PlotText>(scene.front)) {
            if (item.font != PlotFont::Stamp)
                continue;
            text += item.text;
            EXPECT_EQ(item.outline.has_value(), c.verdict < 5) << "blue on red is hardly read";
        }
        EXPECT_EQ(text, c.text) << c.verdict;
        EXPECT_EQ(Find(scene.front, "2 von 3 Punkten").has_value(), c.verdict == 6) << c.verdict;
        const auto area = FindBox(scene.front, c.area);
        ASSERT_EQ(area.has_value(), c.area != 0) << c.verdict;
        if (area) {
            EXPECT_EQ(area->top + area->height - 1, c.last) << c.verdict;
            EXPECT_EQ(area->left, c.verdict >= 2 && c.verdict <= 4 ? 61 : 687) << c.verdict;
            EXPECT_EQ(area->left + area->width, 916) << c.verdict;
        }
    }
}

TEST(PlotStatus, ABannerStandsOverThePlotOfTheScreenAndALongNameKeepsOffTheAxisLabel) {
    Paper paper;
    LoadedCurve file;
    file.name = std::string(300, 'x') + ".dat";
    paper.curve->Load(file);
    EXPECT_FALSE(Find(paper.Scene().front, "Datei:"));
    paper.facts.banner = {{"Datei:", "DATEN.dat"}, {"Naechste Messung:", "EGSM IM3"}};
    const auto banner = Find(paper.Scene().front, "Datei: DATEN.dat   Naechste Messung: EGSM IM3");
    ASSERT_TRUE(banner);
    EXPECT_LT(banner->y + LineHeight(banner->size), paper.plot.top + 1);
    const auto name = Find(paper.Scene().front, file.name);
    const auto label = Find(paper.Scene().ground, "Ziet: Sek.");
    ASSERT_TRUE(name && label);
    EXPECT_GT(name->room, 0);
    EXPECT_LT(name->x + name->room, label->x - static_cast<int>(label->text.size()) * label->size / 2);
    paper.facts.look = PlotLook::Picture;
    EXPECT_FALSE(Find(paper.Scene().front, "Datei:")) << "a picture is of the curve alone";
}

TEST(PlotScale, TheNumbersOfAVeryLongRunStayApartAndInTheWindow) {
    for (const int ms : {1000000, 123456789, 2147483000}) {
        Paper paper;
        paper.curve->SetLength(ms);
        const auto numbers = NumbersUnderAxis(paper);
        const auto half = [](const auto& number) { return static_cast<int>(number.first.size()) * 5; };
        for (std::size_t i = 1; i < numbers.size(); ++i)
            EXPECT_GE(numbers[i].second - half(numbers[i]), numbers[i - 1].second + half(numbers[i - 1]))
                << ms;
        EXPECT_LE(paper.plot.left + numbers.back().second + half(numbers.back()), paper.width) << ms;
    }
}

TEST(PlotColours, OnlyTheBlueRunOnBlackHasALightEdge) {
    for (std::size_t run = 0; run < 10; ++run) {
        const Rgb colour = TraceColour(run, false);
        EXPECT_EQ(TraceEdge(colour, PlotLook::Screen).has_value(), run == 1) << run;
        EXPECT_FALSE(TraceEdge(colour, PlotLook::Picture)) << run;
    }
}

TEST(PlotStatus, PowersAndTheWorstOfTheRuns) {
    Paper paper;
    paper.facts.power1 = 43;
    paper.facts.power2 = 0.05;
    EXPECT_TRUE(Find(paper.Scene().front, "Power 1: 43.0dBm  Power 2: 0.1dBm"));
    paper.facts.bandSelected = false;
    EXPECT_FALSE(Find(paper.Scene().front, "Power"));
    paper.facts.bandSelected = true;
    paper.facts.power1 = 0;
    EXPECT_FALSE(Find(paper.Scene().front, "Power"));

    paper.facts.translate = [](std::string_view text) {
        return text == "Meist Posten:" ? "Worst:" : std::string(text);
    };
    struct Case {
        std::string worst;
        bool endless;
        std::string shown;
    };
    for (const Case& c :
         {Case{"", true, ""}, Case{"-97.3", true, "Worst: -97.3"}, Case{"-97.3", false, "-97.3"},
          Case{"1.5", true, "Worst: 1.5"}, Case{"DATEN.dat", true, "DATEN.dat"}}) {
        LoadedCurve file; // its name stands where the worst of a continuous run does
        file.name = c.worst.ends_with("dat") ? c.worst : "";
        paper.curve->Load(file);
        paper.curve->WatchWorst();
        if (!c.worst.empty() && file.name.empty())
            paper.curve->NoteShown(std::stof(c.worst));
        paper.curve->limit.SetStamp(false);
        paper.facts.tagEndless = c.endless;
        std::string shown;
        for (const PlotText& text : All<PlotText>(paper.Scene().front))
            shown += text.text;
        EXPECT_EQ(shown, c.shown) << c.worst;
    }
}

TEST(LevelBar, FollowsTheNewestPointAndAfterTheRunTheWorst) {
    struct Case {
        float up, down; ///< newest points
        bool runOn;
        float limit;
        int dbc, alarmOff;
        int height; ///< 0: none
        Rgb colour;
    };
    for (const Case& c :
         {Case{-105, 0, true, -90, 0, 0, 260, Green},
          Case{-105, -60, true, -90, 0, 0, 520, Red}, // the down curve goes first
          Case{-105, -60, true, -90, 0, 1, 520, Green},
          Case{-105, -60, false, -90, 0, 0, 520, Red}, // the worst, whichever curve it is on
          Case{-60, -105, false, -90, 0, 0, 520, Red},
          Case{0, -105, false, -149, 1, 0, 260, Red}, // the limit in dBc
          Case{0, 0, false, -90, 0, 0, 0, Green}, Case{-150, 0, true, -90, 0, 0, 0, Green},
          Case{-104.99f, 0, true, -105, 0, 0, 260, Green}, Case{-104.98f, 0, true, -105, 0, 0, 260, Red},
          Case{-20, 0, true, 0, 0, 0, 520, Green}}) {
        Paper paper;
        Curve& curve = *paper.curve;
        curve.scale.ShowBar(1);
        curve.SetGrid(std::vector<float>{890, 900}, 1);
        curve.Put(0, -140);
        curve.Put(1, c.up);
        curve.Put(0, c.down, CurveSide::Down);
        if (c.up == 0)
            curve.Put(0, 0);
        curve.limit.Take(c.limit);
        curve.scale.SetUnit(c.dbc);
        curve.limit.SetAlarm(!(c.alarmOff));
        paper.facts.runOn = c.runOn;
        paper.facts.g_calDisplay = true; // no stamp
        const PlotScene scene = paper.Scene();
        const auto boxes = All<PlotBox>(scene.front);
        ASSERT_EQ(boxes.empty(), c.height == 0) << c.up;
        if (!boxes.empty()) {
            EXPECT_EQ(boxes[0], (PlotBox{130 - 99, 551 - c.height, 40, c.height + 1, c.colour}))
                << c.up << " " << c.limit;
        }
    }
}

} // namespace
} // namespace qor
