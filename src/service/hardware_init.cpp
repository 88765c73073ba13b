#include "service/hardware_init.h"

#include "base/firmware.h"
#include "base/text_format.h"
#include "link/commands.h"

#include <algorithm>

namespace qor {

namespace {

using enum BandBox;

/// The codes of a box by firmware: up to 4.9, 5.0 to 5.6, from 5.7.
struct Code {
    BandBox box;
    std::array<int, 3> code;
};

/// A type: the number it has on the line, and its bands with the position of each.
struct TypeRow {
    int number;
    std::vector<Code> codes;
};

const std::array<TypeRow, EquipmentTypes.size()>& Types() {
    static const std::array<TypeRow, EquipmentTypes.size()> rows = {
        TypeRow{0, {{Amps, {0, 2, 0}}, {Egsm, {1, 3, 1}}, {Lte, {2, 0, 2}}, {DigDiv, {3, 1, 3}}}},
        TypeRow{4,
                {{Lte, {0, 0, 0}},
                 {DigDiv, {1, 1, 1}},
                 {Amps, {2, 2, 2}},
                 {Egsm, {3, 3, 3}},
                 {Dcs, {4, 4, 4}},
                 {Pcs, {5, 5, 5}},
                 {TdB, {6, 6, 6}},
                 {Umts, {7, 7, 7}},
                 {TdA, {8, 8, 8}}}},
        TypeRow{1,
                {{Dcs, {0, 0, 0}}, {Pcs, {1, 1, 1}}, {Umts, {2, 3, 2}}, {TdB, {3, 2, 3}}, {Aws, {4, 4, 4}}}},
        TypeRow{5, {{Aws, {0, 0, 0}}, {Pcs, {1, 1, 1}}}},
        TypeRow{3, {{Umts2, {0, 0, 0}}, {TdC, {1, 1, 1}}}},
        TypeRow{2, {{WiMax, {0, 0, 0}}}},
    };
    return rows;
}

constexpr int TypeDb22 = 1;
constexpr int TypeL027 = 3;
constexpr int TypeWiMax = 5;

/// A box and the first of the two addresses of its pair, 'i', 'k', 'm' or 'o'.
struct Pair {
    BandBox box;
    char address;
};
// In the order in which they are tried: only the first box that is ticked has its pair cleared.
constexpr Pair PairsOfDb22[] = {{Amps, 'i'}, {Egsm, 'k'}, {Lte, 'm'}, {DigDiv, 'o'}, {Dcs, 'i'},
                                {Pcs, 'k'},  {Umts, 'm'}, {TdB, 'o'}, {TdA, 'i'}};
constexpr Pair PairsOfL027[] = {{Aws, 'i'}, {Pcs, 'k'}};
constexpr Pair PairsOfOthers[] = {{Amps, 'i'}, {Dcs, 'i'},  {WiMax, 'i'}, {Umts2, 'i'},
                                  {Egsm, 'k'}, {Pcs, 'k'},  {TdC, 'k'},   {Aws, 'k'},
                                  {Lte, 'm'},  {Umts, 'm'}, {TdB, 'o'},   {DigDiv, 'o'}};

template <std::size_t N> char FirstPair(const Pair (&pairs)[N], const std::set<BandBox>& ticked) {
    const auto found = std::find_if(std::begin(pairs), std::end(pairs),
                                    [&](const Pair& pair) { return ticked.contains(pair.box); });
    return found == std::end(pairs) ? '\0' : found->address;
}

char PairOf(const HardInitFields& fields) {
    if (fields.type == TypeDb22)
        return FirstPair(PairsOfDb22, fields.bands);
    return fields.type == TypeL027 ? FirstPair(PairsOfL027, fields.bands)
                                   : FirstPair(PairsOfOthers, fields.bands);
}

std::size_t Column(float firmVersion) {
    return FirmwareFrom(firmVersion, 57) ? 2 : FirmwareFrom(firmVersion, 50) ? 1 : 0;
}

std::optional<HardInitField> OutsideOf(const HardInitFields& fields) {
    const auto outside = [](int value, int low, int high) { return value < low || value > high; };
    if (outside(fields.gaugeDelay, 0, 1270))
        return HardInitField::GaugeDelay;
    if (outside(fields.twoToneSeconds, 1, 30))
        return HardInitField::TwoToneTime;
    if (outside(fields.lowerDbm, 20, 47))
        return HardInitField::Lower;
    if (outside(fields.upperDbm, 20, 47))
        return HardInitField::Upper;
    if (outside(fields.sweepDelay, 0, 127))
        return HardInitField::SweepDelay;
    if (fields.serial < 0)
        return HardInitField::Serial;
    return {};
}

} // namespace

bool TypeCarries(int type, BandBox box) {
    if (type < 0 || type >= static_cast<int>(EquipmentTypes.size()))
        return false;
    const auto& codes = Types()[static_cast<std::size_t>(type)].codes;
    return std::any_of(codes.begin(), codes.end(), [box](const Code& code) { return code.box == box; });
}

HardInitCheck CheckHardInit(HardInitFields& fields) {
    if (fields.bands.empty())
        return {Outcome::Refused("Auswaehlen Breite"), {}};
    if (fields.lowerDbm > fields.upperDbm || fields.type < 0)
        return {Outcome::Refused("Falsch, dichtesortierung."), {}};
    fields.serial = std::min(fields.serial, 65535);
    if (const auto wrong = OutsideOf(fields))
        return {Outcome::Refused({}), wrong};
    return {};
}

std::vector<MemoryWriteCommand> HardInitCommands(const HardInitFields& fields, float firmVersion,
                                                 bool bridge3dB) {
    const TypeRow& type = Types()[static_cast<std::size_t>(fields.type)];
    const int page = OwnPage(firmVersion);
    std::vector<MemoryWriteCommand> commands;
    const auto say = [&](std::string text) { commands.push_back({.text = std::move(text)}); };
    const auto write = [&](char address, int value) {
        commands.push_back(WriteByte({page, address, value & 0xff}));
    };
    // Of two bytes the value stands in the text itself.
    const auto writeInText = [&](char address, int value) {
        commands.push_back({.text = WriteMemoryByte(page, address) + static_cast<char>(value),
                            .cell = MemoryCell{page, address, value}});
    };

    say("#BDT0");
    say("#KVTPD" + std::to_string(type.number));
    std::vector<Code> ticked;
    for (const Code& code : type.codes)
        if (fields.bands.contains(code.box) || fields.type == TypeWiMax)
            ticked.push_back(code);
    if (ticked.size() == 1) {
        say(SelectPosition(ticked.front().code[Column(firmVersion)]));
        say("#BDT1");
    }
    say("#KVTPA0");
    say("#2TTIM" + ZeroPadded(fields.twoToneSeconds, 2));

    const int lower = fields.lowerDbm * 10;
    if (FirmwareFrom(firmVersion, 50))
        write('f', lower >> 8);
    write('d', lower);
    write('e', fields.upperDbm * 10);
    writeInText('s', fields.gaugeDelay / 70);
    write('x', fields.serial >> 8);
    write('y', fields.serial);
    if (const char pair = PairOf(fields)) {
        write(pair, 0);
        write(static_cast<char>(pair + 1), 0);
    }
    writeInText('t', bridge3dB ? fields.sweepDelay | 1 : fields.sweepDelay & ~1);
    return commands;
}

int OptionByteOf(const HardInitFields& fields, int before) {
    const auto with = [](int value, int bit, bool set) { return set ? value | bit : value & ~bit; };
    int option = with(before, 0x10, !fields.paErrorCheck);
    option = with(option, 0x20, fields.levelDetector);
    return with(option, 0x40, fields.switchMatrix);
}

std::string ReadableCommand(const MemoryWriteCommand& command) {
    static constexpr char Hex[] = "0123456789ABCDEF";
    std::string text;
    const auto add = [&text](char c, bool asNumber) {
        if (!asNumber && c > ' ' && c <= '~') {
            text += c;
            return;
        }
        const auto byte = static_cast<unsigned char>(c);
        text += {' ', Hex[byte >> 4], Hex[byte & 15]};
    };
    constexpr std::size_t AddressEnd = 8; // behind "$KVTWE", page and address stand values
    for (std::size_t i = 0; i < command.text.size(); ++i)
        add(command.text[i], command.cell.has_value() && i >= AddressEnd);
    for (const char c : command.payload)
        add(c, true);
    return text;
}

} // namespace qor
