#include "results/atomic_write.h"
#include "support/temp_dir.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

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

TEST(AtomicWrite, AWriteThatBreaksOffLeavesThePreviousFileWhole) {
    const TempDir dir;
    ASSERT_EQ(WriteAtomically(dir / "run.dat", "previous"), "");

    // A full disk, played by the limit on the length of a file.
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{4096, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string problem = WriteAtomically(dir / "run.dat", std::string(10000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);

    EXPECT_EQ(problem, (dir / "run.dat").string() + ": File too large");
    EXPECT_EQ(FileText(dir / "run.dat"), "previous");
    EXPECT_EQ(Entries(dir), 1U);
}

} // namespace
} // namespace qor
