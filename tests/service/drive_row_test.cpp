#include "service/calibration_protocol.h"
#include "service/drive_row.h"

#include <gtest/gtest.h>
#include <string>

namespace qor {
namespace {

/// An amplifier with 10 dB a volt: the drive of an entry, and the readings it took.
float Found(DriveRow& row, std::size_t index, float atZero, int& readings) {
    for (float drive = row.Middle(index);; drive = row.Middle(index)) {
        ++readings;
        row.Learn(index, row.Size(), drive, atZero + 10 * drive);
        if (row.IsFound(index))
            return drive;
    }
}

TEST(DriveRow, HalvesUntilTheLevelIsThereAndLearnsForTheOthers) {
    DriveRow row({30, 31, 32});
    int first = 0;
    EXPECT_NEAR(Found(row, 0, 10, first), 2.0f, 0.007f);
    EXPECT_LE(first, 10);
    int second = 0;
    EXPECT_NEAR(Found(row, 1, 10, second), 2.1f, 0.007f);
    EXPECT_LT(second, first); // what the first point read counts here, too
    EXPECT_FALSE(row.IsAtFirstBound(0));

    DriveRow next = row.Neighbour();
    EXPECT_NEAR(next.At(0).low, 1.8f, 0.01f);
    EXPECT_NEAR(next.At(0).high, 2.2f, 0.01f);
    int third = 0;
    EXPECT_NEAR(Found(next, 0, 11, third), 1.9f, 0.007f);
    EXPECT_LE(third, 7);
    // Too far away for its neighbourhood: found at the bound, and found in earnest from 0 to 5 V.
    DriveRow far = row.Neighbour();
    Found(far, 1, 16, third);
    EXPECT_TRUE(far.IsAtFirstBound(1));
    far.BeginAgain(1);
    EXPECT_NEAR(Found(far, 1, 16, third), 1.5f, 0.007f);
    EXPECT_FALSE(far.IsAtFirstBound(1));
}

TEST(DriveRow, AReadingNearTheTargetEndsTheSearchAtOnce) {
    DriveRow row({30});
    row.Learn(0, 1, 2.5f, 29.97f);
    EXPECT_TRUE(row.IsFound(0));
    DriveRow above({30});
    above.Learn(0, 1, 2.5f, 30.03f);
    EXPECT_TRUE(above.IsFound(0));
    DriveRow beside({30});
    beside.Learn(0, 1, 2.5f, 29.95f);
    EXPECT_FALSE(beside.IsFound(0));
}

CalibrationProtocol Protocol() {
    CalibrationHead head;
    head.plan.f1 = {925, 1, 926};
    head.plan.f2 = {960, 1, 960};
    head.plan.powStart = 36;
    head.plan.powDelta = 1;
    head.plan.powStop = 37;
    head.plan.attenuation = 40.25f;
    head.plan.useF1 = true;
    head.model = "RT-DA10";
    head.serial = "A,1";
    head.firmware = 6.0f;
    head.band = BandEgsm;
    return {head, "/nowhere/at/all.csv"};
}

TEST(CalibrationProtocol, IsReadAsItWasWrittenAndNothingElseIsTakenForOne) {
    CalibrationProtocol protocol = Protocol();
    CalibrationPoint point{1, 925, 36, 1.234f, -4.25f, {16, 43, 30}, 1234, PointState::Written};
    EXPECT_FALSE(protocol.Add(point)); // the folder is not there: told, and kept all the same
    point.mhz = 926;
    point.value = 1240;
    EXPECT_FALSE(protocol.Add(point));
    EXPECT_EQ(protocol.Points()[0].state, PointState::Replaced); // one address, the later point wins
    const std::string text = protocol.Text();
    const auto read = CalibrationProtocol::Parse(text);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->Text().size(), text.size());
    EXPECT_EQ(read->Head().plan.attenuation, 40.25f);
    EXPECT_EQ(read->Head().plan.f2.start, 960);
    EXPECT_FALSE(read->Head().plan.useF2);
    EXPECT_EQ(read->Find(1, 926, 36)->value, 1240);
    EXPECT_FALSE(read->Find(2, 926, 36));
    EXPECT_FALSE(read->IsFinished());
    // The last line was being written when the lights went out.
    const auto cut = CalibrationProtocol::Parse(text.substr(0, text.size() - 5));
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->Points().size(), 1u);
    for (const auto& [from, to] : {std::pair<std::string, std::string>{",43,30,", ",43,300,"},
                                   {"925,36.0", "925,x"},
                                   {"written", "wrote"},
                                   {"levels_dbm,36,1", "levels_dbm,36,0"},
                                   {"band,EGSM", "band,Wifi"}}) {
        std::string damaged = text;
        damaged.replace(damaged.rfind(from), from.size(), to);
        EXPECT_FALSE(CalibrationProtocol::Parse(damaged)) << to;
    }
    EXPECT_FALSE(CalibrationProtocol::Parse(""));
}

} // namespace
} // namespace qor
