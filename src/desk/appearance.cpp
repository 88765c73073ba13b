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

constexpr int LargestSide = 5000;
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

AppearanceState LoadAppearance(const SetupStore& store) {
    AppearanceState appearance;
    if (const auto skin = store.Read("skin.ccz", 7); skin && IsKnownSkin(WholeNumberIn(*skin)))
        appearance.m_skin = WholeNumberIn(*skin);
    if (const auto layout = store.Read("Resolution.ccz", 1))
        appearance.g_layout = std::clamp(WholeNumberIn(*layout), 0, LayoutCount - 1);
    const std::string custom = store.Read("ResolutionCustom.ccz", 8).value_or("");
    const auto side = [&custom](std::size_t at) {
        return custom.size() > at ? std::clamp(WholeNumberIn(custom.substr(at, 4)), 0, LargestSide) : 0;
    };
    appearance.custom = {side(0), side(4)};
    appearance.g_ImageOnly = store.Read("TagImageOnly.ccz", 1).value_or("") == "1";
    return appearance;
}

bool ChooseSkin(AppearanceState& appearance, int skin, SetupStore& store) {
    if (skin == appearance.m_skin)
        skin = SkinVivid; // a second click on a look ends it
    if (!IsKnownSkin(skin) || skin == appearance.m_skin)
        return false;
    appearance.m_skin = skin;
    store.Write("skin.ccz", ZeroPadded(skin, 7));
    return true;
}

void ChooseLayout(AppearanceState& appearance, int layout, SetupStore& store) {
    appearance.g_layout = layout;
    store.Write("Resolution.ccz", std::to_string(layout));
}

bool ChooseCustomLayout(AppearanceState& appearance, WindowSize size, SetupStore& store) {
    if (std::min(size.width, size.height) < 0 || std::max(size.width, size.height) > LargestSide)
        return false;
    appearance.custom = size;
    WriteCustom(size, store);
    ChooseLayout(appearance, LayoutCustom, store);
    return true;
}

WindowSize SizeOf(const AppearanceState& appearance, int layout, WindowSize screen) {
    if (layout == LayoutCustom)
        return appearance.custom;
    return layout > LayoutScreen && layout < LayoutCount ? Sizes[static_cast<std::size_t>(layout)] : screen;
}

void TakeDraggedSize(AppearanceState& appearance, WindowSize client, WindowSize screen, SetupStore& store) {
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
    if (client.width > screen.width - ScreenSlack && cy + HeightOutsideClient > screen.height - ScreenSlack) {
        ChooseLayout(appearance, LayoutScreen, store);
        return;
    }
    ChooseCustomLayout(appearance,
                       {std::min(cx + FrameWidth, LargestSide), std::clamp(cy + FrameHeight, 0, LargestSide)},
                       store);
}

bool FlipPlotOnly(AppearanceState& appearance, WindowSize screen, SetupStore& store) {
    WindowSize size = SizeOf(appearance, appearance.g_layout, screen);
    if (appearance.g_layout >= 1 && appearance.g_layout <= 6)
        size = {1024, 1024};
    if (IsNarrow(size.width, size.height))
        return false;
    appearance.g_ImageOnly = !appearance.g_ImageOnly;
    store.Write("TagImageOnly.ccz", appearance.g_ImageOnly ? "1" : "0");
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
