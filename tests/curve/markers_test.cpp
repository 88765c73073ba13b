#include "curve/curve.h"
#include "curve/markers.h"
#include "curve/plot_geometry.h"
#include "curve/plot_scene.h"
#include "desk/level_unit.h"
#include "support/rig.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

/// A program with its panel and its plot of 800 x 500 pixels; nothing is connected.
struct MarkerDesk : Rig {
    static constexpr int Width = 800;
    static constexpr int Height = 500;

    MarkerDesk() { program.Start(false); }

    /// A 2-tone run of 5 s, a point each 100 ms: -100 dBm, but -90 at 2.0 s and none from 4.0 s on.
    void TwoTone() {
        Curve& curve = S().curve;
        curve.SetLength(5000);
        for (std::size_t i = 0; i < 40; ++i)
            curve.Add(i == 20 ? -90.0f : -100.0f);
        Paint();
    }
    /// A sweep whose two lists lie between each other: up 900, 903, ... 930, down 900, 902, ... 930. Up
    /// levels are -100 but -95 at 909, down levels -101 but -94 at 910.
    void Sweep(int run = 0) {
        Curve& curve = S().curve;
        while (curve.Run() < run)
            curve.EndRun();
        std::vector<float> grid;
        for (int f = 900; f <= 930; ++f)
            if (f % 3 == 0 || f % 2 == 0)
                grid.push_back(static_cast<float>(f));
        curve.SetGrid(grid, 1);
        for (std::size_t i = 0; i < grid.size(); ++i) {
            const int f = static_cast<int>(curve.Grid()[i]);
            curve.Put(i, f % 3 != 0 ? 0.0f : f == 909 ? -95.0f : -100.0f);
            curve.Put(i, f % 2 != 0 ? 0.0f : f == 910 ? -94.0f : -101.0f, CurveSide::Down);
        }
        Paint();
    }
    std::vector<MarkerMark> Paint() {
        S().curve.Update(true);
        plot = ComputeLayout(S().curve, Width, Height);
        S().curve.SearchMaxima();
        return program.Marks().Place(plot);
    }
    /// Two ticks of the markers with a paint before each and one after.
    std::vector<MarkerMark> Settle() {
        for (int i = 0; i < 2; ++i) {
            Paint();
            program.Marks().OnMarkerTimer(S().run.IsOn());
        }
        return Paint();
    }
    [[nodiscard]] const Marker& M(std::size_t n = 0) { return S().markers.At(n); }
    [[nodiscard]] std::string Texts(std::size_t n = 0) {
        return M(n).m_MarkerPosText + " " + M(n).m_MarkerLevelText;
    }
    /// Switches a marker on with its boxes and its position, and lets it settle.
    std::vector<MarkerMark> Set(const std::string& boxes, const std::string& position, std::size_t n = 0) {
        if (!M(n).m_MarkerOn)
            program.Marks().Toggle(n);
        const auto ticked = [&boxes](char box) { return boxes.find(box) != std::string::npos; };
        program.Marks().SetChecks(n, ticked('M'), ticked('U'), ticked('D'));
        program.Marks().SetPosition(n, position);
        return Settle();
    }

    PlotGeometry plot;
};

TEST(Markers, InTwoToneAPositionFindsItsLevelAndWhatLiesOutsideFindsNone) {
    struct Case {
        const char* boxes;
        const char* position;
        const char* texts;
        bool drawn;
    };
    MarkerDesk desk;
    desk.TwoTone();
    for (const Case& c :
         {Case{"", "2.0", "2.0 -90.0", true}, Case{"", "1.96", "1.96 -90.0", true},
          Case{"", "0", "0 -100.0", true}, Case{"", "2.06", "2.06 -100.0", true},
          Case{"", "4.5", "4.5 ", false}, Case{"", "5.1", "5.1 ", false}, Case{"", "-1", "-1 ", false},
          Case{"", "abc", "abc ", false}, Case{"", "1e300", "1e300 ", false}, Case{"", "", " ", false},
          Case{"M", "", "2.0 -90.0", false}, Case{"UD", "2", "2 -90.0", true}}) {
        SCOPED_TRACE(std::string(c.boxes) + " " + c.position);
        const auto marks = desk.Set(c.boxes, c.position);
        EXPECT_EQ(desk.Texts(), c.texts);
        ASSERT_EQ(marks.size(), c.drawn ? 1u : 0u);
        EXPECT_FALSE(desk.M().m_MarkerUp || desk.M().m_MarkerDown) << "there is one curve only";
        if (!c.drawn)
            continue;
        EXPECT_TRUE(marks[0].onPoint && !marks[0].down);
        EXPECT_EQ(marks[0].labelX, marks[0].x - 8);
        const int clear = desk.M().g_markerValueUp == "-90.0" ? 20 : 0; // of the flag on the maximum
        EXPECT_EQ(marks[0].labelY, marks[0].y - 28 - clear);
    }
    EXPECT_EQ(MarkerUnit(desk.S().curve), "Sec.");
    const auto at2 = desk.Set("", "2.0");
    EXPECT_EQ(at2[0].x, XOfPoint(desk.S().curve, desk.plot, 20));
    EXPECT_EQ(at2[0].y, desk.plot.YOf(-90.0f));
    LoadedCurve slow; // the maximum is at 4.0 s then
    slow.up.assign(40, -100.0f);
    slow.up[20] = -90.0f;
    slow.length = 8000;
    slow.msPerPoint = 200;
    desk.S().curve.Load(slow);
    desk.Set("", "3.9");
    EXPECT_EQ(desk.Texts(), "3.9 -100.0") << "half way still belongs to the point before";
}

/// The table of the three boxes, of the sweep of Sweep(): its peaks are -95 up at 909, -94 down at 910.
TEST(Markers, InASweepTheBoxesChooseTheCurve) {
    struct Case {
        const char* boxes;
        const char* position;
        const char* texts;
        const char* drawn; ///< U, D, small for a label without a point, or nothing
    };
    for (const Case& c :
         {Case{"MUD", "", "910.0 -94.0", "D"}, Case{"MU", "", "909.0 -95.0", "U"},
          Case{"MD", "", "910.0 -94.0", "D"}, Case{"M", "906", " ", ""}, Case{"", "906", " ", ""},
          Case{"U", "906", "906 -100.0", "U"}, Case{"D", "906", "906 -101.0", "D"},
          Case{"UD", "906", "906 -100.0", "U"}, Case{"UD", "908", "908 -101.0", "D"},
          Case{"UD", "909", "909 -95.0", "U"}, Case{"U", "908", "908 ", "u"},
          Case{"U", "909.04", "909.0 -95.0", "U"}, Case{"U", "909.06", "909.06 ", "u"},
          Case{"D", "12", "12 ", ""}, Case{"UD", "x", "x ", ""}}) {
        SCOPED_TRACE(std::string(c.boxes) + " " + c.position);
        MarkerDesk desk;
        desk.Sweep();
        const auto marks = desk.Set(c.boxes, c.position);
        EXPECT_EQ(desk.Texts(), c.texts);
        std::string drawn;
        for (const MarkerMark& mark : marks)
            drawn += mark.onPoint ? (mark.down ? 'D' : 'U') : (mark.down ? 'd' : 'u');
        EXPECT_EQ(drawn, c.drawn);
        if (drawn == "D") {
            EXPECT_EQ(marks[0].labelY, marks[0].y + (c.boxes[0] == 'M' ? 33 : 13)) << "clear of the flag";
        }
    }
    MarkerDesk desk;
    desk.Sweep();
    EXPECT_EQ(MarkerUnit(desk.S().curve), "MHz");
    desk.Set("U", "906");
    desk.Set("U", "909"); // a paint in between does not bring 906 back
    ConvertLevelUnit(true, desk.S());
    desk.Settle();
    EXPECT_EQ(desk.Texts(), "909 -138.0") << "in dBc, less the carrier of 43 dBm, once";
}

TEST(Markers, EqualPeaksStandOnTheUpCurveAndACurveWithoutPointsNeverWins) {
    MarkerDesk desk;
    desk.Sweep();
    Curve& curve = desk.S().curve;
    curve.Put(static_cast<std::size_t>(curve.Find(909)), -94.0f);
    desk.Set("MUD", "");
    EXPECT_EQ(desk.Texts(), "909.0 -94.0");
    for (std::size_t i = 0; i < curve.Steps(); ++i)
        curve.Put(i, 0);
    desk.Set("MUD", "");
    EXPECT_EQ(desk.Texts(), "910.0 -94.0");
    desk.Set("MU", "");
    EXPECT_EQ(desk.Texts(), " ") << "no peak, no 0.0";
}

TEST(Markers, LabelsKeepOffTheTextsOfTheFlagsAndOffEachOther) {
    MarkerDesk desk;
    desk.Sweep();
    desk.Set("U", "909.0", 0); // on the highest point of the up curve
    desk.Set("D", "910.0", 1); // and of the down curve
    const auto marks = desk.Set("U", "909.0", 2);
    ASSERT_EQ(marks.size(), 3u);
    std::vector<PlotBox> taken = FlagTexts(desk.S().curve, desk.plot);
    for (const MarkerMark& mark : marks) {
        for (const PlotBox& box : taken)
            EXPECT_FALSE(mark.labelX < box.left + box.width && box.left < mark.labelX + 26 &&
                         mark.labelY < box.top + box.height && box.top < mark.labelY + 18)
                << "M" << mark.marker + 1;
        taken.push_back({mark.labelX, mark.labelY, 26, 18, 0});
        EXPECT_EQ(desk.M(static_cast<std::size_t>(mark.marker)).g_markerLabelY, mark.labelY) << "its grip";
    }
}

TEST(Markers, ALabelIsDraggedAndStaysWhereItIsLetGo) {
    MarkerDesk desk;
    Markers& marks = desk.program.Marks();
    desk.TwoTone();
    desk.Set("", "1.0");
    desk.Set("", "3.0", 1);
    EXPECT_FALSE(marks.Press(desk.M(1).g_markerLabelX + 21, desk.M(1).g_markerLabelY));
    ASSERT_TRUE(marks.Press(desk.M(1).g_markerLabelX + 20, desk.M(1).g_markerLabelY + 20));
    EXPECT_TRUE(!desk.M(0).g_markerDrag && desk.M(1).g_markerDrag);
    const int x = XOfPoint(desk.S().curve, desk.plot, 20);
    marks.Move(x, 77);
    const auto moved = desk.Paint();
    ASSERT_EQ(moved.size(), 2u);
    EXPECT_EQ(moved[1].x, x);
    EXPECT_EQ(moved[1].labelX, x) << "the label is at the mouse";
    EXPECT_EQ(moved[1].labelY, 77);
    desk.program.Marks().OnMarkerTimer(desk.S().run.IsOn());
    EXPECT_EQ(desk.Texts(1), "2.0 -90.0");

    marks.Move(99999, -50); // and let go before anything was painted
    marks.Release();
    EXPECT_FALSE(marks.IsDragging());
    EXPECT_EQ(desk.M(1).m_MarkerPosText, "5.0") << "held at the end of the plot";
    desk.Settle();
    EXPECT_EQ(desk.Texts(1), "5.0 ") << "where no level was taken";
    EXPECT_FALSE(marks.Press(desk.M(1).g_markerLabelX, desk.M(1).g_markerLabelY)) << "no label is shown";
    EXPECT_EQ(desk.Texts(0), "1.0 -100.0") << "the other has not moved";
}

/// The grid of a sweep is uneven: the label's frequency is that of its place, not of so many steps.
TEST(Markers, InASweepADraggedLabelTakesTheFrequencyUnderIt) {
    MarkerDesk desk;
    Markers& marks = desk.program.Marks();
    desk.Sweep();
    Curve& curve = desk.S().curve;
    desk.Set("MUD", "");
    ASSERT_TRUE(marks.Press(desk.M().g_markerLabelX, desk.M().g_markerLabelY));
    EXPECT_TRUE(!desk.M().m_MarkerMax && !desk.M().m_MarkerUp && desk.M().m_MarkerDown) << "it was down";
    const auto xOf = [&](float f) {
        return XOfPoint(curve, desk.plot, static_cast<std::size_t>(curve.Find(f)));
    };
    for (const int f : {920, 902, 930}) {
        marks.Move(xOf(static_cast<float>(f)) + 3, 60);
        desk.Settle();
        EXPECT_EQ(desk.Texts(), std::to_string(f) + ".0 -101.0");
    }
    // 921 is a frequency of the up list alone: nothing to stand on, so the label waits there without moving.
    marks.Move(xOf(921), 60);
    marks.Release();
    for (int i = 0; i < 5; ++i) {
        const auto waiting = desk.Settle();
        ASSERT_EQ(waiting.size(), 1u);
        EXPECT_FALSE(waiting[0].onPoint);
        EXPECT_EQ(waiting[0].labelX, xOf(921));
        EXPECT_EQ(desk.Texts(), "921.0 ");
    }
    desk.Set("D", "912");
    EXPECT_EQ(desk.Texts(), "912 -101.0") << "what is typed goes before the label's place";
}

TEST(Markers, AMarkerBelongsToARunThatIsSetUp) {
    MarkerDesk desk;
    desk.S().curve.SetRuns(2);
    desk.Sweep();
    desk.Set("U", "909");
    const auto choose = [&desk](int run) {
        MarkerRunChoice choice(desk.program.Marks(), 0);
        EXPECT_FALSE(desk.M().m_MarkerOn);
        desk.program.Marks().OnMarkerTimer(desk.S().run.IsOn());
        choice.Take(run);
    };
    for (const int refused : {2, 9, 10, -1}) {
        choose(refused);
        EXPECT_EQ(desk.M().g_markerRun, 0);
        EXPECT_TRUE(desk.M().m_MarkerOn);
    }
    desk.Settle();
    EXPECT_EQ(desk.Texts(), "909 -95.0");
    choose(1);
    EXPECT_TRUE(desk.Settle().empty()) << "run 2 has no curve yet";
    EXPECT_EQ(desk.Texts(), "909 ") << "but the place is kept";
    desk.Sweep(1);
    EXPECT_EQ(desk.Settle().size(), 1u);
    EXPECT_EQ(desk.Texts(), "909 -95.0");
    desk.S().curve.ShowRun(1);
    EXPECT_TRUE(desk.Settle().empty()) << "its run is not in view";
}

TEST(Markers, ThePeaksOfTheRunsStandStillDuringARun) {
    MarkerDesk desk;
    desk.Sweep();
    desk.Set("MU", "");
    EXPECT_EQ(desk.Texts(), "909.0 -95.0");
    desk.S().run.Begin({});
    Curve& curve = desk.S().curve;
    curve.Put(static_cast<std::size_t>(curve.Find(915)), -80.0f);
    for (int tick = 0; tick < 40; ++tick)
        desk.Settle();
    EXPECT_EQ(desk.Texts(), "909.0 -95.0");
    desk.S().run.End();
    for (int tick = 0; tick < 11; ++tick)
        desk.Settle();
    EXPECT_EQ(desk.Texts(), "915.0 -80.0");
}

TEST(Markers, ARunAndTheSwitchTakeTheTextsAwayAndTheBoxesStay) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    ASSERT_TRUE(rig.Measure());
    const Marker& marker = rig.S().markers.At(2);
    rig.program.Marks().Toggle(2);
    rig.program.Marks().SetChecks(2, true, false, false);
    rig.time.RunFor(600);
    EXPECT_EQ(marker.m_MarkerLevelText, PanelOf(rig.S()).m_WorstLevelText);
    EXPECT_NE(marker.m_MarkerPosText, "");
    rig.program.OnMeasButton();
    EXPECT_EQ(marker.m_MarkerPosText + marker.m_MarkerLevelText, "");
    EXPECT_TRUE(marker.m_MarkerOn && marker.m_MarkerMax);
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    EXPECT_EQ(marker.m_MarkerLevelText, PanelOf(rig.S()).m_WorstLevelText) << "it follows by itself";
    rig.program.Marks().Toggle(2);
    rig.time.RunFor(300);
    EXPECT_EQ(marker.m_MarkerPosText + marker.m_MarkerLevelText, "");
}

} // namespace
} // namespace qor::test
