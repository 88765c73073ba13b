#include "bands/catalogue.h"
#include "base/firmware.h"

#include <array>
#include <limits>

namespace qor {

namespace {

// Models, one bit each.
constexpr unsigned C010 = 1 << 0;
constexpr unsigned E010 = 1 << 1;
constexpr unsigned DB22 = 1 << 2;
constexpr unsigned DA10 = 1 << 3;
constexpr unsigned K022 = 1 << 4;
constexpr unsigned L027 = 1 << 5;
constexpr unsigned T000 = 1 << 6;
constexpr unsigned S036 = 1 << 7;
constexpr unsigned P000 = 1 << 8;
constexpr unsigned M027 = 1 << 9;
constexpr unsigned N026 = 1 << 10;

unsigned ModelBit(std::string_view model) {
    constexpr std::string_view Prefix = "RT-";
    constexpr std::string_view Names[] = {"C010", "E010", "DB22", "DA10", "K022", "L027",
                                          "T000", "S036", "P000", "M027", "N026"};
    if (!model.starts_with(Prefix))
        return 0;
    model.remove_prefix(Prefix.size());
    for (std::size_t i = 0; i < std::size(Names); ++i)
        if (Names[i] == model)
            return 1U << i;
    return 0;
}

/// Position by firmware: up to 4.99, up to 5.6, up to 5.98, above. None: the band is not carried.
using Positions = std::array<int, 4>;
constexpr int None = -1;

constexpr Positions Always(int position) {
    return {position, position, position, position};
}

struct SelectRow {
    int band;
    unsigned models;
    Positions positions;
};

constexpr SelectRow SelectRows[] = {
    {BandAmps, C010, Always(2)},
    {BandAmps, DA10, {0, 2, 0, 0}},
    {BandAmps, E010 | DB22, {0, 2, 2, 2}},
    {BandEgsm, C010, Always(3)},
    {BandEgsm, DA10, {1, 3, 1, 1}},
    {BandEgsm, DB22, {1, 3, 3, 3}},
    {BandEgsm, E010, {1, 3, 3, 1}},
    {BandLte, C010 | DB22, Always(0)},
    {BandLte, DA10, {2, 0, 2, 2}},
    {BandLte, E010, {2, 0, 0, 0}},
    {BandDigDiv, C010, Always(1)},
    {BandDigDiv, DA10, {3, 1, 3, 3}},
    {BandDigDiv, E010 | DB22, {3, 1, 1, 1}},
    {BandDcs, DB22, Always(4)},
    {BandDcs, K022, Always(0)},
    {BandUmts, DB22, Always(7)},
    {BandUmts, K022, {2, 3, 3, 2}},
    {BandPcs, DB22, Always(5)},
    {BandPcs, K022 | L027, Always(1)},
    {BandAws, L027, Always(0)},
    {BandAws, K022, {4, 4, 4, 1}},
    {BandAws, DB22, {None, None, None, 5}},
    {BandTdScdmaA, DB22, Always(6)},
    {BandTdScdmaA, K022, {3, 2, 3, 3}},
    {BandTdScdmaF, DB22, Always(10)},
    {BandTdScdmaF, K022, Always(4)},
    {BandTdScdmaE, N026, {None, None, None, 2}},
    {BandTdScdmaE, DB22, {11, 11, 11, None}},
    {BandTdScdmaE, P000 | M027, {1, 1, 1, None}},
    {BandUmts2, P000 | N026 | M027, Always(0)},
    {BandWiMax, T000 | S036, Always(0)},
    {BandWifi, N026, Always(1)},
    {BandTetra390, C010, Always(4)},
    {BandTetra392, C010, Always(5)},
    {BandLte700L, DA10, Always(4)},
    {BandLte700L, C010 | DB22, Always(8)},
    {BandLte700U, DA10, Always(5)},
    {BandLte700U, C010 | DB22, Always(9)},
};

// Compared as floats, which FirmVersion is: 5.98f lies above the decimal 5.98, and a stepped 5.6 is 5.599997.
std::size_t SelectColumn(float firmware) {
    if (firmware <= 4.99f)
        return 0;
    if (firmware <= 5.6f)
        return 1;
    return firmware <= 5.98f ? 2 : 3;
}

constexpr int Ever = std::numeric_limits<int>::max();

/// An echoed position, for firmware in tenths from `from` to before `before`.
struct EchoRow {
    unsigned models;
    int position;
    int band;
    int from = 0;
    int before = Ever;
};

// BandPcs stands for PCS or AWS, as the operator chose.
constexpr EchoRow EchoRows[] = {
    {C010, 0, BandLte},
    {C010, 1, BandDigDiv},
    {C010, 2, BandAmps},
    {C010, 3, BandEgsm},
    {C010, 4, BandTetra390},
    {C010, 5, BandTetra392},
    {C010, 6, BandTetra422},
    {C010, 7, BandTetra462},
    {C010, 8, BandLte700L, 60},
    {C010 | DB22, 9, BandLte700U},
    {C010, 10, BandFqC010},

    {E010 | DB22 | DA10, 0, BandAmps, 0, 50},
    {E010 | DB22, 0, BandLte, 50},
    {E010 | DB22 | DA10, 1, BandEgsm, 0, 50},
    {E010 | DB22, 1, BandDigDiv, 50},
    {E010 | DB22 | DA10, 2, BandLte, 0, 50},
    {E010 | DB22, 2, BandAmps, 50},
    {E010 | DA10, 3, BandDigDiv, 0, 50},
    {E010, 3, BandEgsm, 50},

    {DB22, 3, BandEgsm},
    {DB22, 4, BandDcs},
    {DB22, 5, BandPcs},
    {DB22, 6, BandTdScdmaA},
    {DB22, 7, BandUmts},
    {DB22, 8, BandTdScdmaF, 0, 60},
    {DB22, 8, BandLte700L, 60},
    {DB22, 10, BandTdScdmaF},
    {DB22, 11, BandTdScdmaE, 0, 59},

    {DA10, 0, BandLte, 50, 57},
    {DA10, 0, BandAmps, 57},
    {DA10, 1, BandDigDiv, 50, 57},
    {DA10, 1, BandEgsm, 57},
    {DA10, 2, BandAmps, 50, 57},
    {DA10, 2, BandLte, 57},
    {DA10, 3, BandEgsm, 50, 57},
    {DA10, 3, BandDigDiv, 57},
    {DA10, 4, BandLte700L},
    {DA10, 5, BandLte700U},

    {K022, 0, BandDcs},
    {K022 | L027, 1, BandPcs},
    {K022, 2, BandUmts, 0, 50},
    {K022, 2, BandTdScdmaA, 50, 57},
    {K022, 2, BandUmts, 57},
    {K022, 3, BandTdScdmaA, 0, 50},
    {K022, 3, BandUmts, 50, 57},
    {K022, 3, BandTdScdmaA, 57},
    {K022, 4, BandAws, 0, 60},
    {K022, 4, BandTdScdmaF, 60},
    {L027, 0, BandAws},

    {T000 | S036, 0, BandWiMax},
    {P000 | M027 | N026, 0, BandUmts2},
    {P000 | M027, 1, BandTdScdmaE},
    {N026, 1, BandTdScdmaE, 0, 60},
    {N026, 1, BandWifi, 60},
    {N026, 2, BandTdScdmaE},
};

} // namespace

std::optional<int> BandPosition(int band, std::string_view model, float firmware) {
    const unsigned bit = ModelBit(model);
    for (const SelectRow& row : SelectRows) {
        if (row.band != band || (row.models & bit) == 0)
            continue;
        const int position = row.positions[SelectColumn(firmware)];
        return position == None ? std::nullopt : std::optional(position);
    }
    return std::nullopt;
}

std::optional<PositionMeaning> BandOfPosition(int position, std::string_view model, float firmware,
                                              bool awsChosen) {
    const unsigned bit = ModelBit(model);
    for (const EchoRow& row : EchoRows) {
        if (row.position != position || (row.models & bit) == 0 || !FirmwareFrom(firmware, row.from) ||
            FirmwareFrom(firmware, row.before))
            continue;
        const bool asAws = row.band == BandPcs && awsChosen;
        return PositionMeaning{asAws ? BandAws : row.band, row.band == BandTdScdmaA && bit == K022};
    }
    return std::nullopt;
}

} // namespace qor
