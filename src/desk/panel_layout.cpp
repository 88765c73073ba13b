#include "desk/panel_layout.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int FrameWidth = 27;   ///< of the window around its client area
constexpr int FrameHeight = 122; ///< with title and menu
constexpr int NarrowFrame = 22;
constexpr int RowHeight = 20;
/// The normal form ends above the layout's height; the strip below is given to the plot.
constexpr int SpareBelow = 99;
constexpr int PlotRight = 315;      ///< from the column's right edge
constexpr int StatusBottom = 388;   ///< from the boxes' lower edge
constexpr int SpareBelowSmall = 52; ///< where a row of buttons stands under the boxes

struct Placer {
    PanelLayout& layout;

    void operator()(Control control, int left, int top, int right, int bottom) const {
        layout.place[static_cast<std::size_t>(control)] = {left, top, right, bottom};
    }
    /// `count` equal cells between two edges, each computed from the whole so that none drifts.
    void Row(Control first, int count, int width, int top, int bottom) const {
        for (int n = 0; n < count; ++n)
            (*this)(Nth(first, n), width * n / count, top, width * (n + 1) / count, bottom);
    }
    /// The list's buttons from the right end leftward; the last of them, "X", stands outermost.
    void ListButtons(int right, int top, int bottom) const {
        for (int n = 0; n < 5; ++n)
            (*this)(Nth(Control::ListButton, 4 - n), right - RowHeight * (n + 1), top, right - RowHeight * n,
                    bottom);
    }
    /// The plot and the lines above it.
    void Plot(const LayoutRequest& request, int right, int bottom) const {
        const int top = request.notices * RowHeight;
        (*this)(Control::Plot, 0, top, right, bottom);
        if (top > 0)
            (*this)(Control::NoticeBar, 0, 0, right, top);
    }
    void ScaleButtons(const PanelRect& plot) const {
        (*this)(Control::ScaleUp, plot.left + 2, plot.top + 2, plot.left + 20, plot.top + 20);
        (*this)(Control::ScaleDown, plot.left + 2, plot.bottom - 20, plot.left + 20, plot.bottom - 2);
    }
};

void PlaceNarrow(PanelLayout& layout, const LayoutRequest& request) {
    const Placer place{layout};
    const int w = std::max(request.clientWidth > 0 ? request.clientWidth : request.width - FrameWidth, 100);
    const int h =
        std::max(request.clientHeight > 0 ? request.clientHeight : request.height - NarrowFrame, 40);
    layout.clientWidth = w;
    layout.clientHeight = h;
    layout.picture = StartPicture::Small;
    place.Row(Control::StatusCell, 6, w, h - RowHeight, h);
    std::swap(layout.place[static_cast<std::size_t>(Nth(Control::StatusCell, 5))],
              layout.place[static_cast<std::size_t>(Control::StartButton)]);
    place.Plot(request, w, h - RowHeight - (request.listShown ? RowHeight : 0));
    place.ScaleButtons(layout[Control::Plot]);
    if (request.listShown) {
        place.ListButtons(w, h - 2 * RowHeight, h - RowHeight);
        place.Row(Control::ListCell, 7, w - 5 * RowHeight, h - 2 * RowHeight, h - RowHeight);
    }
}

void PlaceMarkers(const Placer& place, int r) {
    for (int n = 0; n < 3; ++n)
        place(Nth(Control::MarkerBox, n), r - 300, 162 + 93 * n, r - 40, 250 + 93 * n);
}

void PlaceColumn(const Placer& place, int r) {
    place(Control::HeadPicture, r - 280, 0, r - 40, 40);
    place(Control::AlarmBox, r - 300, 50, r - 40, 112);
    place(Control::AlarmValue, r - 250, 68, r - 150, 105);
    place(Control::AlarmUnit, r - 140, 68, r - 70, 107);
    place(Control::SerialLabel, r - 300, 118, r - 250, 157);
    place(Control::SerialField, r - 250, 125, r - 40, 145);
    PlaceMarkers(place, r);
}

void PlaceBoxes(const Placer& place, int b, int shift) {
    place(Control::FrequencyBox, 0, b - StatusBottom, 245, b - 227);
    place(Control::F1Label, 28, b - 345, 66, b - 315);
    place(Control::F2Label, 28, b - 310, 66, b - 280);
    place(Control::F1Text, 69, b - 349, 157, b - 314);
    place(Control::F2Text, 69, b - 312, 157, b - 277);
    place(Control::PathPicture, 159, b - 349, 243, b - 276);
    place(Control::LampPicture, 28, b - 272, 157, b - 236);
    place(Control::ReadingBox, 250 + shift, b - StatusBottom, 710 + shift, b - 227);
    place(Control::FimLabel, 260 + shift, b - 345, 346 + shift, b - 315);
    place(Control::FimText, 258 + shift, b - 312, 346 + shift, b - 277);
    place(Control::Reading, 355 + shift, b - 370, 652 + shift, b - 238);
    place(Control::ReadingUnit, 655 + shift, b - 370, 702 + shift, b - 238);
    place(Control::CalibrationButton, 135, b - 270, 235, b - 240);
    place(Control::TestButton, 30, b - 270, 130, b - 240);
}

/// Buttons at the column's foot, or beside the boxes where the screen is wide.
void PlaceButtons(const Placer& place, const LayoutRequest& request, int r, int b, bool wide, bool small) {
    if (wide) {
        const int left = request.width < 1280 ? 710 : r - 535;
        place(Control::PortLabel, r - 295, b - 327, r - 35, b - 306);
        place(Control::PortListBox, r - 295, b - 306, r - 35, b - 280);
        place(Control::PortButtonControl, r - 295, b - 275, r - 65, b - 230);
        place(Control::StartButton, left, b - 375, r - 305, b - 330);
        place(Control::ClearButton, r - 300, b - 375, r - 278, b - 330);
        place(Control::ExitButton, left, b - 275, r - 305, b - 230);
    } else if (!small) {
        place(Control::PortLabel, r - 295, b - 477, r - 35, b - 456);
        place(Control::PortListBox, r - 295, b - 456, r - 35, b - 430);
        place(Control::PortButtonControl, r - 295, b - 425, r - 65, b - 380);
        place(Control::StartButton, r - 295, b - 375, r - 65, b - 330);
        place(Control::ClearButton, r - 62, b - 375, r - 40, b - 330);
        place(Control::ExitButton, r - 295, b - 275, r - 65, b - 230);
    } else {
        place(Control::PortLabel, 5, b - 227, 365, b - 206);
        place(Control::PortListBox, 5, b - 206, 365, b - 180);
        place(Control::PortButtonControl, r - 635, b - 225, r - 405, b - 180);
        place(Control::StartButton, r - 295, b - 325, r - 65, b - 280);
        place(Control::ClearButton, r - 62, b - 325, r - 40, b - 280);
        place(Control::ExitButton, r - 295, b - 225, r - 65, b - 180);
    }
}

void PlaceNormal(PanelLayout& layout, const LayoutRequest& asked) {
    LayoutRequest request = asked;
    request.width = std::max(request.width, 1024);
    request.height = std::max(request.height, 768);
    layout.clientWidth = request.clientWidth > 0 ? request.clientWidth : request.width - FrameWidth;
    layout.clientHeight = request.clientHeight > 0 ? request.clientHeight : request.height - FrameHeight;
    layout.narrowScreen = request.width < 1200;
    const bool wide = request.width * 10 / request.height >= 15;
    const bool small = !wide && request.width < 1300 && request.height < 1024;
    // In the plot-only display the status row ends at the area's lower right corner, and what stands right of
    // the plot and below that row lies outside.
    const int r = layout.clientWidth + (request.plotOnly ? PlotRight : FrameWidth);
    const int spare = small ? SpareBelowSmall : SpareBelow;
    const int b = layout.clientHeight + (request.plotOnly ? StatusBottom : FrameHeight + spare);
    int shift = 0;
    if (!wide)
        shift = std::max((r - 1025) / 2, 0);
    else if (request.width >= 1280)
        shift = std::max((r - 1265) / 2, 0);

    const Placer place{layout};
    place.Plot(request, r - PlotRight, b - 410 - (request.listShown ? RowHeight : 0));
    place.ScaleButtons(layout[Control::Plot]);
    if (request.listShown) {
        place.ListButtons(r - 320, b - 430, b - 410);
        place.Row(Control::ListCell, 7, r - 420, b - 430, b - 410);
    }
    place.Row(Control::StatusCell, 6, r - PlotRight, b - 408, b - StatusBottom);
    PlaceBoxes(place, b, shift);
    if (request.factoryMode)
        place(Control::LampPicture, 28, b - 374, 157, b - 350);
    PlaceColumn(place, r);
    PlaceButtons(place, request, r, b, wide, small);
    if (request.plotOnly) {
        layout.picture = StartPicture::Small;
        const PanelRect last = layout[Nth(Control::StatusCell, 5)];
        place(Control::StartButton, last.left, last.top, last.right, last.bottom);
        layout.place[static_cast<std::size_t>(Nth(Control::StatusCell, 5))] = OutOfSight;
    }
}

/// A service page takes the room of what measures; the plot stays above it where it can still be read.
void PlaceServicePage(PanelLayout& layout, const LayoutRequest& request) {
    constexpr int Strip = 36; ///< of the two buttons
    constexpr int LowestPlot = 160;
    const int width = layout.clientWidth;
    const int height = layout.clientHeight;
    const int first = request.notices * RowHeight;
    const int spare = height - Strip - request.pageHeight - first;
    const bool plotStays = spare >= LowestPlot;
    const int top = plotStays ? first + spare : first;
    layout.place.fill(OutOfSight);
    const Placer place{layout};
    if (plotStays) {
        place.Plot(request, width, top);
        place.ScaleButtons(layout[Control::Plot]);
    } else if (first > 0) {
        place(Control::NoticeBar, 0, 0, width, first);
    }
    place(Control::ServicePage, 0, top, width, height - Strip);
    place(Control::TestButton, 30, height - Strip + 3, 130, height - 3);
    place(Control::CalibrationButton, 135, height - Strip + 3, 235, height - 3);
}

} // namespace

bool IsNarrow(int width, int height) {
    return width <= 1024 && height < 768;
}

PanelLayout Relayout(const LayoutRequest& request) {
    PanelLayout layout;
    layout.place.fill(OutOfSight);
    layout.narrow = IsNarrow(request.width, request.height);
    if (layout.narrow) {
        layout.narrowScreen = true;
        PlaceNarrow(layout, request);
    } else {
        PlaceNormal(layout, request);
    }
    if (request.pageHeight > 0)
        PlaceServicePage(layout, request);
    return layout;
}

} // namespace qor
