#include "link/commands.h"

#include "bands/tenths.h"
#include "core/text_format.h"
#include "link/firmware.h"

namespace qor {

namespace {

bool Holds(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

/// Address letter of a byte-coded memory command "$KVTRE" or "$KVTWE" page address, 0 when it is none.
char AddressOf(std::string_view command) {
    return command.size() > 7 && (command.starts_with("$KVTRE") || command.starts_with("$KVTWE")) ? command[7]
                                                                                                  : '\0';
}

/// Blanks, a sign, digits and a point: nothing else, so that a spoilt "-9x.3" never counts as -9.
bool IsDecimal(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.starts_with('-') || text.starts_with('+'))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return std::any_of(text.begin(), text.end(), isDigit) && std::count(text.begin(), text.end(), '.') <= 1 &&
           std::all_of(text.begin(), text.end(), [&](char c) { return isDigit(c) || c == '.'; });
}

} // namespace

std::string WithTenths(std::string_view command, double value) {
    return std::string(command) + TenthsText(value);
}

std::string SelectPosition(int position) {
    return "#SAB" + std::to_string(position);
}

std::string UseReceiver(int imIndex) {
    return "#USEID" + std::to_string(imIndex >= 1 && imIndex <= 5 ? 2 * imIndex + 1 : 3);
}

std::string ReadMemory(int address) {
    return "#KVTRE,125,0," + ZeroPadded(address, 3);
}

void ApplyMemoryPage(std::string& command, float firmVersion) {
    if (!command.starts_with("$KVTREd"))
        return;
    if (FirmwareFrom(firmVersion, 57))
        command[6] = '}';
    else if (FirmwareFrom(firmVersion, 50))
        command[6] = 'n';
}

void ReplyText(std::string_view command, std::string& text) {
    text.assign(command.empty() ? command : command.substr(1));
    if (text.ends_with('?'))
        text.pop_back();
    if (const std::size_t at = text.find("KVTRE"); at != std::string::npos)
        text.replace(at, 5, "KVTWE");
}

int ReplyLength(std::string_view command, int tag) {
    int length = static_cast<int>(command.size()) + 1;
    if (command == "#IMP?")
        return length + 10;
    if (command == "#ADC?")
        return length + 4;
    const char address = command.starts_with("$KVTRE") ? AddressOf(command) : '\0';
    const bool open = command == "#SST?" || command == "#IDN?" ||
                      (tag >= TagMemoryEditor && tag <= TagPathTable) ||
                      (tag >= TagOption && tag <= TagReceiverCalLast) || address == 'x' || address == 'y' ||
                      address == 't' || Holds(command, "#KVTRE,");
    return open ? OpenReply : length;
}

int PayloadReplyLength(std::string_view command, int tag) {
    if (!Holds(command, "$KVTWE"))
        return 0;
    if (tag == TagTableHigh || tag == TagTableLow)
        return 2;
    if (tag == TagMemoryEditor || tag == TagReceiverCalFirst || tag == TagReceiverCalDone)
        return 1;
    const char address = AddressOf(command);
    return address != '\0' && Holds("defxy_", std::string_view(&address, 1)) ? 1 : 0;
}

int TagAsSent(int queued) {
    if (queued < 20 || queued > 199 || queued == TagTypeCode)
        return queued;
    const int lowered = queued - 10;
    return lowered == 21 ? 11 : lowered;
}

int MemoryValue(std::string_view reply) {
    const std::size_t comma = reply.rfind(',');
    return comma == std::string_view::npos ? 0 : WholeNumberIn(reply.substr(comma + 1));
}

std::string_view LevelText(std::string_view reply) {
    const std::size_t end = reply.rfind('m');
    if (end == std::string_view::npos)
        return {};
    std::string_view text = reply.substr(0, end + 1);
    if (text.size() > 10)
        text.remove_prefix(text.size() - 10);
    text.remove_suffix(std::min<std::size_t>(3, text.size()));
    return IsDecimal(text) ? text : std::string_view();
}

} // namespace qor
