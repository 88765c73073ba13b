#pragma once

#include <cstdint>

namespace qor {

/// Band numbers of the catalogue. 14 means that no band is selected, 18 and 19 (TETRA 422 and 462) and
/// 22 (FQ-C010) exist on the instrument's switch but carry no measurement.
enum Band : int {
    BandAmps = 1,
    BandEgsm = 2,
    BandLte = 3,
    BandDcs = 4,
    BandUmts = 5,
    BandPcs = 6,
    BandWiMax = 7,
    BandTdScdmaA = 8,
    BandTdScdmaF = 9,
    BandUmts2 = 10,
    BandDigDiv = 11,
    BandAws = 12,
    BandTdScdmaE = 13,
    BandNone = 14,
    BandWifi = 15,
    BandTetra390 = 16,
    BandTetra392 = 17,
    BandTetra422 = 18,
    BandTetra462 = 19,
    BandLte700L = 20,
    BandLte700U = 21,
    BandFqC010 = 22,
};

/// One frequency plan, MHz: the tones of a 2-tone test and the two halves of a sweep.
struct FrequencyPlan {
    float f1 = 0;      ///< 2-tone, tone 1
    float f2 = 0;      ///< 2-tone, tone 2
    float f1Start = 0; ///< rising sweep: tone 1 from here
    float f1Stop = 0;  ///< to here,
    float f2Fix = 0;   ///< with tone 2 held here
    float f2Start = 0; ///< falling sweep: tone 2 from here
    float f2Stop = 0;  ///< down to here,
    float f1Fix = 0;   ///< with tone 1 held here
    float step = 1;    ///< of both sweeps, above 0

    bool operator==(const FrequencyPlan&) const = default;
};

/// Order number of an order index: 3, 5, 7, 9, 11.
[[nodiscard]] constexpr int OrderOf(int imIndex) {
    return 2 * imIndex + 1;
}

/// Coefficients of the intermodulation product of an order index (1 IM3 to 5 IM11): index + 1 and index.
struct ImCoefficients {
    int high = 2;
    int low = 1;
};

} // namespace qor
