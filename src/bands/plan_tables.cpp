#include "bands/plan_tables.h"

namespace qor {

namespace {

/// Where a tone may go further with a 3-dB bridge: MHz without it, and what the bridge adds.
struct Tone {
    float base;
    int perBridge = 0;
};

struct PlanRow {
    unsigned sources;
    int band;
    int imIndex;
    float f1, f2, f1Start;
    Tone f1Stop;
    float f2Fix, f2Start;
    Tone f2Stop;
    float f1Fix;
};

constexpr unsigned Setup = static_cast<unsigned>(PlanSource::Setup);
constexpr unsigned Start = static_cast<unsigned>(PlanSource::Start);
constexpr unsigned Activation = static_cast<unsigned>(PlanSource::Activation);
constexpr unsigned Everyone = Setup | Start | Activation;

// DIG-DIV is run with other frequencies than its setup pages offer.
//
// Columns: who, band, order; f1, f2; f1 from, to, f2 held at; f2 from, to, f1 held at.
constexpr PlanRow PlanRows[] = {
    {Everyone, BandAmps, 1, 869, 894, 869, {871}, 894, 894, {889}, 869},
    {Everyone, BandAmps, 2, 871, 894, 871, {879}, 894, 891, {885, -6}, 869},
    {Everyone, BandAmps, 3, 877, 894, 877, {880, 2}, 894, 894, {887}, 877},
    {Everyone, BandAmps, 4, 880, 894, 873, {877}, 885, 894, {888}, 880},
    {Everyone, BandAmps, 5, 885, 894, 883, {886, 2}, 894, 878, {873}, 869},
    {Everyone, BandEgsm, 1, 935, 960, 925, {937}, 960, 960, {946, -11}, 925},
    {Everyone, BandEgsm, 2, 934, 960, 934, {939, 6}, 960, 947, {946, -16}, 925},
    {Everyone, BandEgsm, 3, 939, 950, 930, {938}, 946, 958, {947}, 939},
    {Everyone, BandEgsm, 4, 939, 950, 933, {939}, 946, 953, {946, -1}, 939},
    {Everyone, BandEgsm, 5, 950, 960, 947, {952}, 960, 934, {927}, 925},
    {Everyone, BandLte, 1, 745, 792, 746, {761}, 793, 792, {775}, 745},
    {Everyone, BandLte, 2, 745, 768, 762, {772}, 793, 768, {753}, 745},
    {Everyone, BandLte, 3, 745, 760, 770, {777}, 793, 760, {750}, 745},
    {Everyone, BandLte, 4, 745, 756, 774, {780}, 793, 756, {749}, 745},
    {Everyone, BandLte, 5, 780, 793, 778, {782}, 793, 754, {748}, 745},
    {Everyone, BandDcs, 1, 1825, 1875, 1805, {1832}, 1880, 1880, {1855, -30}, 1805},
    {Everyone, BandDcs, 2, 1824, 1880, 1824, {1840, 8}, 1880, 1880, {1868}, 1840},
    {Everyone, BandDcs, 3, 1838, 1880, 1838, {1840, 16}, 1880, 1880, {1859}, 1840},
    {Everyone, BandDcs, 4, 1840, 1872, 1826, {1840, 1}, 1855, 1872, {1855, -1}, 1840},
    {Everyone, BandDcs, 5, 1855, 1880, 1852, {1864, 16}, 1880, 1824, {1809}, 1805},
    {Everyone, BandUmts, 1, 2110, 2170, 2110, {2115}, 2170, 2170, {2160}, 2110},
    {Everyone, BandUmts, 2, 2110, 2170, 2110, {2130, 3}, 2170, 2170, {2150, -15}, 2110},
    {Everyone, BandUmts, 3, 2110, 2170, 2110, {2130, 12}, 2170, 2170, {2150, -23}, 2110},
    {Everyone, BandUmts, 4, 2120, 2170, 2120, {2130, 18}, 2170, 2157, {2150, -27}, 2110},
    {Everyone, BandUmts, 5, 2130, 2170, 2129, {2151, 12}, 2170, 2148, {2120, -23}, 2110},
    {Everyone, BandPcs, 1, 1930, 1990, 1930, {1950}, 1990, 1990, {1972, -22}, 1930},
    {Everyone, BandPcs, 2, 1944, 1990, 1944, {1950, 13}, 1990, 1990, {1972, -2}, 1950},
    {Everyone, BandPcs, 3, 1950, 1980, 1942, {1950, 6}, 1972, 1983, {1972, -8}, 1950},
    {Everyone, BandPcs, 4, 1950, 1972, 1948, {1950, 9}, 1972, 1975, {1972, -12}, 1950},
    {Everyone, BandPcs, 5, 1970, 1990, 1967, {1976, 6}, 1990, 1946, {1934, -8}, 1930},
    {Everyone, BandWiMax, 1, 3520, 3594, 3510, {3539}, 3594, 3594, {3560}, 3510},
    {Everyone, BandWiMax, 2, 3533, 3594, 3533, {3544, 13}, 3594, 3594, {3574}, 3544},
    {Everyone, BandWiMax, 3, 3544, 3580, 3523, {3541}, 3560, 3588, {3564}, 3544},
    {Everyone, BandWiMax, 4, 3544, 3577, 3530, {3544}, 3560, 3577, {3560, -1}, 3544},
    {Everyone, BandWiMax, 5, 3565, 3594, 3564, {3575}, 3594, 3530, {3516}, 3510},
    {Everyone, BandTdScdmaF, 1, 1900, 1920, 1900, {1905}, 1920, 1920, {1910}, 1900},
    {Everyone, BandTdScdmaF, 2, 1910, 1920, 1907, {1910}, 1920, 1910, {1905}, 1900},
    {Everyone, BandTdScdmaF, 3, 1910, 1920, 1910, {1912}, 1920, 1906, {1904}, 1900},
    {Everyone, BandTdScdmaF, 4, 1912, 1920, 1912, {1914}, 1920, 1905, {1903}, 1900},
    {Everyone, BandTdScdmaF, 5, 1915, 1920, 1914, {1915}, 1920, 1904, {1902}, 1900},
    {Everyone, BandUmts2, 1, 2620, 2665, 2620, {2635}, 2690, 2690, {2660}, 2620},
    {Everyone, BandUmts2, 2, 2620, 2645, 2627, {2653}, 2690, 2680, {2640}, 2620},
    {Everyone, BandUmts2, 3, 2620, 2635, 2643, {2662}, 2690, 2660, {2634}, 2620},
    {Everyone, BandUmts2, 4, 2620, 2630, 2652, {2668}, 2690, 2650, {2630}, 2620},
    {Everyone, BandUmts2, 5, 2620, 2630, 2659, {2671}, 2690, 2644, {2628}, 2620},
    {Setup, BandDigDiv, 1, 791, 821, 791, {810}, 821, 821, {812}, 791},
    {Setup, BandDigDiv, 2, 791, 814, 801, {815}, 821, 814, {805}, 791},
    {Setup, BandDigDiv, 3, 791, 808, 808, {817}, 821, 808, {802}, 791},
    {Setup, BandDigDiv, 4, 791, 805, 811, {818}, 821, 805, {800}, 791},
    {Setup, BandDigDiv, 5, 791, 802, 813, {818}, 821, 802, {798}, 791},
    {Start | Activation, BandDigDiv, 1, 792, 822, 792, {812}, 822, 822, {812}, 792},
    {Start | Activation, BandDigDiv, 2, 790, 814, 802, {817}, 822, 814, {804}, 790},
    {Start | Activation, BandDigDiv, 3, 790, 808, 809, {818}, 822, 808, {801}, 790},
    {Start | Activation, BandDigDiv, 4, 790, 804, 812, {819}, 822, 804, {799}, 790},
    {Start | Activation, BandDigDiv, 5, 816, 822, 815, {820}, 822, 803, {799}, 792},
    {Everyone, BandAws, 1, 1933, 2155, 1933, {1955}, 2155, 2150, {2110}, 1930},
    {Everyone, BandAws, 2, 1990, 2110, 1977, {1990}, 2110, 2130, {2110}, 1990},
    {Everyone, BandAws, 3, 1930, 1990, 1930, {1972}, 1990, 1990, {1934}, 1930},
    {Everyone, BandAws, 4, 1934, 1990, 1934, {1976}, 1990, 1985, {1933}, 1930},
    {Everyone, BandAws, 5, 2085, 2155, 2081, {2087}, 2155, 1974, {1966}, 1930},
    {Everyone, BandTdScdmaE, 1, 2350, 2400, 2350, {2370}, 2400, 2400, {2360}, 2350},
    {Everyone, BandTdScdmaE, 2, 2350, 2375, 2367, {2380}, 2400, 2375, {2355}, 2350},
    {Everyone, BandTdScdmaE, 3, 2350, 2366, 2375, {2385}, 2400, 2366, {2354}, 2350},
    {Everyone, BandTdScdmaE, 4, 2350, 2362, 2380, {2388}, 2400, 2362, {2353}, 2350},
    {Everyone, BandTdScdmaE, 5, 2385, 2400, 2384, {2390}, 2400, 2360, {2352}, 2350},
    {Setup | Start, BandWifi, 1, 2442, 2484, 2442, {2456}, 2484, 2484, {2456}, 2442},
    {Setup | Start, BandWifi, 2, 2458, 2484, 2456, {2465}, 2484, 2463, {2449}, 2442},
    {Setup | Start, BandWifi, 3, 2465, 2484, 2463, {2470}, 2484, 2456, {2447}, 2442},
    {Setup | Start, BandWifi, 4, 2469, 2484, 2468, {2472}, 2484, 2452, {2446}, 2442},
    {Setup | Start, BandWifi, 5, 2471, 2484, 2470, {2474}, 2484, 2450, {2445}, 2442},
    {Everyone, BandTetra390, 1, 390, 397, 390, {391}, 397, 397.5f, {395}, 390},
    {Everyone, BandTetra390, 2, 392, 397, 391.5f, {393}, 397, 395, {392.5f}, 390},
    {Everyone, BandTetra390, 3, 393, 397, 393, {394}, 397, 393, {392}, 390},
    {Setup, BandTetra390, 4, 394, 397, 394, {394.5f}, 397, 392.5f, {391.5f}, 390},
    {Everyone, BandTetra392, 1, 392, 400, 392, {394}, 400, 400, {396}, 392},
    {Everyone, BandTetra392, 2, 394, 400, 393.5f, {396}, 400, 398, {394}, 392},
    {Everyone, BandTetra392, 3, 395, 400, 395, {397}, 400, 396, {393.5f}, 392},
    {Setup, BandTetra392, 4, 397, 400, 396, {397.5f}, 400, 395, {393}, 392},
    {Activation, BandTetra422, 1, 422, 430, 422, {424}, 430, 430.5f, {426}, 422},
    {Activation, BandTetra422, 2, 424, 430, 424, {426}, 430, 428, {424}, 422},
    {Activation, BandTetra422, 3, 425, 430, 425, {427}, 430, 426, {424}, 422},
    {Activation, BandTetra462, 1, 462, 470, 462, {464}, 470, 470, {466}, 462},
    {Activation, BandTetra462, 2, 464.5f, 470, 464.5f, {466}, 470, 468, {466}, 462.5f},
    {Activation, BandTetra462, 3, 465, 470, 465, {467}, 470, 466, {464}, 462},
    {Everyone, BandLte700L, 1, 730, 760, 729, {738}, 760, 758, {740}, 728},
    {Everyone, BandLte700L, 2, 730, 745, 740, {745}, 760, 743, {734}, 728},
    {Everyone, BandLte700L, 3, 730, 740, 745, {749}, 760, 738, {732}, 728},
    {Everyone, BandLte700L, 4, 730, 737, 748, {751}, 760, 735, {731}, 728},
    {Everyone, BandLte700L, 5, 730, 736, 750, {752}, 760, 734, {731}, 728},
    {Everyone, BandLte700U, 1, 728, 760, 728, {744}, 760, 760, {752}, 728},
    {Everyone, BandLte700U, 2, 728, 751, 741, {752}, 760, 751, {744}, 728},
    {Everyone, BandLte700U, 3, 728, 745, 748, {754}, 760, 745, {740}, 728},
    {Everyone, BandLte700U, 4, 728, 742, 751, {756}, 760, 742, {738}, 728},
    {Everyone, BandLte700U, 5, 728, 739, 753, {756}, 760, 739, {736}, 728},
};

/// A single value in which band activation differs from the row that the others use.
struct ActivationValue {
    int band;
    int imIndex;
    float FrequencyPlan::*value;
    float mhz;
};

constexpr ActivationValue ActivationValues[] = {
    {BandTetra390, 1, &FrequencyPlan::f2Stop, 390},   {BandTetra390, 2, &FrequencyPlan::f1, 391.5f},
    {BandTetra390, 2, &FrequencyPlan::f1Fix, 391.5f}, {BandTetra392, 1, &FrequencyPlan::f2Start, 400.5f},
    {BandTetra392, 2, &FrequencyPlan::f1, 394.5f},    {BandTetra392, 2, &FrequencyPlan::f1Start, 394},
    {BandTetra392, 3, &FrequencyPlan::f2Stop, 394},
};

constexpr float At(Tone tone, int bridge) {
    return tone.base + static_cast<float>(tone.perBridge * bridge);
}

constexpr bool IsTetra(int band) {
    return band >= BandTetra390 && band <= BandTetra462;
}

} // namespace

std::optional<FrequencyPlan> FindPlan(PlanSource source, int band, int imIndex, int bridge) {
    for (const PlanRow& row : PlanRows) {
        if (row.band != band || row.imIndex != imIndex || (row.sources & static_cast<unsigned>(source)) == 0)
            continue;
        FrequencyPlan plan{row.f1,
                           row.f2,
                           row.f1Start,
                           At(row.f1Stop, bridge),
                           row.f2Fix,
                           row.f2Start,
                           At(row.f2Stop, bridge),
                           row.f1Fix};
        if (source != PlanSource::Activation) {
            plan.step = IsTetra(band) ? 0.5f : 1.0f;
            return plan;
        }
        for (const ActivationValue& own : ActivationValues)
            if (own.band == band && own.imIndex == imIndex)
                plan.*own.value = own.mhz;
        return plan;
    }
    return std::nullopt;
}

} // namespace qor
