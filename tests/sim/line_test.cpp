#include "sim/instrument.h"
#include "sim/line.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qor::sim {
namespace {

struct Piece {
    std::int64_t atUs;
    std::string bytes;
    bool operator==(const Piece&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Piece& piece) {
    return out << piece.atUs << ' ' << testing::PrintToString(piece.bytes);
}

class SimLine : public testing::Test {
protected:
    Instrument instrument{InstrumentConfig{}};
    Line line{instrument};

    // Everything that comes until nothing more is on its way.
    std::vector<Piece> Drain(std::int64_t untilUs = 10'000'000) {
        std::vector<Piece> pieces;
        while (const auto next = line.NextEventUs()) {
            if (*next > untilUs)
                break;
            std::string bytes = line.TakeDelivered(*next);
            if (!bytes.empty())
                pieces.push_back({*next, bytes});
        }
        return pieces;
    }
    std::string Ask(std::string_view command, std::int64_t nowUs) {
        line.HostWrites(std::string(command) + "\r", nowUs);
        std::string all;
        for (const Piece& piece : Drain(nowUs + 5'000'000))
            all += piece.bytes;
        return all;
    }
    void Order(std::string_view fault) { line.Add(ParseFault(fault).value()); }
};

TEST_F(SimLine, AReplyTakesTheTimeOfItsBytesToTheMicrosecond) {
    // 10 bits a byte at 9600: "#SR" CR 4166.6 us, 2 ms work, "SR" CR LF 4166.6 us.
    line.HostWrites("#SR", 1000);
    line.HostWrites("\r", 1000);
    EXPECT_EQ(Drain(), (std::vector<Piece>{{1000 + 4166 + 2000 + 4166, "SR\r\n"}}));
    // Nothing is there a microsecond early.
    line.HostWrites("#SR\r", 20'000);
    EXPECT_EQ(line.TakeDelivered(20'000 + 10331), "");
    EXPECT_EQ(line.TakeDelivered(20'000 + 10332), "SR\r\n");
    // Two commands at once: the second waits for its turn, no time is lost between its bytes.
    line.HostWrites("#SR\r#SR\r", 100'000);
    EXPECT_EQ(Drain(), (std::vector<Piece>{{100'000 + 10332, "SR\r\n"}, {100'000 + 10332 + 6166, "SR\r\n"}}));
}

TEST_F(SimLine, OpeningDropsWhatHasComeButNotWhatIsStillOnItsWay) {
    line.HostWrites("#SR\r", 0);
    line.HostOpens(20'000);
    EXPECT_EQ(line.TakeDelivered(20'000), "");
    line.HostWrites("#SR\r", 20'000);
    line.HostOpens(21'000);
    EXPECT_EQ(Drain().size(), 1U);
}

TEST_F(SimLine, PiecesComeByteByByteAndEarlyEndsInTwo) {
    Order("early-end");
    line.HostWrites("#SAB?\r", 0);
    const auto halves = Drain();
    ASSERT_EQ(halves.size(), 2U);
    EXPECT_EQ(halves[0].bytes, "SA\r\n");
    EXPECT_EQ(halves[1].bytes, "B0\r\n");
    EXPECT_EQ(halves[1].atUs - halves[0].atUs, 4167);
    line.ClearFaults();
    Order("pieces:2");
    EXPECT_EQ(Ask("#SR", 50'000), "SR\r\n");
    line.HostWrites("#SR\r", 100'000);
    const auto pieces = Drain();
    ASSERT_EQ(pieces.size(), 4U);
    EXPECT_EQ(pieces[0], (Piece{100'000 + 4166 + 2000 + 1041, "S"}));
    EXPECT_EQ(pieces[3], (Piece{100'000 + 4166 + 2000 + 4166, "\n"}));
}

TEST_F(SimLine, ErrorRepliesHitOneCommandAndSilenceLasts) {
    Order("syntax-error:1");
    Order("out-of-range:2");
    Order("pll:3");
    Order("syntax-error:4");
    Order("silence:6");
    std::int64_t now = 0;
    std::vector<std::string> replies;
    replies.reserve(8);
    for (int i = 0; i < 8; ++i)
        replies.push_back(Ask("#SPA1", now += 100'000));
    EXPECT_EQ(replies,
              (std::vector<std::string>{"SPA1\r\n", "SYNTAX ERROR\r\n", "OUT OF RANGE\r\n",
                                        "PLL NOT LOCKED\r\n", "SYNTAX ERROR\r\n", "SPA1\r\n", "", ""}));
    line.ClearFaults();
    EXPECT_EQ(Ask("#SPA1", now + 100'000), "SPA1\r\n");
}

TEST_F(SimLine, GarbleSpoilsOneByteOfEachReply) {
    Order("garble:1");
    EXPECT_EQ(Ask("#SPWA00430", 0), "SPWA00430\r\n");
    for (std::int64_t i = 1; i < 50; ++i) {
        const std::string reply = Ask("#SPWA00430", i * 100'000);
        const std::string right = "SPWA00430\r\n";
        ASSERT_EQ(reply.size(), right.size());
        int different = 0;
        for (std::size_t at = 0; at < right.size(); ++at)
            different += reply[at] != right[at];
        EXPECT_EQ(different, 1);
    }
}

TEST_F(SimLine, AnEndlessReplyStreamsAtTheSpeedOfTheLineUntilTheCableIsPulled) {
    Order("endless:1");
    EXPECT_EQ(Ask("#SR", 0), "SR\r\n");
    line.HostWrites("#SAB?\r", 1'000'000);
    const std::string second = line.TakeDelivered(2'000'000);
    EXPECT_NEAR(static_cast<double>(second.size()), 952, 2);
    EXPECT_EQ(second.find_first_of("\r\n"), std::string::npos);
    line.HostWrites("#SR\r", 2'000'000);
    EXPECT_EQ(line.TakeDelivered(3'000'000).size(), 960U);
    EXPECT_LE(line.TakeDelivered(3'600'000'000'000).size(), 4096U);
    line.Unplug(3'600'000'000'000);
    line.Replug(3'600'000'000'001);
    (void)line.TakeDelivered(3'600'000'000'001);
    EXPECT_EQ(Ask("#SR", 3'600'001'000'000), "SR\r\n");
}

TEST_F(SimLine, UnplugAndReplugByThemselves) {
    Order("unplug:1");
    Order("replug:3");
    line.HostWrites("#SR\r#SR\r", 0);
    const std::int64_t pulled = 8333; // with the last byte of the second command
    EXPECT_EQ(line.NextEventUs(), pulled);
    EXPECT_TRUE(line.Plugged(pulled - 1));
    EXPECT_FALSE(line.Plugged(pulled));
    EXPECT_EQ(line.TakeDelivered(pulled), ""); // the first reply was still on its way
    EXPECT_EQ(line.NextEventUs(), pulled + 3'000'000);
    EXPECT_EQ(Ask("#SR", 100'000), "");
    EXPECT_TRUE(line.Plugged(pulled + 3'000'000));
    EXPECT_EQ(Ask("#SR", 4'000'000), "SR\r\n"); // it happens once
}

TEST_F(SimLine, SlowAndLooseContact) {
    Order("slow:250");
    line.HostWrites("#SR\r", 0);
    EXPECT_EQ(line.NextEventUs(), 4166 + 2000 + 250'000 + 4166);
    line.ClearFaults();
    Order("loose-contact:10");
    std::int64_t now = 1'000'000;
    for (const char* command : {"#SAB3", "#SFA09350", "#SFB09600", "#M2T1"})
        (void)Ask(command, now += 100'000);
    int over = 0;
    for (int i = 0; i < 60; ++i)
        over += std::stod(Ask("#IMP?", now += 100'000).substr(4, 7)) > -90;
    EXPECT_GT(over, 0);
}

TEST(SimFaults, AreOrderedByNameAndNumber) {
    EXPECT_EQ(ParseFault("unplug:40")->number, 40);
    EXPECT_EQ(ParseFault("replug")->number, 5);
    for (const char* text :
         {"", "quiet", "silence:", "silence:x", "silence:-1", "silence:1 ", "slow:99999999999"})
        EXPECT_FALSE(ParseFault(text)) << text;
}

} // namespace
} // namespace qor::sim
