#include "support/documents.h"

#include "bands/catalogue.h"
#include "results/read_document.h"

namespace qor {

ResultDocument RandomDocument(unsigned seed, ResultMethod method, std::size_t points) {
    std::mt19937 random(seed);
    const auto upTo = [&random](int most) {
        return static_cast<int>(random() % static_cast<unsigned>(most + 1));
    };
    static constexpr int Bands[] = {BandAmps, BandEgsm, BandDcs, BandUmts, BandPcs, BandUmts2};
    const int band = Bands[upTo(5)];
    const int imIndex = 1 + upTo(3);

    ResultDocument document;
    document.method = method;
    document.order = 2 * imIndex + 1;
    document.plan = DefaultPlan(band, imIndex, 0).value_or(FrequencyPlan{});
    if (method == ResultMethod::TwoTone) // a file knows the tones of its own method alone
        document.plan.f1Fix = document.plan.f2Fix = 0;
    else
        document.plan.f1 = document.plan.f2 = 0;
    document.power1 = document.power2 = static_cast<float>(20 + upTo(23));
    document.inDbc = upTo(1) == 1;
    document.model = "RT-DB22";
    document.serial = "SIM01";
    if (seed % 5 == 0)
        document.receiver = "R&S,FSV-7,\"101\",1.0";
    document.date = "20260307";
    document.time = "09:05";

    // Levels are stated in hundredths, from the noise up to above the limit.
    const auto level = [&] { return static_cast<float>(-17000 + upTo(17100)) / 100.0f; };
    const auto put = [&](std::vector<ResultPoint>& to, double x, bool gaps) {
        const bool missing = upTo(19) == 0;
        const float value = level();
        if (!missing && value != 0.0f)
            to.push_back({x, value});
        else if (gaps)
            to.push_back({x, 0.0f});
    };
    document.runs.resize(1);
    ResultRun& run = document.runs.front();
    const int step = 1 + upTo(9);
    const int first = 8000 + upTo(10000);
    for (std::size_t i = 0; i < points; ++i) {
        const int at = step * static_cast<int>(i);
        if (method == ResultMethod::TwoTone) {
            put(run.up, 10 * at / 1000.0, true);
        } else {
            put(run.up, (first + at) / 10.0, false);
            put(run.down, (first + at) / 10.0, false);
        }
    }
    for (auto* half : {&run.up, &run.down}) {
        while (!half->empty() && !half->back().HasLevel())
            half->pop_back();
    }
    if (run.up.empty())
        run.up = {{method == ResultMethod::TwoTone ? 0.0 : 890.0, -100.0f}};
    CompleteRead(document);
    return document;
}

} // namespace qor
