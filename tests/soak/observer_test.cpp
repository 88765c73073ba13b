// The observer is told stories, each with one lie in it.
#include "soak/observer.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

using Light = Face::Light;
using Stamp = Face::Stamp;

/// A 2-tone run of one second, as the wire and the panel tell it, but for what a story changes.
struct Story {
    int readings = 12;
    double level = -110;
    int stopAt = 0; ///< reading at which the operator presses stop
    bool repliesGarbled = false;
    bool carrierStays = false;
    bool bandUnderCarriers = false;
    bool portCloses = false;
    bool lampStays = false;
    int messages = 0;
    Stamp inRun = Stamp::None;
    Stamp after = Stamp::Passed;
    bool saysHowMany = false;

    std::vector<std::string> Told() {
        Observer observer([](const std::string&) { return Places{}; });
        Face face;
        face.light = Light::Green;
        face.portOffersClosing = true;
        face.limitDbm = -100;
        face.lengthMs = 1000;
        face.twoTone = true;
        face.saysHowMany = saysHowMany;
        std::int64_t ms = 1000;
        observer.Looks(ms, face, true, {});
        observer.Acts(ms, true);
        face.light = Light::Running;
        face.stamp = inRun;
        observer.Looks(ms += 10, face, true, {});
        observer.Sent(ms, "#M2T1");
        if (bandUnderCarriers) {
            observer.Looks(ms += 10, face, true, {true, true});
            observer.Sent(ms, "#SAB3");
        }
        for (int i = 0; i <= readings && (stopAt == 0 || i <= stopAt); ++i) { // the first one primes
            observer.Sent(ms += 100, "#IMP?");
            observer.Came(ms + 40, repliesGarbled ? "IMP\r\n"
                                                  : "IMP3 " + std::to_string(level).substr(0, 6) + "dBm\r\n");
            observer.Looks(ms + 41, face, !portCloses, {true, true});
        }
        if (lampStays) {
            observer.Looks(ms + 500000, face, true, {});
            return observer.Broken();
        }
        if (stopAt > 0)
            observer.Acts(ms, true);
        face.light = Light::Green;
        face.stamp = after;
        observer.Looks(ms += 100, face, true, {true, true});
        observer.Sent(ms, "#M2T0");
        for (int i = 0; i < messages; ++i)
            observer.Told(ms += 100, "again");
        for (int i = 0; i < 5; ++i)
            observer.Looks(ms += 1000, face, true, {carrierStays, true});
        return observer.Broken();
    }
};

std::string Promise(Story story) {
    const auto told = story.Told();
    return told.empty() ? "" : told.front().substr(0, told.front().find(" ("));
}

TEST(Observer, TellsEachLie) {
    EXPECT_EQ(Promise({}), "");
    EXPECT_EQ(Promise({.level = -90}), "passed over the limit");
    EXPECT_EQ(Promise({.level = -90, .after = Stamp::Failed}), "");
    EXPECT_EQ(Promise({.repliesGarbled = true}), "passed, incomplete");
    EXPECT_EQ(Promise({.repliesGarbled = true, .after = Stamp::None}), "");
    EXPECT_EQ(Promise({.stopAt = 5}), "passed though stopped, and does not say how many points");
    EXPECT_EQ(Promise({.stopAt = 5, .saysHowMany = true}), "");
    EXPECT_EQ(Promise({.inRun = Stamp::Passed}), "passed while the run is on");
    EXPECT_EQ(Promise({.carrierStays = true}), "carriers on behind the end of a run");
    EXPECT_EQ(Promise({.bandUnderCarriers = true}), "a band is chosen under carriers");
    EXPECT_EQ(Promise({.portCloses = true}), "the lamp says more than the port");
    EXPECT_EQ(Promise({.lampStays = true}), "a run does not end");
    EXPECT_EQ(Promise({.messages = 20}), "messages repeat themselves");
    Observer observer({});
    observer.Ended(5000, {});
    observer.Ended(1000, {true, true});
    EXPECT_EQ(observer.Broken().size(), 2U) << "leaving takes too long, carriers behind the program";
}

} // namespace
} // namespace qor::test
