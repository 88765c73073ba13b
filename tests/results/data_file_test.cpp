#include "results/data_file.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

ResultDocument TwoTone() {
    ResultDocument document;
    document.plan = {935, 960, 925, 937, 0, 960, 946};
    document.power2 = 42.5f;
    document.model = "RT-DB22";
    document.serial = "SIM01";
    document.date = "20260307";
    document.time = "09:05";
    document.runs = {{{{0, -98.7f}, {0.1, -120.5f}, {0.2, -101.25f}}, {}}};
    document.limit = -90.0f;
    document.deviceSerial = "A17";
    document.comment = "first line\nsecond";
    document.verdict = ResultVerdict::Passed;
    return document;
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

using Rows = std::vector<ResultPoint>;

TEST(DataFile, TheTextIsRightToTheByte) {
    EXPECT_EQ(FormatResult(TwoTone()), TwoToneText);
    ResultDocument sweep = TwoTone();
    sweep.method = ResultMethod::Sweep;
    sweep.inDbc = true;
    sweep.order = 11;
    sweep.model = "ABC";
    sweep.serial = "7";
    sweep.runs = {{{{890, 37.996f}, {1010.55, -55.7f}}, {{890.5, -98.7f}}}};
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
        ASSERT_TRUE(parsed.document) << parsed.problem;
        const ResultDocument file = *parsed.document;
        EXPECT_EQ(FormatResult(file), text);
    }
}

TEST(DataFile, ADatScrambledWithItsCarriageReturnsIsReadToo) {
    std::string bytes = EncodeResult(TwoToneText, false);
    for (char& c : bytes)
        c = EncodeResult({&c, 1}, true).back();
    const ParsedResult parsed = ParseResult(bytes);
    ASSERT_TRUE(parsed.document) << parsed.problem;
    EXPECT_EQ(FormatResult(*parsed.document), TwoToneText);
}

TEST(DataFile, AFileReadAndWrittenAgainIsTheSame) {
    for (const std::string& text :
         {std::string(TwoToneText), Sweep(), With("IM3", "IM11"), With("dBm 2", "dBc 2"),
          With("+43.0", "+9.5"), With("+43.0", "+100.0"),
          With("00.100;-120.50\n00.200", "99.900;-120.50\n100.000"), With("A17\nfirst line\nsecond", "\n")}) {
        for (const bool scrambled : {false, true}) {
            const ParsedResult parsed = ParseResult(EncodeResult(text, scrambled));
            ASSERT_TRUE(parsed.document) << parsed.problem;
            EXPECT_EQ(FormatResult(*parsed.document), text);
            EXPECT_EQ(parsed.document->limit, parsed.document->inDbc ? -47.0f : -90.0f);
        }
    }
    const ResultDocument file = *ParseResult(Sweep()).document;
    EXPECT_EQ(file.runs[0].up, (Rows{{890, -98.7f}, {891, -120.5f}}));
    EXPECT_EQ(file.runs[0].down, (Rows{{890.5, -99.0f}, {891, -110.0f}}));
    EXPECT_EQ(ParseResult(With("+43.0", "+9.5")).document->power1, 9.5f);
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
            ASSERT_TRUE(parsed.document) << parsed.problem;
            const ResultDocument& file = *parsed.document;
            EXPECT_EQ(file.order, twoDigits ? 11 : 3);
            EXPECT_EQ(file.serial, c.serial);
            EXPECT_EQ(file.model, "RT-DB22");
            EXPECT_EQ(file.date + file.time, "2026030709:05");
            EXPECT_EQ(file.plan.f1Stop, 937.0f);
            EXPECT_EQ(file.power2, 42.5f);
            EXPECT_EQ(file.runs[0].up, (Rows{{890, -98.7f}, {890.5, -120.5f}}));
            EXPECT_EQ(file.runs[0].down, (Rows{{890, -99.0f}}));
            EXPECT_EQ(file.limit, -90.0f);
            EXPECT_EQ(file.deviceSerial, "A17");
        }
    }
}

TEST(DataFile, TheOldestFormIsColumnsOfFrequenciesAndLevels) {
    // Eight characters; frequencies; a line end and two more; levels; nine more; the levels downward.
    const ParsedResult swept =
        ParseResult(EncodeResult("8 chars 0890.0;0891.0;\n  -100.1;-100.2;123456789-110.1;-110.2;", true));
    ASSERT_TRUE(swept.document) << swept.problem;
    EXPECT_FALSE(swept.document->hasHead);
    EXPECT_EQ(swept.document->method, ResultMethod::Sweep);
    EXPECT_EQ(swept.document->runs[0].up, (Rows{{890, -100.1f}, {891, -100.2f}}));
    EXPECT_EQ(swept.document->runs[0].down, (Rows{{890, -110.1f}, {891, -110.2f}}));

    const ParsedResult timed =
        ParseResult(EncodeResult("8 chars 0000.0;0000.0;0000.0;\n  -100.1;-100.2;-099.9", true));
    ASSERT_TRUE(timed.document) << timed.problem;
    EXPECT_EQ(timed.document->method, ResultMethod::TwoTone);
    ASSERT_EQ(timed.document->runs[0].up.size(), 3U);
    EXPECT_NEAR(timed.document->runs[0].up[2].x, 0.2, 1e-9);
    EXPECT_EQ(timed.document->runs[0].up[2].level, -99.9f);

    const ParsedResult ended = ParseResult(EncodeResult(
        "8 chars 0890.0;0000.0;0891.0;\n  -100.1;-100.2;-100.3;123456789-110.1;-110.2;-110.3", true));
    ASSERT_TRUE(ended.document) << ended.problem;
    EXPECT_EQ(ended.document->runs[0].up, (Rows{{890, -100.1f}})) << "a frequency of 0 ends the grid";
    EXPECT_EQ(ended.document->runs[0].down, (Rows{{890, -110.1f}}));

    for (const int points : {2000, 2001}) { // a curve has room for 2000
        std::string text = "8 chars ";
        for (int i = 0; i < points; ++i)
            text += "0000.0;";
        text += "\n  ";
        for (int i = 0; i < points; ++i)
            text += "-100.1;";
        EXPECT_EQ(ParseResult(EncodeResult(text, true)).document.has_value(), points == 2000);
    }
}

TEST(DataFile, ListsEndWhereTheyShould) {
    const auto count = [](const std::string& text) {
        return ParseResult(text).document.value().runs[0].up.size();
    };
    EXPECT_EQ(count(With("00.200", "00.100")), 2U) << "time stands";
    EXPECT_EQ(count(With("00.200", "00.050")), 2U);

    const ResultDocument touching = *ParseResult(With("0890.5;", "0890.9;", Sweep())).document;
    EXPECT_EQ(touching.runs[0].up.size(), 4U) << "0.1 MHz lower still rises";
    const ResultDocument ended = *ParseResult(With("0891.0;-110.00", "0000.0;-110.00", Sweep())).document;
    EXPECT_EQ(ended.runs[0].down.size(), 1U);

    // The longest sweep has 4000 rows; all of them are read.
    ResultDocument longest = TwoTone();
    longest.runs[0].up.clear();
    for (int i = 0; i < 4000; ++i)
        longest.runs[0].up.push_back({i * 0.01, i == 3999 ? -80.0f : -100.0f});
    longest.verdict = ResultVerdict::Failed;
    const std::string text = FormatResult(longest);
    EXPECT_EQ(count(text), 4000U);
    EXPECT_EQ(ParseResult(text).document->verdict, ResultVerdict::Failed) << "the last row is over the limit";
    EXPECT_FALSE(ParseResult(text.substr(0, 59000)).document);
    EXPECT_FALSE(ParseResult(text + std::string(LongestResultFile, 'x')).document);
}

TEST(DataFile, ALevelOfZeroAndAboveIsALevelAndZerosAreNone) {
    ResultDocument loud = TwoTone();
    loud.runs[0].up = {{0, 5.0f}, {0.1, 0}, {0.2, -0.5f}, {0.3, 0.004f}, {0.4, -0.004f}, {0.5, 123.4f}};
    loud.verdict = ResultVerdict::Failed;
    const std::string text = FormatResult(loud);
    EXPECT_EQ(text.substr(198, 90), "00.000;0005.00\n00.100;0000.00\n00.200;-000.50\n"
                                    "00.300;0000.01\n00.400;0000.01\n00.500;0123.40\n");
    const ResultDocument back = *ParseResult(text).document;
    EXPECT_EQ(back.runs[0].up,
              (Rows{{0, 5.0f}, {0.1, 0}, {0.2, -0.5f}, {0.3, 0.01f}, {0.4, 0.01f}, {0.5, 123.4f}}));
    EXPECT_EQ(back.verdict, ResultVerdict::Failed);
    EXPECT_EQ(back.pointsTaken, 5U);
    EXPECT_EQ(WorstOf(back)->level, 123.4f);

    loud.inDbc = true; // a level as high as the carrier is one, too
    loud.runs[0].up = {{0, 43.0f}, {0.1, 0}, {0.2, 48.0f}};
    const ResultDocument relative = *ParseResult(FormatResult(loud)).document;
    EXPECT_EQ(relative.runs[0].up.size(), 3U);
    EXPECT_NEAR(relative.runs[0].up[0].level, 43.0f, 0.011f);
    EXPECT_FALSE(relative.runs[0].up[1].HasLevel());
    const ResultDocument carrier = *ParseResult(With("-120.50", "-043.00", With("dBm 2", "dBc 2"))).document;
    EXPECT_EQ(carrier.runs[0].up[1].level, 0.01f) << "0 dBm";
}

TEST(DataFile, NoFileComesBackBetterThanItsRunWas) {
    struct Case {
        const char* what;
        ResultVerdict verdict;
        std::size_t taken;
        std::size_t asked;
        std::string_view mark;
    };
    using V = ResultVerdict;
    for (const Case& c :
         {Case{"a pass", V::Passed, 3, 3, ""},
          Case{"a fail by a point that is not filed", V::Failed, 4, 4, "failed 4 4"},
          Case{"stopped", V::Passed, 3, 52, "passed 3 52"}, Case{"incomplete", V::None, 3, 28, "none 3 28"},
          Case{"error", V::Error, 3, 28, "error 3 28 4"}}) {
        ResultDocument document = TwoTone();
        document.verdict = c.verdict;
        document.pointsTaken = c.taken;
        document.pointsAsked = c.asked;
        document.error = c.verdict == V::Error ? 4 : 0;
        const std::string text = FormatResult(document);
        const std::string mark = c.mark.empty() ? "" : std::string(1, '\0') + "QOR1 " + std::string(c.mark);
        EXPECT_EQ(text, std::string(TwoToneText) + mark) << c.what;
        for (const bool scrambled : {false, true}) {
            const std::string bytes = EncodeResult(text, scrambled);
            EXPECT_TRUE(bytes.ends_with(mark)) << "it can be read without unscrambling";
            const ResultDocument back = *ParseResult(bytes).document;
            EXPECT_EQ(back.verdict, c.verdict) << c.what;
            EXPECT_EQ(back.pointsTaken, c.taken) << c.what;
            EXPECT_EQ(back.pointsAsked, c.asked) << c.what;
            EXPECT_EQ(back.error, document.error) << c.what;
            EXPECT_EQ(back.comment, "first line\nsecond") << c.what;
            EXPECT_EQ(FormatResult(back), text) << "saved again";
        }
    }

    // What the two decimals of a row and the one of the limit leave away counts as left away.
    ResultDocument close = TwoTone();
    close.verdict = V::Failed;
    close.runs[0].up[0].level = -89.986f;
    EXPECT_NE(FormatResult(close).find("QOR1 failed"), std::string::npos);

    // A fail needs no mark, and a mark makes nothing better.
    ResultDocument failed = TwoTone();
    failed.limit = -99.0f;
    failed.verdict = V::Failed;
    EXPECT_EQ(FormatResult(failed).find('\0'), std::string::npos);
    const std::string pass = std::string(1, '\0') + "QOR1 passed 3 3";
    EXPECT_EQ(ParseResult(FormatResult(failed) + pass).document->verdict, V::Failed);
    for (const char* damaged : {"QOR1 ", "QOR1 great 1 1", "QOR1 none -1 x"})
        EXPECT_EQ(ParseResult(std::string(TwoToneText) + '\0' + damaged).document->verdict, V::None)
            << damaged;
    EXPECT_EQ(ParseResult(std::string(TwoToneText) + '\0' + "rest").document->verdict, V::Passed);
    for (const char* mark : {"QOR1 none 3 28", "QOR1 passed 3 28"})
        for (std::size_t length = 0; length <= std::string_view(mark).size(); ++length) {
            const std::string cut = std::string(TwoToneText) + '\0' + std::string(mark, length);
            EXPECT_GT(DistanceFromPass(*ParseResult(cut).document), 0) << cut;
        }
    for (const char* edited : {" ", "\xEF\xBF\xBD", ""}) { // what an editor makes of the zero byte
        const ResultDocument read =
            *ParseResult(std::string(TwoToneText) + edited + "QOR1 none 3 28").document;
        EXPECT_EQ(read.verdict, V::None);
        EXPECT_EQ(read.comment, "first line\nsecond") << edited;
    }
    EXPECT_EQ(ParseResult(std::string(TwoToneText) + " QOR1 plant").document->comment,
              "first line\nsecond QOR1 plant");
    EXPECT_EQ(ParseResult(With("-120.50", "0000.00")).document->verdict, V::None) << "a gap is not complete";
}

TEST(DataFile, AFileCutAnywhereBeforeItsLimitIsWholeIsRefused) {
    for (const std::string& text : {std::string(TwoToneText), Sweep(), With("SIM01", "      12345")}) {
        for (const bool scrambled : {false, true}) {
            const std::string bytes = EncodeResult(text, scrambled);
            const std::string limit = EncodeResult("-90.0\n", scrambled);
            const std::size_t whole = bytes.find(limit) + limit.size();
            for (std::size_t length = 0; length <= bytes.size(); ++length) {
                const ParsedResult parsed = ParseResult(std::string_view(bytes).substr(0, length));
                ASSERT_EQ(parsed.document.has_value(), length >= whole) << length;
                ASSERT_EQ(parsed.problem.empty(), length >= whole) << length;
            }
        }
    }
}

} // namespace
} // namespace qor
