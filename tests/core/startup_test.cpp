#include "core/session.h"
#include "core/startup.h"
#include "support/rig.h"

namespace qor::test {

namespace {

/// What a store's text makes of the session, as text.
struct StoreCase {
    const char* name;
    const char* text; ///< null: no store
    std::string (*read)(const Session&);
    const char* expected;
};

std::string Range(const Session& s) {
    return std::to_string(s.curve.g_plotBottom) + " " + std::to_string(s.curve.g_plotTop);
}
std::string Seconds(const Session& s) {
    return std::to_string(s.curve.g_testTimeMs);
}
std::string Runs(const Session& s) {
    return std::to_string(s.curve.g_runCount);
}
std::string Interval(const Session& s) {
    return std::to_string(s.run.g_SweepInterval) + " " + std::to_string(s.run.g_SweepIntervalLeft);
}
std::string PathLoss(const Session& s) {
    return std::to_string(s.plan.g_powerOffset);
}
std::string PathLoss2(const Session& s) {
    return std::to_string(s.plan.g_port2Loss);
}
std::string Alarm(const Session& s) {
    return std::to_string(s.curve.g_alarmLevel) + " " + s.panel.m_AlarmText;
}
std::string AlarmOff(const Session& s) {
    return std::to_string(s.curve.g_alarmOff);
}
std::string StampOff(const Session& s) {
    return std::to_string(s.curve.g_stampOff);
}
std::string Method(const Session& s) {
    return std::to_string(s.run.g_TestMode) + " " + s.panel.m_Mode_sel;
}
std::string Path(const Session& s) {
    return std::to_string(s.select.m_PathMode) + " " + s.panel.m_Path_sel;
}
std::string Unit(const Session& s) {
    return std::to_string(s.curve.g_UnitDbc);
}
std::string LastPath(const Session& s) {
    return s.results.LastLoadPath;
}
/// First, ninth and last field of the receive losses.
std::string Losses(const Session& s) {
    return std::to_string(s.plan.rxLoss[0]) + " " + std::to_string(s.plan.rxLoss[8]) + " " +
           std::to_string(s.plan.rxLoss[12]);
}

constexpr char NineLosses[] = "01.0 00.0 00.0 00.0 00.0 00.0 00.0 00.0 -9.9";
constexpr char ThirteenLosses[] = "-99.910.0 00.0 00.0 00.0 00.0 00.0 00.0 10.0 00.0 00.0 00.0 9.9  ";

const StoreCase Cases[] = {
    {"dbmset.ccz", nullptr, Range, "-150.000000 -60.000000"},
    {"dbmset.ccz", "-140.0\r\n-50.0\r\n", Range, "-140.000000 -50.000000"},
    {"dbmset.ccz", "0\r\n0\r\n", Range, "-150.000000 -60.000000"},
    {"dbmset.ccz", "rubbish", Range, "-150.000000 -60.000000"},
    {"dbmset.ccz", "-120", Range, "-120.000000 0.000000"},
    {"dbmset.ccz", "-50.0\n-140.0", Range, "-150.000000 -60.000000"},
    {"dbmset.ccz", "-60.0\n1e300", Range, "-150.000000 -60.000000"},
    {"dbmset.ccz", "-250.0\n-60.0", Range, "-150.000000 -60.000000"},
    {"2tone_time.ccz", nullptr, Seconds, "5000"},
    {"2tone_time.ccz", "0000030", Seconds, "30000"},
    {"2tone_time.ccz", "0000000", Seconds, "1000"},
    {"2tone_time.ccz", "-5", Seconds, "1000"},
    {"2tone_time.ccz", "9999999", Seconds, "2147483000"},
    {"2tone_time.ccz", "00000105", Seconds, "10000"}, // seven characters count
    {"Sweeptime.ccz", nullptr, Runs, "1"},
    {"Sweeptime.ccz", "0000010", Runs, "10"},
    {"Sweeptime.ccz", "0000000", Runs, "1"},
    {"Sweeptime.ccz", "0005000", Runs, "1000"},
    {"SweepInter.ccz", "0000007", Interval, "7 7"},
    {"SweepInter.ccz", "-3", Interval, "0 0"},
    {"pathloss.ccz", "0012", PathLoss, "1.200000"},
    {"pathloss.ccz", "-005", PathLoss, "-0.500000"},
    {"pathloss2.ccz", "0015", PathLoss2, "1.500000"},
    {"AlarmUp.ccz", nullptr, Alarm, "-90.000000 -90.0"},
    {"AlarmUp.ccz", "-97.58", Alarm, "-97.500000 -97.5"},
    {"AlarmUp.ccz", "-100.1", Alarm, "-100.099998 -100.1"},
    {"AlarmUp.ccz", "5.0", Alarm, "0.000000 0.0"},
    {"AlarmUp.ccz", "", Alarm, "-90.000000 -90.0"},
    {"tagWarningOn.ccz", "1", AlarmOff, "1"},
    {"tagWarningOn.ccz", "0", AlarmOff, "0"},
    {"tagWarningStampOn.ccz", "1", StampOff, "1"},
    {"testmode.ccz", "2", Method, "2 Scannen Modell"},
    {"testmode.ccz", "3", Method, "3 Spectrum Mode"},
    {"testmode.ccz", "0", Method, "1 2 Ton Modell"},
    {"testmode.ccz", "9", Method, "1 2 Ton Modell"},
    {"reftrans.ccz", "2", Path, "2 Uegerbegen Modell"},
    {"reftrans.ccz", "0", Path, "1 Reflex Modell"},
    {"unit.ccz", "1", Unit, "1"},
    {"unit.ccz", "x", Unit, "0"},
    {"LastLoadPath.ccz", "/data/a.dat", LastPath, "/data/a.dat"},
    {"LastLoadPath.ccz", "/data/\"a\".dat", LastPath, ""},
    {"loss.conf", NineLosses, Losses, "0.000000 0.000000 0.000000"}, // one character short of nine fields
    {"loss.conf", "01.0 00.0 00.0 00.0 00.0 00.0 00.0 00.0 -9.9 ", Losses, "1.000000 -9.900000 0.000000"},
    {"loss.conf", ThirteenLosses, Losses, "-99.900002 0.000000 9.900000"},
};

} // namespace

TEST(Startup, EachStoreGoesToItsField) {
    static_assert(sizeof NineLosses - 1 == 44);
    for (const StoreCase& c : Cases) {
        SCOPED_TRACE(std::string(c.name) + ": " + (c.text ? c.text : "absent"));
        TempDir dir;
        SetupStore store(dir.Path());
        if (c.text)
            store.Write(c.name, c.text);
        Session session;
        LoadStores(session, store);
        EXPECT_EQ(c.read(session), c.expected);
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
        EXPECT_FLOAT_EQ(session.plan.g_port2Loss, loss) << info;
    }
}

/// Whatever bytes the stores hold, a start comes up with values that a run can live with.
TEST(Startup, RubbishInEveryStore) {
    for (const std::string& rubbish :
         {std::string(300, '\0'), std::string(300, '9'), std::string(300, '-'), std::string("\xff\xfe\n\n\n"),
          std::string("1e99 1e99 nan inf"), std::string("-1e99")}) {
        Rig rig;
        for (const char* const name :
             {"dbmset.ccz", "2tone_time.ccz", "Sweeptime.ccz", "SweepInter.ccz", "pathloss.ccz",
              "pathloss2.ccz", "AlarmUp.ccz", "testmode.ccz", "reftrans.ccz", "unit.ccz", "loss.conf",
              "Install_info.ccz", "egsm_pow_setup.ccz", "egsm_im3_setup.ccz", "tdb_f1.ccz"})
            rig.program.Stores().Write(name, rubbish);
        rig.program.Start(true);
        const Session& s = rig.S();
        EXPECT_GE(s.curve.g_testTimeMs, 1000);
        EXPECT_GE(s.curve.g_runCount, 1);
        EXPECT_LE(s.curve.g_runCount, 1000);
        EXPECT_LE(s.curve.g_alarmLevel, 0.0f);
        for (const float loss : s.plan.rxLoss)
            EXPECT_TRUE(loss >= -99.95f && loss <= 9.95f);
        EXPECT_TRUE(rig.RunUntilReady());
    }
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
        EXPECT_EQ(s.run.g_TestMode, keep ? ModeSweep : ModeTwoTone);
        EXPECT_EQ(s.select.m_PathMode, keep ? 2 : 1);
        EXPECT_EQ(s.curve.g_runCount, keep ? 2 : 1);
        EXPECT_EQ(s.panel.m_SweepKind_text, keep ? "Multi-times" : "Single");
        EXPECT_EQ(s.curve.g_testTimeMs, 9000);
        EXPECT_EQ(s.run.g_SweepInterval, 4);
        rig.time.RunFor(1990);
        EXPECT_TRUE(rig.Sent().empty()) << "nothing goes out before the first tick of the search";
        ASSERT_TRUE(rig.RunUntilReady());
        EXPECT_EQ(s.run.g_TestMode, keep ? ModeSweep : ModeTwoTone) << "the chain does not change the choice";
    }
}

} // namespace qor::test
