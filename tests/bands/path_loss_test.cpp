#include "bands/path_loss.h"
#include "bands/rx_loss.h"
#include "bands/setup_store.h"
#include "core/commands.h"
#include "core/dialogs.h"
#include "core/startup.h"
#include "display/level_unit.h"
#include "results/report_lines.h"
#include "support/rig.h"

#include <cmath>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>

namespace qor {
namespace {

using Texts = std::vector<std::string>;
using test::FileText;

struct LossDesk : test::Rig {
    [[nodiscard]] const Platform& parts() { return program.Parts(); }
    SetupStore& store() { return program.Stores(); }
    bool Apply(double port1, double port2) { return ApplyPathLoss(port1, port2, S(), parts(), store()); }
    bool Compensate(std::string_view f1, std::string_view f2) {
        return ApplyCompensation(f1, f2, S(), parts(), store());
    }
    [[nodiscard]] std::string Stored() {
        return FileText(store().PathOf("pathloss.ccz")) + FileText(store().PathOf("pathloss2.ccz"));
    }
    Texts Told() { return std::exchange(user.messages, {}); }
};

TEST(PathLoss, IsKeptInWholeTenths) {
    LossDesk desk;
    for (const auto& [loss, stored, back] : {std::tuple{1.25, "0012", 1.2f},
                                             {1.3, "0013", 1.3f},
                                             {9.9, "0099", 9.9f},
                                             {0.0, "0000", 0.0f},
                                             {0.29, "0002", 0.2f}}) {
        EXPECT_TRUE(desk.Apply(loss, 0.7));
        EXPECT_EQ(desk.Stored(), std::string(stored) + "0007");
        EXPECT_EQ(desk.S().plan.g_powerOffset, static_cast<float>(loss));
        LoadStores(desk.S(), desk.store());
        EXPECT_EQ(desk.S().plan.g_powerOffset, back);
        EXPECT_EQ(desk.S().plan.g_port2Loss, 0.7f);
    }
    const std::string before = desk.Stored();
    for (const double wrong : {-0.1, 9.91, std::nan("")}) {
        EXPECT_FALSE(desk.Apply(wrong, 0) || desk.Apply(0, wrong)) << wrong;
        EXPECT_EQ(desk.Told(), (Texts{"Bereich: 0-9.9", "Bereich: 0-9.9"}));
    }
    EXPECT_EQ(desk.Stored(), before);
    desk.store().Write("Install_info.ccz", "200");
    EXPECT_TRUE(desk.Apply(1, 2));
    EXPECT_EQ(desk.Stored(), "00100000") << "there is no port 2";
}

TEST(PathLoss, InDbcTheReferenceIsWhatReachesTheDevice) {
    LossDesk desk;
    Session& s = desk.S();
    s.select.m_BandId = BandEgsm;
    desk.store().Write("egsm_pow_setup.ccz", "0040000400");
    s.panel.m_ReadingText = "-100.0";
    ASSERT_TRUE(SetLevelUnit(true, s, desk.parts(), desk.store()));
    for (const double loss : {2.0, 2.0, 0.5}) {
        EXPECT_TRUE(desk.Apply(loss, 0));
        EXPECT_EQ(s.curve.g_CarrierDbm, 40.0f - static_cast<float>(loss));
        EXPECT_EQ(s.panel.m_ReadingText, loss > 1 ? "-138.0" : "-139.5") << "however often it is entered";
        EXPECT_EQ(s.panel.m_AlarmText, loss > 1 ? "-128.0" : "-129.5");
    }
    s.select.m_BandId = BandNone;
    EXPECT_FALSE(desk.Apply(1, 1));
    EXPECT_EQ(desk.Told(), Texts{"Auswaehlen Breite"});
    EXPECT_EQ(s.plan.g_powerOffset, 0.5f);
    s.curve.g_UnitDbc = 0;
    EXPECT_TRUE(desk.Apply(1, 1)) << "dBm needs no band";
}

TEST(PathLoss, OfPort2ForOneSession) {
    LossDesk desk;
    EXPECT_FALSE(SetPort2Loss(-0.1, desk.S(), desk.parts()));
    EXPECT_FALSE(SetPort2Loss(std::nan(""), desk.S(), desk.parts()));
    EXPECT_FALSE(SetPort2Loss(10, desk.S(), desk.parts()));
    EXPECT_EQ(desk.Told(), (Texts{"The minimum value of not less than 0dbm",
                                  "The minimum value of not less than 0dbm", "Bereich: 0-9.9"}));
    EXPECT_TRUE(SetPort2Loss(1.5, desk.S(), desk.parts()));
    EXPECT_EQ(desk.S().plan.g_port2Loss, 1.5f);
    EXPECT_EQ(desk.S().panel.m_lossInfo,
              "F1 Compensation 0.0 dB  F2 Compensation 0.0 dB  Path Cable Loss 1.5 dB");
    EXPECT_FALSE(desk.store().Exists("pathloss2.ccz"));
}

class NoDialogs final : public Dialogs {
public:
    bool Open(DialogId, int) override { return false; }
};

/// Whatever takes the file's curve away brings the losses back, and in dBc the reference with them.
TEST(PathLoss, IsSetAsideWhileAFileIsShown) {
    using Way = std::function<void(LossDesk&)>;
    for (const auto& [name, port2, way] :
         {std::tuple<const char*, float, Way>{"run", 1.5f, [](LossDesk& d) { ASSERT_TRUE(d.Measure()); }},
          {"run after a change", 0.5f,
           [](LossDesk& d) {
               ASSERT_TRUE(SetPort2Loss(0.5, d.S(), d.parts()));
               EXPECT_EQ(d.S().plan.g_powerOffset, 0.0f) << "the file is still shown";
               ASSERT_TRUE(d.Measure());
           }},
          {"R", 1.5f,
           [](LossDesk& d) {
               NoDialogs none;
               Commands(d.program, none).ClearDisplay();
           }},
          {"compensation", 1.5f, [](LossDesk& d) { ASSERT_TRUE(d.Compensate("1", "1")); }},
          {"entry", 3.0f, [](LossDesk& d) { ASSERT_TRUE(d.Apply(2, 3) && !d.Apply(11, 0)); }}}) {
        SCOPED_TRACE(name);
        LossDesk desk;
        PlanState& plan = desk.S().plan;
        ASSERT_TRUE(desk.PowerOn() && desk.SelectBand(BandEgsm));
        ASSERT_TRUE(desk.Apply(2, 1.5) && desk.Measure());
        ASSERT_TRUE(SetLevelUnit(true, desk.S(), desk.parts(), desk.store()));
        const auto file = desk.dir / "run.dat";
        ASSERT_TRUE(desk.program.Files().DataSave(file));

        desk.program.List().Load({"/no/such.dat"});
        EXPECT_EQ(plan.g_powerOffset, 2.0f) << "the curve in view was measured with it";
        EXPECT_EQ(desk.S().curve.g_CarrierDbm, 41.0f);
        desk.program.List().Load({file});
        desk.program.List().Load({file, file});
        desk.program.List().Load({"/no/such.dat"});
        EXPECT_EQ(plan.g_powerOffset + plan.g_port2Loss + plan.g_RxLoss + plan.g_BandRxLoss, 0.0f);
        EXPECT_EQ(OperatorsPathLoss(plan).powerOffset + OperatorsPathLoss(plan).port2, 3.5f);
        EXPECT_EQ(desk.S().curve.g_CarrierDbm, 41.0f) << "what reached the device";
        EXPECT_EQ(CompensationTitle(desk.S(), desk.store()), "39.0dBm        41.0dBm");

        way(desk);
        EXPECT_EQ(plan.g_powerOffset, 2.0f);
        EXPECT_EQ(plan.g_port2Loss, port2);
        EXPECT_EQ(desk.S().curve.g_CarrierDbm, 39.0f) << "the file's 41 dBm are the band's power now";
        EXPECT_EQ(desk.S().panel.m_AlarmText, "-129.0") << "-90 dBm as before";
        if (std::string_view(name).starts_with("run")) {
            EXPECT_EQ(plan.g_RxLoss, port2);
            EXPECT_EQ(desk.S().results.g_reportLines[ReportPower].substr(0, 4), "39.0");
        }
        EXPECT_EQ(desk.Stored(), std::string(name) == "entry" ? "00200030" : "00200015");
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
        PlanState& plan = desk.S().plan;
        desk.S().select.m_BandId = BandEgsm;
        desk.S().curve.g_levelUp[3] = -100;
        desk.store().Write("egsm_pow_setup.ccz", c.powers);
        const bool taken = *c.told == '\0';
        EXPECT_EQ(desk.Compensate(c.f1, c.f2), taken) << c.f1;
        EXPECT_EQ(desk.Told(), taken ? Texts{} : Texts{c.told});
        EXPECT_EQ(plan.m_power1_compensation, taken ? c.f1 : "0");
        EXPECT_EQ(plan.m_power2_compensation, taken ? c.f2 : "0");
        EXPECT_EQ(desk.S().curve.g_levelUp[3], taken ? 0.0f : -100.0f);
        EXPECT_EQ(desk.S().panel.m_lossInfo.empty(), !taken);
    }
}

TEST(Compensation, WhatIsTakenIsSentWhenTheBandIsChosen) {
    LossDesk desk;
    ASSERT_TRUE(desk.PowerOn());
    desk.S().plan.g_powerOffset = 1.5f;
    EXPECT_EQ(CompensationTitle(desk.S(), desk.store()), "41.5dBm        43.0dBm");
    EXPECT_TRUE(desk.Compensate("2.5", "3"));
    desk.Sent();
    ASSERT_TRUE(desk.SelectBand(BandDcs));
    const Texts sent = desk.Sent();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "#SPWA00455"), 1);
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "#SPWB00460"), 1);
    EXPECT_EQ(desk.S().panel.m_lossInfo,
              "F1 Compensation 2.5 dB  F2 Compensation 3.0 dB  Path Cable Loss 0.0 dB");
}

TEST(RxLoss, TheChosenTableBecomesTheStore) {
    LossDesk desk;
    const auto choose = [&](const std::string& text) {
        std::ofstream(desk.dir / "table.conf", std::ios::binary) << text;
        desk.user.filesToOpen = {desk.dir / "table.conf"};
        return LoadRxLoss(desk.S(), desk.parts(), desk.store());
    };
    EXPECT_FALSE(LoadRxLoss(desk.S(), desk.parts(), desk.store())) << "none chosen";
    EXPECT_EQ(desk.Told(), Texts{});
    const std::string nine = "002.5-01.5009.9010.0000.0000.0000.0000.0000.3";
    EXPECT_TRUE(choose(nine));
    EXPECT_EQ(FileText(desk.store().PathOf("loss.conf")), nine);
    EXPECT_EQ(desk.S().plan.rxLoss, (std::array<float, 13>{2.5f, -1.5f, 9.9f, 0, 0, 0, 0, 0, 0.3f}));
    EXPECT_TRUE(choose(nine.substr(0, 44)));
    EXPECT_EQ(desk.S().plan.rxLoss, (std::array<float, 13>{})) << "too short for any band";
    EXPECT_EQ(FileText(desk.store().PathOf("loss.conf")), nine.substr(0, 44)) << "copied as a whole";

    EXPECT_TRUE(choose(nine));
    EXPECT_FALSE(choose(std::string(100000, '1'))) << "no table";
    for (const char* path : {"/dev/zero", "/", "/nowhere/at/all"}) {
        desk.user.filesToOpen = {path};
        EXPECT_FALSE(LoadRxLoss(desk.S(), desk.parts(), desk.store())) << path;
    }
    EXPECT_EQ(desk.Told(), Texts(4, "Oeffnen file Misserfolg"));
    EXPECT_EQ(FileText(desk.store().PathOf("loss.conf")), nine);
}

} // namespace
} // namespace qor
