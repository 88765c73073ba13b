#include "support/allocation_count.h"
#include "support/rig.h"

namespace qor::test {

namespace {

/// A line that answers through an instrument until it is told to give levels from a fixed text; from then on
/// it takes no memory.
class ConstantLine final : public CMSComm {
public:
    explicit ConstantLine(sim::Instrument& instrument) : m_Instrument(instrument) {}
    bool constant = false;

    void SetCommPort(int) override {}
    void SetSettings(std::string_view) override {}
    void SetInputMode(CommInputMode) override {}
    void SetInputLen(int) override {}
    void SetRThreshold(int) override {}
    void SetSThreshold(int) override {}
    void SetPortOpen(bool open) override { m_Open = open; }
    [[nodiscard]] bool GetPortOpen() const override { return m_Open; }
    void SetOutput(std::string_view bytes) override {
        if (bytes != "\r")
            m_Command = bytes;
        else if (constant)
            m_Reply = "IMP3 -123.4dBm\r\n";
        else
            m_Reply = m_Instrument.Execute(m_Command);
    }
    void GetInput(std::string& bytes) override {
        bytes.assign(m_Reply);
        m_Reply.clear();
    }
    void Deliver() {
        if (!m_Reply.empty())
            Report(CommEvent::Receive);
    }

private:
    sim::Instrument& m_Instrument;
    bool m_Open = false;
    std::string m_Command;
    std::string m_Reply;
};

class OnePort final : public PortList {
public:
    [[nodiscard]] std::vector<SerialDevice> List() override { return {{1, "/dev/ttyS0"}}; }
    [[nodiscard]] std::string DeviceOf(int) const override { return "/dev/ttyS0"; }
};

} // namespace

TEST(LongRun, APointTakesNoMemory) {
    TempDir dir;
    VirtualTime time;
    sim::Instrument instrument({});
    ConstantLine line(instrument);
    OnePort ports;
    ScriptedOperator user;
    Program program({line, ports, time.timers, time.clock, user}, dir.Path());
    const auto runUntil = [&](auto done) {
        for (int ms = 0; ms < 400000 && !done(); ms += 5) {
            time.RunFor(5);
            line.Deliver();
        }
        return done();
    };
    program.Start(false);
    ASSERT_TRUE(runUntil([&] { return program.IsReady(); }));
    CurveState& curve = program.State().curve;
    curve.g_plotWidth = 2000;
    curve.g_testTimeMs = 199000;
    program.OnMeasButton();
    ASSERT_TRUE(runUntil([&] { return curve.StoreDataPot == 200; }));
    line.constant = true;
    ASSERT_TRUE(runUntil([&] { return curve.StoreDataPot == 210; }));
    std::size_t taken = 0;
    bool thousand = false;
    {
        const AllocationCount count;
        thousand = runUntil([&] { return curve.StoreDataPot == 1210; });
        taken = count.Taken();
    }
    ASSERT_TRUE(thousand);
    EXPECT_EQ(taken, 0U);
    EXPECT_EQ(curve.g_levelUp[1209], -123.4f);
}

/// An hour of 2-tone measurement: eighteen passes of 200 s, each of its points at its place.
TEST(LongRun, AnHourOfTwoTone) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    CurveState& curve = rig.S().curve;
    RunState& run = rig.S().run;
    curve.g_plotWidth = 2000;
    curve.g_testTimeMs = 199000;
    run.tagEndless = run.g_bReplaceData = true;
    run.EndlessTimes = 17;
    const int before = rig.line.CommandCount();
    const std::int64_t begin = rig.time.NowMs();
    ASSERT_TRUE(rig.Measure(4000000));
    EXPECT_EQ(run.passes, 18);
    EXPECT_EQ(curve.StoreDataPot, 1992);
    // Start, 18 times the priming reading and 1992 points, end.
    EXPECT_EQ(rig.line.CommandCount() - before, 7 + 18 * 1993 + 2);
    EXPECT_NEAR(static_cast<double>(rig.time.NowMs() - begin), 3.6e6, 0.02e6);
    EXPECT_EQ(curve.g_MeasVerdict, VerdictPassed);
}

} // namespace qor::test
