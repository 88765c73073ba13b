#pragma once

#include <optional>
#include <string_view>

namespace qor {

class SetupStore;

/// Looks of the program's windows. The first is what a start without a stored choice shows: the same as
/// Vivid, with no item of the menu marked.
enum Skin : int { SkinDefault = 1, SkinVivid = 2, SkinAsh = 3, SkinActive = 4 };

enum Layout : int { LayoutScreen = 0, LayoutCustom = 7, Layout1024x600 = 8, LayoutCount = 9 };

/// As the first character of `Install_info.ccz` counts them.
enum class Language : int { English = 0, Chinese = 1, German = 2 };

struct WindowSize {
    int width = 0;
    int height = 0;
    bool operator==(const WindowSize&) const = default;
};

/// How the program looks: look, layout, plot-only display.
struct AppearanceState {
    int m_skin = SkinDefault;
    int g_layout = LayoutScreen;
    WindowSize custom;             ///< of layout 7: m_customW, m_customH
    bool g_ImageOnly = false;      ///< plot-only display
    bool serialShown = true;       ///< the serial number field and its label
    WindowSize screen{1920, 1200}; ///< of the screen the window is on, where there is one
};

/// Fills the state from `skin.ccz`, `Resolution.ccz`, `ResolutionCustom.ccz` and `TagImageOnly.ccz`.
[[nodiscard]] AppearanceState LoadAppearance(const SetupStore& store);

/// Chooses a look and keeps it. Ash and Active chosen while in use go back to Vivid. False when nothing
/// changes.
bool ChooseSkin(AppearanceState& appearance, int skin, SetupStore& store);

/// Takes a layout and keeps it.
void ChooseLayout(AppearanceState& appearance, int layout, SetupStore& store);
/// Takes a size of the operator's own, 0 to 5000 each, and selects layout 7. False, with nothing changed,
/// for a size outside.
bool ChooseCustomLayout(AppearanceState& appearance, WindowSize size, SetupStore& store);
/// Size a layout stands for.
[[nodiscard]] WindowSize SizeOf(const AppearanceState& appearance, int layout, WindowSize screen);

/// The operator has dragged the window to a client area of this size: it becomes a layout of its own, or
/// layout 0 when it fills the screen.
void TakeDraggedSize(AppearanceState& appearance, WindowSize client, WindowSize screen, SetupStore& store);

/// Flips the plot-only display and keeps it. False where there is none: on small panel computers.
bool FlipPlotOnly(AppearanceState& appearance, WindowSize screen, SetupStore& store);

/// Language in force. An installation without the store is German.
[[nodiscard]] Language CurrentLanguage(const SetupStore& store);
/// Keeps another language for the next start. False when it is in force already or cannot be kept.
bool ChooseLanguage(Language language, SetupStore& store);

} // namespace qor
