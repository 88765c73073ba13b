// The hardware initialisation: every type and firmware against transcripts that were typed from its
// description, and what becomes of it when the line, the operator or the instrument does not play along.
#include "service/hardware_init.h"
#include "support/service_rig.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace qor::test {
namespace {

using sim::FaultKind;

struct Transcript {
    std::string firmware;
    bool bridge = false;
    HardInitFields fields;
    std::vector<std::string> commands;
};

std::vector<Transcript> Transcripts() {
    std::ifstream in(QOR_TEST_TRANSCRIPTS);
    std::vector<Transcript> all;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with('#'))
            continue;
        Transcript t;
        std::string boxes;
        std::string word;
        std::istringstream words(line);
        HardInitFields& f = t.fields;
        words >> f.type >> t.firmware >> t.bridge >> boxes >> f.lowerDbm >> f.upperDbm >> f.twoToneSeconds >>
            f.sweepDelay >> f.gaugeDelay >> f.serial >> word;
        std::istringstream names(boxes);
        for (std::string name; std::getline(names, name, '+');)
            f.bands.insert(static_cast<BandBox>(std::find(BandBoxNames.begin(), BandBoxNames.end(), name) -
                                                BandBoxNames.begin()));
        while (words >> word)
            t.commands.push_back(Bytes(word));
        all.push_back(t);
    }
    return all;
}

HardInitFields Db22() {
    HardInitFields fields;
    fields.type = 1;
    fields.bands = {BandBox::Egsm};
    fields.serial = 4660;
    fields.sweepDelay = 127;
    fields.levelDetector = fields.paErrorCheck = true;
    return fields;
}

/// Until the writing is over, one way or the other; the re-power question comes later.
void RunUntilWritten(ServiceRig& rig) {
    rig.time.RunUntil(
        [&] { return !rig.S().factory.IsBusy() || rig.S().factory.Status() == "Initialize finished."; },
        60000);
}

TEST(HardwareInit, EveryTypeAndFirmwareIsWrittenAsItsTranscriptHasIt) {
    const auto transcripts = Transcripts();
    ASSERT_GT(transcripts.size(), 200U);
    for (const Transcript& t : transcripts) {
        const float firmware = std::stof(t.firmware) - 1e-4f; // as a banner gives it
        std::vector<std::string> commands;
        for (const auto& command : HardInitCommands(t.fields, firmware, t.bridge))
            commands.push_back(command.text + command.payload);
        const std::vector<std::string> expected(t.commands.begin(), t.commands.end() - 1);
        EXPECT_EQ(commands, expected) << t.firmware << " type " << t.fields.type;
    }
}

TEST(HardwareInit, GoesOutAsTheTranscriptHasItWithTheOptionByteBehind) {
    int n = 0;
    for (const Transcript& t : Transcripts()) {
        if (n++ % 12 != 0)
            continue;
        SCOPED_TRACE(t.firmware + " type " + std::to_string(t.fields.type));
        ServiceRig rig({.firmware = t.firmware});
        rig.user.whileAsked = [&] {
            if (rig.user.questions.back().starts_with("Is the equipment"))
                rig.user.answer = t.bridge;
            else
                rig.user.answer = true;
        };
        const int option = rig.Own(95);
        HardInitFields fields = t.fields;
        fields.switchMatrix = true;
        ASSERT_TRUE(rig.program.Service().Hardware().Initialise(fields).outcome);
        RunUntilWritten(rig);
        auto expected = t.commands;
        const char page = t.commands.back()[6];
        const auto type = rig.Own(95) & 7;
        const int option2 = (option & ~0x67) | type | 0x10 | 0x40;
        expected.push_back(std::string("$KVTWE") + page + '_' + static_cast<char>(option2));
        EXPECT_EQ(rig.Said("#BDT0"), expected);
        EXPECT_TRUE(rig.user.WasTold("Initialization finished. \r\nRe-power your equipment."));
        EXPECT_EQ(rig.Own(95), option2);
        EXPECT_EQ(rig.Own('d'), t.fields.lowerDbm * 10 % 256);
    }
}

TEST(HardwareInit, IsShownBeforeItIsWrittenAndNothingIsWrittenAfterANo) {
    ServiceRig rig;
    HardInitFields fields = Db22();
    rig.user.whileAsked = [&] { rig.user.answer = rig.user.questions.size() < 2; };
    ASSERT_TRUE(rig.program.Service().Hardware().Initialise(fields).outcome);
    ASSERT_TRUE(rig.RunUntilFree());
    ASSERT_EQ(rig.user.questions.size(), 2U);
    EXPECT_EQ(rig.user.questions[0], "Is the equipment based on 3-dB bridge?");
    const std::string& preview = rig.user.questions[1];
    for (const char* line :
         {"#BDT0\n#KVTPD4\n#SAB3\n#BDT1\n#KVTPA0\n#2TTIM05\n", "$KVTWE}x 12    120: 0 -> 18\n",
          "$KVTWE}t 7F    116: 0 -> 127\n", "$KVTWE}_", "200 bis 210"})
        EXPECT_NE(preview.find(line), std::string::npos) << line << preview;
    EXPECT_TRUE(rig.Said("#BDT0").empty());
    EXPECT_FALSE(std::filesystem::exists(rig.dir / "memory-record.csv"));
}

TEST(HardwareInit, TheSweepDelayLosesItsLowestBitWithoutABridge) {
    HardInitFields fields = Db22();
    EXPECT_EQ(HardInitCommands(fields, 6.2f, false).back().text.back(), 126);
    EXPECT_EQ(HardInitCommands(fields, 6.2f, true).back().text.back(), 127);
}

TEST(HardwareInit, RefusesInOrderAndMarksWhatItRefusesSilently) {
    struct Row {
        std::function<void(HardInitFields&)> change;
        std::string text;
        std::optional<HardInitField> wrong;
    };
    const Row rows[] = {
        {[](auto& f) { f.bands.clear(), f.type = -1; }, "Auswaehlen Breite", {}},
        {[](auto& f) { f.type = -1, f.gaugeDelay = 9999; }, "Falsch, dichtesortierung.", {}},
        {[](auto& f) { f.lowerDbm = 47; }, "Falsch, dichtesortierung.", {}},
        {[](auto& f) { f.gaugeDelay = 1271, f.twoToneSeconds = 0; }, {}, HardInitField::GaugeDelay},
        {[](auto& f) { f.twoToneSeconds = 0, f.lowerDbm = 19; }, {}, HardInitField::TwoToneTime},
        {[](auto& f) { f.twoToneSeconds = 31; }, {}, HardInitField::TwoToneTime},
        {[](auto& f) { f.lowerDbm = 19, f.upperDbm = 48; }, {}, HardInitField::Lower},
        {[](auto& f) { f.upperDbm = 48, f.sweepDelay = 128; }, {}, HardInitField::Upper},
        {[](auto& f) { f.sweepDelay = 128; }, {}, HardInitField::SweepDelay},
    };
    for (const Row& row : rows) {
        HardInitFields fields = Db22();
        row.change(fields);
        const HardInitCheck check = CheckHardInit(fields);
        EXPECT_FALSE(check.outcome);
        EXPECT_EQ(check.outcome.Text(), row.text);
        EXPECT_EQ(check.wrong, row.wrong) << row.text;
    }
    HardInitFields edge = Db22();
    edge.gaugeDelay = 1270, edge.twoToneSeconds = 30, edge.lowerDbm = edge.upperDbm = 47, edge.serial = 70000;
    EXPECT_TRUE(CheckHardInit(edge).outcome);
    EXPECT_EQ(edge.serial, 65535);
}

TEST(HardwareInit, AWriteThatIsNotConfirmedEndsItAndIsNamed) {
    for (const FaultKind fault :
         {FaultKind::Garble, FaultKind::Silence, FaultKind::SyntaxError, FaultKind::EarlyEnd}) {
        for (const int step : {0, 3, 7, 12, 15, 16}) { // of the 17 that are said
            if (fault == FaultKind::Garble && step == 15)
                continue; // a value that is read has nothing that tells a spoilt one
            SCOPED_TRACE("fault " + std::to_string(static_cast<int>(fault)) + " at " + std::to_string(step));
            ServiceRig rig;
            HardInitFields fields = Db22();
            rig.user.whileAsked = [&] {
                if (rig.user.questions.size() == 2)
                    rig.line.Add({fault, rig.line.CommandCount() + step});
            };
            ASSERT_TRUE(rig.program.Service().Hardware().Initialise(fields).outcome);
            ASSERT_TRUE(rig.RunUntilFree());
            const auto said = rig.Said("#BDT0");
            ASSERT_EQ(static_cast<int>(said.size()), step + 1) << "nothing more is written";
            const bool isRead = said.back().starts_with("$KVTRE");
            const bool isWrite = said.back().starts_with("$KVTWE");
            const std::string where = isWrite ? "Nicht bestaetigt, Seite/Adresse: 125/" +
                                                    std::to_string(static_cast<int>(said.back()[7]))
                                      : isRead ? "Keine Antwort, Seite/Adresse: 125/95"
                                               : "Nicht bestaetigt: " + said.back();
            EXPECT_TRUE(rig.user.WasTold(where)) << where;
            EXPECT_FALSE(rig.user.WasTold("Initialization finished"));
            const int writes = static_cast<int>(std::count_if(
                said.begin(), said.end(), [](const std::string& s) { return s.starts_with("$KVTWE"); }));
            EXPECT_EQ(rig.Recorded(), std::pair(writes, isWrite ? 1 : 0));
        }
    }
}

TEST(HardwareInit, UnpluggedOrLeftWithinItKeepsATrueRecordAndThePageCanBeUsedAgain) {
    for (const bool leaves : {false, true}) {
        for (const int step : {0, 8, 16}) {
            SCOPED_TRACE(step);
            ServiceRig rig;
            HardInitFields fields = Db22();
            int from = 0;
            rig.user.whileAsked = [&] {
                from = rig.line.CommandCount();
                if (rig.user.questions.size() == 2 && !leaves)
                    rig.line.Add({FaultKind::Unplug, from + step});
            };
            ASSERT_TRUE(rig.program.Service().Hardware().Initialise(fields).outcome);
            rig.time.RunUntil([&] { return from != 0 && rig.line.CommandCount() > from + step; }, 30000);
            if (leaves)
                rig.Done(rig.program.Service().PressPage(ServicePage::Test));
            else
                rig.time.RunFor(4000);
            EXPECT_FALSE(rig.S().factory.IsBusy());
            const int recorded = rig.Recorded().first;
            const auto said = rig.Said("#BDT0");
            EXPECT_EQ(recorded, std::count_if(said.begin(), said.end(),
                                              [](const std::string& s) { return s.starts_with("$KVTWE"); }));
        }
    }
}

TEST(HardwareInit, AsksForTheRepowerUntilItIsDoneAndReadsTheIdentityAnew) {
    ServiceRig rig({.model = "RT-DA10", .firmware = "6.1"});
    HardInitFields fields = Db22();
    fields.type = 2;
    fields.bands = {BandBox::Dcs};
    int asked = 0;
    rig.user.whileAsked = [&] {
        if (rig.user.questions.back().starts_with("Do you have Re-powered"))
            rig.user.answer = ++asked == 3;
    };
    ASSERT_TRUE(rig.program.Service().Hardware().Initialise(fields).outcome);
    RunUntilWritten(rig);
    const auto begun = rig.time.NowMs();
    rig.Sent();
    EXPECT_TRUE(rig.time.RunUntil([&] { return asked == 3; }, 20000));
    EXPECT_GE(rig.time.NowMs() - begun, 6000);
    EXPECT_TRUE(rig.Sent().empty()) << "nothing is said to an instrument that has no power";
    rig.instrument.Repower();
    rig.time.RunFor(3000);
    rig.RunUntilReady();
    EXPECT_EQ(rig.S().link.identity.Model(), "RT-K022");
    EXPECT_FALSE(rig.S().factory.IsBusy());
}

} // namespace
} // namespace qor::test
