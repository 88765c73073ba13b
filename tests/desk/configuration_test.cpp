#include "desk/configuration.h"
#include "desk/restore.h"
#include "support/full_disk.h"
#include "support/rig.h"

namespace qor::test {

namespace {

namespace fs = std::filesystem;

/// A station with its stores and a folder of its own for pointer files.
struct Station {
    explicit Station(const fs::path& pointer) {
        rig.user.fileToSave = pointer;
        rig.user.filesToOpen = {pointer};
    }
    bool Save() { return rig.Done(SaveConfiguration(rig.program.Stores(), rig.program.Parts())); }
    /// True when the program is to be started anew.
    bool Load() {
        bool restart = false;
        rig.Done(LoadConfiguration(rig.program.Stores(), rig.program.Parts(), restart));
        return restart;
    }
    void Write(const char* name, std::string_view text) { rig.program.Stores().Write(name, text); }
    std::string Text(const char* name) { return FileText(rig.dir / name); }
    /// All files below the stores, for comparing before and after.
    std::vector<std::string> Files() {
        std::vector<std::string> all;
        for (const auto& entry : fs::recursive_directory_iterator(rig.dir.Path()))
            if (entry.is_regular_file())
                all.push_back(entry.path().lexically_relative(rig.dir.Path()).string() + "=" +
                              FileText(entry.path()));
        std::sort(all.begin(), all.end());
        return all;
    }
    Rig rig;
};

} // namespace

TEST(Configuration, IsSavedAndComesBackHereAndElsewhere) {
    const TempDir stick;
    Station here(stick / "a.conf");
    here.Write("unit.ccz", "1");
    here.Write("egsm_pow_setup.ccz", "0040000405");
    here.Write("loss.conf", "  1.0");
    here.Write("loss.txt", "no store");
    here.Write("pin.ccz", "secret");
    fs::permissions(here.rig.dir / "pin.ccz", fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_TRUE(here.Save());
    EXPECT_EQ(FileText(stick / "a.conf"), ":\\QOR\\20260307090512\\");
    EXPECT_EQ(here.Text("20260307090512/contents.txt"),
              "10 egsm_pow_setup.ccz\n5 loss.conf\n6 pin.ccz\n1 unit.ccz\n");

    here.Write("unit.ccz", "0");
    here.Write("later.ccz", "stays");
    here.rig.program.Stores().Remove("pin.ccz");
    fs::permissions(here.rig.dir / "20260307090512" / "pin.ccz", fs::perms::others_read,
                    fs::perm_options::add);
    fs::permissions(here.rig.dir / "20260307090512" / "unit.ccz", fs::perms::owner_read);
    here.rig.program.Stores().Remove("unit.ccz");
    constexpr fs::perms Private = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(here.rig.dir / "egsm_pow_setup.ccz", Private);
    EXPECT_TRUE(here.Load());
    EXPECT_EQ(here.Text("unit.ccz") + here.Text("pin.ccz") + here.Text("later.ccz"), "1secretstays");
    for (const char* store : {"pin.ccz", "egsm_pow_setup.ccz"})
        EXPECT_EQ(fs::status(here.rig.dir / store).permissions(), Private) << store;
    EXPECT_NE(fs::status(here.rig.dir / "unit.ccz").permissions() & fs::perms::owner_write, fs::perms::none)
        << "saved on a medium that is only read";
    EXPECT_EQ(here.rig.Told(), std::vector<std::string>{
                                   "Diese Ablagen kennt die Konfiguration nicht, sie bleiben:\nlater.ccz"});

    // The folder is carried to another station together with its pointer.
    fs::copy(here.rig.dir / "20260307090512", stick / "20260307090512");
    Station there(stick / "a.conf");
    there.Write("unit.ccz", "0");
    EXPECT_TRUE(there.Load());
    EXPECT_EQ(there.Text("unit.ccz") + there.Text("egsm_pow_setup.ccz"), "10040000405");
}

TEST(Configuration, OfAStationWithoutStores) {
    const TempDir stick;
    Station station(stick / "a.conf");
    ASSERT_TRUE(station.Save());
    EXPECT_EQ(station.Text("20260307090512/contents.txt"), "");
    station.Write("unit.ccz", "1");
    EXPECT_TRUE(station.Load());
    EXPECT_EQ(station.Text("unit.ccz"), "1");
    EXPECT_TRUE(station.rig.user.WasTold("sie bleiben:\nunit.ccz"));
}

TEST(Configuration, APointerTakesNoStoresPlace) {
    Station station({});
    station.Write("loss.conf", "table");
    fs::create_symlink(station.rig.dir / "loss.conf", station.rig.dir / "a.conf");
    for (const char* name : {"loss.conf", "a.conf", "unit.ccz", "qor.ini", "new/../AlarmUp.ccz"}) {
        station.rig.user.fileToSave = station.rig.dir / name;
        EXPECT_FALSE(station.Save()) << name;
        EXPECT_TRUE(station.rig.user.WasTold("is a store of the program")) << name;
    }
    EXPECT_EQ(station.Text("loss.conf"), "table");
    station.rig.user.fileToSave = station.rig.dir / "mine.conf";
    EXPECT_TRUE(station.Save());
}

/// Wherever the program dies while stores are put back, and again while that is taken back: the next start
/// finds all of the old ones or all of the new ones.
TEST(Configuration, ARestoreThatIsCutShortIsTakenBack) {
    const std::vector<ConfigurationFile> files = {{"a.ccz", 5}, {"c.ccz", 5}, {"20260101000000/b.ccz", 5}};
    const auto dies = [](const std::vector<FileStep>& steps, std::size_t after) {
        return after < steps.size() &&
               RunSteps({steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(after)}).empty();
    };
    const auto run = [&](std::size_t first, std::optional<std::size_t> second, std::string& found) {
        const TempDir dir;
        fs::create_directories(dir / "20260101000000");
        std::ofstream(dir / "a.ccz") << "old a";
        std::ofstream(dir / "20260101000000/b.ccz") << "old b";
        for (const ConfigurationFile& file : files) {
            fs::create_directories((FreshFolder(dir.Path()) / file.name).parent_path());
            std::ofstream(FreshFolder(dir.Path()) / file.name)
                << "new " + file.name.substr(file.name.size() - 5, 1);
        }
        bool went = dies(RestoreSteps(files, dir.Path()), first);
        if (went && second)
            went = dies(TakeBackSteps(dir.Path()), *second);
        const bool begun = fs::exists(dir / "restore.part" / "journal");
        VirtualTime time;
        ScriptedOperator user;
        OnePort ports;
        DeadLine line;
        Program program({line, ports, time.timers, time.clock, user}, dir.Path());
        EXPECT_FALSE(fs::exists(FreshFolder(dir.Path()).parent_path()));
        found = FileText(dir / "a.ccz") + FileText(dir / "20260101000000/b.ccz") + FileText(dir / "c.ccz");
        program.Start(true);
        EXPECT_EQ(user.WasTold("unterbrochene Wiederherstellung"), begun) << first;
        return went;
    };
    std::string found;
    std::size_t first = 0;
    for (; run(first, std::nullopt, found); ++first) {
        EXPECT_TRUE(found == "old aold b" || found == "new anew bnew c") << found << " after " << first;
        EXPECT_EQ(found == "old aold b", first < 7) << first;
        for (std::size_t second = 0; run(first, second, found); ++second)
            EXPECT_EQ(found == "old aold b", first < 7) << first << ", " << second;
    }
    EXPECT_EQ(first, 8U) << "the journal, two files that replace, one that does not, the end of both";
}

TEST(Configuration, EarlierSavesComeAlongOnce) {
    const TempDir stick;
    Station station(stick / "a.conf");
    station.rig.user.answer = true; // replace the pointer
    for (const int second : {1, 2, 3, 3}) {
        station.rig.time.clock.second = second;
        station.Write("unit.ccz", std::to_string(second));
        ASSERT_TRUE(station.Save());
    }
    EXPECT_EQ(station.rig.user.questions.size(), 3U);
    EXPECT_EQ(station.Text("20260307090503/contents.txt"),
              "1 20260307090501/unit.ccz\n1 20260307090502/unit.ccz\n1 unit.ccz\n");
    EXPECT_EQ(station.Files().size(), 10U) << "1 + 2 + 2 + 1 copies, 3 contents, the store";
    fs::remove_all(station.rig.dir / "20260307090501");
    EXPECT_TRUE(station.Load());
    EXPECT_EQ(station.Text("20260307090501/unit.ccz"), "1");
}

TEST(Configuration, NothingIsRestoredByHalves) {
    const TempDir stick;
    Station station(stick / "a.conf");
    station.Write("a.ccz", "old a");
    station.Write("b.ccz", "old b");
    ASSERT_TRUE(station.Save());
    station.Write("a.ccz", "new a");
    station.Write("b.ccz", "new b");
    const auto folder = station.rig.dir / "20260307090512";
    const auto refused = [&](const char* because) {
        station.rig.user.messages.clear();
        const auto before = station.Files();
        EXPECT_FALSE(station.Load()) << because;
        EXPECT_EQ(station.Files(), before) << because;
        EXPECT_TRUE(station.rig.user.WasTold(because)) << because;
    };
    fs::rename(folder / "a.ccz", folder / "a");
    refused("\na.ccz");
    fs::rename(folder / "a", folder / "a.ccz");
    fs::resize_file(folder / "b.ccz", 2);
    refused("\nb.ccz");
    std::ofstream(folder / "b.ccz") << "old b";
    std::ofstream(folder / "contents.txt") << "5 a.ccz\n5 ../b.ccz\n";
    refused("contents.txt");
    std::ofstream(folder / "contents.txt") << "5 a.ccz\n5 b.ccz\n5 a.ccz\n";
    refused("contents.txt");
    std::ofstream(folder / "contents.txt") << "5 a.ccz\n5 b.ccz\n";
    // A place that is taken by something else: the stores before it are taken back.
    std::ofstream(folder / "c.ccz") << "c";
    std::ofstream(folder / "d.ccz") << "d";
    std::ofstream(folder / "contents.txt") << "5 a.ccz\n1 c.ccz\n1 d.ccz\n";
    fs::create_directory(station.rig.dir / "d.ccz");
    refused("is a folder");
    fs::remove(station.rig.dir / "d.ccz");
    {
        std::ofstream(folder / "big.ccz") << std::string(5000, 'x');
        std::ofstream(folder / "contents.txt") << "5 a.ccz\n5000 big.ccz\n";
        const FullDisk full;
        refused("restore.part");
    }
    std::ofstream(folder / "contents.txt") << "5 a.ccz\n5 b.ccz\n";
    station.rig.user.messages.clear();
    station.rig.user.cancelAt = 1;
    const auto before = station.Files();
    EXPECT_FALSE(station.Load());
    EXPECT_EQ(station.Files(), before);
    station.rig.user.cancelAt = 1 << 30;
    fs::remove(folder / "contents.txt"); // as other stations save
    EXPECT_TRUE(station.Load());
    EXPECT_EQ(station.Text("a.ccz") + station.Text("b.ccz"), "old aold b");

    fs::remove_all(folder);
    EXPECT_TRUE(station.Load()) << "begins anew all the same";
    EXPECT_TRUE(station.rig.user.WasTold("the folder does not exist"));
    std::ofstream(stick / "a.conf") << "#!/bin/sh";
    refused("not a saved configuration");
    fs::remove(stick / "a.conf");
    refused("cannot be read");
    station.rig.user.filesToOpen.clear();
    EXPECT_FALSE(station.Load());
}

TEST(Configuration, AFailedOrCancelledSaveLeavesNothing) {
    const TempDir stick;
    Station station(stick / "missing" / "a.conf");
    station.Write("a.ccz", std::string(5000, 'a'));
    station.Write("b.ccz", "b");
    const auto before = station.Files();
    EXPECT_FALSE(station.Save());
    station.rig.user.fileToSave = stick / "a.conf";
    {
        const FullDisk full;
        EXPECT_FALSE(station.Save());
    }
    EXPECT_EQ(station.rig.user.messages.size(), 2U);
    for (const std::string& message : station.rig.user.messages)
        EXPECT_EQ(message.find("failed to save config file!"), 0U) << message;
    station.rig.user.cancelAt = 1;
    EXPECT_FALSE(station.Save());
    station.rig.user.fileToSave.clear();
    EXPECT_FALSE(station.Save());
    EXPECT_EQ(station.rig.user.messages.size(), 2U);
    EXPECT_EQ(station.Files(), before);
    EXPECT_TRUE(fs::is_empty(stick.Path()));
}

TEST(Configuration, TextsFromOutside) {
    EXPECT_EQ(ConfigurationFolder(":\\QOR\\20260307090512\\"), "20260307090512");
    EXPECT_EQ(ConfigurationFolder("D:\\QOR\\20260307090512\\ \r\nmore"), "20260307090512");
    EXPECT_EQ(ConfigurationFolder(":\\QOR\\20260307090512"), "20260307090512");
    for (const char* text : {"", ":\\QOR\\", ":\\QOR\\..\\", "CD:\\QOR\\20260307090512\\", "20260307090512",
                             ":\\QOR\\2026030709051/\\", ":\\QOR\\20260307090512\\..\\"})
        EXPECT_FALSE(ConfigurationFolder(text)) << text;
    ASSERT_TRUE(ParseContents("0 a b.ccz\n7 20260307090512/loss.ccz\n5 loss.conf\n"));
    for (const char* text :
         {"5 a.ccz", "5a.ccz\n", " 5 a.ccz\n", "5 \n", "5 a.txt\n", "5 /a.ccz\n", "5 ../a.ccz\n",
          "5 b/../../a.ccz\n", "5 ./a.ccz\n", "5 b\\..\\a.ccz\n", "99999999999999999999 a.ccz\n",
          "-1 a.ccz\n", "5 b/loss.conf\n", "5 a.ccz\n5 a.ccz\n"})
        EXPECT_FALSE(ParseContents(text)) << text;
}

/// The program ends as with the exit button and is started anew.
TEST(Configuration, TheProgramStartsAnewInOrder) {
    NotedLauncher starter;
    Rig rig({}, nullptr, nullptr, nullptr, &starter);
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    int code = 0;
    rig.program.SetQuit([&code](int exitCode) { code = exitCode; });
    rig.program.OnMeasButton();
    EXPECT_FALSE(rig.program.Restart(true));
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    rig.Sent();
    starter.Start("tool");
    EXPECT_TRUE(rig.program.Restart(true));
    rig.time.RunFor(3000);
    EXPECT_EQ(code, 16);
    EXPECT_EQ(rig.Sent(), (std::vector<std::string>{"#SPB0", "#SPA0"}));
    EXPECT_EQ(starter.restarts, std::vector<bool>{true});
    EXPECT_EQ(starter.closed, 1U) << "the tool goes with the program";
    EXPECT_TRUE(rig.user.questions.empty());
    Rig alone;
    EXPECT_FALSE(alone.program.Restart(true));
}

} // namespace qor::test
