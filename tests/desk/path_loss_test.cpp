#include "bands/rx_loss.h"
#include "base/setup_store.h"
#include "desk/commands.h"
#include "desk/level_unit.h"
#include "desk/setup/path_loss.h"
#include "desk/startup.h"
#include "results/report_lines.h"
#include "support/rig.h"

#include <cmath>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>

namespace qor {
namespace {

using Texts = std::vector<std::string>;

struct LossDesk : test::Rig {
    bool Apply(double port1, double port2) { return Done(ApplyPathLoss(port1, port2, S(), Store())); }
    bool Compensate(std::string_view f1, std::string_view f2) {
        return Done(ApplyCompensation(f1, f2, S(), Store()));
    }
    [[nodiscard]] std::string Losses() { return Stored("pathloss.ccz") + Stored("pathloss2.ccz"); }
};

TEST(PathLoss, IsKeptInWholeTenths) {
    LossDesk desk;
    for (const auto& [loss, stored, back] : {std::tuple{1.25, "0012", 1.2f},
                                             {1.3, "0013", 1.3f},
                                             {9.9, "0099", 9.9f},
                                             {0.0, "0000", 0.0f},
                                             {0.29, "0002", 0.2f}}) {
        EXPECT_TRUE(desk.Apply(loss, 0.7));
        EXPECT_EQ(desk.Losses(), std::string(stored) + "0007");
        EXPECT_EQ(desk.S().working.PowerOffset(), back) << "what is in force is what is stored";
        LoadStores(desk.S(), desk.Store());
        EXPECT_EQ(desk.S().working.PowerOffset(), back);
        EXPECT_EQ(desk.S().working.Port2Loss(), 0.7f);
    }
    const std::string before = desk.Losses();
    for (const double wrong : {-0.1, 9.91, std::nan("")}) {
        EXPECT_FALSE(desk.Apply(wrong, 0) || desk.Apply(0, wrong)) << wrong;
        EXPECT_EQ(desk.Told(), (Texts{"Bereich: 0-9.9", "Bereich: 0-9.9"}));
    }
    EXPECT_EQ(desk.Losses(), before);
    desk.Store().Write("Install_info.ccz", "200");
    EXPECT_TRUE(desk.Apply(1, 2));
    EXPECT_EQ(desk.Losses(), "00100000") << "there is no port 2";
}

TEST(PathLoss, InDbcTheReferenceIsWhatReachesTheDevice) {
    LossDesk desk;
    Session& s = desk.S();
    s.working.SelectBand(BandEgsm);
    desk.Store().Write("egsm_pow_setup.ccz", "0040000400");
    ASSERT_TRUE(s.readout.ShowLevel(-100.0f));
    ASSERT_TRUE(desk.Done(SetLevelUnit(true, s, desk.Store())));
    for (const double loss : {2.0, 2.0, 0.5}) {
        EXPECT_TRUE(desk.Apply(loss, 0));
        EXPECT_EQ(s.curve.scale.Carrier(), 40.0f - static_cast<float>(loss));
        EXPECT_EQ(PanelOf(s).m_ReadingText, loss > 1 ? "-138.0" : "-139.5") << "however often it is entered";
        EXPECT_EQ(PanelOf(s).m_AlarmText, loss > 1 ? "-128.0" : "-129.5");
    }
    s.working.SelectBand(BandNone);
    EXPECT_FALSE(desk.Apply(1, 1));
    EXPECT_EQ(desk.Told(), Texts{"Auswaehlen Breite"});
    EXPECT_EQ(s.working.PowerOffset(), 0.5f);
    s.curve.scale.SetUnit(0);
    EXPECT_TRUE(desk.Apply(1, 1)) << "dBm needs no band";
}

TEST(PathLoss, OfPort2ForOneSession) {
    LossDesk desk;
    EXPECT_FALSE(desk.Done(SetPort2Loss(-0.1, desk.S())));
    EXPECT_FALSE(desk.Done(SetPort2Loss(std::nan(""), desk.S())));
    EXPECT_FALSE(desk.Done(SetPort2Loss(10, desk.S())));
    EXPECT_EQ(desk.Told(), (Texts{"The minimum value of not less than 0dbm",
                                  "The minimum value of not less than 0dbm", "Bereich: 0-9.9"}));
    EXPECT_TRUE(desk.Done(SetPort2Loss(1.5, desk.S())));
    EXPECT_EQ(desk.S().working.Port2Loss(), 1.5f);
    EXPECT_EQ(PanelOf(desk.S()).m_lossInfo,
              "F1 Compensation 0.0 dB  F2 Compensation 0.0 dB  Path Cable Loss 1.5 dB");
    EXPECT_FALSE(desk.Store().Exists("pathloss2.ccz"));
}

/// Whatever takes the file's curve away brings the losses back, and in dBc the reference with them.
TEST(PathLoss, IsSetAsideWhileAFileIsShown) {
    using Way = std::function<void(LossDesk&)>;
    for (const auto& [name, port2, way] :
         {std::tuple<const char*, float, Way>{"run", 1.5f, [](LossDesk& d) { ASSERT_TRUE(d.Measure()); }},
          {"run after a change", 0.5f,
           [](LossDesk& d) {
               ASSERT_TRUE(d.Done(SetPort2Loss(0.5, d.S())));
               EXPECT_EQ(d.S().working.PowerOffset(), 0.0f) << "the file is still shown";
               ASSERT_TRUE(d.Measure());
           }},
          {"R", 1.5f,
           [](LossDesk& d) {
               test::NotedDialogs none;
               EXPECT_TRUE(Commands(d.program, none).Run("clear_display"));
           }},
          {"compensation", 1.5f, [](LossDesk& d) { ASSERT_TRUE(d.Compensate("1", "1")); }},
          {"entry", 3.0f, [](LossDesk& d) { ASSERT_TRUE(d.Apply(2, 3) && !d.Apply(11, 0)); }}}) {
        SCOPED_TRACE(name);
        LossDesk desk;
        WorkingSet& working = desk.S().working;
        ASSERT_TRUE(desk.PowerOn() && desk.SelectBand(BandEgsm));
        ASSERT_TRUE(desk.Apply(2, 1.5) && desk.Measure());
        ASSERT_TRUE(desk.Done(SetLevelUnit(true, desk.S(), desk.Store())));
        const auto file = desk.dir / "run.dat";
        ASSERT_TRUE(desk.program.Files().DataSave(file));

        desk.program.List().Load({"/no/such.dat"});
        EXPECT_EQ(working.PowerOffset(), 2.0f) << "the curve in view was measured with it";
        EXPECT_EQ(desk.S().curve.scale.Carrier(), 41.0f);
        desk.program.List().Load({file});
        desk.program.List().Load({file, file});
        desk.program.List().Load({"/no/such.dat"});
        EXPECT_EQ(working.PowerOffset() + working.Port2Loss() + working.RxLossOfRun() +
                      working.BandRxLossOfRun(),
                  0.0f);
        EXPECT_EQ(desk.S().working.OperatorsLosses().powerOffset + desk.S().working.OperatorsLosses().port2,
                  3.5f);
        EXPECT_EQ(desk.S().curve.scale.Carrier(), 41.0f) << "what reached the device";
        EXPECT_EQ(CompensationTitle(desk.S(), desk.Store()), "41.0dBm        43.0dBm");

        way(desk);
        EXPECT_EQ(working.PowerOffset(), 2.0f);
        EXPECT_EQ(working.Port2Loss(), port2);
        EXPECT_EQ(desk.S().curve.scale.Carrier(), 41.0f) << "43 dBm leave the instrument, as before";
        EXPECT_EQ(PanelOf(desk.S()).m_AlarmText, "-131.0") << "-90 dBm as before";
        if (std::string_view(name).starts_with("run")) {
            EXPECT_EQ(desk.S().run.Record().rxLoss, port2);
            EXPECT_EQ(desk.program.Files().Document()->power1, 41.0f);
        }
        EXPECT_EQ(desk.Losses(), std::string(name) == "entry" ? "00200030" : "00200015");
    }
}

TEST(Compensation, StaysWithin46Dbm) {
    struct Case {
        const char* powers;
        const char* f1;
        const char* f2;
        const char* told; ///< empty: taken
    };
    for (const Case& c :
         {Case{"", "3.0", "3", ""}, Case{"", "3.1", "0", "f1The maximum value cannot be greater than 46dbm"},
          Case{"", "0", "3.1", "f2The maximum value cannot be greater than 46dbm"},
          Case{"", "1e300", "0", "f1The maximum value cannot be greater than 46dbm"},
          Case{"", "-0.1", "0", "f1The minimum value of not less than 0dbm"},
          Case{"", "0", "-3", "f2The minimum value of not less than 0dbm"},
          Case{"", "", "0", "f1The minimum value of not less than 0dbm"}, Case{"0040000455", "6", "0.5", ""},
          Case{"0040000455", "6", "0.6", "f2The maximum value cannot be greater than 46dbm"}}) {
        LossDesk desk;
        WorkingSet& working = desk.S().working;
        desk.S().working.SelectBand(BandEgsm);
        desk.S().curve.Put(3, -100);
        desk.Store().Write("egsm_pow_setup.ccz", c.powers);
        const bool taken = *c.told == '\0';
        EXPECT_EQ(desk.Compensate(c.f1, c.f2), taken) << c.f1;
        EXPECT_EQ(desk.Told(), taken ? Texts{} : Texts{c.told});
        EXPECT_EQ(working.Compensation1(), taken ? c.f1 : "0");
        EXPECT_EQ(working.Compensation2(), taken ? c.f2 : "0");
        EXPECT_EQ(desk.S().curve.Up()[3], taken ? 0.0f : -100.0f);
        EXPECT_EQ(PanelOf(desk.S()).m_lossInfo.empty(), !taken);
    }
}

TEST(Compensation, WhatIsTakenIsSentWhenTheBandIsChosen) {
    LossDesk desk;
    ASSERT_TRUE(desk.PowerOn());
    desk.S().working.SetPathLosses(1.5f, 0);
    EXPECT_EQ(CompensationTitle(desk.S(), desk.Store()), "41.5dBm        43.0dBm");
    EXPECT_TRUE(desk.Compensate("2.5", "3"));
    desk.Sent();
    ASSERT_TRUE(desk.SelectBand(BandDcs));
    const Texts sent = desk.Sent();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "#SPWA00455"), 1);
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "#SPWB00460"), 1);
    EXPECT_EQ(PanelOf(desk.S()).m_lossInfo,
              "F1 Compensation 2.5 dB  F2 Compensation 3.0 dB  Path Cable Loss 0.0 dB");
}

TEST(RxLoss, TheChosenTableBecomesTheStore) {
    LossDesk desk;
    const auto choose = [&](const std::string& text) {
        std::ofstream(desk.dir / "table.conf", std::ios::binary) << text;
        desk.user.filesToOpen = {desk.dir / "table.conf"};
        return desk.Done(LoadRxLoss(desk.S(), desk.Parts(), desk.Store()));
    };
    EXPECT_FALSE(desk.Done(LoadRxLoss(desk.S(), desk.Parts(), desk.Store()))) << "none chosen";
    EXPECT_EQ(desk.Told(), Texts{});
    const std::string nine = "002.5-01.5009.9010.0000.0000.0000.0000.0000.3";
    EXPECT_TRUE(choose(nine));
    EXPECT_EQ(desk.Stored("loss.conf"), nine);
    EXPECT_EQ(desk.S().working.RxLosses(), (std::array<float, 13>{2.5f, -1.5f, 9.9f, 0, 0, 0, 0, 0, 0.3f}));
    EXPECT_EQ(desk.Told(), Texts{"Ausserhalb von -99.9 bis 9.9 dB, zaehlt als 0: EGSM 900"});
    const auto before = desk.S().working.RxLosses();
    for (const auto& [text, told] :
         {std::pair<std::string, std::string>{nine.substr(0, 44),
                                              "Die Verlusttabelle ist zu kurz, sie wurde nicht geladen: " +
                                                  (desk.dir / "table.conf").string()},
          {":\\QOR\\20260307090512\\ and what else a pointer may hold",
           "Die Verlusttabelle hat Felder ohne Zahl, sie wurde nicht geladen: LTE 700, DIG-DIV, "
           "DCS 1800, PCS 1900, TD-SCDMA-B, UMTS 2100, UMTS2 2600, WiMax, AWS"},
          {nine + "x", "Die Verlusttabelle hat Felder ohne Zahl, sie wurde nicht geladen: WiMax"}}) {
        EXPECT_FALSE(choose(text));
        EXPECT_EQ(desk.Told(), Texts{told});
        EXPECT_EQ(desk.Stored("loss.conf"), nine);
        EXPECT_EQ(desk.S().working.RxLosses(), before);
    }
    EXPECT_FALSE(choose(std::string(100000, '1'))) << "no table";
    for (const char* path : {"/dev/zero", "/", "/nowhere/at/all"}) {
        desk.user.filesToOpen = {path};
        EXPECT_FALSE(desk.Done(LoadRxLoss(desk.S(), desk.Parts(), desk.Store()))) << path;
    }
    EXPECT_EQ(desk.Told(), Texts(4, "Oeffnen file Misserfolg"));
    EXPECT_EQ(desk.Stored("loss.conf"), nine);
}

} // namespace
} // namespace qor
