#pragma once

#include <optional>
#include <string_view>

namespace qor {

class SetupStore;

/// Looks of the program's windows. The first is what a start without a stored choice shows: the same as
/// Vivid, with no item of the menu marked.
enum Skin : int { SkinDefault = 1, SkinVivid = 2, SkinAsh = 3, SkinActive = 4 };

enum LayoutNumber : int { LayoutScreen = 0, LayoutCustom = 7, Layout1024x600 = 8, LayoutCount = 9 };

/// Longest side of a layout of the operator's own, pixels.
inline constexpr int LargestSide = 5000;

/// As the first character of `Install_info.ccz` counts them.
enum class Language : int { English = 0, Chinese = 1, German = 2 };

struct WindowSize {
    int width = 0;
    int height = 0;
    bool operator==(const WindowSize&) const = default;
};

/// How the program looks: look, layout, plot-only display. What is chosen is kept in the stores.
class Appearance {
public:
    /// Of a session that has chosen nothing.
    Appearance() = default;
    /// Of `skin.ccz`, `Resolution.ccz`, `ResolutionCustom.ccz` and `TagImageOnly.ccz`.
    explicit Appearance(const SetupStore& store);

    [[nodiscard]] int Skin() const { return m_skin; }
    [[nodiscard]] int Layout() const { return g_layout; }
    [[nodiscard]] WindowSize Custom() const { return m_Custom; }
    [[nodiscard]] bool IsPlotOnly() const { return g_ImageOnly; }
    [[nodiscard]] bool ShowsSerial() const { return m_SerialShown; }
    /// Size the layout in force stands for.
    [[nodiscard]] WindowSize Size() const;
    [[nodiscard]] WindowSize Screen() const { return m_Screen; }

    /// Ash and Active chosen while in use go back to Vivid. False when nothing changes.
    bool ChooseSkin(int skin, SetupStore& store);
    void ChooseLayout(int layout, SetupStore& store);
    /// A size of the operator's own, 0 to LargestSide each, as layout 7. False, with nothing changed, for a
    /// size outside.
    bool ChooseCustomLayout(WindowSize size, SetupStore& store);
    /// The operator has dragged the window to a client area of this size: it becomes a layout of its own, or
    /// layout 0 when it fills the screen.
    void TakeDraggedSize(WindowSize client, SetupStore& store);
    /// False where there is no plot-only display: on small panel computers.
    bool FlipPlotOnly(SetupStore& store);
    void FlipSerial() { m_SerialShown = !m_SerialShown; }
    /// The window is on a screen of this size.
    void NoteScreen(WindowSize screen) { m_Screen = screen; }

private:
    int m_skin = SkinDefault;
    int g_layout = LayoutScreen;
    WindowSize m_Custom;       ///< of layout 7: m_customW, m_customH
    bool g_ImageOnly = false;  ///< plot-only display
    bool m_SerialShown = true; ///< the serial number field and its label
    WindowSize m_Screen{1920, 1200};
};

/// Language in force. An installation without the store is German.
[[nodiscard]] Language CurrentLanguage(const SetupStore& store);
/// Keeps another language for the next start. False when it is in force already or cannot be kept.
bool ChooseLanguage(Language language, SetupStore& store);

} // namespace qor
