#include "results/sheet/biff8_reader.h"
#include "results/sheet/compound_file.h"
#include "results/sheet/spread_sheet.h"
#include "support/temp_dir.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace qor {
namespace {

SheetRows RowsOf(CSpreadSheet& sheet) {
    SheetRows rows;
    SheetCells cells;
    for (std::size_t row = 1; sheet.ReadRow(cells, row); ++row)
        rows.push_back(cells);
    return rows;
}

std::string TextOf(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

Workbook BookIn(const std::filesystem::path& path) {
    Workbook book;
    EXPECT_TRUE(ReadBiff8(ReadCompoundStream(TextOf(path), "Workbook").bytes, book));
    return book;
}

class SpreadSheet : public ::testing::Test {
protected:
    test::TempDir m_Dir;
    std::filesystem::path m_Xls = m_Dir.Path() / "run.XLS";
    std::filesystem::path m_Text = m_Dir.Path() / "run.abc";
};

TEST_F(SpreadSheet, RowsGoWhereTheyAreTold) {
    CSpreadSheet sheet(m_Xls, "QOR_Test", true);
    EXPECT_EQ(sheet.GetLastError(), "Error in opening file\n") << "a new one";
    sheet.BeginTransaction();
    ASSERT_TRUE(sheet.AddHeaders({"a", "b", "c"}));
    ASSERT_TRUE(sheet.AddRow({"1", "2"}));
    ASSERT_TRUE(sheet.AddRow({"0"}, 2)) << "before the row that stands there";
    ASSERT_TRUE(sheet.AddRow({"3"}, 3, true)) << "in its place";
    ASSERT_TRUE(sheet.AddRow({"6"}, 6)) << "behind blank rows";
    ASSERT_TRUE(sheet.AddCell("x", 3, 2));
    ASSERT_TRUE(sheet.AddCell("y", 2));
    ASSERT_TRUE(sheet.AddCell("z", 1, 8));
    const SheetRows rows = {{"a", "b", "c"}, {"0", "", "x"}, {"3"},           {" ", " ", " "},
                            {" ", " ", " "}, {"6", "y"},     {" ", " ", " "}, {"z", " ", " "}};
    EXPECT_EQ(RowsOf(sheet), rows);
    SheetCells cells;
    ASSERT_TRUE(sheet.ReadRow(cells, 2));
    ASSERT_TRUE(sheet.ReadRow(cells)) << "the one behind it";
    EXPECT_EQ(cells, (SheetCells{"3"}));
    EXPECT_FALSE(std::filesystem::exists(m_Xls)) << "before it is committed";
    ASSERT_TRUE(sheet.Commit());

    CSpreadSheet again(m_Xls, "QOR_Test", false);
    EXPECT_EQ(RowsOf(again), rows);
    EXPECT_EQ(again.TotalColumns(), 3U);
}

TEST_F(SpreadSheet, EachRefusalHasItsText) {
    CSpreadSheet sheet(m_Xls, "QOR_Test", true);
    sheet.BeginTransaction();
    const auto refused = [&sheet](bool done, const std::string& text) {
        EXPECT_FALSE(done) << text;
        EXPECT_EQ(sheet.GetLastError(), text);
    };
    refused(sheet.AddRow({"1"}), "No header row. Add header row first\n");
    refused(sheet.AddHeaders({"a", "b", "a"}), "Duplicate header row field:a\n");
    ASSERT_TRUE(sheet.AddHeaders({"a", "b"}));
    refused(sheet.AddRow({"1", "2", "3"}),
            "Number of columns to be added cannot be greater than the number of fields\n");
    refused(sheet.AddRow({"a"}, 1, true),
            "Number of columns in new header row cannot be less than the number "
            "of columns in previous header row");
    refused(sheet.AddCell("x", 0), "Column cannot be zero\n");
    refused(sheet.AddCell("x", 3), "Cell column to be added cannot be greater than the number of fields\n");
    SheetCells cells;
    refused(sheet.ReadRow(cells, 2), "Desired row is greater than total number of rows in spreadsheet\n");
    ASSERT_TRUE(sheet.Commit());
    refused(sheet.AddHeaders({"c", "b"}), "Duplicate header row field:b\n");
    ASSERT_TRUE(sheet.AddHeaders({"c"})) << "a sheet that is there grows";
    EXPECT_EQ(RowsOf(sheet), (SheetRows{{"a", "b", "c"}}));
    ASSERT_TRUE(sheet.AddHeaders({"d", "e", "f", "g"}, true));
    EXPECT_EQ(RowsOf(sheet), (SheetRows{{"d", "e", "f", "g"}}));

    std::ofstream(m_Xls) << "no workbook";
    CSpreadSheet broken(m_Xls, "QOR_Test", true);
    EXPECT_EQ(broken.GetLastError(), "Error reading row\n");
    CSpreadSheet nowhere(m_Dir.Path() / "none" / "run.abc", ";", false);
    EXPECT_FALSE(nowhere.AddRow({"1"}));
    EXPECT_EQ(nowhere.GetLastError(), "Error writing file\n");
}

TEST_F(SpreadSheet, ASheetThatIsThereIsCopiedOnceAndOthersStay) {
    {
        CSpreadSheet sheet(m_Xls, "QOR_Test", true);
        sheet.AddHeaders({"a"}); // without a transaction each change is written at once
        EXPECT_EQ(BookIn(m_Xls).at(0).rows, (SheetRows{{"a"}}));
        CSpreadSheet other(m_Xls, "Other", true);
        ASSERT_TRUE(other.AddHeaders({"kept"}));
    }
    for (int opened = 0; opened < 2; ++opened) {
        CSpreadSheet sheet(m_Xls, "QOR_Test", true);
        ASSERT_TRUE(sheet.AddRow({std::to_string(opened)}));
        const Workbook book = BookIn(m_Xls);
        ASSERT_EQ(book.size(), 3U);
        EXPECT_EQ(book[0].name, "QOR_Test");
        EXPECT_EQ(book[1].rows, (SheetRows{{"kept"}}));
        EXPECT_EQ(book[2].name, "QOR_Test_Backup");
        EXPECT_EQ(book[2].rows, (SheetRows{{"a"}})) << "the copy of the first opening stays";
    }
}

TEST_F(SpreadSheet, ATextFormIsItsRowTextsAndKeepsACopy) {
    {
        CSpreadSheet sheet(m_Text, "QOR_Test", true);
        sheet.BeginTransaction();
        ASSERT_TRUE(sheet.AddHeaders({"a", "b"}));
        ASSERT_TRUE(sheet.AddRow({"1", "2", "3"})) << "a text has no fields that bound it";
        ASSERT_TRUE(sheet.AddRow({"4"}, 5));
        EXPECT_FALSE(std::filesystem::exists(m_Text));
        ASSERT_TRUE(sheet.Commit());
    }
    const std::string text = "\"a\"QOR_Test\"b\"\r\n\"1\"QOR_Test\"2\"QOR_Test\"3\"\r\n"
                             "\"\"QOR_Test\"\"QOR_Test\"\"\r\n\"\"QOR_Test\"\"QOR_Test\"\"\r\n\"4\"\r\n";
    EXPECT_EQ(TextOf(m_Text), text);
    CSpreadSheet again(m_Text, "QOR_Test", true);
    EXPECT_EQ(again.TotalColumns(), 3U);
    ASSERT_TRUE(again.AddRow({"5"}));
    EXPECT_EQ(TextOf(m_Text), text + "\"5\"\r\n");
    EXPECT_EQ(TextOf(m_Dir.Path() / "run.abc.bak"), text);
}

} // namespace
} // namespace qor
