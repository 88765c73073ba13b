#include "curve/curve.h"
#include "measure/inter_band.h"
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
    InterBandSetup setup = OpenInterBand(rig.S().working, rig.S().interBand);
    setup.rxBand = rxBand;
    setup.order = order;
    setup.plan.step = step;
    PresetInterBand(setup);
    return SwitchInterBandOn(setup, rig.S().working, rig.S().interBand).IsDone();
}

bool Ready(Rig& rig, const Row& row, int mode) {
    return rig.PowerOn() && rig.SelectBand(row.band) && SwitchOn(rig, row.rxBand, row.order) &&
           rig.program.Select().SelectMethod(mode) && rig.RunUntilIdle();
}

/// Levels of the last run in time order by the product that each step was meant for, the last one wins.
void ExpectCurve(const Rig& rig, const std::vector<float>& heard, const Row& row) {
    const Curve& curve = rig.program.State().curve;
    std::map<int, float> up;
    std::map<int, float> down;
    std::size_t at = 0;
    for (float f1 = row.plan.f1Start; f1 <= row.plan.f1Stop && at < heard.size(); ++f1)
        up[Tenths(static_cast<float>(row.a) * f1 - static_cast<float>(row.b) * row.plan.f2Fix)] = heard[at++];
    for (float f2 = row.plan.f2Start; f2 >= row.plan.f2Stop && at < heard.size(); --f2)
        down[Tenths(static_cast<float>(row.a) * row.plan.f1Fix - static_cast<float>(row.b) * f2)] =
            heard[at++];
    EXPECT_EQ(at, heard.size());
    EXPECT_EQ(OnGrid(curve, std::span(curve.Up())), up);
    EXPECT_EQ(OnGrid(curve, std::span(curve.Down())), down);
    EXPECT_EQ(curve.Grid().front(), row.gridFrom);
    const auto end = static_cast<std::size_t>(row.gridTo - row.gridFrom);
    EXPECT_EQ(curve.Grid()[end], row.gridTo);
    EXPECT_EQ(curve.Grid()[end + 1], 0.0f);
}

} // namespace

TEST(InterBand, EveryRowOfThePresetsIsMeasured) {
    for (const Row& row : Rows) {
        SCOPED_TRACE(std::string(row.rxBand) + " from band " + std::to_string(row.band) + " IM" +
                     std::to_string(row.order));
        Rig rig;
        rig.program.Stores().Write(row.band == BandDcs ? "dcs_pow_setup.ccz" : "egsm_pow_setup.ccz",
                                   "0040000405");
        ASSERT_TRUE(Ready(rig, row, ModeTwoTone));
        const std::string band = rig.S().link.position.Command() + " ";
        const std::string power = row.band == BandAmps ? "#SPWA00430 #SPWB00430 " : "#SPWA00400 #SPWB00405 ";
        rig.S().link.chain.TakeStatus(0x60);
        auto sent = SentDuring(rig, [&] { EXPECT_TRUE(rig.Measure()); });
        const std::string start = band + "#M2T1 #SR #RECUT1 #SMREF " + power + Set("#SFA", row.plan.f1) +
                                  Set("#SFB", row.plan.f2) + "#IMP? ";
        EXPECT_EQ(Joined(sent).substr(0, start.size()), start);
        const float product =
            static_cast<float>(row.a) * row.plan.f1 - static_cast<float>(row.b) * row.plan.f2;
        EXPECT_EQ(rig.S().curve.WorstFrequency(), product);
        EXPECT_GT(rig.S().curve.NextPoint(), 40);
        EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);

        ASSERT_TRUE(rig.program.Select().SelectMethod(ModeSweep));
        ASSERT_TRUE(rig.RunUntilIdle());
        EXPECT_EQ(rig.S().curve.Grid().front(), row.gridFrom) << "the axis shows before the start";
        rig.S().link.chain.TakeStatus(0x60);
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
        EXPECT_EQ(rig.S().run.Record().order, row.order);
        EXPECT_EQ(rig.S().run.Record().interBand, row.rxBand);
    }
}

/// A prepared instrument, old firmware, further runs with "Spectrum Analyze Enclosed", spectrum.
TEST(InterBand, TheOtherBranches) {
    Rig rig({.firmware = "5.3"});
    ASSERT_TRUE(Ready(rig, Rows[3], ModeSweep));
    rig.S().runs.SetSaEnclosed(true);
    rig.S().curve.SetRuns(2);
    rig.S().link.chain.TakeStatus(0x64);
    const auto sent = Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.Measure()); }));
    const std::string start =
        "#MDNL0 " + Joined(Times(10, "#SR")) + "#SPA1 #SPB1 #SFB09600 #SFA09370 #MSWL1 #SR #IMP? ";
    EXPECT_EQ(sent.substr(0, start.size()), start);
    EXPECT_NE(sent.find(start, 1), std::string::npos) << "the second run begins as the first";

    Rig old({.firmware = "3.4"});
    ASSERT_TRUE(Ready(old, Rows[3], ModeSweep));
    old.S().link.chain.TakeStatus(0x60);
    EXPECT_EQ(Joined(SentDuring(old, [&] { EXPECT_TRUE(old.Measure()); })).substr(0, 84),
              "#SAB1 #SPA1 #SPB1 #SR #SPWA00430 #SPWB00430 #SMREF #SFB09600 #SFA09370 #MSWL1 #MDNL0");

    ASSERT_TRUE(old.program.Select().SelectMethod(ModeSpectrum));
    ASSERT_TRUE(old.RunUntilIdle());
    old.program.OnMeasButton();
    EXPECT_FALSE(old.S().run.IsOn());
    EXPECT_EQ(old.S().run.StartFail(), StartRefused);
    EXPECT_TRUE(old.user.WasTold("Auswaehlen Messung modell"));
}

TEST(InterBand, TheDialogRefusesWhatCannotBeMeasured) {
    Rig rig;
    const auto refused = [&](auto change) {
        InterBandSetup setup = OpenInterBand(rig.S().working, rig.S().interBand);
        change(setup);
        const Outcome outcome = SwitchInterBandOn(setup, rig.S().working, rig.S().interBand);
        EXPECT_FALSE(outcome);
        EXPECT_FALSE(rig.S().interBand.IsOn());
        EXPECT_EQ(rig.S().working.ImIndex(), 1);
        return outcome.Text();
    };
    rig.S().working.SelectBand(BandUmts);
    EXPECT_EQ(refused([](InterBandSetup&) {}), "Nichts Breite Selektiert");
    rig.S().working.SelectBand(BandEgsm);
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
    rig.S().working.SelectBand(BandAmps);
    InterBandSetup setup = OpenInterBand(rig.S().working, rig.S().interBand);
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
    ASSERT_TRUE(SwitchInterBandOn(setup, rig.S().working, rig.S().interBand));
    EXPECT_EQ(rig.S().working.Plan().f1, 880.3f);
    EXPECT_EQ(rig.S().working.Plan().f2, 890.0f);
    EXPECT_EQ(OpenInterBand(rig.S().working, rig.S().interBand).plan.f1, 880.3f);
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
    SwitchInterBandOff(rig.S().working, rig.S().interBand);
    EXPECT_EQ(PanelOf(rig.S()).m_IM_sel, "IM3") << "off when it is off";
    ASSERT_TRUE(rig.program.Select().SelectOrder(3));
    ASSERT_TRUE(SwitchOn(rig, "PCS 1900", 4, 0.1f));
    ASSERT_TRUE(SwitchOn(rig, "UMTS 2100", 4, 0.3f)) << "set anew while it is on";
    EXPECT_EQ(PanelOf(rig.S()).m_IM_sel, "Inter-band IM4");
    EXPECT_EQ(rig.S().working.ImIndex(), 6);
    EXPECT_FALSE(rig.Done(rig.program.Select().SelectOrder(2)));
    EXPECT_EQ(rig.S().working.ImIndex(), 6);
    ASSERT_TRUE(rig.program.Select().SelectMethod(ModeSweep));
    EXPECT_EQ(rig.S().curve.SweepStep(), 0.3f);
    EXPECT_TRUE(rig.user.messages.empty());
    EXPECT_FALSE(rig.program.Files().DataSave(rig.dir / "a.dat")) << "a file has no place for such an order";
    EXPECT_FALSE(std::filesystem::exists(rig.dir / "egsm_im13_setup.ccz"));

    for (const float step : {0.1f, 0.3f, 0.5f, 7.0f}) {
        const float last = InterBandGrid(5, "UMTS 2100", step).back();
        EXPECT_LT(last, 2030.05f) << step;
        EXPECT_GT(last + step, 2030.05f) << step;
    }
    EXPECT_EQ(InterBandGrid(2, "UMTS 2100", 7.0f), (std::vector<float>{1920.0f, 1927.0f}));

    SwitchInterBandOff(rig.S().working, rig.S().interBand);
    EXPECT_EQ(rig.S().working.ImIndex(), 3);
    EXPECT_EQ(PanelOf(rig.S()).m_IM_sel, "IM7");
    EXPECT_TRUE(rig.Done(rig.program.Select().SelectOrder(2)));
}

/// Another carrier band under the mode: refused, or the dialog and then the start once more.
TEST(InterBand, ABandChangeAsksAgain) {
    NotedDialogs dialogs;
    Rig rig({}, nullptr, nullptr, &dialogs);
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    ASSERT_TRUE(SwitchOn(rig, "PCS 1900", 2));
    ASSERT_TRUE(rig.SelectBand(BandLte));
    rig.program.OnMeasButton();
    EXPECT_TRUE(rig.user.WasTold("Auswaehlen Breite"));
    EXPECT_EQ(rig.S().run.StartFail(), StartRefused);
    EXPECT_EQ(dialogs.opened.size(), 0U);

    ASSERT_TRUE(rig.SelectBand(BandAmps));
    rig.program.OnMeasButton(); // the operator closes the dialog as it is
    EXPECT_EQ(dialogs.opened.size(), 1U);
    EXPECT_FALSE(rig.S().run.IsOn());
    dialogs.whileOpen = [&] { EXPECT_TRUE(SwitchOn(rig, "DCS 1800", 2)); };
    rig.program.OnMeasButton();
    EXPECT_EQ(dialogs.opened, (std::vector(2, std::pair(std::string("inter_band"), 0))));
    EXPECT_TRUE(rig.S().run.IsOn());
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    EXPECT_EQ(rig.S().curve.WorstFrequency(), 1763.0f);

    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    dialogs.whileOpen = [&] { SwitchInterBandOff(rig.S().working, rig.S().interBand); };
    EXPECT_TRUE(rig.Measure()) << "an ordinary run";
    EXPECT_EQ(rig.S().run.Record().interBand, "");
    EXPECT_EQ(rig.S().curve.WorstFrequency(), 910.0f);
}

} // namespace qor::test
