#include "bands/catalogue.h"
#include "curve/curve.h"
#include "curve/plot_geometry.h"
#include "curve/readout.h"
#include "support/curves.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <tuple>
#include <unistd.h>

namespace qor {
namespace {

std::unique_ptr<Curve> NewCurve(bool sweep = false) {
    auto curve = std::make_unique<Curve>();
    if (sweep)
        test::MakeSweep(*curve);
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
                curve->scale.SetUnit(carrier != 0);
                curve->scale.SetCarrier(Decimal(carrier));
                curve->limit.Take(Decimal(limit - carrier));
                curve->Put(7, Decimal(limit + above));
                test::Complete(*curve);
                EXPECT_EQ(curve->ShownVerdict(), above > 1 ? Verdict::Failed : Verdict::Passed)
                    << limit << " " << carrier << " " << above;
            }
        }
    }
}

TEST(CurveVerdict, EveryLevelIsHeldAgainstTheLimit) {
    for (const float level : {5.0f, 0.01f, -0.5f, -80.0f, -99.0f}) {
        auto curve = NewCurve(true);
        curve->Put(3, level, CurveSide::Down);
        EXPECT_EQ(curve->ShownVerdict(), level > -90 ? Verdict::Failed : Verdict::None) << level;
        test::Complete(*curve);
        EXPECT_EQ(curve->ShownVerdict(), level > -90 ? Verdict::Failed : Verdict::Passed) << level;
        curve->limit.SetAlarm(false);
        EXPECT_EQ(curve->ShownVerdict(), Verdict::None) << level;
    }
    for (const float zero : {0.0f, -0.004f, 0.004f})
        EXPECT_EQ(AsPoint(zero), 0.01f) << "written 0.00 it would be no level";
    EXPECT_EQ(AsPoint(-0.006f), -0.006f);
}

TEST(CurveMaxima, TheEarlierPointStaysUntilOneIsHigherByMoreThanFiveHundredths) {
    struct Case {
        std::vector<int> hundredths;
        int index;
    };
    for (const Case& c :
         {Case{{-10000, -10000}, 0}, Case{{-10000, -9995}, 0}, Case{{-10000, -9994}, 1},
          Case{{-9730, -9725, -9724}, 2}, Case{{-12013, -12008}, 0}, Case{{-12013, -12007}, 1},
          Case{{-9900, -50, -99}, 1}, Case{{-9900, 500}, 1}, Case{{0, 0, -11000}, 2}}) {
        auto curve = NewCurve();
        for (std::size_t i = 0; i < c.hundredths.size(); ++i)
            curve->Put(i, Decimal(c.hundredths[i]));
        curve->Update(true);
        curve->SearchMaxima();
        EXPECT_EQ(curve->MaxUp().index, c.index) << c.hundredths[0] << " " << c.hundredths[1];
        EXPECT_EQ(curve->MaxUp().level, Decimal(c.hundredths[static_cast<std::size_t>(c.index)]));
    }
}

TEST(CurveMaxima, TheWorstPointOfASweepIsOfBothDirectionsAndInTheUnitShown) {
    auto curve = NewCurve(true);
    curve->SetGrid(std::vector<float>{890, 891}, 1);
    curve->scale.SetUnit(1);
    curve->scale.SetCarrier(43.0f);
    const auto worst = [&curve](int up, int down) {
        curve->Put(0, Decimal(up));
        curve->Put(1, Decimal(down), CurveSide::Down);
        curve->Update(true);
        curve->SearchMaxima();
        return WorstFrequency(*curve).value_or(0);
    };
    EXPECT_EQ(worst(-10000, -9995), 890.0f);
    EXPECT_FLOAT_EQ(*ShownWorstLevel(*curve), -143.0f);
    EXPECT_EQ(worst(-10000, -9994), 891.0f);
    EXPECT_FLOAT_EQ(*ShownWorstLevel(*curve), -142.94f);
    EXPECT_EQ(worst(0, -9900), 891.0f) << "a curve without a point never counts";
    EXPECT_EQ(worst(500, -9900), 890.0f) << "a level above 0 does";
    EXPECT_EQ(worst(0, 0), 0.0f);
    EXPECT_FALSE(ShownWorstLevel(*curve)) << "a worst point that has gone";
}

TEST(CurveRuns, OneRunIsShownAloneAndAllComeBack) {
    auto curve = NewCurve(true);
    for (int run = 0; run < 4; ++run) {
        if (run > 0)
            curve->EndRun();
        curve->BeginSweep();
        curve->Put(1, -100.0f + static_cast<float>(run));
        curve->Put(2, -110.0f - static_cast<float>(run), CurveSide::Down);
        curve->Update(true);
    }
    const auto shown = [&curve](int run) {
        curve->ShowRun(run);
        curve->Update(true);
        curve->SearchMaxima();
        std::vector<float> levels;
        for (std::size_t row = 0; row < 4; ++row) {
            levels.push_back(curve->ShownUp(row)[1]);
            levels.push_back(curve->ShownDown(row)[2]);
        }
        return levels;
    };
    EXPECT_EQ(shown(3), (std::vector<float>{0, 0, 0, 0, -98, -112, 0, 0}));
    EXPECT_EQ(curve->MaxUp().level, -98.0f);
    EXPECT_EQ(shown(0), (std::vector<float>{-100, -110, -99, -111, -98, -112, -97, -113}));
    EXPECT_EQ(curve->MaxUp().level, -97.0f);
    EXPECT_EQ(curve->MaxDown().level, -110.0f);

    curve->Clear();
    EXPECT_EQ(curve->Run(), 0);
    EXPECT_FALSE(curve->HoldsPoints());
    EXPECT_EQ(shown(0), std::vector<float>(8));
    EXPECT_EQ(shown(2), std::vector<float>(8));
}

/// The maximum of the runs in view, point by point from the first on.
CurveMaximum SearchAll(const Curve& curve, CurveSide side) {
    CurveMaximum best;
    const bool single = curve.ShownRun() > 0;
    const std::size_t first = single ? static_cast<std::size_t>(curve.ShownRun()) - 1 : 0;
    for (std::size_t row = first; row <= (single ? first : curve.Row()); ++row) {
        const auto levels = side == CurveSide::Up ? curve.ShownUp(row) : curve.ShownDown(row);
        for (std::size_t i = 0; i < levels.size(); ++i) {
            if (IsPresent(levels[i]) && (best.level == 0 || levels[i] > best.level + 0.0505f))
                best = {levels[i], static_cast<int>(i)};
        }
        if (best.level == 0)
            break; // without a first run there is nothing to compare with
    }
    return best;
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
            curve->Clear();
            break;
        case 1:
            curve->EndRun();
            curve->BeginSweep();
            break;
        case 2:
            curve->ShowRun(any(0, curve->Run() + 1));
            break;
        default:
            curve->Put(static_cast<std::size_t>(any(0, 9)), Decimal(any(-12000, -11900)));
            curve->Put(static_cast<std::size_t>(any(0, 9)), Decimal(any(-12000, -11900)), CurveSide::Down);
        }
        curve->Update(true);
        curve->SearchMaxima();
        ASSERT_EQ(curve->MaxUp(), SearchAll(*curve, CurveSide::Up)) << step;
        ASSERT_EQ(curve->MaxDown(), SearchAll(*curve, CurveSide::Down)) << step;
    }
}

TEST(CurveMaxima, EveryPointOfAnUnevenGridIsSearched) {
    auto curve = NewCurve();
    // The falling list lies 0.4 MHz beside the rising one.
    BuildSweepGrid(*curve, BandEgsm, {2, 1}, {0, 0, 925.0f, 935.0f, 960.0f, 960.0f, 940.0f, 925.2f, 1.0f});
    const std::size_t length = curve->Steps();
    ASSERT_GT(static_cast<float>(length), curve->Grid()[length - 1] - curve->Grid()[0] + 1.0f);
    curve->Put(0, -110.0f);
    curve->Put(length - 1, -90.5f);
    curve->Update(true);
    curve->SearchMaxima();
    EXPECT_EQ(curve->WorstLevel(), -90.5f);
    EXPECT_EQ(curve->WorstFrequency(), curve->Grid()[length - 1]);
}

TEST(CurveRuns, TheLastRowHoldsEveryRunBeyondIt) {
    auto curve = NewCurve(true);
    for (; curve->Run() < 1003; curve->EndRun()) {
        curve->Put(1999, curve->Run() == 1002 ? -90.5f : -100.0f);
        curve->Update(true);
    }
    EXPECT_EQ(curve->Row(), 999U);
    for (const int shown : {0, 1000, 1001, 100000, -1}) {
        curve->ShowRun(shown);
        curve->SearchMaxima();
        EXPECT_EQ(curve->MaxUp().level, -90.5f) << shown;
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
    curve->SetRuns(1000);
    for (; curve->Run() < 9; curve->EndRun())
        curve->Update(true);
    curve->SearchMaxima();
    curve->Clear();
    EXPECT_LT(Resident() - before, Matrices / 10);
}

std::vector<float> GridOf(const Curve& curve) {
    return {curve.Grid().begin(), curve.Grid().begin() + static_cast<std::ptrdiff_t>(curve.Steps())};
}

TEST(CurveGrid, ASweepHasTheFrequenciesOfBothDirectionsOnce) {
    auto curve = NewCurve();
    //                                f1 f2  from   to   f2   from   to   f1   step
    const FrequencyPlan plan = {0, 0, 925.0f, 927.0f, 960.0f, 958.0f, 955.0f, 926.0f, 0.5f};
    BuildSweepGrid(*curve, BandEgsm, {2, 1}, plan);
    // Up: 890 to 894 in steps of 1. Down: 894 to 897 in steps of 0.5.
    EXPECT_EQ(GridOf(*curve),
              (std::vector<float>{890, 891, 892, 893, 894, 894.5, 895, 895.5, 896, 896.5, 897}));

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
                EXPECT_GE(curve->Find(ImFrequency(band, c, f1, plan->f2Fix)), 0) << band << " " << order;
            }
            for (int k = 0; plan->f2Start - static_cast<float>(k) * 0.5f >= plan->f2Stop; ++k) {
                const float f2 = plan->f2Start - static_cast<float>(k) * 0.5f;
                EXPECT_GE(curve->Find(ImFrequency(band, c, plan->f1Fix, f2)), 0) << band << " " << order;
            }
        }
    }
}

TEST(CurveGrid, ToleranceIsStrictAndNothingOverruns) {
    auto curve = NewCurve();
    curve->SetGrid(std::vector<float>{0.25f, 900.0f}, 1);
    EXPECT_EQ(curve->Find(900.04f), 1);
    EXPECT_EQ(curve->Find(899.96f), 1);
    EXPECT_EQ(curve->Find(900.06f), -1);
    EXPECT_EQ(curve->Find(0.0f), -1) << "the end of the grid is no frequency";
    EXPECT_EQ(curve->Find(std::numeric_limits<float>::quiet_NaN()), -1);

    for (const float step : {0.01f, 0.0f, -1.0f}) {
        BuildSweepGrid(*curve, BandEgsm, {2, 1}, {0, 0, 100.0f, 900.0f, 10.0f, 900.0f, 100.0f, 500.0f, step});
        BuildSpectrumGrid(*curve, BandEgsm, {0, 0, 100.0f, 900.0f, 10.0f, 900.0f, 100.0f, 500.0f, step});
        EXPECT_LE(GridOf(*curve).size(), CurvePoints);
        EXPECT_GE(ComputeLayout(*curve, 956, 606).pxPerStep, 1.0f);
    }
}

} // namespace
} // namespace qor
