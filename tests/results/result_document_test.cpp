#include "bands/catalogue.h"
#include "results/result_document.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

TEST(ResultDocument, TheTonesOfEveryStepOfASweepFollowFromItsProducts) {
    for (const int band : {BandEgsm, BandDigDiv, BandUmts, BandLte700U}) {
        for (int imIndex = 1; imIndex <= 5; ++imIndex) {
            const auto plan = StartPlan(band, imIndex, 0);
            if (!plan)
                continue;
            ResultDocument document;
            document.method = ResultMethod::Sweep;
            document.product = CoefficientsOf(imIndex);
            document.upperProduct = UsesUpperProduct(band);
            document.plan = *plan;
            for (float f1 = plan->f1Start; f1 <= plan->f1Stop; f1 += plan->step) {
                const double im = static_cast<double>(ImFrequency(band, document.product, f1, plan->f2Fix));
                const ResultTones tones = TonesAt(document, {im, -100}, false);
                EXPECT_NEAR(tones.f1, f1, 0.01) << band << " IM index " << imIndex;
                EXPECT_EQ(tones.f2, plan->f2Fix);
            }
            for (float f2 = plan->f2Start; f2 >= plan->f2Stop; f2 -= plan->step) {
                const double im = static_cast<double>(ImFrequency(band, document.product, plan->f1Fix, f2));
                const ResultTones tones = TonesAt(document, {im, -100}, true);
                EXPECT_EQ(tones.f1, plan->f1Fix);
                EXPECT_NEAR(tones.f2, f2, 0.01) << band << " IM index " << imIndex;
            }
        }
    }
}

TEST(ResultDocument, TheWorstPointIsTheEarliestOfThoseThatStandOut) {
    ResultDocument document;
    EXPECT_FALSE(WorstOf(document)) << "no run";
    document.plan.f1 = 935;
    document.plan.f2 = 960;
    document.runs = {{{{0, 0}, {0.1, -101}, {0.2, -100.95f}, {0.3, -0.5f}}, {}}, {{{0, 0.5f}}, {}}};
    EXPECT_EQ(WorstOf(document)->level, 0.5f) << "over all runs, and above the carrier too";
    EXPECT_EQ(WorstOf(document)->frequency, 910.0f) << "there is one product in 2-tone";
    EXPECT_EQ(PointsOf(document), 1U) << "of the last run";

    document.method = ResultMethod::Sweep;
    document.runs = {{{{890, -100}, {891, -99.96f}}, {{890, -99.95f}, {892, -99.94f}}}};
    EXPECT_EQ(WorstOf(document)->frequency, 892.0f);
    document.runs.back().down.pop_back();
    EXPECT_EQ(WorstOf(document)->frequency, 890.0f);
    EXPECT_EQ(WorstOf(document)->level, -100.0f) << "0.05 dB more do not stand out";
}

} // namespace
} // namespace qor
