#include "desk/appearance.h"

#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "desk/panel_layout.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace qor {

namespace {

constexpr int FrameWidth = 27;
constexpr int FrameHeight = 122;
/// A window this much smaller than the screen still counts as filling it.
constexpr int ScreenSlack = 20;
constexpr int HeightOutsideClient = 150;

constexpr std::array<WindowSize, LayoutCount> Sizes{{{0, 0},
                                                     {1600, 1200},
                                                     {1024, 768},
                                                     {1920, 1200},
                                                     {1440, 900},
                                                     {1280, 800},
                                                     {1280, 1024},
                                                     {0, 0},
                                                     {1024, 600}}};

void WriteCustom(WindowSize size, SetupStore& store) {
    char text[32];
    std::snprintf(text, sizeof text, "%4d%4d", size.width, size.height);
    store.Write("ResolutionCustom.ccz", text);
}

bool IsKnownSkin(int skin) {
    return skin >= SkinVivid && skin <= SkinActive;
}

} // namespace

Appearance::Appearance(const SetupStore& store) {
    if (const auto skin = store.Read("skin.ccz", 7); skin && IsKnownSkin(WholeNumberIn(*skin)))
        m_skin = WholeNumberIn(*skin);
    if (const auto layout = store.Read("Resolution.ccz", 1))
        g_layout = std::clamp(WholeNumberIn(*layout), 0, LayoutCount - 1);
    const std::string custom = store.Read("ResolutionCustom.ccz", 8).value_or("");
    const auto side = [&custom](std::size_t at) {
        return custom.size() > at ? std::clamp(WholeNumberIn(custom.substr(at, 4)), 0, LargestSide) : 0;
    };
    m_Custom = {side(0), side(4)};
    g_ImageOnly = store.Read("TagImageOnly.ccz", 1).value_or("") == "1";
}

bool Appearance::ChooseSkin(int skin, SetupStore& store) {
    if (skin == m_skin)
        skin = SkinVivid; // a second click on a look ends it
    if (!IsKnownSkin(skin) || skin == m_skin)
        return false;
    m_skin = skin;
    store.Write("skin.ccz", ZeroPadded(skin, 7));
    return true;
}

void Appearance::ChooseLayout(int layout, SetupStore& store) {
    g_layout = layout;
    store.Write("Resolution.ccz", std::to_string(layout));
}

bool Appearance::ChooseCustomLayout(WindowSize size, SetupStore& store) {
    if (std::min(size.width, size.height) < 0 || std::max(size.width, size.height) > LargestSide)
        return false;
    m_Custom = size;
    WriteCustom(size, store);
    ChooseLayout(LayoutCustom, store);
    return true;
}

WindowSize Appearance::Size() const {
    if (g_layout == LayoutCustom)
        return m_Custom;
    const bool isFixed = g_layout > LayoutScreen && g_layout < LayoutCount;
    return isFixed ? Sizes[static_cast<std::size_t>(g_layout)] : m_Screen;
}

void Appearance::TakeDraggedSize(WindowSize client, SetupStore& store) {
    int cx = client.width;
    int cy = client.height;
    const bool low = cy + 100 < 768;
    if (cx < 1024) {
        if (low)
            cy -= 100;
        else
            cx = 1024;
    } else if (low) {
        cy = 668;
    }
    if (client.width > m_Screen.width - ScreenSlack &&
        cy + HeightOutsideClient > m_Screen.height - ScreenSlack) {
        ChooseLayout(LayoutScreen, store);
        return;
    }
    ChooseCustomLayout({std::min(cx + FrameWidth, LargestSide), std::clamp(cy + FrameHeight, 0, LargestSide)},
                       store);
}

bool Appearance::FlipPlotOnly(SetupStore& store) {
    WindowSize size = Size();
    if (g_layout >= 1 && g_layout <= 6)
        size = {1024, 1024};
    if (IsNarrow(size.width, size.height))
        return false;
    g_ImageOnly = !g_ImageOnly;
    store.Write("TagImageOnly.ccz", g_ImageOnly ? "1" : "0");
    return true;
}

Language CurrentLanguage(const SetupStore& store) {
    const std::string info = store.Read("Install_info.ccz", 1).value_or("");
    return info == "0" ? Language::English : info == "1" ? Language::Chinese : Language::German;
}

bool ChooseLanguage(Language language, SetupStore& store) {
    if (language == CurrentLanguage(store))
        return false;
    std::string info = store.Read("Install_info.ccz", 3).value_or("");
    if (info.size() < 2) // the third character has a meaning of its own and stays absent
        info = "20";
    info[0] = static_cast<char>('0' + static_cast<int>(language));
    return store.Write("Install_info.ccz", info);
}

} // namespace qor
