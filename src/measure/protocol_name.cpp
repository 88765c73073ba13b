#include "measure/protocol_name.h"

#include "bands/catalogue.h"
#include "base/text_format.h"

#include <algorithm>

namespace qor {

namespace {

/// What an instrument says of itself, without what a name of a file cannot hold.
std::string InName(std::string_view text) {
    std::string plain(text);
    std::ranges::replace_if(
        plain, [](unsigned char c) { return c <= ' ' || c >= 127 || c == '/' || c == '\\'; }, '_');
    return plain;
}

} // namespace

std::string ProtocolNameBegin(std::string_view kind, std::string_view model, std::string_view serial,
                              int band) {
    return std::string(kind) + "-" + InName(model) + "-" + InName(serial) + "-" + InName(BandText(band)) +
           "-";
}

std::string ProtocolName(std::string_view kind, std::string_view model, std::string_view serial, int band,
                         const LocalTime& now) {
    return ProtocolNameBegin(kind, model, serial, band) + ZeroPadded(now.year, 4) + ZeroPadded(now.month, 2) +
           ZeroPadded(now.day, 2) + "-" + ZeroPadded(now.hour, 2) + ZeroPadded(now.minute, 2) +
           ZeroPadded(now.second, 2) + ".csv";
}

} // namespace qor
