#include "bands/setup_store.h"
#include "core/appearance.h"
#include "support/temp_dir.h"

namespace qor::test {

TEST(Appearance, ADraggedWindowBecomesALayoutOfItsOwn) {
    const TempDir dir;
    SetupStore store(dir.Path());
    AppearanceState look;
    const WindowSize screen{1920, 1200};
    const struct {
        WindowSize client;
        int layout;
        const char* stored;
    } cases[] = {
        {{1100, 700}, LayoutCustom, "1127 822"},
        {{900, 700}, LayoutCustom, "1051 822"},  // raised to the width of the normal form
        {{900, 500}, LayoutCustom, " 927 522"},  // the small form
        {{1100, 500}, LayoutCustom, "1127 790"}, // raised to the height of the normal form
        {{1918, 1100}, LayoutScreen, "1127 790"},
    };
    for (const auto& c : cases) {
        TakeDraggedSize(look, c.client, screen, store);
        EXPECT_EQ(look.g_layout, c.layout) << c.client.width;
        EXPECT_EQ(store.Read("ResolutionCustom.ccz", 99), c.stored);
        EXPECT_EQ(store.Read("Resolution.ccz", 9), std::to_string(c.layout));
        EXPECT_EQ(LoadAppearance(store).custom, look.custom);
    }
}

TEST(Appearance, StoresAreReadWithinTheirBounds) {
    const TempDir dir;
    SetupStore store(dir.Path());
    for (const auto& [skin, number] :
         {std::pair("0000003", 3), {"0000009", 1}, {"", 1}, {"x", 1}, {"-000002", 1}}) {
        store.Write("skin.ccz", skin);
        EXPECT_EQ(LoadAppearance(store).m_skin, number) << skin;
    }
    store.Write("Resolution.ccz", "9");
    store.Write("ResolutionCustom.ccz", "9999-120");
    EXPECT_EQ(LoadAppearance(store).g_layout, Layout1024x600);
    EXPECT_EQ(LoadAppearance(store).custom, (WindowSize{5000, 0}));
    AppearanceState look;
    EXPECT_FALSE(ChooseCustomLayout(look, {5001, 10}, store));
    EXPECT_FALSE(ChooseCustomLayout(look, {10, -1}, store));
    EXPECT_TRUE(ChooseCustomLayout(look, {0, 0}, store));
    EXPECT_EQ(store.Read("ResolutionCustom.ccz", 99), "   0   0");
    EXPECT_EQ(SizeOf(look, look.g_layout, {1, 1}), (WindowSize{0, 0}));
}

TEST(Appearance, ASecondClickOnALookEndsIt) {
    const TempDir dir;
    SetupStore store(dir.Path());
    AppearanceState look;
    EXPECT_TRUE(ChooseSkin(look, SkinAsh, store));
    EXPECT_EQ(store.Read("skin.ccz", 9), "0000003");
    EXPECT_TRUE(ChooseSkin(look, SkinAsh, store));
    EXPECT_EQ(look.m_skin, SkinVivid);
    EXPECT_FALSE(ChooseSkin(look, SkinVivid, store));
}

TEST(Appearance, LanguageKeepsTheRestOfTheInstallation) {
    const TempDir dir;
    SetupStore store(dir.Path());
    EXPECT_EQ(CurrentLanguage(store), Language::German);
    EXPECT_FALSE(ChooseLanguage(Language::German, store));
    EXPECT_TRUE(ChooseLanguage(Language::Chinese, store));
    EXPECT_EQ(store.Read("Install_info.ccz", 9), "10") << "the third character would stand for one port";
    store.Write("Install_info.ccz", "211");
    EXPECT_TRUE(ChooseLanguage(Language::English, store));
    EXPECT_EQ(store.Read("Install_info.ccz", 9), "011");
}

TEST(Appearance, NoPlotOnlyDisplayOnSmallPanels) {
    const TempDir dir;
    SetupStore store(dir.Path());
    AppearanceState look;
    look.g_layout = Layout1024x600;
    EXPECT_FALSE(FlipPlotOnly(look, {1920, 1200}, store));
    look.g_layout = 2;
    EXPECT_TRUE(FlipPlotOnly(look, {1920, 1200}, store));
    EXPECT_EQ(store.Read("TagImageOnly.ccz", 9), "1");
    look.g_layout = LayoutScreen;
    EXPECT_FALSE(FlipPlotOnly(look, {1000, 700}, store));
    EXPECT_TRUE(look.g_ImageOnly);
}

} // namespace qor::test
