// Libraries of makers, as the loader finds, calls and abandons them; tests/standins is what it loads.
#include "base/setup_store.h"
#include "platform/visa/bounded_visa.h"
#include "platform/visa/loaded_sensor.h"
#include "platform/visa/loaded_visa.h"
#include "receivers/receiver_access.h"
#include "receivers/receiver_search.h"
#include "receivers/receiver_state.h"
#include "support/temp_dir.h"
#include "support/virtual_time.h"

#include <chrono>
#include <cstdlib>

namespace qor::visa {
namespace {

using test::FileText;

/// What steers the stand-ins, for as long as it lives.
class Standin {
public:
    explicit Standin(const std::filesystem::path& log) { Say("LOG", log.string()); }
    ~Standin() {
        for (const std::string& name : m_Said)
            unsetenv(name.c_str());
    }
    Standin(const Standin&) = delete;
    Standin& operator=(const Standin&) = delete;
    void Say(const std::string& name, const std::string& value) {
        m_Said.push_back("QOR_STANDIN_" + name);
        setenv(m_Said.back().c_str(), value.c_str(), 1);
    }

private:
    std::vector<std::string> m_Said;
};

/// Receivers as the programs reach them, over the stand-ins.
struct Bench {
    static std::unique_ptr<VisaLibrary> Visa() {
        const char* const names[] = {QOR_STANDINS "/whole/libvisa.so"};
        std::string why;
        return LoadedVisa::Load(names, why);
    }
    static std::unique_ptr<PowerSensorLibrary> Sensor() {
        const char* const names[] = {QOR_STANDINS "/whole/librsnrpz.so"};
        std::string why;
        return LoadedSensor::Load(names, why);
    }
    /// Calls since the last look.
    std::string Calls() {
        std::string text = FileText(log);
        std::filesystem::remove(log);
        return text;
    }
    static std::int64_t Ms() {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
                   std::chrono::steady_clock::now().time_since_epoch())
            .count();
    }

    test::TempDir dir;
    std::filesystem::path log = dir / "calls";
    Standin standin{log};
    SetupStore store{dir.Path()};
    test::VirtualTime time;
    BoundedVisa visa{Visa};
    BoundedSensor sensor{Sensor};
    ReceiverState state;
    ReceiverAccess access{store, time.clock, &visa, &sensor};
    ReceiverSearch search{state, access, store};
};

const char* const FirstCalls = "viOpenDefaultRM\nviOpen 70 GPIB0::20::INSTR 0 0\n"
                               "viWrite 71 DISP:WIND:TRAC:Y:SPAC LOG\nviWrite 71 *IDN?\nviRead 71\n";

TEST(LoadedLibrary, OperationsInTheirOrderWithTheirArguments) {
    Bench b;
    ASSERT_TRUE(b.search.TryAddress());
    EXPECT_EQ(b.Calls(), FirstCalls + std::string("viSetAttribute 71 3FFF001A 5000\n"));
    EXPECT_EQ(b.state.Identity(), "LAB,FSP-3,1,1.0");
    b.standin.Say("IDENTITY", "LAB,NRVS" + std::string(3000, ',') + "\n"); // read to its end, then cut
    ASSERT_TRUE(b.search.TryAddress());
    EXPECT_EQ(b.Calls(), "viClose 71\nviClose 70\n" + std::string(FirstCalls) +
                             "viRead 71\nviRead 71\nviSetAttribute 71 3FFF001A 40000\nviSetBuf 71 3 4000\n"
                             "viSetAttribute 71 3FFF002A 1\nviSetAttribute 71 3FFF002D 1\n");
    EXPECT_EQ(b.state.Identity().size(), 100U);

    // On a raw socket a line feed ends what is written and what is read.
    b.store.Write("gpib_addr.ccz", "TCPIP0::lab::5025::SOCKET");
    b.standin.Say("ADDRESS", "TCPIP0::lab::5025::SOCKET");
    ASSERT_TRUE(b.search.TryAddress());
    EXPECT_NE(b.Calls().find("viOpen 70 TCPIP0::lab::5025::SOCKET 0 0\nviSetAttribute 71 3FFF0038 1\n"
                             "viWrite 71 DISP:WIND:TRAC:Y:SPAC LOG\\n\nviWrite 71 *IDN?\\n\nviRead 71\n"),
              std::string::npos);

    // Only a scan tells the library how long an open may take.
    b.standin.Say("ADDRESS", "GPIB0::2::INSTR");
    ASSERT_TRUE(b.search.MayScan());
    ASSERT_TRUE(b.search.TryScan([](auto&&...) { return true; }));
    const std::string calls = b.Calls();
    EXPECT_NE(calls.find("viOpen 70 GPIB0::1::INSTR 0 300\nviWrite 0 DISP:"), std::string::npos) << calls;
    EXPECT_NE(calls.find("viOpen 70 GPIB0::2::INSTR 0 300\nviWrite 71 DISP:"), std::string::npos);
    EXPECT_EQ(b.store.Read("gpib_addr.ccz", 200), "GPIB0::2::INSTR");

    ASSERT_TRUE(b.search.TrySensor());
    EXPECT_EQ(b.Calls(), "viClose 71\nviClose 70\nrsnrpz_init USB::0x0aad::* 1 1\n"
                         "rsnrpz_chan_setContAvAperture 80 1 0.01\n"
                         "rsnrpz_chan_setContAvSmoothingEnabled 80 1 1\n"
                         "rsnrpz_avg_configureAvgNSRatio 80 1 0.1 64\nrsnrpz_chans_initiate 80\n");
    EXPECT_NEAR(b.access.ReadSensor().Dbm(), -50.0f, 0.001f);
    b.access.Close();
    EXPECT_EQ(b.Calls(), "rsnrpz_meass_readMeasurement 80 1 10000\nrsnrpz_close 80\n");
}

TEST(LoadedLibrary, NoneInstalledAndOneThatLacksAnOperation) {
    std::string why;
    const char* const none[] = {"libqor-no-such-library.so"};
    EXPECT_EQ(LoadedVisa::Load(none, why), nullptr);
    EXPECT_EQ(LoadedSensor::Load(none, why), nullptr);
    EXPECT_EQ(why, "");
    const char* const old[] = {QOR_STANDINS "/old/libvisa.so"};
    EXPECT_EQ(LoadedVisa::Load(old, why), nullptr);
    EXPECT_TRUE(why.ends_with("/old/libvisa.so: viSetBuf")) << why;
    const char* const oldSensor[] = {QOR_STANDINS "/old/librsnrpz.so"};
    EXPECT_EQ(LoadedSensor::Load(oldSensor, why), nullptr);
    EXPECT_TRUE(why.ends_with("/old/librsnrpz.so: rsnrpz_meass_readMeasurement")) << why;
    // One that is whole is taken behind one that is not.
    const char* const both[] = {QOR_STANDINS "/old/libvisa.so", QOR_STANDINS "/whole/libvisa.so"};
    EXPECT_NE(LoadedVisa::Load(both, why), nullptr);
}

/// Whatever does not come back: the search is over by its deadlines, and the stop of a wait is heard at once.
TEST(LoadedLibrary, AnOperationThatHangsIsAbandoned) {
    for (const char* operation : {"viOpenDefaultRM", "viOpen", "viSetAttribute", "viWrite", "viRead"}) {
        SCOPED_TRACE(operation);
        Bench b;
        b.standin.Say("HANG", operation);
        int waits = 0;
        b.visa.SetWhileWaiting([&] {
            if (++waits == 3)
                b.access.BreakOff();
        });
        const std::int64_t begin = Bench::Ms();
        static_cast<void>(b.search.TryAddress());
        EXPECT_LT(Bench::Ms() - begin, 600);
        EXPECT_EQ(waits, 3);
    }
    Bench b;
    b.standin.Say("HANG", "viOpen");
    b.standin.Say("HANG_MS", "3500");
    const std::int64_t begin = Bench::Ms();
    EXPECT_FALSE(b.search.TryAddress());
    EXPECT_EQ(b.state.Trouble(), "antwortet nicht");
    EXPECT_LT(Bench::Ms() - begin, 3200);
    b.standin.Say("HANG", "rsnrpz_init");
    b.sensor.SetWhileWaiting([&] { b.sensor.Abandon(); });
    EXPECT_FALSE(b.search.TrySensor());
    EXPECT_LT(Bench::Ms() - begin, 3500);
}

} // namespace
} // namespace qor::visa
