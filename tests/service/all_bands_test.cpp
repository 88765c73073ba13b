// Every band of every model is calibrated and read back. Takes minutes: it is run by hand, with
// --gtest_also_run_disabled_tests --gtest_filter=*EveryBand*
#include "bands/catalogue.h"
#include "sim/models.h"
#include "support/calibration_bench.h"

#include <gtest/gtest.h>
#include <iostream>

namespace qor::test {
namespace {

std::string Powers(const std::filesystem::path& folder) {
    for (const auto& file : std::filesystem::directory_iterator(folder))
        if (file.path().filename().string().starts_with("readback-"))
            return FileText(file.path());
    return {};
}

void CalibrateAndReadBack(const sim::ModelHardware& model, const std::string& firmware, int band,
                          bool analyser, std::uint64_t seed) {
    sim::InstrumentConfig config{.model = std::string(model.name), .firmware = firmware, .seed = seed};
    CalibrationBench bench(config, analyser);
    const std::string what = config.model + " " + firmware + " " + std::string(BandText(band));
    ASSERT_TRUE(bench.Open(band)) << what;
    // The instrument cannot tell PCS and AWS apart where they share a position: what PCS has is taken first.
    const bool shared = bench.rig.instrument.Band()->name == "AWS/PCS" && band == BandAws;
    if (!shared)
        bench.SpoilTables();
    CalibrationPlan plan = bench.Desk().Plan();
    plan.powDelta = 6;
    bench.Desk().SetPlan(plan);
    const std::int64_t begin = bench.rig.time.clock.TickMs();
    ASSERT_TRUE(bench.Calibrate()) << what;
    const double seconds = static_cast<double>(bench.rig.time.clock.TickMs() - begin) / 1000;
    const CalibrationProtocol protocol = bench.Protocol();
    EXPECT_TRUE(protocol.IsFinished()) << what << ": " << Joined(bench.rig.user.messages);
    EXPECT_TRUE(bench.ProtocolIsTrue()) << what;
    ASSERT_TRUE(bench.ReadBack()) << what;
    const std::string powers = Powers(bench.rig.dir.Path());
    // Where two frequencies have one entry, the earlier is off by what a MHz makes.
    if (!shared) {
        EXPECT_LT(LargestError(powers), band == BandAws || band == BandTdScdmaF ? 0.15 : 0.1) << what;
    }
    std::cout << what << (analyser ? " analyser" : " sensor") << " seed " << seed << ": "
              << protocol.Points().size() << " points, "
              << seconds / static_cast<double>(protocol.Points().size()) << " s a point, largest error "
              << LargestError(powers) << " dB\n";
}

TEST(AllBands, DISABLED_EveryBandOfEveryModel) {
    for (const sim::ModelHardware& model : sim::Models)
        for (const char* firmware : {"4.9", "5.6", "6.2"})
            for (int band = 1; band <= 21; ++band) {
                const float version = firmware[0] == '4'   ? 4.899998f
                                      : firmware[0] == '5' ? 5.599997f
                                                           : 6.199995f;
                const auto position = BandPosition(band, model.name, version);
                if (!HasPowerTable(band) || !position)
                    continue;
                const sim::BandHardware* hardware =
                    sim::BandAt(model.name, *sim::ParseFirmware(firmware), *position);
                if (!hardware || hardware->name.find(BandText(band)) == std::string_view::npos) {
                    std::cout << model.name << " " << firmware << " " << BandText(band) << ": position "
                              << *position << " is another band's\n";
                    continue;
                }
                for (const std::uint64_t seed : {1U, 2U})
                    CalibrateAndReadBack(model, firmware, band, seed == 2, seed);
            }
}

} // namespace
} // namespace qor::test
