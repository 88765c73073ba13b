#include "support/allocation_count.h"
#include "support/rig.h"

namespace qor::test {

namespace {

/// A line that answers through an instrument until it is told to give levels from a fixed text; from then on
/// it takes no memory.
class ConstantLine final : public DeadLine {
public:
    explicit ConstantLine(sim::Instrument& instrument) : m_Instrument(instrument) {}
    bool constant = false;

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
    std::string m_Command;
    std::string m_Reply;
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
    Curve& curve = program.State().curve;
    curve.scale.SetWidth(2000);
    curve.SetLength(199000);
    program.OnMeasButton();
    ASSERT_TRUE(runUntil([&] { return curve.NextPoint() == 200; }));
    line.constant = true;
    ASSERT_TRUE(runUntil([&] { return curve.NextPoint() == 210; }));
    std::size_t taken = 0;
    bool thousand = false;
    {
        const AllocationCount count;
        thousand = runUntil([&] { return curve.NextPoint() == 1210; });
        taken = count.Taken();
    }
    ASSERT_TRUE(thousand);
    EXPECT_EQ(taken, 0U);
    EXPECT_EQ(curve.Up()[1209], -123.4f);
}

/// An hour of 2-tone measurement: eighteen passes of 200 s, each of its points at its place.
TEST(LongRun, AnHourOfTwoTone) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    Curve& curve = rig.S().curve;
    const qor::Run& run = rig.S().run;
    RunSettings& runs = rig.S().runs;
    curve.scale.SetWidth(2000);
    curve.SetLength(199000);
    runs.SetContinuous(true);
    runs.SetReplacesData(true);
    runs.SetContinuousTimes(17);
    const int before = rig.line.CommandCount();
    const std::int64_t begin = rig.time.NowMs();
    ASSERT_TRUE(rig.Measure(4000000));
    EXPECT_EQ(run.Passes(), 18);
    EXPECT_EQ(curve.NextPoint(), 1992);
    // Start, 18 times the priming reading and 1992 points, end.
    EXPECT_EQ(rig.line.CommandCount() - before, 7 + 18 * 1993 + 2);
    EXPECT_NEAR(static_cast<double>(rig.time.NowMs() - begin), 3.6e6, 0.02e6);
    EXPECT_EQ(curve.ShownVerdict(), Verdict::Passed);
}

} // namespace qor::test
