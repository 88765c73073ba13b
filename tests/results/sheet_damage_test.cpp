// Sheets that are broken, by chance or on purpose: refused or read, and never more memory than a sheet needs.
#include "results/sheet/biff8_records.h"
#include "results/sheet/compound_file.h"
#include "results/sheet/csv_table.h"
#include "results/sheet/little_endian.h"
#include "results/sheet/sheet_forms.h"
#include "support/allocation_count.h"
#include "support/documents.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <sstream>

namespace qor {
namespace {

constexpr std::size_t MostMemory = 64U << 20;

std::string SampleOf(const std::string& name) {
    std::ostringstream bytes;
    bytes << std::ifstream(std::filesystem::path(QOR_TEST_SHEETS) / name, std::ios::binary).rdbuf();
    return bytes.str();
}

bool Reads(const std::string& bytes) {
    ResultDocument document;
    document.serial = "as before";
    const Outcome sheet = ReadSheet(bytes, document);
    if (!sheet) {
        EXPECT_FALSE(sheet.Text().empty());
        EXPECT_EQ(document.serial, "as before");
        return static_cast<bool>(ReadCsv(bytes, document));
    }
    EXPECT_GT(PointsOf(document), 0U);
    return true;
}

TEST(SheetDamage, AnotherProgramsSheetOfTheSameResultReadsTheSame) {
    ResultDocument ours;
    ResultDocument theirs;
    ASSERT_TRUE(ReadSheet(SampleOf("both.xls"), ours));
    for (const char* name : {"office_both.xls", "office_numbers.xls"}) { // cells as texts, and as numbers
        const Outcome read = ReadSheet(SampleOf(name), theirs);
        ASSERT_TRUE(read) << name << read.Text();
        EXPECT_EQ(theirs.runs, ours.runs) << name;
        EXPECT_EQ(theirs.plan, ours.plan) << name;
        EXPECT_EQ(theirs.model + theirs.serial + theirs.date + theirs.time,
                  ours.model + ours.serial + ours.date + ours.time);
    }
}

TEST(SheetDamage, TwoThousandChangesAreReadOrRefused) {
    std::mt19937 random(20261123);
    std::size_t read = 0;
    const char* const names[] = {"two_tone.xls",    "sweep.xls",          "detail.xls", "both.xls",
                                 "office_both.xls", "office_numbers.xls", "sweep.text", "sweep.csv",
                                 "two_tone.csv",    "sweep.xls"};
    for (const char* name : names) {
        const std::string sound = SampleOf(name);
        ASSERT_TRUE(Reads(sound)) << name;
        for (int i = 0; i < 200; ++i) {
            std::string bytes = sound;
            for (auto changes = 1 + random() % 8; changes > 0; --changes) {
                const std::size_t at = random() % bytes.size();
                switch (random() % 6) {
                case 0:
                    bytes.resize(at + 1);
                    break;
                case 1:
                    bytes.insert(at, bytes.substr(random() % bytes.size(), random() % 64));
                    break;
                case 2:
                    bytes.erase(at, random() % 8);
                    bytes += 'x';
                    break;
                case 3: // a number that is too large
                    bytes.replace(at / 4 * 4, 4, random() % 2 ? "\xFF\xFF\xFF\x7F" : "\xFF\xFF\xFF\xFF");
                    break;
                default:
                    bytes[at] = static_cast<char>(random());
                }
            }
            const test::AllocationCount count;
            read += Reads(bytes) ? 1 : 0;
            ASSERT_LT(count.Peak(), MostMemory) << name << i;
        }
    }
    EXPECT_GT(read, 100U) << "changes that do no harm";
    EXPECT_LT(read, 1900U);
}

std::string Record(unsigned type, const std::string& body) {
    std::string out;
    Put16(out, type);
    Put16(out, static_cast<unsigned>(body.size()));
    return out + body;
}

/// A workbook whose shared texts and cells are given as records.
std::string BookOf(const std::string& shared, const std::string& cells) {
    const std::string bof = Record(BiffBof, std::string("\x00\x06\x05\x00", 4));
    std::string sheet;
    const std::size_t globals = bof.size() + 4 + 6 + 10 + shared.size() + 4;
    Put32(sheet, static_cast<std::uint32_t>(globals));
    sheet += std::string("\0\0\x08\0", 4) + "QOR_Test";
    const std::string stream = bof + Record(BiffBoundSheet, sheet) + shared + Record(BiffEof, "") + bof +
                               cells + Record(BiffEof, "");
    return PackCompoundFile("Workbook", stream);
}

std::string SharedTexts(std::uint32_t count, const std::string& one, std::size_t each) {
    std::string head;
    Put32(head, count);
    Put32(head, count);
    std::string out;
    for (std::uint32_t done = 0; done < count; done += static_cast<std::uint32_t>(each)) {
        std::string body = done == 0 ? head : std::string();
        for (std::size_t i = 0; i < each; ++i)
            body += one;
        out += Record(done == 0 ? static_cast<unsigned>(BiffSst) : static_cast<unsigned>(BiffContinue), body);
    }
    return out;
}

TEST(SheetDamage, FilesMadeToBeLargeStaySmall) {
    std::string cells;
    for (unsigned i = 0; i < 300000; ++i) { // each cell the same long text
        Put16(cells, BiffLabelSst);
        Put16(cells, 10);
        Put16(cells, i / 250);
        Put16(cells, i % 250);
        Put16(cells, 15);
        Put32(cells, 0);
    }
    std::string longText;
    Put16(longText, 8000);
    longText += '\0' + std::string(8000, 'x');
    std::string lastRow = cells.substr(0, 14);
    lastRow[4] = lastRow[5] = '\xFF';
    std::string manySheets = BookOf(SharedTexts(1, longText, 1), lastRow);
    const std::string files[] = {
        BookOf(SharedTexts(1, longText, 1), cells),
        BookOf(SharedTexts(1999200, std::string(3, '\0'), 2700), ""), // two million empty texts
        manySheets,
        "\"f1:\"QOR_Test\"\n" + std::string(4000000, '\n'),
        "\"f1:\"QOR_Test\"\n" + std::string(4000000, '"'),
        [] {
            std::string bytes = "half,level,unit,order,im_mhz\n";
            while (bytes.size() < 24000000)
                bytes += "up,-1,dBm,3,1\n";
            return bytes;
        }(),
        "half,level,unit,order,im_mhz\n\"" + std::string(24000000, 'x')};
    for (const std::string& bytes : files) {
        const test::AllocationCount count;
        const std::string copy = bytes;
        EXPECT_FALSE(Reads(copy));
        EXPECT_LT(count.Peak(), MostMemory) << &bytes - files;
    }
}

} // namespace
} // namespace qor
