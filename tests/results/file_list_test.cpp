#include "bands/setup_store.h"
#include "results/file_list.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

TEST(FileList, ANumberedFileGoesToTheFolderOfItsKind) {
    const test::TempDir dir;
    const SetupStore store(dir.Path());
    ResultState results;
    results.g_FileNo = 12;
    EXPECT_EQ(NumberedFile(results, true, store), dir / "12.dat");
    results.g_autoSavePath = "/data/series/first.dat";
    EXPECT_EQ(NumberedFile(results, true, store), "/data/series/12.dat");
    results.g_autoSaveFolder = "/data/auto";
    results.g_autoSaveName = "cable";
    EXPECT_EQ(NumberedFile(results, true, store), "/data/auto/cable12.dat");
    EXPECT_EQ(NumberedFile(results, false, store), dir / "12.dat");
}

TEST(FileList, TheRowsFollowTheNewestFileAndTheListWraps) {
    ResultState results;
    for (int file = 0; file < 6; ++file)
        AddToFileList(results);
    EXPECT_TRUE(results.g_listPanelOpen);
    EXPECT_EQ(results.g_FileShown, 6);
    EXPECT_EQ(results.g_FileFirst, 0);
    EXPECT_EQ(results.m_FileRow.front(), "0.dat");
    EXPECT_EQ(results.m_FileRow.back(), "");
    for (int file = 6; file < 2048; ++file)
        AddToFileList(results);
    EXPECT_EQ(results.g_FileFirst, 2041);
    EXPECT_EQ(results.g_FileLast, 2047);
    EXPECT_EQ(results.m_FileRow.back(), "2047.dat");
    EXPECT_EQ(results.g_FileNo, 0);
    AddToFileList(results);
    EXPECT_EQ(results.g_FileShown, 1);
    EXPECT_EQ(results.m_FileRow.front(), "0.dat");
}

} // namespace
} // namespace qor
