#include "desk/panel_layout.h"

#include <gtest/gtest.h>

namespace qor {

namespace {

bool Overlap(const PanelRect& a, const PanelRect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// Controls that stand on the panel itself, not within a box.
constexpr Control Outer[] = {
    Control::Plot,        Control::FrequencyBox,     Control::ReadingBox,        Control::AlarmBox,
    Control::SerialField, Control::MarkerBox,        Nth(Control::MarkerBox, 1), Nth(Control::MarkerBox, 2),
    Control::PortListBox, Control::PortLabel,        Control::PortButtonControl, Control::StartButton,
    Control::ClearButton, Control::ExitButton,       Control::StatusCell,        Nth(Control::StatusCell, 5),
    Control::ListCell,    Nth(Control::ListCell, 6), Control::ListButton,        Control::NoticeBar};

} // namespace

TEST(PanelLayout, NothingOverlapsOrLeavesTheWindowInAnySize) {
    for (const auto& [w, h] : {std::pair(1600, 1200),
                               {1024, 768},
                               {1920, 1200},
                               {1440, 900},
                               {1280, 800},
                               {1280, 1024},
                               {1024, 600},
                               {800, 480},
                               {2560, 1440},
                               {1127, 822}}) {
        for (const bool list : {false, true}) {
            const PanelLayout layout = Relayout({w, h, false, list, list ? 2 : 0});
            EXPECT_EQ(layout[Control::NoticeBar],
                      list ? (PanelRect{0, 0, layout[Control::Plot].right, 40}) : OutOfSight);
            for (const auto& [inner, box] : {std::pair{Control::AlarmValue, Control::AlarmBox},
                                             {Control::AlarmUnit, Control::AlarmBox},
                                             {Control::F1Text, Control::FrequencyBox},
                                             {Control::F2Text, Control::FrequencyBox},
                                             {Control::PathPicture, Control::FrequencyBox},
                                             {Control::FimText, Control::ReadingBox},
                                             {Control::Reading, Control::ReadingBox}}) {
                const PanelRect& i = layout[inner];
                const PanelRect& o = layout[box];
                EXPECT_TRUE(i == OutOfSight || (i.left >= o.left && i.top >= o.top && i.right <= o.right &&
                                                i.bottom <= o.bottom))
                    << w << 'x' << h << " control " << static_cast<int>(inner);
            }
            for (const Control a : Outer) {
                const PanelRect& ra = layout[a];
                if (ra == OutOfSight)
                    continue;
                EXPECT_GE(ra.left, 0);
                EXPECT_GE(ra.top, 0);
                EXPECT_TRUE(ra.left < ra.right && ra.top < ra.bottom)
                    << w << 'x' << h << " control " << static_cast<int>(a);
                EXPECT_LE(ra.right, layout.clientWidth)
                    << w << 'x' << h << " control " << static_cast<int>(a);
                EXPECT_LE(ra.bottom, layout.clientHeight)
                    << w << 'x' << h << " control " << static_cast<int>(a);
                for (const Control b : Outer) {
                    if (a < b && layout[b] != OutOfSight) {
                        EXPECT_FALSE(Overlap(ra, layout[b]))
                            << w << 'x' << h << ' ' << static_cast<int>(a) << ' ' << static_cast<int>(b);
                    }
                }
            }
        }
    }
}

TEST(PanelLayout, SmallPanelComputersGetThePlotAndOneRow) {
    EXPECT_TRUE(Relayout({1024, 600}).narrow);
    EXPECT_TRUE(Relayout({1000, 700}).narrow);
    EXPECT_FALSE(Relayout({1024, 768}).narrow);
    EXPECT_FALSE(Relayout({1000, 800}).narrow);
    EXPECT_EQ(Relayout({1000, 800}).clientWidth, 997) << "raised to 1024";
    const PanelLayout narrow = Relayout({1024, 600});
    EXPECT_EQ(narrow[Control::Plot], (PanelRect{0, 0, 997, 558}));
    EXPECT_EQ(narrow[Control::StartButton], (PanelRect{830, 558, 997, 578})) << "in the sixth cell";
    EXPECT_EQ(narrow[Nth(Control::StatusCell, 5)], OutOfSight);
    EXPECT_EQ(narrow[Control::AlarmBox], OutOfSight);
    EXPECT_EQ(Relayout({1024, 600, false, true})[Control::Plot].bottom, 538) << "the list takes its row";
    const PanelLayout least = Relayout({0, 0});
    EXPECT_EQ(least.clientWidth, 100);
    EXPECT_EQ(least.clientHeight, 40);
}

TEST(PanelLayout, PlotOnlyMovesTheColumnOutAndBackExactly) {
    const PanelLayout normal = Relayout({1280, 1024});
    const PanelLayout plot = Relayout({1280, 1024, true});
    EXPECT_EQ(plot[Control::Plot].right, plot.clientWidth);
    EXPECT_EQ(plot[Control::StatusCell].bottom, plot.clientHeight) << "the row of cells is the last there is";
    EXPECT_GE(plot[Control::AlarmBox].left, plot.clientWidth) << "out at the right";
    EXPECT_GE(plot[Control::ReadingBox].top, plot.clientHeight) << "out below";
    EXPECT_EQ(plot[Control::StartButton].right, plot[Control::Plot].right) << "in the sixth cell";
    EXPECT_EQ(plot[Nth(Control::StatusCell, 5)], OutOfSight);
    EXPECT_EQ(Relayout({1280, 1024}).place, normal.place);
}

TEST(PanelLayout, AspectDecidesWhereTheButtonsStand) {
    EXPECT_EQ(Relayout({1280, 800})[Control::StartButton].left, 1280 - 535) << "beside the boxes";
    EXPECT_EQ(Relayout({1270, 800})[Control::StartButton].left, 710);
    EXPECT_EQ(Relayout({1280, 1024})[Control::StartButton].left, 1280 - 295) << "in the column";
    EXPECT_EQ(Relayout({1024, 768})[Control::PortListBox].left, 5) << "under the boxes";
    EXPECT_EQ(Relayout({1600, 1200})[Control::ReadingBox].left, 250 + (1600 - 1025) / 2);
    EXPECT_TRUE(Relayout({1199, 900}).narrowScreen);
    EXPECT_FALSE(Relayout({1200, 900}).narrowScreen);
}

} // namespace qor
