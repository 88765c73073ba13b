#include "results/data_file.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

ResultFile TwoTone() {
    ResultFile file;
    file.tone1 = {935, 925, 937, 43};
    file.tone2 = {960, 960, 946, 42.5f};
    file.model = "RT-DB22";
    file.serial = "SIM01";
    file.date = "20260307";
    file.time = "09:05";
    file.up = {{0, -98.7f}, {0.1, -120.5f}, {0.2, -101.25f}};
    file.limitText = "-90.0";
    file.dutSerial = "A17";
    file.comment = "first line\nsecond";
    return file;
}

constexpr std::string_view TwoToneText = "f1 0935.0 MHz START 0925.0 MHz STOP 0937.0 MHz POWER +43.0 dBm\n"
                                         "f2 0960.0 MHz START 0960.0 MHz STOP 0946.0 MHz POWER +42.5 dBm\n"
                                         "MEAS IM3 UNIT dBm 2-TON\n"
                                         "Model Nr. RT-DB22, SERIAL SIM01\n"
                                         "20260307 09:05\n"
                                         "\n"
                                         "00.000;-098.70\n"
                                         "00.100;-120.50\n"
                                         "00.200;-101.25\n"
                                         "\n"
                                         "\n"
                                         "Limit Line: -90.0\n"
                                         "Ser No: A17\n"
                                         "first line\n"
                                         "second";

/// The text with one part of it replaced.
std::string With(std::string_view from, std::string_view to, std::string_view text = TwoToneText) {
    std::string changed(text);
    const std::size_t at = changed.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return changed.replace(at, from.size(), to);
}

std::string Sweep() {
    return With("2-TON", "SWEEP",
                With("00.000;-098.70\n00.100;-120.50\n00.200;-101.25\n",
                     "0890.0;-098.70\n0891.0;-120.50\n0890.5;-099.00\n0891.0;-110.00\n"));
}

std::vector<std::pair<double, float>> Points(const std::vector<ResultFile::Row>& rows) {
    std::vector<std::pair<double, float>> points;
    for (const ResultFile::Row& row : rows)
        points.emplace_back(row.x, row.level);
    return points;
}

using Rows = std::vector<std::pair<double, float>>;

TEST(DataFile, TheTextIsRightToTheByte) {
    const std::string text = FormatResult(TwoTone());
    EXPECT_EQ(text, TwoToneText);
    for (const auto& [offset, content] : {std::pair{3, "0935.0"},
                                          {20, "0925.0"},
                                          {36, "0937.0"},
                                          {53, "+43.0 dBm\n"},
                                          {66, "0960.0"},
                                          {116, "+42.5"},
                                          {131, "IM3"},
                                          {140, "dBm"},
                                          {144, "2-TON"},
                                          {160, "RT-DB22"},
                                          {176, "SIM01"},
                                          {182, "20260307"},
                                          {191, "09:05"},
                                          {198, "00.000;"},
                                          {213, "00.100;"}})
        EXPECT_EQ(text.compare(static_cast<std::size_t>(offset), std::string_view(content).size(), content),
                  0)
            << content;

    ResultFile sweep = TwoTone();
    sweep.twoTone = false;
    sweep.inDbc = true;
    sweep.order = 11;
    sweep.model = "ABC";
    sweep.serial = "7";
    sweep.up = {{890, -5.004f}, {1010.55, -98.7f}};
    sweep.down = {{890.5, -141.7f}};
    const std::string swept = FormatResult(sweep);
    EXPECT_EQ(swept.substr(126, 73),
              "MEAS IM11 UNIT dBc SWEEP\nModel Nr.     ABC, SERIAL 00007\n20260307 09:05\n\n");
    EXPECT_EQ(swept.substr(199, 49), "0890.0;-005.00\n1010.5;-098.70\n0890.5;-141.70\n\n\nLi");
    sweep.model = "LONGERNAME";
    EXPECT_NE(FormatResult(sweep).find("Model Nr. LONGERN, SERIAL"), std::string::npos);
}

TEST(DataFile, BytesOnDiskHaveCarriageReturnsAndADatExchangedNibbles) {
    EXPECT_EQ(EncodeResult("a\nb", false), "a\r\nb");
    // ':' is 0x3A; a byte of 0xA0 becomes a line feed of its own.
    EXPECT_EQ(EncodeResult(":\n\xA0", true), std::string("\xA3\xA0\r\n"));
    EXPECT_EQ(EncodeResult(std::string_view("::\0:", 4), true), std::string("\xA3\xA3\0:", 4));
    for (const bool scrambled : {false, true}) {
        const std::string text = With("second", "\xD0\xA0\xC3\xA4 \xD0", TwoToneText);
        const ParsedResult parsed = ParseResult(EncodeResult(text, scrambled));
        ASSERT_TRUE(parsed.file) << parsed.problem;
        ResultFile file = *parsed.file;
        EXPECT_EQ(FormatResult(file), text);
    }
}

TEST(DataFile, ADatScrambledWithItsCarriageReturnsIsReadToo) {
    std::string bytes = EncodeResult(TwoToneText, false);
    for (char& c : bytes)
        c = EncodeResult({&c, 1}, true).back();
    const ParsedResult parsed = ParseResult(bytes);
    ASSERT_TRUE(parsed.file) << parsed.problem;
    EXPECT_EQ(FormatResult(*parsed.file), TwoToneText);
}

TEST(DataFile, AFileReadAndWrittenAgainIsTheSame) {
    for (const std::string& text :
         {std::string(TwoToneText), Sweep(), With("IM3", "IM11"), With("dBm 2", "dBc 2"),
          With("+43.0", "+9.5"), With("+43.0", "+100.0"),
          With("00.100;-120.50\n00.200", "99.900;-120.50\n100.000"), With("A17\nfirst line\nsecond", "\n")}) {
        for (const bool scrambled : {false, true}) {
            const ParsedResult parsed = ParseResult(EncodeResult(text, scrambled));
            ASSERT_TRUE(parsed.file) << parsed.problem;
            EXPECT_EQ(FormatResult(*parsed.file), text);
            EXPECT_EQ(parsed.file->limit, -90.0f);
        }
    }
    const ResultFile file = *ParseResult(Sweep()).file;
    EXPECT_EQ(Points(file.up), (Rows{{890, -98.7f}, {891, -120.5f}}));
    EXPECT_EQ(Points(file.down), (Rows{{890.5, -99.0f}, {891, -110.0f}}));
    EXPECT_EQ(ParseResult(With("+43.0", "+9.5")).file->tone1.power, 9.5f);
}

/// A wide header with each part put at the byte where it stands, and its rows behind.
std::string Wide(std::size_t serialAt, std::string_view serial) {
    std::string text(204, ' ');
    const auto put = [&text](std::size_t at, std::string_view part) { text.replace(at, part.size(), part); };
    for (const std::size_t at : {62U, 125U, 149U, 187U, 202U, 203U})
        text[at] = '\n';
    for (const auto& [at, part] :
         {std::pair{0, "f1 0935.0 MHz START 0925.0 MHz STOP 0937.0 MHz POWER +43.0 dBm"},
          {63, "f2 0960.0 MHz START 0960.0 MHz STOP 0946.0 MHz POWER +42.5 dBm"},
          {126, "MEAS IM3 UNIT dBm SWEEP"},
          {150, "Model Nr. RT-DB22, SERIAL "},
          {188, "20260307"},
          {197, "09:05"}})
        put(static_cast<std::size_t>(at), part);
    put(serialAt, serial);
    return text + "0890.0;-098.70\n0890.5;-120.50\n0890.0;-099.00\n\n\nLimit Line: -90.0\nSer No: A17\n";
}

TEST(DataFile, TheWiderHeaderIsReadWithItsSerialWhereverItStands) {
    struct Case {
        std::size_t at;
        std::string_view serial;
    };
    for (const Case& c :
         {Case{183, "1234"}, Case{182, "12345"}, Case{176, "12345678901"}, Case{176, "1234567"}}) {
        for (const bool twoDigits : {false, true}) {
            std::string text = Wide(c.at, c.serial);
            if (twoDigits)
                text.replace(133, 1, "11"); // the second digit moves the rest of the header
            const ParsedResult parsed = ParseResult(EncodeResult(text, true));
            ASSERT_TRUE(parsed.file) << parsed.problem;
            const ResultFile& file = *parsed.file;
            EXPECT_EQ(file.form, ResultFile::Form::WideHeader);
            EXPECT_EQ(file.order, twoDigits ? 11 : 3);
            EXPECT_EQ(file.serial, c.serial);
            EXPECT_EQ(file.model, "RT-DB22");
            EXPECT_EQ(file.date + file.time, "2026030709:05");
            EXPECT_EQ(file.tone1.stop, 937.0f);
            EXPECT_EQ(file.tone2.power, 42.5f);
            EXPECT_EQ(Points(file.up), (Rows{{890, -98.7f}, {890.5, -120.5f}}));
            EXPECT_EQ(Points(file.down), (Rows{{890, -99.0f}}));
            EXPECT_EQ(file.limit, -90.0f);
            EXPECT_EQ(file.dutSerial, "A17");
        }
    }
    EXPECT_EQ(ParseResult(TwoToneText).file->form, ResultFile::Form::Current);
}

TEST(DataFile, TheOldestFormIsColumnsOfFrequenciesAndLevels) {
    // Eight characters; frequencies; a line end and two more; levels; nine more; the levels downward.
    const ParsedResult swept =
        ParseResult(EncodeResult("8 chars 0890.0;0891.0;\n  -100.1;-100.2;123456789-110.1;-110.2;", true));
    ASSERT_TRUE(swept.file) << swept.problem;
    EXPECT_EQ(swept.file->form, ResultFile::Form::Oldest);
    EXPECT_FALSE(swept.file->twoTone);
    EXPECT_EQ(Points(swept.file->up), (Rows{{890, -100.1f}, {891, -100.2f}}));
    EXPECT_EQ(Points(swept.file->down), (Rows{{890, -110.1f}, {891, -110.2f}}));

    const ParsedResult timed =
        ParseResult(EncodeResult("8 chars 0000.0;0000.0;0000.0;\n  -100.1;-100.2;-099.9", true));
    ASSERT_TRUE(timed.file) << timed.problem;
    EXPECT_TRUE(timed.file->twoTone);
    ASSERT_EQ(timed.file->up.size(), 3U);
    EXPECT_NEAR(timed.file->up[2].x, 0.2, 1e-9);
    EXPECT_EQ(timed.file->up[2].level, -99.9f);

    const ParsedResult ended = ParseResult(EncodeResult(
        "8 chars 0890.0;0000.0;0891.0;\n  -100.1;-100.2;-100.3;123456789-110.1;-110.2;-110.3", true));
    ASSERT_TRUE(ended.file) << ended.problem;
    EXPECT_EQ(Points(ended.file->up), (Rows{{890, -100.1f}})) << "a frequency of 0 ends the grid";
    EXPECT_EQ(Points(ended.file->down), (Rows{{890, -110.1f}}));

    for (const int points : {2000, 2001}) { // a curve has room for 2000
        std::string text = "8 chars ";
        for (int i = 0; i < points; ++i)
            text += "0000.0;";
        text += "\n  ";
        for (int i = 0; i < points; ++i)
            text += "-100.1;";
        EXPECT_EQ(ParseResult(EncodeResult(text, true)).file.has_value(), points == 2000);
    }
}

TEST(DataFile, ListsEndWhereTheyShould) {
    const auto count = [](const std::string& text) { return ParseResult(text).file.value().up.size(); };
    EXPECT_EQ(count(With("-120.50", "0000.00")), 1U) << "a level of 0 ends the list";
    EXPECT_EQ(count(With("-120.50", "5000.00")), 1U);
    EXPECT_EQ(count(With("00.200", "00.100")), 2U) << "time stands";
    EXPECT_EQ(count(With("00.200", "00.050")), 2U);

    const ResultFile touching = *ParseResult(With("0890.5;", "0890.9;", Sweep())).file;
    EXPECT_EQ(touching.up.size(), 4U) << "0.1 MHz lower still rises";
    const ResultFile ended = *ParseResult(With("0891.0;-110.00", "0000.0;-110.00", Sweep())).file;
    EXPECT_EQ(ended.down.size(), 1U);

    // Rows count up to a byte; the file has to be whole behind it nevertheless.
    ResultFile longest = TwoTone();
    longest.up.clear();
    for (int i = 0; i < 2500; ++i)
        longest.up.push_back({i * 0.01, -100.0f});
    const std::string text = FormatResult(longest);
    EXPECT_EQ(count(text), (33797U - 198U + 14U) / 15U);
    EXPECT_FALSE(ParseResult(text.substr(0, 36000)).file);
    EXPECT_FALSE(ParseResult(text + std::string(LongestResultFile, 'x')).file);
}

TEST(DataFile, AFileCutAnywhereBeforeItsLimitIsWholeIsRefused) {
    for (const std::string& text : {std::string(TwoToneText), Sweep(), With("SIM01", "      12345")}) {
        for (const bool scrambled : {false, true}) {
            const std::string bytes = EncodeResult(text, scrambled);
            const std::string limit = EncodeResult("-90.0\n", scrambled);
            const std::size_t whole = bytes.find(limit) + limit.size();
            for (std::size_t length = 0; length <= bytes.size(); ++length) {
                const ParsedResult parsed = ParseResult(std::string_view(bytes).substr(0, length));
                ASSERT_EQ(parsed.file.has_value(), length >= whole) << length;
                ASSERT_EQ(parsed.problem.empty(), length >= whole) << length;
            }
        }
    }
}

} // namespace
} // namespace qor
