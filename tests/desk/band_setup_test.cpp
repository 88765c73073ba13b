#include "bands/catalogue.h"
#include "base/setup_store.h"
#include "desk/level_unit.h"
#include "desk/notices.h"
#include "desk/setup/band_setup.h"
#include "desk/setup/path_loss.h"
#include "desk/setup/plan_setup.h"
#include "desk/setup/power_setup.h"
#include "support/rig.h"

#include <cmath>
#include <gtest/gtest.h>

namespace qor {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* OutOfOrder = "Falsch, dichtesortierung.";
constexpr const char* Confirm = "Please confirm what you set be valid for the device.";
constexpr const char* NotOpened = "Oeffnen file Misserfolg";
constexpr const char* EgsmPlan = "093500960009250096000937009460000100925009600";

/// A program with EGSM selected that nothing is sent from: what is queued stays to be read.
struct SetupDesk : test::Rig {
    SetupDesk() { S().working.SelectBand(BandEgsm); }
    PowerSetup Power(int band = BandEgsm) { return {band, S(), Store()}; }
    PlanSetup Page(int band, int imIndex) {
        return {band, imIndex, S().working, S().link.queue, Store(), S().factory.IsOn()};
    }
    bool SaveTone(double f1) { return Done(SaveTdScdmaAF1(f1, S().working, S().link.queue, Store())); }
    Texts Queued() {
        Texts texts;
        for (CommandQueue& queue = S().link.queue; !queue.Empty(); queue.RemoveHead())
            texts.push_back(queue.Head().text);
        return texts;
    }
    /// Makes writing a store fail.
    void Block(const std::string& name) { std::filesystem::create_directory(Store().PathOf(name)); }
};

TEST(BandSetup, EighteenBandsHaveADialog) {
    int dialogs = 0;
    for (int band = 0; band <= 25; ++band) {
        EXPECT_EQ(CaptionsOf(band).title.empty(), !HasSetup(band)) << band;
        EXPECT_EQ(HasPlanPages(band), HasSetup(band) && band != BandTdScdmaA) << band;
        dialogs += HasSetup(band) ? 1 : 0;
    }
    EXPECT_EQ(dialogs, 18);
    EXPECT_EQ(CaptionsOf(BandAws).save, "Set");
    EXPECT_EQ(CaptionsOf(BandUmts2).save, "Einbauen");
}

TEST(PowerSetup, FieldsOfAStore) {
    struct Case {
        const char* stored;
        const char* fields;
        bool synchron;
    };
    for (const Case& c : {Case{"", "43.0 43.0", true}, Case{"0040500399", "40.5 39.9", false},
                          Case{"0040000400rubbish", "40.0 40.0", true}, Case{"zzzzz\xff", "43.0 43.0", true},
                          Case{"00300", "43.0 43.0", true}}) {
        SetupDesk desk;
        desk.Store().Write("egsm_pow_setup.ccz", c.stored);
        desk.S().working.SetRxLosses({0, 0, 0, 1.5f});
        const PowerSetup setup = desk.Power();
        const PowerFields& fields = setup.Fields();
        EXPECT_EQ(fields.m_powF1 + ' ' + fields.m_powF2, c.fields) << c.stored;
        EXPECT_EQ(fields.m_synchron, c.synchron) << c.stored;
        EXPECT_EQ(fields.m_rxLoss, 1.5f);
        EXPECT_EQ(desk.Stored("egsm_pow_setup.ccz"), c.stored) << "left as it is";
    }
}

TEST(PowerSetup, SynchronTakesTheOtherFieldAlong) {
    SetupDesk desk;
    PowerSetup setup = desk.Power();
    const auto fields = [&] { return setup.Fields().m_powF1 + ' ' + setup.Fields().m_powF2; };
    setup.EditF2("40");
    EXPECT_EQ(fields(), "40 40");
    setup.Synchronise(false);
    setup.EditF1("41");
    EXPECT_EQ(fields(), "41 40");
    setup.Synchronise(true);
    EXPECT_EQ(fields(), "41 41");
    setup.ChooseUnit(PowerUnit::Watt);
    setup.Standard();
    EXPECT_EQ(fields(), "43.0 43.0");
    EXPECT_EQ(setup.Fields().m_unit, PowerUnit::Dbm);
    EXPECT_EQ(desk.Stored("egsm_pow_setup.ccz"), "");
}

TEST(PowerSetup, LimitsOfAPower) {
    struct Case {
        const char* text;
        PowerUnit unit;
        const char* digits; ///< empty: refused
        bool doubtful;
    };
    constexpr auto Dbm = PowerUnit::Dbm;
    constexpr auto Watt = PowerUnit::Watt;
    for (const Case& c : {Case{"46.0", Dbm, "00460", false},    Case{"46.01", Dbm, "00460", false},
                          Case{"46.02", Dbm, "", false},        Case{"20.0", Dbm, "00200", true},
                          Case{"19.99", Dbm, "00200", true},    Case{"19.98", Dbm, "", false},
                          Case{"32.99", Dbm, "00330", false},   Case{"32.98", Dbm, "00330", true},
                          Case{" +43.1 ", Dbm, "00431", false}, Case{"20", Watt, "00430", false},
                          Case{"0.1", Watt, "00200", true},     Case{"40", Watt, "00460", false},
                          Case{"41", Watt, "", false},          Case{"0", Watt, "", false},
                          Case{"-20", Watt, "", false},         Case{"", Dbm, "", false},
                          Case{"43,0", Dbm, "", false},         Case{"43dBm", Dbm, "", false},
                          Case{"nan", Dbm, "", false},          Case{"1e999", Watt, "", false},
                          Case{"inf", Watt, "", false}}) {
        SetupDesk desk;
        desk.Store().Write("egsm_pow_setup.ccz", "old");
        PowerSetup setup = desk.Power();
        setup.ChooseUnit(c.unit);
        setup.Synchronise(false);
        setup.EditF1(c.unit == Dbm ? "40" : "10");
        setup.EditF2(c.text);
        const std::string digits = c.digits;
        EXPECT_EQ(desk.Done(setup.Save()), !digits.empty()) << c.text;
        EXPECT_EQ(setup.Fields().canSave, digits.empty()) << c.text;
        EXPECT_EQ(desk.Stored("egsm_pow_setup.ccz"), digits.empty() ? "old" : "00400" + digits) << c.text;
        EXPECT_EQ(desk.Queued(), digits.empty() ? Texts{} : (Texts{"#SPWA00400", "#SPWB" + digits}))
            << c.text;
        EXPECT_EQ(desk.Told(), digits.empty() ? Texts{OutOfOrder}
                               : c.doubtful   ? Texts{Confirm}
                                              : Texts{})
            << c.text;
    }
}

TEST(PowerSetup, AnotherBandIsStoredAndSendsNothing) {
    SetupDesk desk;
    PowerSetup setup = desk.Power(BandDcs);
    setup.EditF1("40.5");
    ASSERT_TRUE(setup.Save());
    EXPECT_EQ(desk.Stored("dcs_pow_setup.ccz"), "0040500405");
    EXPECT_EQ(desk.Queued(), Texts{});
    EXPECT_EQ(desk.S().working.Power1(), "00430");

    PowerSetup own = desk.Power();
    own.EditF1("40.5");
    std::filesystem::remove(desk.Store().PathOf("egsm_pow_setup.ccz"));
    desk.Block("egsm_pow_setup.ccz");
    EXPECT_FALSE(desk.Done(own.Save()));
    EXPECT_EQ(desk.Told(), Texts{NotOpened});
    EXPECT_EQ(desk.Queued(), Texts{});
}

TEST(PowerSetup, DbcFollowsTheCarrierOrEnds) {
    struct Case {
        int band;
        const char* tone2;
        bool dbc;
    };
    for (const Case& c :
         {Case{BandEgsm, "40.0", true}, Case{BandEgsm, "40.1", false}, Case{BandPcs, "40.1", true},
          Case{BandPcs, "39.9", true}, Case{BandPcs, "40.2", false}}) {
        SetupDesk desk;
        Session& s = desk.S();
        s.working.SelectBand(c.band);
        s.working.SetPathLosses(1, 0);
        s.curve.Put(3, -100.0f);
        s.curve.Update(true);
        s.curve.SearchMaxima();
        ASSERT_TRUE(desk.Done(SetLevelUnit(true, s, desk.Store())));
        EXPECT_EQ(PanelOf(s).m_AlarmText, "-132.0");
        PowerSetup setup = desk.Power(c.band);
        setup.Synchronise(false);
        setup.EditF1("40");
        setup.EditF2(c.tone2);
        EXPECT_TRUE(desk.Done(setup.Save()));
        EXPECT_EQ(s.curve.scale.InDbc(), c.dbc) << c.tone2;
        EXPECT_EQ(PanelOf(s).m_WorstLevelText, c.dbc ? "-139.0" : "-100.0");
        EXPECT_EQ(PanelOf(s).m_AlarmText, c.dbc ? "-129.0" : "-90.0");
        EXPECT_FLOAT_EQ(s.curve.limit.Level(), c.dbc ? -129.0f : -90.0f);
        EXPECT_EQ(desk.user.WasTold("can not use dBc"), !c.dbc);
        EXPECT_EQ(s.curve.scale.Carrier(), c.dbc ? 39.0f : 42.0f);
    }
}

TEST(TdScdmaA, ItsToneIsStoredAndQueuedWhileItIsInUse) {
    SetupDesk desk;
    EXPECT_TRUE(desk.SaveTone(2021.25));
    EXPECT_EQ(desk.Stored("tdb_f1.ccz"), "2021.2");
    EXPECT_EQ(desk.Queued(), Texts{});
    desk.S().working.SelectBand(BandTdScdmaA);
    EXPECT_TRUE(desk.SaveTone(2021.5));
    EXPECT_EQ(desk.Queued(), (Texts{"#SFA20215", "#SFB20250"}));
    for (const double wrong : {-1.0, 0.0, 10000.0, 1e300, std::nan("")})
        EXPECT_FALSE(desk.SaveTone(wrong)) << wrong;
    EXPECT_EQ(desk.Stored("tdb_f1.ccz"), "2021.5");
    EXPECT_EQ(desk.Queued(), Texts{});
}

TEST(PlanSetup, APageBeginsWithItsStoreOrTheBuiltInPlan) {
    SetupDesk desk;
    EXPECT_EQ(desk.Page(BandEgsm, 1).Plan(), *DefaultPlan(BandEgsm, 1, 0));
    desk.S().working.SetBridge(1);
    EXPECT_EQ(desk.Page(BandEgsm, 1).Plan().f2Stop, 935.0f);
    desk.Store().Write("egsm_im3_setup.ccz", "0936009600");
    EXPECT_EQ(desk.Page(BandEgsm, 1).Plan().f1, DefaultPlan(BandEgsm, 1, 1)->f1);
    EXPECT_EQ(NoticesOf(desk.S(), desk.Store()).size(), 1U) << "half a plan is none";
    desk.Store().Write("egsm_im3_setup.ccz", EgsmPlan);
    const FrequencyPlan stored = desk.Page(BandEgsm, 1).Plan();
    EXPECT_EQ(stored, *DefaultPlan(BandEgsm, 1, 0));
    EXPECT_EQ(desk.Page(BandTetra390, 5).Plan(), FrequencyPlan{}) << "no plan of its own";
    EXPECT_EQ(desk.Page(BandTetra392, 2).BandRangesText(), CarrierText(*FindBand(BandTetra392), 2));
}

TEST(PlanSetup, SavingQueuesWhatConcernsTheInstrument) {
    const Texts tones = {"#SFA09350", "#SFB09600"};
    const Texts all = test::Chain({tones, {"#SSA09250", "#SSB09600", "#STA09370", "#STB09460", "#SWA00010"}});
    struct Case {
        int selectedBand, selectedOrder;
        Texts queued;
    };
    for (const Case& c :
         {Case{BandEgsm, 1, all}, Case{BandEgsm, 2, tones}, Case{BandDcs, 1, {}}, Case{BandNone, 1, {}}}) {
        SetupDesk desk;
        desk.S().working.SelectBand(c.selectedBand);
        desk.S().working.SelectOrder(c.selectedOrder);
        EXPECT_TRUE(desk.Page(BandEgsm, 1).Save());
        EXPECT_EQ(desk.Stored("egsm_im3_setup.ccz"), EgsmPlan);
        EXPECT_EQ(desk.Queued(), c.queued) << c.selectedBand;
        EXPECT_EQ(desk.Told(), Texts{});
    }
}

TEST(PlanSetup, RefusalsAndTheWarningOfTheSubBands) {
    SetupDesk desk;
    PlanSetup page = desk.Page(BandEgsm, 1);
    FrequencyPlan plan = page.Plan();
    plan.step = 0.05f;
    page.Edit(plan);
    EXPECT_FALSE(page.Verdict().fits);
    EXPECT_FALSE(desk.Done(page.Save()));
    EXPECT_EQ(desk.Told(), Texts{OutOfOrder});
    EXPECT_EQ(desk.Stored("egsm_im3_setup.ccz") + desk.Stored("egsm_im3_setup_default.ccz"), "");

    plan.step = 1;
    plan.f1 = 925;
    plan.f2 = 945; // without a bridge tone 2 begins at 946
    page.Edit(plan);
    for (const int bridge : {0, 1}) {
        desk.S().working.SetBridge(bridge);
        EXPECT_TRUE(desk.Done(page.Save()));
        EXPECT_EQ(desk.Told(), bridge ? Texts{} : Texts{Confirm});
    }
    desk.Queued();
    std::filesystem::remove(desk.Store().PathOf("egsm_im3_setup.ccz"));
    desk.Block("egsm_im3_setup.ccz");
    EXPECT_FALSE(desk.Done(page.Save()));
    EXPECT_EQ(desk.Told(), Texts{NotOpened});
    EXPECT_EQ(desk.Queued(), Texts{});
}

TEST(PlanSetup, TheFactorySavesDefaults) {
    SetupDesk desk;
    PlanSetup page = desk.Page(BandEgsm, 1);
    EXPECT_FALSE(desk.Done(page.SaveDefault())) << "not in factory mode";
    desk.S().factory.Enter("740261", 0);
    EXPECT_FALSE(desk.Page(BandTetra390, 1).OffersDefault());
    FrequencyPlan plan = page.Plan();
    plan.f1 = 936.1f;
    PlanSetup factory = desk.Page(BandEgsm, 1);
    factory.Edit(plan);
    EXPECT_TRUE(desk.Done(factory.SaveDefault()));
    EXPECT_EQ(desk.Stored("egsm_im3_setup_default.ccz"), "09361" + std::string(EgsmPlan).substr(5));
    EXPECT_EQ(desk.Stored("egsm_im3_setup.ccz"), "");
    EXPECT_EQ(desk.Queued(), Texts{});
    page.Edit(FrequencyPlan{});
    page.Standard();
    EXPECT_EQ(page.Plan(), plan);
    EXPECT_TRUE(page.Verdict().fits);

    desk.Store().Write("TETRA_A_im3_setup_default.ccz", EgsmPlan);
    PlanSetup tetra = desk.Page(BandTetra390, 1);
    tetra.Edit(FrequencyPlan{});
    tetra.Standard();
    EXPECT_EQ(tetra.Plan(), *DefaultPlan(BandTetra390, 1, 0)) << "has no default store";
    PlanSetup im11 = desk.Page(BandTetra390, 5);
    im11.Edit(plan);
    im11.Standard();
    EXPECT_EQ(im11.Plan(), plan) << "nothing to fall back on";
}

TEST(PlanSetup, FieldsShowAllDecimals) {
    for (const auto& [mhz, text] :
         {std::pair{869.0f, "869.0"}, {397.5f, "397.5"}, {0.05f, "0.05"}, {1990.05f, "1990.05"}})
        EXPECT_EQ(FieldText(mhz), text);
    EXPECT_EQ(FieldText(3e38f).size(), 41U);
    EXPECT_EQ(FieldText(1e-45f).substr(0, 2), "0.");
}

} // namespace
} // namespace qor
