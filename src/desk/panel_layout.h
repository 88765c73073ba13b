#pragma once

#include <array>
#include <cstddef>

namespace qor {

/// Everything that is placed on the panel. Rows of equal controls stand together.
enum class Control : std::size_t {
    NoticeBar, ///< lines above the plot: what the operator has to know
    Plot,
    ScaleUp,                     ///< "+"
    ScaleDown,                   ///< "-"
    ListCell,                    ///< seven rows of the result list, side by side
    ListButton = ListCell + 7,   ///< five: "|<", "<<", ">>", ">|", "X"
    StatusCell = ListButton + 5, ///< six: band, method, order, path, repetition, state
    FrequencyBox = StatusCell + 6,
    F1Label,
    F2Label,
    F1Text,
    F2Text,
    PathPicture,
    LampPicture,
    ReadingBox,
    FimLabel,
    FimText,
    Reading,
    ReadingUnit,
    HeadPicture,
    AlarmBox,
    AlarmValue,
    AlarmUnit,
    SerialLabel,
    SerialField,
    MarkerBox, ///< three
    PortLabel = MarkerBox + 3,
    PortListBox,
    PortButtonControl,
    StartButton,
    ClearButton, ///< "R"
    ExitButton,
    CalibrationButton,
    TestButton,
    ServicePage,
    Count
};

[[nodiscard]] constexpr Control Nth(Control first, int n) {
    return static_cast<Control>(static_cast<std::size_t>(first) + static_cast<std::size_t>(n));
}

/// Edges in pixels of the window's client area; right and bottom lie outside.
struct PanelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool operator==(const PanelRect&) const = default;
};

/// Pictures of the start button: two for the normal form, two for the forms where it is a status cell.
enum class StartPicture { Large, Small };

struct LayoutRequest {
    int width = 1024; ///< size the layout stands for, pixels; the client area is smaller by the frame
    int height = 768;
    bool plotOnly = false;  ///< g_ImageOnly
    bool listShown = false; ///< the result list takes 20 pixels from the plot
    int notices = 0;        ///< lines, 20 pixels each, that take their room from the plot
    int clientWidth = 0; ///< the area there is, where the screen has no room for the layout's own; 0: its own
    int clientHeight = 0;
    bool factoryMode = false; ///< its two buttons stand where the lamp stands otherwise
    int pageHeight = 0;       ///< that the open service page would like, pixels; 0: none is open
};

struct PanelLayout {
    bool narrow = false;       ///< plot and one row of cells
    bool narrowScreen = false; ///< g_narrowScreen: short texts of the stamp
    int clientWidth = 0;       ///< of the area that is laid out
    int clientHeight = 0;
    StartPicture picture = StartPicture::Large;
    std::array<PanelRect, static_cast<std::size_t>(Control::Count)> place{};

    [[nodiscard]] const PanelRect& operator[](Control control) const {
        return place[static_cast<std::size_t>(control)];
    }
};

/// A control placed here is out of sight.
inline constexpr PanelRect OutOfSight{2000, 2000, 2000, 2000};
/// True for the sizes of small panel computers: up to 1024 wide and below 768 high.
[[nodiscard]] bool IsNarrow(int width, int height);

/// Places all controls of the panel.
[[nodiscard]] PanelLayout Relayout(const LayoutRequest& request);

} // namespace qor
