// The instrument's memory byte by byte, its copy, and the copy brought back.
#include "desk/setup/path_loss.h"
#include "service/memory_file.h"
#include "support/service_rig.h"

namespace qor::test {
namespace {

using sim::FaultKind;

constexpr int Page = '}';

std::filesystem::path BackupIn(const Rig& rig) {
    for (const auto& entry : std::filesystem::directory_iterator(rig.dir.Path()))
        if (entry.path().filename().string().starts_with("memory-RT"))
            return entry.path();
    return {};
}

TEST(MemoryEditor, WritesAndReadsEveryValueAndConfirmsItByItsEcho) {
    ServiceRig rig;
    MemoryDesk& memory = rig.program.Service().Memory();
    for (const int value : {0, 10, 13, 35, 36, 127, 128, 255}) {
        ASSERT_TRUE(rig.Done(memory.Write({Page, value, 255 - value})));
        ASSERT_TRUE(rig.RunUntilFree());
        const std::vector<std::string> expected{std::string("$KVTWE}") + static_cast<char>(value) +
                                                static_cast<char>(255 - value)};
        EXPECT_EQ(rig.Said(expected[0]), expected);
        EXPECT_EQ(rig.Own(value), 255 - value);
        ASSERT_TRUE(rig.Done(memory.Read(Page, value)));
        EXPECT_FALSE(memory.EditorValue());
        ASSERT_TRUE(rig.RunUntilFree());
        EXPECT_EQ(memory.EditorValue(), 255 - value);
    }
    EXPECT_TRUE(rig.Told().empty());
    EXPECT_EQ(rig.Recorded(), std::pair(8, 0));
}

TEST(MemoryEditor, AsksThePageThatIsNamedAndDoesNothingOutsideItsRanges) {
    ServiceRig rig;
    MemoryDesk& memory = rig.program.Service().Memory();
    for (const MemoryCell& cell :
         {MemoryCell{128, 1, 1}, {-1, 1, 1}, {1, 256, 1}, {1, -1, 1}, {1, 1, 256}, {1, 1, -1}})
        EXPECT_FALSE(rig.Done(memory.Write(cell)));
    EXPECT_FALSE(rig.Done(memory.Read(128, 0)));
    rig.time.RunFor(1000);
    EXPECT_TRUE(rig.Sent().empty());
    // Page "d" is asked for, though the firmware's own page is another; nothing answers there.
    ASSERT_TRUE(rig.Done(memory.Read('d', 95)));
    ASSERT_TRUE(rig.RunUntilFree(3000));
    EXPECT_EQ(rig.Sent(), (std::vector<std::string>{"$KVTREd_"}));
    EXPECT_FALSE(memory.EditorValue());
    EXPECT_EQ(rig.S().factory.Status(), "Keine Antwort, Seite/Adresse: 100/95");
    EXPECT_EQ(rig.S().link.connection.Losses(), 0);
    EXPECT_TRUE(rig.Told().empty());
}

TEST(MemoryEditor, AWriteWithAnotherEchoOrNoneIsTold) {
    for (const FaultKind fault : {FaultKind::Silence, FaultKind::Garble, FaultKind::OutOfRange}) {
        ServiceRig rig;
        rig.line.Add({fault, rig.line.CommandCount()});
        ASSERT_TRUE(rig.Done(rig.program.Service().Memory().Write({Page, 5, 6})));
        ASSERT_TRUE(rig.RunUntilFree(3000));
        EXPECT_TRUE(rig.user.WasTold("Nicht bestaetigt, Seite/Adresse: 125/5"));
        EXPECT_EQ(rig.Recorded(), std::pair(1, 1));
    }
}

TEST(MemoryBackup, KeepsTheInstrumentsOwnPlacesOnceASession) {
    for (const char* firmware : {"4.9", "5.0", "6.2"}) {
        ServiceRig rig({.firmware = firmware});
        const auto file = ParseMemoryFile(FileText(BackupIn(rig)));
        ASSERT_TRUE(file) << firmware;
        EXPECT_EQ(file->model, "RT-DB22");
        EXPECT_EQ(file->cells.size(), 27U + 24 + 22);
        for (const auto& [place, value] : file->cells) {
            EXPECT_EQ(place.first, rig.instrument.Memory().OwnPage());
            EXPECT_EQ(value, rig.Own(place.second));
        }
        rig.Done(rig.program.Service().PressPage(ServicePage::Test));
        rig.Done(rig.program.Service().PressPage(ServicePage::Test));
        rig.time.RunFor(500);
        for (const std::string& sent : rig.Sent())
            EXPECT_FALSE(sent.starts_with("$KVTRE")) << firmware << sent;
    }
}

TEST(MemoryBackup, APlaceThatIsNotAnsweredEndsItsPage) {
    ServiceRig rig;
    std::vector<MemoryCell> places;
    for (int address = 0; address < 100; ++address) {
        places.push_back({14, address, 0});
        places.push_back({Page, address, 0});
    }
    bool done = false;
    const auto begun = rig.time.NowMs();
    rig.program.Service().Memory().BackUp(places, [&] { done = true; });
    ASSERT_TRUE(rig.time.RunUntil([&] { return done; }, 30000));
    EXPECT_LT(rig.time.NowMs() - begun, 10000) << "one wait, not a hundred";
    const auto file = ParseMemoryFile(FileText(BackupIn(rig)));
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->cells.contains({14, 0}));
    EXPECT_TRUE(file->cells.contains({Page, 99}));
}

/// A rig whose backup differs from the instrument in three places by now.
struct ChangedRig : ServiceRig {
    ChangedRig() {
        user.filesToOpen = {BackupIn(*this)};
        for (const int address : {100, 116, 210}) {
            was.push_back(Own(address));
            EXPECT_TRUE(Done(program.Service().Memory().Write({Page, address, 255 - Own(address)})));
            EXPECT_TRUE(RunUntilFree());
        }
        Sent();
        user.messages.clear();
    }
    std::vector<int> Now() { return {Own(100), Own(116), Own(210)}; }
    std::vector<int> was;
};

TEST(MemoryRestore, ShowsTheDifferencesWritesThemBackAndReadsThemOnceMore) {
    ChangedRig rig;
    ASSERT_TRUE(rig.Done(rig.program.Service().Memory().Restore()));
    ASSERT_TRUE(rig.RunUntilFree());
    ASSERT_EQ(rig.user.questions.size(), 1U);
    EXPECT_NE(rig.user.questions[0].find("125 100: 55 -> 200\n"), std::string::npos) << rig.user.questions[0];
    EXPECT_EQ(rig.Now(), rig.was);
    EXPECT_TRUE(rig.user.WasTold("Zurueckgeschrieben und geprueft: 3"));
    const auto sent = rig.Sent();
    EXPECT_EQ(std::count_if(sent.begin(), sent.end(), [](const auto& s) { return s.starts_with("$KVTWE"); }),
              3);
}

TEST(MemoryRestore, WritesNothingWithoutAYesAndAsksTwiceForAnotherInstrument) {
    ChangedRig rig;
    rig.user.answer = false;
    rig.Done(rig.program.Service().Memory().Restore());
    ASSERT_TRUE(rig.RunUntilFree());
    EXPECT_NE(rig.Now(), rig.was);

    auto file = *ParseMemoryFile(FileText(rig.user.filesToOpen[0]));
    file.serial = "OTHER";
    std::ofstream(rig.user.filesToOpen[0]) << MemoryFileText(file);
    rig.user.questions.clear();
    rig.user.whileAsked = [&] { rig.user.answer = rig.user.questions.size() == 1; };
    rig.Done(rig.program.Service().Memory().Restore());
    ASSERT_TRUE(rig.RunUntilFree());
    EXPECT_EQ(rig.user.questions.size(), 2U);
    EXPECT_NE(rig.user.questions[0].find("OTHER"), std::string::npos);
    EXPECT_NE(rig.Now(), rig.was);
    for (const std::string& sent : rig.Sent())
        EXPECT_FALSE(sent.starts_with("$KVTWE"));
}

TEST(MemoryRestore, IsEndedByAWriteThatIsNotConfirmedAndByALoss) {
    for (const FaultKind fault : {FaultKind::SyntaxError, FaultKind::Unplug}) {
        ChangedRig rig;
        rig.user.whileAsked = [&] { rig.line.Add({fault, rig.line.CommandCount() + 1}); };
        rig.Done(rig.program.Service().Memory().Restore());
        ASSERT_TRUE(rig.time.RunUntil([&] { return !rig.S().factory.IsBusy(); }, 30000));
        EXPECT_EQ(rig.Own(100), rig.was[0]);
        EXPECT_NE(rig.Own(210), rig.was[2]) << "nothing is written behind it";
        EXPECT_EQ(rig.Recorded(), std::pair(5, 1));
    }
}

TEST(MemoryFile, IsReadAsItIsWrittenAndRefusedWhenItIsDamaged) {
    MemoryFile file{
        "RT-K022", "SIM 01", "6.2", "2026-03-07 09:05:12", {{{125, 95}, 36}, {{14, 0}, 255}, {{0, 13}, 0}}};
    const std::string text = MemoryFileText(file);
    EXPECT_EQ(ParseMemoryFile(text), file);
    EXPECT_EQ(MemoryFileName(file), "memory-RT-K022-SIM_01-2026-03-07.txt");
    for (std::size_t end = 0; end + 1 < text.size(); ++end)
        EXPECT_FALSE(ParseMemoryFile(text.substr(0, end))) << end;
    for (const char* line : {"125 096 256\n", "125 096\n", "125 096 1 2\n", "x\n", "125 095 1\n", "-1 1 1\n"})
        EXPECT_FALSE(ParseMemoryFile(text + line)) << line;
}

TEST(RxLossFile, HoldsWhatFitsAndSaysWhatWillReadAsNothing) {
    ServiceRig rig;
    rig.user.fileToSave = rig.dir / "RxLoss.conf";
    std::array<std::string, 13> typed;
    typed.fill("0");
    typed[0] = "2.5";
    typed[1] = "-1.5";
    typed[12] = "10";
    std::vector<std::size_t> wrong;
    EXPECT_TRUE(rig.Done(CreateRxLossFile(typed, wrong, rig.Parts(), rig.Store())));
    const std::string text = FileText(rig.dir / "RxLoss.conf");
    EXPECT_EQ(text.substr(0, 15), "002.5-01.5000.0");
    EXPECT_EQ(text.substr(60), "010.0");
    EXPECT_TRUE(rig.user.WasTold("zaehlt als 0: TD-SCDMA-C"));
    typed[3] = "1000";
    typed[4] = "abc";
    typed[5] = "-100";
    EXPECT_FALSE(rig.Done(CreateRxLossFile(typed, wrong, rig.Parts(), rig.Store())));
    EXPECT_EQ(wrong, (std::vector<std::size_t>{3, 4, 5}));
    EXPECT_EQ(FileText(rig.dir / "RxLoss.conf"), text);
}

} // namespace
} // namespace qor::test
