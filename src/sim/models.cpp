#include "sim/models.h"

namespace qor::sim {

namespace {

constexpr BandHardware Amps{"AMPS", 869, 894, false};
constexpr BandHardware Egsm{"EGSM", 925, 960, false};
constexpr BandHardware Lte{"LTE", 745, 793, false};
constexpr BandHardware DigDiv{"DIG-DIV", 790, 822, true};
constexpr BandHardware Dcs{"DCS", 1805, 1880, false};
constexpr BandHardware AwsPcs{"AWS/PCS", 1930, 2155, false}; // one filter for both
constexpr BandHardware Aws{"AWS", 1930, 2155, false};
constexpr BandHardware Umts{"UMTS", 2110, 2170, false};
constexpr BandHardware WiMax{"WiMax", 3510, 3594, false};
constexpr BandHardware TdA{"TD-SCDMA-A", 2010, 2025, false};
constexpr BandHardware TdF{"TD-SCDMA-F", 1880, 1920, false};
constexpr BandHardware TdE{"TD-SCDMA-E", 2350, 2400, false};
constexpr BandHardware Umts2{"UMTS2", 2620, 2695, false};
constexpr BandHardware Wifi{"Wifi", 2442, 2484, false};
constexpr BandHardware Tetra390{"TETRA 390", 390, 397.5, false};
constexpr BandHardware Tetra392{"TETRA 392", 392, 400.5, false};
constexpr BandHardware Tetra422{"TETRA 422", 422, 430.5, false};
constexpr BandHardware Tetra462{"TETRA 462", 462, 470, false};
constexpr BandHardware Lte700L{"LTE700L", 728, 760, false};
constexpr BandHardware Lte700U{"LTE700U", 728, 760, true};

constexpr int First = 0;
constexpr int Last = 1000;

// One wire of a band switch. The wiring changed with the firmware, in tenths from `since` to `until`.
struct Wire {
    std::string_view model;
    int position;
    int since;
    int until;
    const BandHardware* band;
};

constexpr Wire Wiring[] = {
    {"RT-C010", 0, First, Last, &Lte},      {"RT-C010", 1, First, Last, &DigDiv},
    {"RT-C010", 2, First, Last, &Amps},     {"RT-C010", 3, First, Last, &Egsm},
    {"RT-C010", 4, First, Last, &Tetra390}, {"RT-C010", 5, First, Last, &Tetra392},
    {"RT-C010", 6, First, Last, &Tetra422}, {"RT-C010", 7, First, Last, &Tetra462},
    {"RT-C010", 8, 60, Last, &Lte700L},     {"RT-C010", 9, First, Last, &Lte700U},

    {"RT-E010", 0, First, 49, &Amps},       {"RT-E010", 0, 50, Last, &Lte},
    {"RT-E010", 1, First, 49, &Egsm},       {"RT-E010", 1, 50, Last, &DigDiv},
    {"RT-E010", 2, First, 49, &Lte},        {"RT-E010", 2, 50, Last, &Amps},
    {"RT-E010", 3, First, 49, &DigDiv},     {"RT-E010", 3, 50, Last, &Egsm},

    {"RT-DB22", 0, First, 49, &Amps},       {"RT-DB22", 0, 50, Last, &Lte},
    {"RT-DB22", 1, First, 49, &Egsm},       {"RT-DB22", 1, 50, Last, &DigDiv},
    {"RT-DB22", 2, First, 49, &Lte},        {"RT-DB22", 2, 50, Last, &Amps},
    {"RT-DB22", 3, First, Last, &Egsm},     {"RT-DB22", 4, First, Last, &Dcs},
    {"RT-DB22", 5, First, Last, &AwsPcs},   {"RT-DB22", 6, First, Last, &TdA},
    {"RT-DB22", 7, First, Last, &Umts},     {"RT-DB22", 8, First, 59, &TdF},
    {"RT-DB22", 8, 60, Last, &Lte700L},     {"RT-DB22", 9, First, Last, &Lte700U},
    {"RT-DB22", 10, First, Last, &TdF},     {"RT-DB22", 11, First, 58, &TdE},

    {"RT-DA10", 0, First, 49, &Amps},       {"RT-DA10", 0, 50, 56, &Lte},
    {"RT-DA10", 0, 57, Last, &Amps},        {"RT-DA10", 1, First, 49, &Egsm},
    {"RT-DA10", 1, 50, 56, &DigDiv},        {"RT-DA10", 1, 57, Last, &Egsm},
    {"RT-DA10", 2, First, 49, &Lte},        {"RT-DA10", 2, 50, 56, &Amps},
    {"RT-DA10", 2, 57, Last, &Lte},         {"RT-DA10", 3, First, 49, &DigDiv},
    {"RT-DA10", 3, 50, 56, &Egsm},          {"RT-DA10", 3, 57, Last, &DigDiv},
    {"RT-DA10", 4, First, Last, &Lte700L},  {"RT-DA10", 5, First, Last, &Lte700U},

    {"RT-K022", 0, First, Last, &Dcs},      {"RT-K022", 1, First, Last, &AwsPcs},
    {"RT-K022", 2, First, 49, &Umts},       {"RT-K022", 2, 50, 56, &TdA},
    {"RT-K022", 2, 57, Last, &Umts},        {"RT-K022", 3, First, 49, &TdA},
    {"RT-K022", 3, 50, 56, &Umts},          {"RT-K022", 3, 57, Last, &TdA},
    {"RT-K022", 4, First, 59, &Aws},        {"RT-K022", 4, 60, Last, &TdF},

    {"RT-L027", 0, First, Last, &Aws},      {"RT-L027", 1, First, Last, &AwsPcs},

    {"RT-T000", 0, First, Last, &WiMax},    {"RT-S036", 0, First, Last, &WiMax},

    {"RT-P000", 0, First, Last, &Umts2},    {"RT-P000", 1, First, Last, &TdE},
    {"RT-M027", 0, First, Last, &Umts2},    {"RT-M027", 1, First, Last, &TdE},

    {"RT-N026", 0, First, Last, &Umts2},    {"RT-N026", 1, First, 59, &TdE},
    {"RT-N026", 1, 60, Last, &Wifi},        {"RT-N026", 2, First, Last, &TdE},
};

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

std::optional<Firmware> ParseFirmware(std::string_view text) {
    const bool ev = text.substr(0, 2) == "ev";
    if (ev)
        text.remove_prefix(2);
    if (text.size() != 3 || !IsDigit(text[0]) || text[1] != '.' || !IsDigit(text[2]))
        return {};
    const int tenths = (text[0] - '0') * 10 + (text[2] - '0');
    if (ev)
        return tenths >= 10 ? std::optional(Firmware{tenths + 100}) : std::nullopt;
    return tenths >= 18 && tenths <= 69 ? std::optional(Firmware{tenths}) : std::nullopt;
}

std::uint8_t MemoryPage(Firmware firmware) {
    if (firmware.AtLeast(57))
        return '}';
    return firmware.AtLeast(50) ? 'n' : 'd';
}

const ModelHardware* FindModel(std::string_view name) {
    for (const ModelHardware& model : Models)
        if (model.name == name)
            return &model;
    return nullptr;
}

const BandHardware* BandAt(std::string_view model, Firmware firmware, int position) {
    for (const Wire& wire : Wiring)
        if (wire.model == model && wire.position == position && firmware.tenths >= wire.since &&
            firmware.tenths <= wire.until)
            return wire.band;
    return nullptr;
}

std::optional<int> TypeCodeOfEquipment(int n) {
    static constexpr std::array<int, 6> Codes{0, 1, 3, 2, 4, NoTypeCode};
    if (n < 0 || n >= static_cast<int>(Codes.size()))
        return {};
    return Codes[static_cast<std::size_t>(n)];
}

} // namespace qor::sim
