// The observer is told stories, each with one lie in it.
#include "soak/observer.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

using Light = Face::Light;
using Stamp = Face::Stamp;
using Hand = Observer::Hand;

/// A 2-tone run of one second, as the wire and the panel tell it, but for what a story changes.
struct Story {
    int readings = 12;
    double level = -110;
    double oneLevel = -110; ///< of the fifth reading
    int stopAt = 0;         ///< reading at which the operator presses stop
    bool stopIsHeard = true;
    bool repliesGarbled = false;
    bool oneRefused = false;
    bool carrierStays = false;
    bool lineDies = false; ///< at the end, for a moment
    bool bandUnderCarriers = false;
    bool portCloses = false;
    bool portStays = false; ///< though the operator closes it
    bool standsStill = false;
    bool staysRed = false;
    bool repeats = false;
    bool isDeaf = false;
    int messages = 0;
    Stamp inRun = Stamp::None;
    Stamp after = Stamp::Passed;
    bool saysHowMany = false;

    std::vector<std::string> Told() {
        Observer observer([](const std::string&) { return CleanRun{}; });
        Face face;
        face.light = Light::Green;
        face.portOffersClosing = true;
        face.limitDbm = -100;
        face.lengthMs = 1000;
        face.twoTone = true;
        face.repeats = repeats;
        if (isDeaf)
            face.floorDbm = -73;
        face.saysHowMany = saysHowMany;
        std::int64_t ms = 1000;
        observer.Looks(ms, face, true, {});
        observer.Acts(ms, Hand::Start);
        face.light = Light::Running;
        face.stamp = inRun;
        observer.Looks(ms += 10, face, true, {});
        observer.Sent(ms, "#M2T1");
        observer.Came(ms + 5, "M2T1\r\n");
        if (bandUnderCarriers) {
            observer.Looks(ms += 10, face, true, {.carrier = true});
            observer.Sent(ms, "#SAB3");
        }
        for (int i = 0; i <= readings; ++i) { // the first one primes
            if (stopAt > 0 && i > stopAt) {
                observer.Acts(ms, Hand::Start);
                if (stopIsHeard)
                    break;
            }
            observer.Sent(ms += 100, "#IMP?");
            observer.Came(
                ms + 40,
                repliesGarbled ? "IMP\r\n"
                : oneRefused && i == 3
                    ? "OUT OF RANGE\r\n"
                    : "IMP3 " + std::to_string(i == 5 && oneLevel > level ? oneLevel : level).substr(0, 6) +
                          "dBm\r\n");
            observer.Looks(ms + 41, face, !portCloses, {.carrier = true});
        }
        if (standsStill)
            observer.Looks(ms += 3000, face, true, {.carrier = true});
        face.light = staysRed ? Light::Red : Light::Green;
        face.stamp = after;
        observer.Looks(ms += 100, face, true, {.carrier = true, .hears = !lineDies});
        observer.Sent(ms, "#M2T0");
        if (portStays)
            observer.Acts(ms, Hand::ClosePort);
        for (int i = 0; i < messages; ++i)
            observer.Told(ms += 100, "again");
        for (int i = 0; i < 40; ++i)
            observer.Looks(ms += 1000, face, true, {.carrier = carrierStays});
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
    EXPECT_EQ(Promise({.readings = 40, .oneLevel = -90, .stopAt = 39, .repeats = true}),
              "passed over the limit");
    EXPECT_EQ(Promise({.repliesGarbled = true}), "passed, incomplete");
    EXPECT_EQ(Promise({.repliesGarbled = true, .after = Stamp::None}), "");
    EXPECT_EQ(Promise({.readings = 13, .oneRefused = true}), "passed in spite of an error");
    EXPECT_EQ(Promise({.isDeaf = true}), "passed by a receiver that does not hear the limit");
    EXPECT_EQ(Promise({.stopAt = 5}), "passed though stopped, and does not say how many points");
    EXPECT_EQ(Promise({.stopAt = 5, .saysHowMany = true}), "");
    EXPECT_EQ(Promise({.stopAt = 5, .repeats = true}),
              "passed though stopped, and does not say how many points");
    EXPECT_EQ(Promise({.repeats = true}), "passed, incomplete") << "what repeats was cut short";
    EXPECT_EQ(Promise({.readings = 60, .stopAt = 5, .stopIsHeard = false}),
              "carriers on behind the stop button");
    EXPECT_EQ(Promise({.inRun = Stamp::Passed}), "passed while the run is on");
    EXPECT_EQ(Promise({.carrierStays = true}), "carriers on behind the end of a run");
    EXPECT_EQ(Promise({.carrierStays = true, .lineDies = true}), "carriers on under a green lamp");
    EXPECT_EQ(Promise({.bandUnderCarriers = true}), "a band is chosen under carriers");
    EXPECT_EQ(Promise({.portCloses = true}), "the lamp says more than the port");
    EXPECT_EQ(Promise({.portStays = true}), "the port does not close");
    EXPECT_EQ(Promise({.readings = 240}), "a run does not end");
    EXPECT_EQ(Promise({.standsStill = true}), "a run stands still");
    EXPECT_EQ(Promise({.staysRed = true}), "the line is well, and the lamp stays red");
    EXPECT_EQ(Promise({.messages = 4}), "messages repeat themselves");
}

TEST(Observer, WantsTheWayOutShortAndTheCarriersOffOnIt) {
    Face face;
    face.portOffersClosing = true;
    for (const bool written : {true, false}) {
        Observer observer({});
        observer.Sent(0, "#M2T1");
        observer.Leaves(face, true, {.carrier = true});
        for (const char* const off : {"#SPA0", "#SPB0", "#M2T0"})
            if (written || off[1] != 'M')
                observer.Sent(10, off);
        observer.Ended(1000, {});
        EXPECT_EQ(observer.Broken().empty(), written);
    }
    Observer observer({});
    observer.Ended(5000, {});
    observer.Ended(1000, {.carrier = true});
    EXPECT_EQ(observer.Broken().size(), 2U) << "leaving takes too long, carriers behind the program";
}

} // namespace
} // namespace qor::test
