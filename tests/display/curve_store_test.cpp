#include "bands/catalogue.h"
#include "display/curve_store.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <tuple>
#include <unistd.h>

namespace qor {
namespace {

std::unique_ptr<CurveState> NewCurve(bool sweep = false) {
    auto curve = std::make_unique<CurveState>();
    curve->g_pxPerStep = sweep ? 1.0f : 0.0f;
    return curve;
}

float Decimal(int hundredths) {
    return static_cast<float>(hundredths / 100.0);
}

TEST(CurveVerdict, ALevelMayStandAHundredthAboveTheLimit) {
    // In hundredths of a dB. None of these decimals is exact as a float: each errs another way.
    for (const int limit : {-9000, -9730, -11000, -12340, -8770}) {
        for (const int carrier : {0, 4300, 4270}) {
            for (const int above : {-500, 0, 1, 2, 300}) {
                auto curve = NewCurve();
                curve->g_UnitDbc = carrier != 0;
                curve->g_CarrierDbm = Decimal(carrier);
                curve->g_alarmLevel = Decimal(limit - carrier);
                curve->g_levelUp[7] = Decimal(limit + above);
                UpdateCurveArrays(*curve, true);
                EXPECT_EQ(curve->g_MeasVerdict, above > 1 ? VerdictOverLimit : VerdictNone)
                    << limit << " " << carrier << " " << above;
            }
        }
    }
}

TEST(CurveVerdict, OnlyANegativeLevelIsJudgedAndAnErrorOfTheInstrumentStays) {
    struct Case {
        float level;
        int alarmOff;
        int before;
        int after;
    };
    for (const Case& c :
         {Case{5.0f, 0, VerdictNone, VerdictNone}, Case{0.0f, 0, VerdictNone, VerdictNone},
          Case{-80.0f, 1, VerdictNone, VerdictNone}, Case{-80.0f, 0, VerdictPassed, VerdictOverLimit},
          Case{-99.0f, 0, VerdictOverLimit, VerdictOverLimit},
          Case{-80.0f, 0, VerdictOutOfRange, VerdictOutOfRange}}) {
        auto curve = NewCurve(true);
        curve->g_levelDown[3] = c.level;
        curve->g_alarmOff = c.alarmOff;
        curve->g_MeasVerdict = c.before;
        UpdateCurveArrays(*curve, true);
        EXPECT_EQ(curve->g_MeasVerdict, c.after) << c.level << " " << c.before;
    }
    for (const auto& [before, after] :
         {std::pair{0, 1001}, {1, 101}, {101, 101}, {2, 2}, {3, 3}, {4, 4}, {1001, 1001}}) {
        auto curve = NewCurve();
        curve->g_MeasVerdict = before;
        SettleVerdict(*curve);
        EXPECT_EQ(curve->g_MeasVerdict, after);
    }
}

TEST(CurveMaxima, TheEarlierPointStaysUntilOneIsHigherByMoreThanFiveHundredths) {
    struct Case {
        std::vector<int> hundredths;
        int index;
    };
    for (const Case& c : {Case{{-10000, -10000}, 0}, Case{{-10000, -9995}, 0}, Case{{-10000, -9994}, 1},
                          Case{{-9730, -9725, -9724}, 2}, Case{{-12013, -12008}, 0},
                          Case{{-12013, -12007}, 1}, Case{{-50, -9900, -99}, 1}, Case{{0, 0, -11000}, 2}}) {
        auto curve = NewCurve();
        for (std::size_t i = 0; i < c.hundredths.size(); ++i)
            curve->g_levelUp[i] = Decimal(c.hundredths[i]);
        UpdateCurveArrays(*curve, true);
        SearchMaxima(*curve);
        EXPECT_EQ(curve->g_maxUpIndex, c.index) << c.hundredths[0] << " " << c.hundredths[1];
        EXPECT_EQ(curve->g_maxUpLevel, Decimal(c.hundredths[static_cast<std::size_t>(c.index)]));
    }
}

TEST(CurveMaxima, TheWorstPointOfASweepIsOfBothDirectionsAndInTheUnitShown) {
    auto curve = NewCurve(true);
    curve->g_freqGrid[0] = 890;
    curve->g_freqGrid[1] = 891;
    curve->g_UnitDbc = 1;
    curve->g_CarrierDbm = 43.0f;
    const auto worst = [&curve](int up, int down) {
        curve->g_levelUp[0] = Decimal(up);
        curve->g_levelDown[1] = Decimal(down);
        UpdateCurveArrays(*curve, true);
        SearchMaxima(*curve);
        return curve->g_worstFreq;
    };
    EXPECT_EQ(worst(-10000, -9995), 890.0f);
    EXPECT_FLOAT_EQ(curve->g_worstLevel, -143.0f);
    EXPECT_EQ(worst(-10000, -9994), 891.0f);
    EXPECT_FLOAT_EQ(curve->g_worstLevel, -142.94f);
    EXPECT_EQ(worst(0, -9900), 891.0f) << "a curve without a point never counts";
    EXPECT_EQ(worst(500, -9900), 891.0f) << "nor does one above -0.1";
}

TEST(CurveRuns, OneRunIsShownAloneAndAllComeBack) {
    auto curve = NewCurve(true);
    for (int run = 0; run < 4; ++run) {
        curve->g_runIndex = run;
        ClearLevels(*curve);
        curve->g_levelUp[1] = -100.0f + static_cast<float>(run);
        curve->g_levelDown[2] = -110.0f - static_cast<float>(run);
        UpdateCurveArrays(*curve, true);
    }
    const auto shown = [&curve](int run) {
        curve->g_shownRun = run;
        UpdateCurveArrays(*curve, true);
        SearchMaxima(*curve);
        std::vector<float> levels;
        for (std::size_t row = 0; row < 4; ++row) {
            levels.push_back(curve->m_LevelUp.Row(row)[1]);
            levels.push_back(curve->m_LevelDown.Row(row)[2]);
        }
        return levels;
    };
    EXPECT_EQ(shown(3), (std::vector<float>{0, 0, 0, 0, -98, -112, 0, 0}));
    EXPECT_EQ(curve->g_maxUpLevel, -98.0f);
    EXPECT_EQ(shown(0), (std::vector<float>{-100, -110, -99, -111, -98, -112, -97, -113}));
    EXPECT_EQ(curve->g_maxUpLevel, -97.0f);
    EXPECT_EQ(curve->g_maxDownLevel, -110.0f);

    ResetCurve(*curve);
    EXPECT_EQ(curve->g_runIndex, 0);
    ClearLevels(*curve);
    EXPECT_FALSE(HoldsPoints(*curve));
    EXPECT_EQ(shown(0), std::vector<float>(8));
    EXPECT_EQ(shown(2), std::vector<float>(8));
}

TEST(CurveMaxima, WhatIsKnownOfFinishedRunsIsWhatASearchOfAllFinds) {
    std::mt19937 random(7);
    const auto any = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    auto curve = NewCurve(true);
    for (int step = 0; step < 2000; ++step) {
        switch (any(0, 19)) {
        case 0:
            ResetCurve(*curve);
            ClearLevels(*curve);
            break;
        case 1:
            ++curve->g_runIndex;
            ClearLevels(*curve);
            break;
        case 2:
            curve->g_shownRun = any(0, curve->g_runIndex + 1);
            break;
        default:
            curve->g_levelUp[static_cast<std::size_t>(any(0, 9))] = Decimal(any(-12000, -11900));
            curve->g_levelDown[static_cast<std::size_t>(any(0, 9))] = Decimal(any(-12000, -11900));
        }
        UpdateCurveArrays(*curve, true);
        SearchMaxima(*curve);
        const auto found = [&curve] {
            return std::tuple(curve->g_maxUpLevel, curve->g_maxUpIndex, curve->g_maxDownLevel,
                              curve->g_maxDownIndex, curve->g_worstLevel);
        };
        const auto known = found();
        const auto kept = std::pair(curve->m_FinishedUp, curve->m_FinishedDown);
        curve->m_FinishedUp = curve->m_FinishedDown = {};
        SearchMaxima(*curve);
        ASSERT_EQ(known, found()) << step;
        std::tie(curve->m_FinishedUp, curve->m_FinishedDown) = kept;
    }
}

TEST(CurveMaxima, EveryPointOfAnUnevenGridIsSearched) {
    auto curve = NewCurve();
    // The falling list lies 0.4 MHz beside the rising one.
    curve->g_SweepStep = 1;
    BuildSweepGrid(*curve, BandEgsm, {2, 1}, {0, 0, 925.0f, 935.0f, 960.0f, 960.0f, 940.0f, 925.2f, 1.0f});
    const std::size_t length = GridLength(curve->g_freqGrid);
    ASSERT_GT(static_cast<float>(length), 800.0f / curve->g_pxPerStep + 1.0f);
    curve->g_levelUp[0] = -110.0f;
    curve->g_levelUp[length - 1] = -90.5f;
    UpdateCurveArrays(*curve, true);
    SearchMaxima(*curve);
    EXPECT_EQ(curve->g_worstLevel, -90.5f);
    EXPECT_EQ(curve->g_worstFreq, curve->g_freqGrid[length - 1]);
}

TEST(CurveRuns, TheLastRowHoldsEveryRunBeyondIt) {
    auto curve = NewCurve(true);
    for (curve->g_runIndex = 0; curve->g_runIndex < 1003; ++curve->g_runIndex) {
        curve->g_levelUp[1999] = curve->g_runIndex == 1002 ? -90.5f : -100.0f;
        UpdateCurveArrays(*curve, true);
    }
    EXPECT_EQ(curve->m_RowsUsed, 1000);
    for (const int runIndex : {1002, 100000, -1}) {
        for (const int shown : {0, 1000, 1001, 100000, -1}) {
            curve->g_runIndex = runIndex;
            curve->g_shownRun = shown;
            SearchMaxima(*curve);
            EXPECT_EQ(curve->g_maxUpLevel, runIndex < 0 && shown != 1000 ? -100.0f : -90.5f) << shown;
        }
    }
}

/// Memory of this process that is really there, bytes.
long Resident() {
    long total = 0;
    long resident = 0;
    std::FILE* file = std::fopen("/proc/self/statm", "re");
    EXPECT_EQ(std::fscanf(file, "%ld %ld", &total, &resident), 2);
    std::fclose(file);
    return resident * ::sysconf(_SC_PAGESIZE);
}

TEST(CurveRuns, MemoryIsTakenForTheRowsInUseOnly) {
    constexpr long Matrices = 4L * CurveRuns * CurvePoints * sizeof(float);
    const long before = Resident();
    auto curve = NewCurve(true);
    curve->g_runCount = 1000;
    for (curve->g_runIndex = 0; curve->g_runIndex < 9; ++curve->g_runIndex)
        UpdateCurveArrays(*curve, true);
    SearchMaxima(*curve);
    ResetCurve(*curve);
    EXPECT_LT(Resident() - before, Matrices / 10);
}

TEST(CurveTime, ThePlotTheReceiverAndALoadedFileDecideTheTimePerPoint) {
    struct Case {
        int length, width, reply;
        bool internal;
        int forced;
        int time;
    };
    for (const Case& c : {Case{5000, 800, 0, true, 0, 100}, Case{600000, 800, 0, true, 0, 751},
                          Case{5000, 800, 140, true, 0, 140}, Case{5000, 800, 140, false, 0, 100},
                          Case{600000, 800, 140, true, 50, 50}, Case{0, 0, 0, true, 0, 1001},
                          Case{1999000, 5000, 0, true, 0, 1000}}) {
        auto curve = NewCurve();
        curve->g_testTimeMs = c.length;
        curve->g_plotWidth = c.width;
        curve->RealReceiveTime = c.reply;
        curve->g_forcedMsPerPoint = c.forced;
        UpdateTimePerPoint(*curve, c.internal);
        EXPECT_EQ(curve->tone2SetTimes, c.time) << c.length << " " << c.width;
    }
}

std::vector<float> GridOf(const CurveState& curve) {
    return {curve.g_freqGrid.begin(),
            curve.g_freqGrid.begin() + static_cast<std::ptrdiff_t>(GridLength(curve.g_freqGrid))};
}

TEST(CurveGrid, ASweepHasTheFrequenciesOfBothDirectionsOnce) {
    auto curve = NewCurve();
    //                                f1 f2  from   to   f2   from   to   f1   step
    const FrequencyPlan plan = {0, 0, 925.0f, 927.0f, 960.0f, 958.0f, 955.0f, 926.0f, 0.5f};
    curve->g_SweepStep = plan.step;
    BuildSweepGrid(*curve, BandEgsm, {2, 1}, plan);
    // Up: 890 to 894 in steps of 1. Down: 894 to 897 in steps of 0.5.
    EXPECT_EQ(GridOf(*curve),
              (std::vector<float>{890, 891, 892, 893, 894, 894.5, 895, 895.5, 896, 896.5, 897}));
    EXPECT_FLOAT_EQ(curve->g_pxPerStep, 800.0f / 14.0f);

    // The upper product: 2 f2 - f1, with f2 rising and f1 falling.
    const FrequencyPlan upper = {0, 0, 728.0f, 731.0f, 760.0f, 760.0f, 757.5f, 730.0f, 0.5f};
    BuildSweepGrid(*curve, BandLte700U, {2, 1}, upper);
    EXPECT_EQ(GridOf(*curve),
              (std::vector<float>{785, 786, 787, 788, 789, 789.5, 790, 790.5, 791, 791.5, 792}));

    BuildSpectrumGrid(*curve, BandEgsm, plan);
    EXPECT_EQ(GridOf(*curve), (std::vector<float>{890, 891, 892, 893, 894}));
    BuildSpectrumGrid(*curve, BandLte700U, upper);
    EXPECT_EQ(GridOf(*curve), (std::vector<float>{789, 789.5, 790, 790.5, 791, 791.5, 792}));
}

TEST(CurveGrid, EveryStepOfEveryStandardPlanIsOnItsGrid) {
    auto curve = NewCurve();
    for (int band = 1; band <= 22; ++band) {
        for (int order = 1; order <= 5; ++order) {
            auto plan = StartPlan(band, order, 0);
            if (!plan)
                continue;
            plan->step = 0.5f;
            const ImCoefficients c = CoefficientsOf(order);
            BuildSweepGrid(*curve, band, c, *plan);
            const auto grid = GridOf(*curve);
            EXPECT_TRUE(std::is_sorted(grid.begin(), grid.end()));
            EXPECT_EQ(
                std::adjacent_find(grid.begin(), grid.end(), [](float a, float b) { return b - a < 0.05f; }),
                grid.end());
            for (int k = 0; plan->f1Start + static_cast<float>(k) * 0.5f <= plan->f1Stop; ++k) {
                const float f1 = plan->f1Start + static_cast<float>(k) * 0.5f;
                EXPECT_GE(FindOnGrid(*curve, ImFrequency(band, c, f1, plan->f2Fix)), 0)
                    << band << " " << order;
            }
            for (int k = 0; plan->f2Start - static_cast<float>(k) * 0.5f >= plan->f2Stop; ++k) {
                const float f2 = plan->f2Start - static_cast<float>(k) * 0.5f;
                EXPECT_GE(FindOnGrid(*curve, ImFrequency(band, c, plan->f1Fix, f2)), 0)
                    << band << " " << order;
            }
        }
    }
}

TEST(CurveGrid, ToleranceIsStrictAndNothingOverruns) {
    auto curve = NewCurve();
    curve->g_freqGrid[0] = 0.25f;
    curve->g_freqGrid[1] = 900.0f;
    EXPECT_EQ(FindOnGrid(*curve, 900.04f), 1);
    EXPECT_EQ(FindOnGrid(*curve, 899.96f), 1);
    EXPECT_EQ(FindOnGrid(*curve, 900.06f), -1);
    EXPECT_EQ(FindOnGrid(*curve, 0.0f), -1) << "the end of the grid is no frequency";
    EXPECT_EQ(FindOnGrid(*curve, std::numeric_limits<float>::quiet_NaN()), -1);

    for (const float step : {0.01f, 0.0f, -1.0f}) {
        curve->g_SweepStep = step;
        BuildSweepGrid(*curve, BandEgsm, {2, 1}, {0, 0, 100.0f, 900.0f, 10.0f, 900.0f, 100.0f, 500.0f, step});
        BuildSpectrumGrid(*curve, BandEgsm, {0, 0, 100.0f, 900.0f, 10.0f, 900.0f, 100.0f, 500.0f, step});
        EXPECT_LE(GridOf(*curve).size(), CurvePoints);
        EXPECT_GE(curve->g_pxPerStep, 1.0f);
    }
}

} // namespace
} // namespace qor
