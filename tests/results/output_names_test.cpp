#include "results/output_names.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

using Paths = std::vector<std::filesystem::path>;

TEST(OutputNames, NothingFallsOnAnotherOrOnAnInput) {
    EXPECT_EQ(OutputNames({"/a/1.dat", "/a/b.c.xls"}, {}, ".pdf"), (Paths{"/a/1.pdf", "/a/b.c.pdf"}));
    EXPECT_EQ(OutputNames({"/a/1.dat", "/a/1.txt", "/a/2.dat"}, "/out", ".pdf"),
              (Paths{"/out/1.dat.pdf", "/out/1.txt.pdf", "/out/2.pdf"}));
    EXPECT_EQ(OutputNames({"/a/1.txt", "/a/2.dat", "/a/2.txt"}, {}, ".txt"),
              (Paths{"/a/1.txt.txt", "/a/2.dat.txt", "/a/2.txt.txt"}));
    EXPECT_EQ(OutputNames({"/a/1.dat", "/b/1.dat", "/c/1.dat"}, "/out", ".csv"),
              (Paths{"/out/1.dat.csv", "/out/1.dat_2.csv", "/out/1.dat_3.csv"}));
    EXPECT_EQ(OutputNames({"/a/abcd", "/a/1.da"}, {}, ".jpg"), (Paths{"/a/abcd.jpg", "/a/1.da.jpg"}));
    EXPECT_EQ(OutputNames({"1.dat"}, "", ".pdf"), (Paths{"1.pdf"}));
    const test::TempDir dir; // an input by another way than its output
    std::filesystem::create_directory(dir.Path() / "real");
    std::filesystem::create_directory_symlink(dir.Path() / "real", dir.Path() / "link");
    EXPECT_EQ(OutputNames({dir.Path() / "link" / "1.txt"}, dir.Path() / "real", ".txt"),
              Paths{dir.Path() / "real" / "1.txt.txt"});
}

} // namespace
} // namespace qor
