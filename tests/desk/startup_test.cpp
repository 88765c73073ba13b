#include "desk/notices.h"
#include "desk/session.h"
#include "desk/startup.h"
#include "support/rig.h"

#include <sstream>

namespace qor::test {

namespace {

/// What a store's text makes of the session.
struct StoreCase {
    const char* name;
    const char* text;     ///< null: no store
    const char* expected; ///< in Described
};

std::string Described(const Session& s) {
    std::ostringstream text;
    text << "plot " << s.curve.scale.Bottom() << ' ' << s.curve.scale.Top() << ", time " << s.curve.Length()
         << ", runs " << s.curve.Runs() << ", interval " << s.runs.Interval() << ", loss "
         << s.working.PowerOffset() << ", loss2 " << s.working.Port2Loss() << ", limit "
         << s.curve.limit.Level() << ' ' << PanelOf(s).m_AlarmText << ", alarm off "
         << !s.curve.limit.AlarmOn() << ", stamp off " << !s.curve.limit.StampOn() << ", method "
         << s.working.Method() << ' ' << PanelOf(s).m_Mode_sel << ", path " << s.working.Path() << ' '
         << PanelOf(s).m_Path_sel << ", dBc " << s.curve.scale.InDbc() << ", bar " << s.curve.scale.ShowsBar()
         << ", from [" << s.results.list.LastPath() << "], Rx " << s.working.RxLosses()[0] << ' '
         << s.working.RxLosses()[8] << ' ' << s.working.RxLosses()[12] << ",";
    return text.str();
}

constexpr char NineLosses[] = "01.0 00.0 00.0 00.0 00.0 00.0 00.0 00.0 -9.9";
constexpr char ThirteenLosses[] = "-99.910.0 00.0 00.0 00.0 00.0 00.0 00.0 10.0 00.0 00.0 00.0 9.9  ";

const StoreCase Cases[] = {
    {"dbmset.ccz", nullptr, "plot -150 -60,"},
    {"dbmset.ccz", "-140.0\r\n-50.0\r\n", "plot -140 -50,"},
    {"dbmset.ccz", "0\r\n0\r\n", "plot -150 -60,"},
    {"dbmset.ccz", "-120", "plot -120 0,"},
    {"2tone_time.ccz", nullptr, "time 5000,"},
    {"2tone_time.ccz", "0000030", "time 30000,"},
    {"2tone_time.ccz", "0000000", "time 1000,"},
    {"2tone_time.ccz", "-5", "time 1000,"},
    {"2tone_time.ccz", "9999999", "time 2147483000,"},
    {"2tone_time.ccz", "00000105", "time 10000,"}, // seven characters count
    {"Sweeptime.ccz", nullptr, "runs 1,"},
    {"Sweeptime.ccz", "0000010", "runs 10,"},
    {"Sweeptime.ccz", "0000000", "runs 1,"},
    {"Sweeptime.ccz", "0005000", "runs 1000,"},
    {"SweepInter.ccz", "0000007", "interval 7,"},
    {"SweepInter.ccz", "-3", "interval 0,"},
    {"pathloss.ccz", "0012", "loss 1.2,"},
    {"pathloss.ccz", "0099", "loss 9.9,"},
    {"pathloss2.ccz", "0015", "loss2 1.5,"},
    {"AlarmUp.ccz", nullptr, "limit -90 -90.0,"},
    {"AlarmUp.ccz", "-97.58", "limit -97.5 -97.5,"},
    {"AlarmUp.ccz", "-100.1", "limit -100.1 -100.1,"},
    {"AlarmUp.ccz", "5.0", "limit 0 0.0,"},
    {"AlarmUp.ccz", "", "limit -90 -90.0,"},
    {"tagWarningOn.ccz", "1", "alarm off 1,"},
    {"tagWarningOn.ccz", "0", "alarm off 0,"},
    {"tagWarningStampOn.ccz", "1", "stamp off 1,"},
    {"testmode.ccz", "2", "method 2 Scannen Modell,"},
    {"testmode.ccz", "3", "method 3 Spectrum Mode,"},
    {"testmode.ccz", "0", "method 1 2 Ton Modell,"},
    {"testmode.ccz", "9", "method 1 2 Ton Modell,"},
    {"reftrans.ccz", "2", "path 2 Uegerbegen Modell,"},
    {"reftrans.ccz", "0", "path 1 Reflex Modell,"},
    {"unit.ccz", "1", "dBc 1,"},
    {"histogram.ccz", nullptr, "bar 0,"},
    {"histogram.ccz", "1", "bar 1,"},
    {"LastLoadPath.ccz", "/data/a.dat", "from [/data/a.dat]"},
    {"LastLoadPath.ccz", "/data/\"a\".dat", "from []"},
    {"loss.conf", "01.0 00.0 00.0 00.0 00.0 00.0 00.0 00.0 -9.9 ", "Rx 1 -9.9 0,"},
    {"loss.conf", ThirteenLosses, "Rx -99.9 0 9.9,"},
    {"AlarmUp.ccz", "-90.0\r\n", "limit -90 -90.0,"},
};

/// Stores with something else in them than their record: as if they were not there, and told.
const StoreCase DamagedCases[] = {
    {"dbmset.ccz", "rubbish", "plot -150 -60,"},
    {"dbmset.ccz", "-50.0\n-140.0", "plot -150 -60,"},
    {"dbmset.ccz", "-60.0\n1e300", "plot -150 -60,"},
    {"dbmset.ccz", "-250.0\n-60.0", "plot -150 -60,"},
    {"2tone_time.ccz", "5 s", "time 5000,"},
    {"Sweeptime.ccz", "many", "runs 1,"},
    {"SweepInter.ccz", "7..", "interval 0,"},
    {"pathloss.ccz", "9999", "loss 0,"},
    {"pathloss.ccz", "-005", "loss 0,"},
    {"pathloss2.ccz", "0100", "loss2 0,"},
    {"pathloss2.ccz", "1 dB", "loss2 0,"},
    {"AlarmUp.ccz", "xyz", "limit -90 -90.0,"},
    {"AlarmUp.ccz", "-200.1", "limit -90 -90.0,"},
    {"AlarmUp.ccz", "-1e9", "limit -90 -90.0,"},
    {"tagWarningOn.ccz", "x", "alarm off 0,"},
    {"unit.ccz", "x", "dBc 0,"},
    {"loss.conf", NineLosses, "Rx 0 0 0,"}, // one character short of nine fields
    {"loss.conf", "-1.0 00.0 00.0 none ************************* ", "Rx -1 0 0,"},
};

} // namespace

TEST(Startup, EachStoreGoesToItsField) {
    static_assert(sizeof NineLosses - 1 == 44);
    std::vector<std::pair<StoreCase, bool>> all;
    for (const StoreCase& c : Cases)
        all.emplace_back(c, false);
    for (const StoreCase& c : DamagedCases)
        all.emplace_back(c, true);
    for (const auto& [c, damaged] : all) {
        SCOPED_TRACE(std::string(c.name) + ": " + (c.text ? c.text : "absent"));
        TempDir dir;
        SetupStore store(dir.Path());
        if (c.text)
            store.Write(c.name, c.text);
        Session session;
        LoadStores(session, store);
        EXPECT_NE(Described(session).find(c.expected), std::string::npos)
            << c.expected << " in " << Described(session);
        const auto notices = NoticesOf(session, store);
        EXPECT_EQ(notices,
                  damaged ? std::vector{"Beschaedigt, zaehlt als nicht vorhanden: " + std::string(c.name)}
                          : std::vector<std::string>());
    }
}

TEST(Startup, AnInstallationWithoutSecondPortHasNoSecondLoss) {
    for (const auto& [info, loss] : {std::pair("010", 0.0f), std::pair("011", 1.5f), std::pair("01", 1.5f)}) {
        TempDir dir;
        SetupStore store(dir.Path());
        store.Write("pathloss2.ccz", "0015");
        store.Write("Install_info.ccz", info);
        Session session;
        LoadStores(session, store);
        EXPECT_FLOAT_EQ(session.working.Port2Loss(), loss) << info;
    }
}

TEST(Notices, ALossIsToldUntilContactIsThereAgain) {
    Rig rig;
    const auto told = [&rig] { return !NoticesOf(rig.S(), rig.Store()).empty(); };
    rig.program.Start(false);
    EXPECT_FALSE(told()) << "there has been no contact yet";
    ASSERT_TRUE(rig.RunUntilReady());
    EXPECT_FALSE(told());
    rig.port.Unplug();
    rig.time.RunFor(8000);
    EXPECT_TRUE(told());
    rig.port.Replug();
    ASSERT_TRUE(rig.RunUntilReady());
    EXPECT_FALSE(told());
    rig.program.Link().OnButton1();
    rig.time.RunFor(8000);
    EXPECT_FALSE(told()) << "closed by hand";
}

TEST(Startup, AnOrdinaryStartForgetsTheLastSession) {
    for (const bool keep : {false, true}) {
        Rig rig;
        SetupStore& store = rig.program.Stores();
        const char* const forgotten[] = {"testmode.ccz",   "reftrans.ccz",     "unit.ccz",
                                         "histogram.ccz",  "dbmset.ccz",       "Sweeptime.ccz",
                                         "Resolution.ccz", "TagImageOnly.ccz", "skin.ccz"};
        for (const char* const name : forgotten)
            store.Write(name, "2");
        store.Write("2tone_time.ccz", "0000009");
        store.Write("SweepInter.ccz", "0000004");
        rig.program.Start(keep);
        for (const char* const name : forgotten)
            EXPECT_EQ(store.Exists(name), keep) << name;
        const Session& s = rig.S();
        EXPECT_EQ(s.working.Method(), keep ? ModeSweep : ModeTwoTone);
        EXPECT_EQ(s.working.Path(), keep ? 2 : 1);
        EXPECT_EQ(s.curve.Runs(), keep ? 2 : 1);
        EXPECT_EQ(PanelOf(s).m_SweepKind_text, keep ? "Multi-times" : "Single");
        EXPECT_EQ(s.curve.Length(), 9000);
        EXPECT_EQ(s.runs.Interval(), 4);
        rig.time.RunFor(1990);
        EXPECT_TRUE(rig.Sent().empty()) << "nothing goes out before the first tick of the search";
        ASSERT_TRUE(rig.RunUntilReady());
        EXPECT_EQ(s.working.Method(), keep ? ModeSweep : ModeTwoTone)
            << "the chain does not change the choice";
    }
}

} // namespace qor::test
