// The workbook's own layers: the compound file, and the records in its stream.
#include "results/sheet/biff8_reader.h"
#include "results/sheet/biff8_records.h"
#include "results/sheet/biff8_writer.h"
#include "results/sheet/compound_file.h"
#include "results/sheet/little_endian.h"

#include <bit>
#include <gtest/gtest.h>

namespace qor {
namespace {

Workbook RoundTrip(const Workbook& book) {
    std::string stream;
    EXPECT_TRUE(WriteBiff8(book, stream));
    const CompoundStream read = ReadCompoundStream(PackCompoundFile("Workbook", stream), "Workbook");
    EXPECT_EQ(read.problem, CompoundProblem::None);
    Workbook back;
    const Outcome outcome = ReadBiff8(read.bytes, back);
    EXPECT_TRUE(outcome) << outcome.Text();
    return back;
}

TEST(CompoundFile, StreamsOfEveryLengthComeBack) {
    // Below the smallest stream, at the edges of a sector, beyond one allocation sector, and so long (7 MB)
    // that the header has no room for the table's sectors.
    for (const std::size_t length : {0U, 1U, 4095U, 4096U, 4097U, 65024U, 65536U, 7200000U, 9000000U}) {
        std::string stream(length, 'x');
        for (std::size_t i = 0; i < length; i += 511)
            stream[i] = static_cast<char>(i / 511);
        const std::string file = PackCompoundFile("Workbook", stream);
        EXPECT_EQ(file.size() % 512, 0U);
        const CompoundStream read = ReadCompoundStream(file, "Workbook");
        ASSERT_EQ(read.problem, CompoundProblem::None) << length;
        stream.resize(std::max<std::size_t>(length, 4096));
        EXPECT_TRUE(read.bytes == stream) << length;
        EXPECT_EQ(ReadCompoundStream(file, "Book").problem, CompoundProblem::NoSuchStream);
    }
}

TEST(CompoundFile, DamageIsToldAndNeverFollowed) {
    EXPECT_EQ(ReadCompoundStream("f1 0935.0", "Workbook").problem, CompoundProblem::NotCompound);
    const std::string sound = PackCompoundFile("Workbook", std::string(6000, 'x'));
    const std::size_t table = 512 * (1 + 12 + 1);
    struct Case {
        std::size_t at;
        std::uint32_t value;
        CompoundProblem problem;
    };
    for (const Case& c : {Case{table + 4 * 3, 1, CompoundProblem::Damaged},          // a loop
                          Case{table + 4 * 3, 0xFFFFFF00, CompoundProblem::Damaged}, // out of the file
                          Case{table + 4 * 3, 0xFFFFFFFE, CompoundProblem::Damaged}, // ends too early
                          Case{48, 0x00FFFFFF, CompoundProblem::Damaged},            // no folder
                          Case{76, 0x00FFFFFF, CompoundProblem::Damaged},            // no table
                          Case{30, 0x00060013, CompoundProblem::Damaged},            // sectors of 512 KB
                          Case{512 * 13 + 128 + 120, 0x7FFFFFFF, CompoundProblem::Damaged}}) { // 2 GB
        std::string file = sound;
        std::string number;
        Put32(number, c.value);
        file.replace(c.at, 4, number);
        EXPECT_EQ(ReadCompoundStream(file, "Workbook").problem, c.problem) << c.at << ' ' << c.value;
    }
    for (std::size_t length = 0; length < table; length += 100)
        EXPECT_NE(ReadCompoundStream(sound.substr(0, length), "Workbook").problem, CompoundProblem::None)
            << length;
}

TEST(Biff8, TextsOfEveryKindComeBack) {
    const Workbook book = {{"QOR_Test",
                            {{"plain", "", "M\xC3\xBCnchen", "\xE4\xB8\xAD\xE6\x96\x87"},
                             {},
                             {"", "\xF0\x9F\x98\x80", "plain", "\"quotes\", 'and' more"},
                             {std::string(32767, 'y')}}},
                           {"\xE4\xB8\xAD", {{"second"}}}};
    const Workbook back = RoundTrip(book);
    ASSERT_EQ(back.size(), 2U);
    EXPECT_EQ(back[0].name, "QOR_Test");
    EXPECT_EQ(back[0].rows, book[0].rows);
    EXPECT_EQ(back[1].name, book[1].name);
    EXPECT_EQ(back[1].rows, book[1].rows);
}

TEST(Biff8, SharedTextsCrossTheirRecordsAtEveryPlace) {
    // The first text moves the second over the edge of a record of 8224 bytes, byte by byte: before its
    // head, inside it, and between its characters of one and of two bytes.
    for (const bool wide : {false, true}) {
        const std::string tail = wide ? "\xE4\xB8\xAD\xE6\x96\x87\xE4\xB8\xAD" : "abcdefgh";
        for (std::size_t length = 8180; length < 8225; ++length) {
            const SheetRows rows = {{std::string(length, 'x'), tail}, {tail + "2", std::string(20000, 'z')}};
            const Workbook back = RoundTrip({{"QOR_Test", rows}});
            ASSERT_EQ(back.size(), 1U);
            ASSERT_TRUE(back[0].rows == rows) << length << wide;
        }
    }
}

TEST(Biff8, WhatTheFormHasNoRoomForIsRefused) {
    std::string stream = "as before";
    EXPECT_FALSE(WriteBiff8({{"a", {SheetRows::value_type(257, "x")}}}, stream));
    EXPECT_FALSE(WriteBiff8({{"a", SheetRows(65537)}}, stream));
    EXPECT_FALSE(WriteBiff8({{"a", {{std::string(32768, 'x')}}}}, stream));
    EXPECT_FALSE(WriteBiff8({{std::string(32, 'n'), {}}}, stream));
    EXPECT_EQ(stream, "as before");
    SheetRows longest(65536, {"a", "b", "c"});
    longest.back().resize(256, "d");
    EXPECT_EQ(RoundTrip({{"QOR_Test", longest}})[0].rows, longest);
}

/// A stream of one sheet from the records of its cells.
std::string StreamOf(const std::string& cells, unsigned version = 0x0600) {
    const auto record = [](unsigned type, const std::string& body) {
        std::string out;
        Put16(out, type);
        Put16(out, static_cast<unsigned>(body.size()));
        return out + body;
    };
    std::string bof;
    Put16(bof, version);
    Put16(bof, 5);
    std::string globals = record(BiffBof, bof);
    std::string sheet;
    Put32(sheet, static_cast<std::uint32_t>(globals.size() + 4 + 6 + 2 + 1 + 4));
    sheet += std::string("\0\0\1\0s", 5);
    globals += record(BiffBoundSheet, sheet) + record(BiffEof, "");
    return globals + record(BiffBof, bof) + cells + record(BiffEof, "");
}

std::string Cell(unsigned type, unsigned row, unsigned column, const std::string& body) {
    std::string out;
    Put16(out, type);
    Put16(out, static_cast<unsigned>(body.size()) + 4);
    Put16(out, row);
    Put16(out, column);
    return out + body;
}

std::string Bytes(std::initializer_list<std::uint32_t> words) {
    std::string out;
    for (const std::uint32_t word : words)
        Put16(out, word);
    return out;
}

std::string DoubleBytes(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    std::string out;
    Put32(out, static_cast<std::uint32_t>(bits));
    Put32(out, static_cast<std::uint32_t>(bits >> 32));
    return out;
}

TEST(Biff8, NumbersAndFormulasOfOtherProgramsAreRead) {
    std::string rk;
    Put16(rk, 0);
    Put32(rk, static_cast<std::uint32_t>(-9870 * 4 + 3)); // whole hundredths
    std::string many;
    for (const std::uint32_t number : {890U * 4 + 2, 0x40590000U}) { // 890, and the head of the double 100
        Put16(many, 0);
        Put32(many, number);
    }
    many += Bytes({3});
    std::string text = Bytes({BiffString, 5, 2}) + std::string("\0hi", 3);
    std::string cells = Cell(BiffRk, 0, 0, rk) + Cell(BiffMulRk, 0, 2, many) +
                        Cell(BiffNumber, 1, 0, Bytes({0}) + DoubleBytes(-98.7)) +
                        Cell(BiffFormula, 1, 1, Bytes({0}) + DoubleBytes(0.25) + Bytes({0, 0, 0})) +
                        Cell(BiffFormula, 1, 2, Bytes({0, 0, 0, 0, 0xFFFF, 0, 0, 0})) + text +
                        Cell(BiffLabel, 2, 0, Bytes({0, 2}) + std::string("\0ok", 3)) +
                        Cell(BiffRString, 2, 1, Bytes({0, 2}) + std::string("\1k\0o\0", 5)) +
                        Cell(BiffBoolErr, 2, 2, Bytes({0, 1}));
    // A chart inside the sheet has cells of its own.
    cells += Cell(BiffBof, 0x0600, 0x20, "") + Cell(BiffNumber, 0, 0, Bytes({0}) + DoubleBytes(1)) +
             Bytes({BiffEof, 0});
    Workbook book;
    ASSERT_TRUE(ReadBiff8(StreamOf(cells), book));
    EXPECT_EQ(book.at(0).rows,
              (SheetRows{{"-98.7", "", "890", "100"}, {"-98.7", "0.25", "hi"}, {"ok", "ko"}}));

    EXPECT_FALSE(ReadBiff8(StreamOf(cells, 0x0500), book)) << "an older form";
    EXPECT_FALSE(ReadBiff8(StreamOf(Cell(BiffLabelSst, 0, 0, Bytes({0, 0, 0}))), book)) << "no shared text";
    std::string wide;
    for (unsigned row = 0; row < 4000; ++row) // a text in the last column of each row
        wide += Cell(BiffRk, row, 255, rk);
    EXPECT_FALSE(ReadBiff8(StreamOf(wide), book)) << "too large";
}

} // namespace
} // namespace qor
