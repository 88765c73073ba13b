#include "core/dialogs.h"
#include "display/curve_store.h"
#include "measure/inter_band.h"
#include "results/result_state.h"
#include "support/wire_reading.h"

#include <cmath>
#include <filesystem>
#include <limits>

namespace qor::test {

namespace {

/// Everything in MHz that the preset table says of one carrier band, receive band and order.
struct Row {
    int band;
    const char* rxBand;
    int order;
    int a, b; ///< product a f1 - b f2
    FrequencyPlan plan;
    float gridFrom, gridTo;
};

const Row Rows[] = {
    {BandAmps, "DCS 1800", 2, 1, -1, {869, 894, 869, 891, 894, 894, 869, 869}, 1738, 1785},
    {BandAmps, "DCS 1800", 4, 3, 1, {869, 894, 869, 893, 894, 894, 869, 869}, 1713, 1785},
    {BandEgsm, "PCS 1900", 2, 1, -1, {925, 940, 925, 940, 940, 935, 925, 945}, 1850, 1880},
    {BandEgsm, "PCS 1900", 4, 3, 1, {940, 960, 937, 946, 960, 960, 940, 940}, 1850, 1880},
    {BandEgsm, "UMTS 2100", 2, 1, -1, {960, 960, 960, 960, 960, 960, 960, 960}, 1920, 1921},
    {BandEgsm, "UMTS 2100", 4, 3, 1, {960, 925, 949, 960, 925, 960, 925, 960}, 1920, 1955},
    {BandDcs, "UMTS 2100", 3, 2, 1, {1880, 1805, 1863, 1880, 1805, 1840, 1805, 1880}, 1920, 1955},
    {BandDcs, "UMTS 2100", 5, 3, 2, {1880, 1805, 1844, 1880, 1805, 1860, 1805, 1880}, 1920, 2030},
};

int Tenths(float mhz) {
    return static_cast<int>(std::lround(mhz * 10));
}

std::string Set(const std::string& command, float mhz) {
    const std::string digits = std::to_string(Tenths(mhz));
    return command + std::string(5 - digits.size(), '0') + digits + " ";
}

/// Opens the dialog, chooses, and switches on.
bool SwitchOn(Rig& rig, const char* rxBand, int order, float step = 1) {
    InterBandSetup setup = OpenInterBand(rig.S());
    setup.rxBand = rxBand;
    setup.order = order;
    setup.plan.step = step;
    PresetInterBand(setup);
    return SwitchInterBandOn(setup, rig.S(), rig.program.Parts());
}

bool Ready(Rig& rig, const Row& row, int mode) {
    return rig.PowerOn() && rig.SelectBand(row.band) && SwitchOn(rig, row.rxBand, row.order) &&
           rig.program.Select().SelectMethod(mode) && rig.RunUntilIdle();
}

/// Levels of the last run in time order by the product that each step was meant for, the last one wins.
void ExpectCurve(const Rig& rig, const std::vector<float>& heard, const Row& row) {
    const CurveState& curve = rig.program.State().curve;
    std::map<int, float> up;
    std::map<int, float> down;
    std::size_t at = 0;
    for (float f1 = row.plan.f1Start; f1 <= row.plan.f1Stop && at < heard.size(); ++f1)
        up[Tenths(static_cast<float>(row.a) * f1 - static_cast<float>(row.b) * row.plan.f2Fix)] = heard[at++];
    for (float f2 = row.plan.f2Start; f2 >= row.plan.f2Stop && at < heard.size(); --f2)
        down[Tenths(static_cast<float>(row.a) * row.plan.f1Fix - static_cast<float>(row.b) * f2)] =
            heard[at++];
    EXPECT_EQ(at, heard.size());
    EXPECT_EQ(OnGrid(curve, std::span(curve.g_levelUp)), up);
    EXPECT_EQ(OnGrid(curve, std::span(curve.g_levelDown)), down);
    EXPECT_EQ(curve.g_freqGrid.front(), row.gridFrom);
    const auto end = static_cast<std::size_t>(row.gridTo - row.gridFrom);
    EXPECT_EQ(curve.g_freqGrid[end], row.gridTo);
    EXPECT_EQ(curve.g_freqGrid[end + 1], 0.0f);
}

/// Dialogs of which the inter-band one does as told.
class ScriptedDialogs final : public Dialogs {
public:
    bool Open(DialogId dialog, int) override {
        EXPECT_EQ(dialog, DialogId::InterBand);
        ++opened;
        if (act)
            act();
        return true;
    }
    std::function<void()> act;
    int opened = 0;
};

} // namespace

TEST(InterBand, EveryRowOfThePresetsIsMeasured) {
    for (const Row& row : Rows) {
        SCOPED_TRACE(std::string(row.rxBand) + " from band " + std::to_string(row.band) + " IM" +
                     std::to_string(row.order));
        Rig rig;
        rig.program.Stores().Write(row.band == BandDcs ? "dcs_pow_setup.ccz" : "egsm_pow_setup.ccz",
                                   "0040000405");
        ASSERT_TRUE(Ready(rig, row, ModeTwoTone));
        const std::string band = rig.S().link.g_BandCmd + " ";
        const std::string power = row.band == BandAmps ? "#SPWA00430 #SPWB00430 " : "#SPWA00400 #SPWB00405 ";
        rig.S().link.g_InstrStatus = 0x60;
        auto sent = SentDuring(rig, [&] { EXPECT_TRUE(rig.Measure()); });
        const std::string start = band + "#M2T1 #SR #RECUT1 #SMREF " + power + Set("#SFA", row.plan.f1) +
                                  Set("#SFB", row.plan.f2) + "#IMP? ";
        EXPECT_EQ(Joined(sent).substr(0, start.size()), start);
        const float product =
            static_cast<float>(row.a) * row.plan.f1 - static_cast<float>(row.b) * row.plan.f2;
        EXPECT_EQ(rig.S().curve.g_worstFreq, product);
        EXPECT_GT(rig.S().curve.StoreDataPot, 40);
        EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictPassed);

        ASSERT_TRUE(rig.program.Select().SelectMethod(ModeSweep));
        ASSERT_TRUE(rig.RunUntilIdle());
        EXPECT_EQ(rig.S().curve.g_freqGrid.front(), row.gridFrom) << "the axis shows before the start";
        rig.S().link.g_InstrStatus = 0x60;
        const std::size_t from = Transfers(rig);
        sent = SentDuring(rig, [&] { EXPECT_TRUE(rig.Measure()); });
        const FrequencyPlan& p = row.plan;
        auto up = Steps("#SFA", Tenths(p.f1Start) + 10, Tenths(p.f1Stop), 10);
        up.insert(up.begin(), "#IMP?");
        EXPECT_EQ(
            Joined(sent),
            Joined(Chain({Words(band + "#MDNL0 #SR*10 #SPA1 #SPB1 #SR #RECUT1 " + power + "#SMREF " +
                                Set("#SFB", p.f2Fix) + Set("#SFA", p.f1Start) + "#MSWL1"),
                          up, Words("#SPA0 #SPB0 #MDNL1 #SPA1 #SPB1 " + Set("#SFA", p.f1Fix)),
                          Steps("#SFB", Tenths(p.f2Start), Tenths(p.f2Stop), -10),
                          Words("#SPA0 #SPB0 #MSWL0 " + Set("#SFB", p.f2Fix) + "#SMREF #SPA0 #SPB0")})));
        ExpectCurve(rig, Overhear(rig, from, 3, false).trace, row);
        EXPECT_EQ(rig.S().results.g_reportLines[ReportIM], "Inter-band IM" + std::to_string(row.order));
        EXPECT_EQ(rig.S().results.g_reportLines[ReportMode], "Scannen Modell");
    }
}

/// A prepared instrument, old firmware, further runs with "Spectrum Analyze Enclosed", spectrum.
TEST(InterBand, TheOtherBranches) {
    Rig rig({.firmware = "5.3"});
    ASSERT_TRUE(Ready(rig, Rows[3], ModeSweep));
    rig.S().run.g_bSaEnclosed = true;
    rig.S().curve.g_runCount = 2;
    rig.S().link.g_InstrStatus = 0x64;
    const auto sent = Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.Measure()); }));
    const std::string start =
        "#MDNL0 " + Joined(Times(10, "#SR")) + "#SPA1 #SPB1 #SFB09600 #SFA09370 #MSWL1 #SR #IMP? ";
    EXPECT_EQ(sent.substr(0, start.size()), start);
    EXPECT_NE(sent.find(start, 1), std::string::npos) << "the second run begins as the first";

    Rig old({.firmware = "3.4"});
    ASSERT_TRUE(Ready(old, Rows[3], ModeSweep));
    old.S().link.g_InstrStatus = 0x60;
    EXPECT_EQ(Joined(SentDuring(old, [&] { EXPECT_TRUE(old.Measure()); })).substr(0, 84),
              "#SAB1 #SPA1 #SPB1 #SR #SPWA00430 #SPWB00430 #SMREF #SFB09600 #SFA09370 #MSWL1 #MDNL0");

    ASSERT_TRUE(old.program.Select().SelectMethod(ModeSpectrum));
    ASSERT_TRUE(old.RunUntilIdle());
    old.program.OnMeasButton();
    EXPECT_FALSE(old.S().run.runOn);
    EXPECT_EQ(old.S().run.g_StartFail, StartRefused);
    EXPECT_TRUE(old.user.WasTold("Auswaehlen Messung modell"));
}

TEST(InterBand, TheDialogRefusesWhatCannotBeMeasured) {
    Rig rig;
    const auto refused = [&](auto change) {
        rig.user.messages.clear();
        InterBandSetup setup = OpenInterBand(rig.S());
        change(setup);
        EXPECT_FALSE(SwitchInterBandOn(setup, rig.S(), rig.program.Parts()));
        EXPECT_FALSE(rig.S().interBand.g_bInterBand);
        EXPECT_EQ(rig.S().select.m_IMIndex, 1);
        return rig.user.messages.empty() ? std::string() : rig.user.messages[0];
    };
    rig.S().select.m_BandId = BandUmts;
    EXPECT_EQ(refused([](InterBandSetup&) {}), "Nichts Breite Selektiert");
    rig.S().select.m_BandId = BandEgsm;
    EXPECT_EQ(refused([](InterBandSetup& s) { s.order = 0; }), "Auswaehlen IM");
    const std::string range = "Falsch, dichtesortierung.";
    EXPECT_EQ(refused([](InterBandSetup& s) { s.plan.step = 0.09f; }), range);
    EXPECT_EQ(refused([](InterBandSetup& s) { s.plan.step = std::numeric_limits<float>::infinity(); }),
              range);
    EXPECT_EQ(refused([](InterBandSetup& s) { s.plan.f1 = std::numeric_limits<float>::quiet_NaN(); }), range);
    EXPECT_EQ(refused([](InterBandSetup& s) { s.plan.f2 = 924.9f; }), range);
    EXPECT_EQ(refused([](InterBandSetup& s) { s.plan.f1Fix = 960.1f; }), range);
    EXPECT_EQ(refused([](InterBandSetup& s) { s.plan.f2Fix = 0; }), range);
    EXPECT_EQ(refused([](InterBandSetup& s) { s.plan.f1Start = s.plan.f1Stop + 1; }), range);
    EXPECT_EQ(refused([](InterBandSetup& s) { s.plan.f2Stop = s.plan.f2Start + 1; }), range);
    EXPECT_EQ(refused([](InterBandSetup& s) { s.plan.f2Stop = 924; }), range);
}

TEST(InterBand, PresetsKeepAPairWhoseProductIsReceived) {
    Rig rig;
    rig.S().select.m_BandId = BandAmps;
    InterBandSetup setup = OpenInterBand(rig.S());
    EXPECT_EQ(setup.order, 2);
    setup.plan.f1 = 880;
    setup.plan.f2 = 890;
    setup.plan.f1Start = 875;
    setup.plan.step = 0.5f;
    PresetInterBand(setup);
    EXPECT_EQ(setup.plan.f1, 880);
    EXPECT_EQ(setup.plan.f1Start, 869);
    EXPECT_EQ(setup.plan.step, 0.5f);
    setup.plan.f1 = 880.26f; // to a tenth
    setup.plan.f2 = 890.04f;
    ASSERT_TRUE(SwitchInterBandOn(setup, rig.S(), rig.program.Parts()));
    EXPECT_EQ(rig.S().plan.g_f1, 880.3f);
    EXPECT_EQ(rig.S().plan.g_f2, 890.0f);
    EXPECT_EQ(OpenInterBand(rig.S()).plan.f1, 880.3f);
    setup.plan.f1 = 894;
    setup.order = 4; // 3 x 894 - 890 leaves the band
    PresetInterBand(setup);
    EXPECT_EQ(setup.plan.f1, 869);
}

/// The grid ends below its limit at every step, and the order commands rest until the mode is off.
TEST(InterBand, OnAndOff) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    SwitchInterBandOff(rig.S());
    EXPECT_EQ(rig.S().panel.m_IM_sel, "IM3") << "off when it is off";
    ASSERT_TRUE(rig.program.Select().SelectOrder(3));
    ASSERT_TRUE(SwitchOn(rig, "PCS 1900", 4, 0.1f));
    EXPECT_TRUE(rig.user.WasTold("Please confirm what you set be valid for the device."));
    ASSERT_TRUE(SwitchOn(rig, "UMTS 2100", 4, 0.3f)) << "set anew while it is on";
    EXPECT_EQ(rig.S().panel.m_IM_sel, "Inter-band IM4");
    EXPECT_EQ(rig.S().select.m_IMIndex, 6);
    EXPECT_FALSE(rig.program.Select().SelectOrder(2));
    EXPECT_EQ(rig.S().select.m_IMIndex, 6);
    rig.user.messages.clear();
    ASSERT_TRUE(rig.program.Select().SelectMethod(ModeSweep));
    EXPECT_EQ(rig.S().curve.g_SweepStep, 0.3f);
    EXPECT_TRUE(rig.user.messages.empty());
    EXPECT_FALSE(rig.program.Files().DataSave(rig.dir / "a.dat")) << "a file has no place for such an order";
    EXPECT_FALSE(std::filesystem::exists(rig.dir / "egsm_im13_setup.ccz"));

    CurveState& curve = rig.S().curve;
    const auto last = [&] { return curve.g_freqGrid[GridLength(curve.g_freqGrid) - 1]; };
    for (const float step : {0.1f, 0.3f, 0.5f, 7.0f}) {
        curve.g_SweepStep = step;
        BuildInterBandGrid(curve, 5, "UMTS 2100");
        EXPECT_LT(last(), 2030.05f) << step;
        EXPECT_GT(last() + step, 2030.05f) << step;
    }
    BuildInterBandGrid(curve, 2, "UMTS 2100");
    EXPECT_EQ(last(), 1927.0f);
    EXPECT_FLOAT_EQ(curve.g_pxPerStep, static_cast<float>(curve.g_plotWidth));

    SwitchInterBandOff(rig.S());
    EXPECT_EQ(rig.S().select.m_IMIndex, 3);
    EXPECT_EQ(rig.S().panel.m_IM_sel, "IM7");
    EXPECT_TRUE(rig.program.Select().SelectOrder(2));
}

/// Another carrier band under the mode: refused, or the dialog and then the start once more.
TEST(InterBand, ABandChangeAsksAgain) {
    ScriptedDialogs dialogs;
    Rig rig({}, nullptr, nullptr, &dialogs);
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    ASSERT_TRUE(SwitchOn(rig, "PCS 1900", 2));
    ASSERT_TRUE(rig.SelectBand(BandLte));
    rig.program.OnMeasButton();
    EXPECT_TRUE(rig.user.WasTold("Auswaehlen Breite"));
    EXPECT_EQ(rig.S().run.g_StartFail, StartRefused);
    EXPECT_EQ(dialogs.opened, 0);

    ASSERT_TRUE(rig.SelectBand(BandAmps));
    rig.program.OnMeasButton(); // the operator closes the dialog as it is
    EXPECT_EQ(dialogs.opened, 1);
    EXPECT_FALSE(rig.S().run.runOn);
    dialogs.act = [&] { EXPECT_TRUE(SwitchOn(rig, "DCS 1800", 2)); };
    rig.program.OnMeasButton();
    EXPECT_EQ(dialogs.opened, 2);
    EXPECT_TRUE(rig.S().run.runOn);
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    EXPECT_EQ(rig.S().curve.g_worstFreq, 1763.0f);

    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    dialogs.act = [&] { SwitchInterBandOff(rig.S()); };
    EXPECT_TRUE(rig.Measure()) << "an ordinary run";
    EXPECT_EQ(rig.S().results.g_reportLines[ReportIM], "IM3");
    EXPECT_EQ(rig.S().curve.g_worstFreq, 910.0f);
}

} // namespace qor::test
