#include "base/atomic_write.h"
#include "support/full_disk.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

using test::FileText;
using test::TempDir;

std::size_t Entries(const TempDir& dir) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(dir.Path()), {}));
}

TEST(AtomicWrite, ReplacesTheFileAndLeavesNothingBeside) {
    const TempDir dir;
    const std::string bytes("up\0\r\ndown", 9);
    EXPECT_EQ(WriteAtomically(dir / "run.dat", "a longer text that was there before"), "");
    EXPECT_EQ(WriteAtomically(dir / "run.dat", bytes), "");
    EXPECT_EQ(FileText(dir / "run.dat"), bytes);
    EXPECT_EQ(Entries(dir), 1U);
    EXPECT_EQ(WriteAtomically(dir / "run.dat", ""), "");
    EXPECT_EQ(FileText(dir / "run.dat"), "");
}

TEST(AtomicWrite, SaysWhyAndKeepsThePreviousFile) {
    const TempDir dir;
    EXPECT_EQ(WriteAtomically(dir / "no/run.dat", "x"),
              (dir / "no/run.dat").string() + ": No such file or directory");

    std::filesystem::create_directory(dir / "folder");
    std::filesystem::create_symlink("/dev/null", dir / "device.dat");
    for (const char* name : {"folder", "device.dat"})
        EXPECT_EQ(WriteAtomically(dir / name, "x"), (dir / name).string() + ": not a regular file");
    EXPECT_TRUE(std::filesystem::is_symlink(dir / "device.dat"));
    EXPECT_EQ(Entries(dir), 2U);
}

TEST(AtomicWrite, AReplacedFileKeepsItsPlaceAndItsAccess) {
    namespace fs = std::filesystem;
    const TempDir dir;
    const auto access = [&dir](const char* name) { return fs::status(dir / name).permissions(); };
    ASSERT_EQ(WriteAtomically(dir / "run.dat", "previous"), "");
    fs::permissions(dir / "run.dat", fs::perms(0640));
    EXPECT_EQ(WriteAtomically(dir / "run.dat", "next"), "");
    EXPECT_EQ(access("run.dat"), fs::perms(0640));
    EXPECT_EQ(WriteAtomically(dir / "run.dat", "secret", 0600), "");
    EXPECT_EQ(access("run.dat"), fs::perms(0600));

    fs::create_directory(dir / "series");
    fs::create_symlink("series/1.dat", dir / "last.dat");
    for (const char* bytes : {"first", "again"}) {
        EXPECT_EQ(WriteAtomically(dir / "last.dat", bytes), "");
        EXPECT_TRUE(fs::is_symlink(dir / "last.dat"));
        EXPECT_EQ(FileText(dir / "series/1.dat"), bytes);
    }
    fs::create_symlink("circle.dat", dir / "circle.dat");
    EXPECT_NE(WriteAtomically(dir / "circle.dat", "x"), "");

    fs::permissions(dir / "run.dat", fs::perms(0444));
    EXPECT_EQ(WriteAtomically(dir / "run.dat", "x"), (dir / "run.dat").string() + ": Permission denied");
    EXPECT_EQ(FileText(dir / "run.dat"), "secret");
    fs::permissions(dir / "run.dat", fs::perms(0644));

    const std::string longest = std::string(251, 'n') + ".dat";
    EXPECT_EQ(WriteAtomically(dir / longest, "x"), "");
    EXPECT_EQ(FileText(dir / longest), "x");
    EXPECT_NE(WriteAtomically(dir / ("n" + longest), "x"), "") << "longer than a directory takes";
    EXPECT_EQ(Entries(dir), 5U) << "and nothing stays behind";
}

TEST(AtomicWrite, AWriteThatBreaksOffLeavesThePreviousFileWhole) {
    const TempDir dir;
    ASSERT_EQ(WriteAtomically(dir / "run.dat", "previous"), "");

    {
        const test::FullDisk full(4096);
        EXPECT_EQ(WriteAtomically(dir / "run.dat", std::string(10000, 'x')),
                  (dir / "run.dat").string() + ": File too large");
    }
    EXPECT_EQ(FileText(dir / "run.dat"), "previous");
    EXPECT_EQ(Entries(dir), 1U);
}

} // namespace
} // namespace qor
