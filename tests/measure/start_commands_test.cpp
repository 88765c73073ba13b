#include "link/firmware.h"
#include "measure/start_commands.h"
#include "support/wire_reading.h"

#include <gtest/gtest.h>

namespace qor::test {

namespace {

constexpr FrequencyPlan Egsm{935, 960, 925, 937, 960, 960, 946, 925};

/// The start of a sweep or spectrum is followed by the reading of its first step, 890.0 MHz, where the
/// instrument listens itself.
std::string Text(const StartCommands& commands, bool stepped) {
    std::vector<std::string> words;
    words.reserve(commands.size());
    for (const StartCommand& command : commands)
        words.push_back(command.text);
    if (stepped) {
        const bool read = words.back() == "#IMP?";
        const StartCommand& step = commands[commands.size() - (read ? 2 : 1)];
        EXPECT_EQ(step.tag, TagStepUp);
        EXPECT_EQ(step.param, 890.0f);
        if (read) {
            EXPECT_EQ(commands.back(), (StartCommand{"#IMP?", TagLevelUpQueued, 890.0f}));
        }
    }
    for (std::size_t i = 0; i + (stepped ? 2 : 0) < commands.size(); ++i)
        EXPECT_EQ(commands[i].param, 0.0f) << commands[i].text;
    return Joined(words);
}

float Version(std::string_view text) {
    return VersionInBanner("v" + std::string(text)).value();
}

} // namespace

/// Every firmware from whose version on a start reads otherwise, and the version before it.
TEST(StartCommands, OfEveryFirmware) {
    struct Row {
        const char* firmware;
        const char* recut;
        const char* rest;     ///< ahead of the carriers of a sweep
        const char* selector; ///< behind #MSWL1, the instrument's own receiver listening
        const char* external; ///< the same with an external one
        const char* repeat;   ///< behind the tones of a further pass of a sweep
        const char* repeatExternal;
    };
    static constexpr const char* Rests = "#SPA0 #SPB0 #SR*10 #MDNL0 #SR*10 #SPA1 #SPB1 #SR*4 ";
    static constexpr const char* Pair = "#MDNL0 #MUPL1 ";
    static constexpr Row Rows[] = {
        {"1.7", "", "", Pair, Pair, Pair, Pair},
        {"1.8", "", "", "#MDNL0 ", "", "#MDNL0 ", "#SR "},
        {"3.4", "", "", "#MDNL0 ", "", "#MDNL0 ", "#SR "},
        {"3.5", "#RECUT1 ", "", "#MDNL0 ", "", "#MDNL0 ", "#SR "},
        {"3.6", "#RECUT1 ", "", "#MDNL0 ", "", "#MDNL0 ", "#SR "},
        {"3.7", "#RECUT1 ", "", "", "", "#SR ", "#SR "},
        {"5.2", "#RECUT1 ", "", "", "", "#SR ", "#SR "},
        {"5.3", "#RECUT1 ", "#MDNL0 #SR*10 ", "", "", Rests, Rests},
        {"6.2", "#RECUT1 ", "#MDNL0 #SR*10 ", "", "", Rests, Rests},
    };
    const auto expanded = [](const std::string& words) { return Joined(Words(words)); };
    for (const Row& row : Rows) {
        for (const bool internal : {true, false}) {
            for (const bool transmission : {false, true}) {
                SCOPED_TRACE(std::string(row.firmware) + (internal ? "" : " external") +
                             (transmission ? " transmission" : ""));
                const StartSituation at{.firmware = Version(row.firmware),
                                        .internal = internal,
                                        .transmission = transmission,
                                        .bandCommand = "#SAB3",
                                        .band = BandEgsm,
                                        .plan = Egsm};
                const std::string recut = row.recut;
                const std::string read = internal ? "#IMP? " : "";
                const std::string smtra = transmission ? "#SMTRA " : "";
                const std::string smref = transmission ? "" : "#SMREF ";
                const std::string usesa = internal ? "" : "#USESA ";
                const std::string selector = internal ? row.selector : row.external;
                EXPECT_EQ(Text(StartOfTwoTone(at), false),
                          "#SAB3 #M2T1 #SR " + recut + smtra + smref + "#SFA09350 #SFB09600 " + read);
                EXPECT_EQ(Text(StartOfSweep(at), true),
                          expanded("#SAB3 " + std::string(row.rest) + "#SPA1 #SPB1 #SR " + smtra + recut +
                                   smref + "#SFB09600 #SFA09250 #MSWL1 " + selector + read));
                EXPECT_EQ(Text(StartOfSpectrum(at), true),
                          "#USEID3 " + usesa + "#SAB3 #SR " + recut + "#SFB09600 #SFA09250 " + read);
                EXPECT_EQ(Text(RepeatOfTwoTone(at), false), read);
                EXPECT_EQ(Text(RepeatOfSweep(at), true),
                          expanded("#SFB09600 #SFA09250 " +
                                   std::string(internal ? row.repeat : row.repeatExternal) + read));
                EXPECT_EQ(Text(RepeatOfSpectrum(at), true), "#SFB09600 #SFA09250 #SR " + read);

                StartSituation prepared = at;
                prepared.prepared = true;
                EXPECT_EQ(Text(StartOfSweep(prepared), true),
                          expanded(std::string(row.rest) + "#SPA1 #SPB1 " + smtra +
                                   "#SFB09600 #SFA09250 #MSWL1 " + selector + "#SR " + read));

                StartSituation further = at; // a run that the press does not begin
                further.firstRun = false;
                EXPECT_EQ(Text(StartOfTwoTone(further), false),
                          "#M2T1 #SR " + smtra + "#SFA09350 #SFB09600 " + read);
                EXPECT_EQ(Text(StartOfSpectrum(further), true),
                          "#USEID3 " + usesa + "#SR #SFB09600 #SFA09250 " + read);
                EXPECT_EQ(Text(StartOfSweep(further), true),
                          expanded(std::string(row.rest) + "#SPA1 #SPB1 #SR " + smtra +
                                   "#SFB09600 #SFA09250 #MSWL1 " + selector + read));
            }
        }
    }
}

/// Further runs of a series, the carriers-off run ahead of it, and products of another band.
TEST(StartCommands, OfASeriesOfSweeps) {
    const std::string tail = "#SFB09600 #SFA09250 #MSWL1 #IMP? ";
    const StartSituation first{
        .firmware = Version("6.2"), .bandCommand = "#SAB3", .band = BandEgsm, .plan = Egsm};
    StartSituation second = first;
    second.firstRun = false;
    second.runIndex = 1;
    const auto begins = [&tail](const StartSituation& at, const char* words) {
        EXPECT_EQ(Text(StartOfSweep(at), true), Joined(Words(words)) + tail) << words;
    };
    begins(second, "#SPA0 #SPB0 #SR*10 #MDNL0 #SR*10 #SPA1 #SPB1 #SR");
    second.rested = true;
    begins(second, "#MDNL0 #SR*10 #SPA1 #SPB1 #SR");
    StartSituation old = second;
    old.firmware = Version("5.2");
    begins(old, "#SPA1 #SPB1 #SR");

    StartSituation enclosed = first;
    enclosed.saEnclosed = true;
    begins(enclosed, "#SAB3 #MDNL0 #SR #RECUT1 #SMREF");
    enclosed.firmware = Version("5.2");
    begins(enclosed, "#SAB3 #SR #RECUT1 #SMREF");
    second.saEnclosed = true;
    begins(second, "#SPA1 #SPB1 #SR");

    // Product in another band: every run begins alike, and the first one takes the powers along.
    StartSituation inter = first;
    inter.saEnclosed = true;
    inter.interBandPower = PowerSetting{"00400", "00405"};
    begins(inter, "#SAB3 #MDNL0 #SR*10 #SPA1 #SPB1 #SR #RECUT1 #SPWA00400 #SPWB00405 #SMREF");
    EXPECT_EQ(Text(StartOfTwoTone(inter), false),
              "#SAB3 #M2T1 #SR #RECUT1 #SMREF #SPWA00400 #SPWB00405 #SFA09350 #SFB09600 #IMP? ");
    inter.firstRun = false;
    inter.runIndex = 1;
    begins(inter, "#MDNL0 #SR*10 #SPA1 #SPB1 #SR");
}

TEST(StartCommands, TheBandIsNotSelectedAgainWithoutACommand) {
    const StartSituation at{.firmware = Version("6.2"), .band = BandEgsm, .plan = Egsm};
    EXPECT_EQ(Text(StartOfTwoTone(at), false), "#M2T1 #SR #RECUT1 #SMREF #SFA09350 #SFB09600 #IMP? ");
    const StartCommands commands = StartOfTwoTone(at);
    EXPECT_EQ(commands.back().tag, TagPrimeQueued) << "the first level only primes the receiver";
}

/// The band above the carriers looks for the upper product.
TEST(StartCommands, FirstStepOfAnUpperProduct) {
    const StartSituation at{
        .firmware = Version("6.2"), .band = BandLte700U, .plan = {746, 757, 746, 750, 757, 757, 750, 746}};
    EXPECT_EQ(StartOfSweep(at).back().param, 2 * 757.0f - 746.0f);
}

} // namespace qor::test
