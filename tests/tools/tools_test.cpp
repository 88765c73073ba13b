#include "support/rig.h"
#include "tools/calculator.h"
#include "tools/comment.h"
#include "tools/side_tool.h"

namespace qor::test {

namespace {

std::string Row(const std::string& text) {
    return text + std::string(CommentColumns - text.size(), ' ') + "\r\n";
}

/// The text as the operator sees it: soft breaks as "/", hard ones as "|", the caret as "^".
std::string Wrapped(std::string text, std::size_t caret) {
    WrapComment(text, caret);
    std::string seen = text.substr(0, caret) + "^" + text.substr(caret);
    for (const auto& [from, to] : {std::pair("\r\r\n", "/"), std::pair("\r\n", "|")})
        for (std::size_t at = 0; (at = seen.find(from)) != std::string::npos;)
            seen.replace(at, std::string_view(from).size(), to);
    return seen;
}

} // namespace

TEST(Calculator, EachFieldSetsTheOthers) {
    struct Case {
        CalculatorField changed;
        CalculatorFields before;
        bool good;
        CalculatorFields after;
    };
    using enum CalculatorField;
    const CalculatorFields old{"1", "2", "3", "50"};
    const auto with = [&old](auto CalculatorFields::*field, const char* text) {
        CalculatorFields fields = old;
        fields.*field = text;
        return fields;
    };
    const auto unchanged = [&](CalculatorField changed, auto field, const char* text, bool good) {
        return Case{changed, with(field, text), good, with(field, text)};
    };
    const Case cases[] = {
        {Dbm, {"0", "", "", "50"}, true, {"0", "1.000000", "223.606798", "50"}},
        {Dbm, {" +43 ", "", "", "50"}, true, {" +43 ", "19952.623150", "31585.299705", "50"}},
        {Dbm, {"0", "", "", "0"}, true, {"0", "1.000000", "0.000000", "0"}},
        {Mw, {"", "1000", "", "75"}, true, {"30.000000", "1000", "8660.254038", "75"}},
        {Mv, {"", "", "-1000", "50"}, true, {"13.010300", "20.000000", "-1000", "50"}},
        {Zo, {"1", "2", "3", "10000"}, true, {"1", "2", "4472.135955", "10000"}},
        unchanged(Mw, &CalculatorFields::mW, "0", true),
        unchanged(Mw, &CalculatorFields::mW, "0.005", true),
        unchanged(Mw, &CalculatorFields::mW, "-5", true),
        unchanged(Mv, &CalculatorFields::mV, "-0.005", true),
        unchanged(Dbm, &CalculatorFields::dBm, "", true),
        unchanged(Dbm, &CalculatorFields::dBm, "9999", true),
        unchanged(Dbm, &CalculatorFields::dBm, "-", false),
        unchanged(Dbm, &CalculatorFields::dBm, "1,5", false),
        unchanged(Mw, &CalculatorFields::mW, "nan", false),
        unchanged(Mv, &CalculatorFields::mV, "1e999", false),
        unchanged(Zo, &CalculatorFields::zo, "0", true),
        unchanged(Zo, &CalculatorFields::zo, "10001", false),
        unchanged(Zo, &CalculatorFields::zo, "49.5", false),
        {Mv, {"1", "2", "5", "0"}, true, {"1", "2", "5", "0"}},
        {Mw, {"1", "5", "3", "x"}, true, {"1", "5", "3", "x"}},
        {Zo, {"1", "0.001", "3", "75"}, true, {"1", "0.001", "3", "75"}},
    };
    for (const Case& c : cases) {
        CalculatorFields fields = c.before;
        EXPECT_EQ(Calculate(fields, c.changed), c.good);
        EXPECT_EQ(fields.dBm + "|" + fields.mW + "|" + fields.mV + "|" + fields.zo,
                  c.after.dBm + "|" + c.after.mW + "|" + c.after.mV + "|" + c.after.zo);
    }
}

TEST(Comment, IsWrappedWhileItIsTyped) {
    const std::string a38(38, 'a');
    EXPECT_EQ(Wrapped("", 5), "^");
    EXPECT_EQ(Wrapped(a38, 38), a38 + "^");
    EXPECT_EQ(Wrapped(a38 + "b", 39), a38 + "/b^");
    EXPECT_EQ(Wrapped(a38 + "b", 37), a38.substr(1) + "^a/b");
    // A character typed into the first row moves the soft break; hard ones stay.
    EXPECT_EQ(Wrapped("x" + a38 + "\r\r\nbc\r\nd", 1), "x^" + a38.substr(1) + "/abc|d");
    EXPECT_EQ(Wrapped(a38 + "\r\r\n" + a38 + "c\r\n", 42), a38 + "/a^" + a38.substr(1) + "/c|");
    EXPECT_EQ(Wrapped("ab\r\r\ncd", 3), "ab^cd") << "a caret within a break that goes";
    // A character of two bytes is not divided.
    const std::string umlauts = std::string(37, 'a') + "\xC3\xA4" + "b";
    EXPECT_EQ(Wrapped(umlauts, 0), "^" + umlauts.substr(0, 37) + "/\xC3\xA4" + "b");
}

TEST(Comment, RowsOfTheStore) {
    const std::string a40(40, 'a');
    EXPECT_EQ(StoredComment(""), "");
    EXPECT_EQ(StoredComment("one\r\n\r\ntwo\r\n"), Row("one") + Row("") + Row("two"));
    EXPECT_EQ(StoredComment(std::string(38, 'a') + "\r\r\nb"), Row(std::string(38, 'a')) + Row("b"));
    EXPECT_EQ(StoredComment("a\tb" + std::string(1, '\0')), Row("a b "));
    EXPECT_EQ(StoredComment(a40), Row(std::string(38, 'a')) + Row("aa"));
    std::string nine;
    for (int i = 1; i <= 9; ++i)
        nine += "line " + std::to_string(i) + "\r\n";
    const std::string eight = StoredComment(nine);
    EXPECT_EQ(eight.size(), LongestComment);
    EXPECT_EQ(ShownComment(eight).substr(ShownComment(eight).size() - 6), "line 8");

    const std::string head(20, '0');
    EXPECT_EQ(ShownComment(head + Row("one") + Row("") + Row("two") + Row("")), "one\r\n\r\ntwo");
    EXPECT_EQ(ShownComment("one \ntwo"), "one\r\ntwo") << "from a foreign result file";
    EXPECT_EQ(ShownComment(head + a40), std::string(38, 'a') + "\r\naa");
    EXPECT_EQ(ShownComment(head) + ShownComment("") + ShownComment("000"), "000");
}

TEST(Comment, GoesToBothStoresWhenItIsAdded) {
    Rig rig;
    SetupStore& store = rig.program.Stores();
    EXPECT_EQ(OpenComment(rig.S().results.device, store), "");
    EXPECT_FALSE(LastSavedComment(store).has_value());
    AddComment("mast 7", rig.S().results.device, store);
    EXPECT_EQ(FileText(rig.dir / "Add_comments.ccz"), std::string(20, '0') + Row("mast 7"));
    EXPECT_EQ(rig.S().results.device.Comment(), Row("mast 7"));
    store.Write("Add_comments.ccz", std::string(20, '0') + Row("of a file") + std::string(500, 'x'));
    EXPECT_EQ(OpenComment(rig.S().results.device, store).substr(0, 11), "of a file\r\n");
    EXPECT_EQ(rig.S().results.device.Comment().size(), LongestComment);
    EXPECT_EQ(LastSavedComment(store), "mast 7");
    AddComment("", rig.S().results.device, store);
    EXPECT_EQ(OpenComment(rig.S().results.device, store), "");
}

TEST(SideTool, IsUnpackedStartedAndTakenAway) {
    NotedLauncher starter;
    Rig rig;
    Platform parts = rig.program.Parts();
    parts.launcher = &starter;
    const SetupStore& store = rig.program.Stores();
    EXPECT_FALSE(rig.Done(StartSideTool(store, parts.launcher)));
    EXPECT_TRUE(rig.user.WasTold("QorTool"));
    rig.program.Stores().Write("QorTool.ccz", "tool");
    rig.program.Stores().Write("QorTool.exe", "an older tool");
    EXPECT_TRUE(rig.Done(StartSideTool(store, parts.launcher)));
    ASSERT_EQ(starter.started.size(), 1U);
    EXPECT_EQ(FileText(starter.started[0]), "tool");
    using std::filesystem::perms;
    EXPECT_NE(std::filesystem::status(starter.started[0]).permissions() & perms::owner_exec, perms::none);
    starter.works = false;
    EXPECT_FALSE(rig.Done(StartSideTool(store, parts.launcher)));
    EXPECT_EQ(rig.user.messages.size(), 2U);
    RemoveSideTool(rig.program.Stores());
    EXPECT_FALSE(std::filesystem::exists(starter.started[0]));
    EXPECT_TRUE(store.Exists("QorTool.ccz"));
}

} // namespace qor::test
