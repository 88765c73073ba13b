#include "link/given.h"

#include "link/commands.h"

namespace qor {

std::string* GivenToInstrument::PlaceOf(std::string_view command) {
    if (command.starts_with("#USE"))
        return &m_Receiver;
    if (command == command::Reflection || command == command::Transmission)
        return &m_Path;
    if (command.starts_with(command::Power1))
        return &m_Power1;
    if (command.starts_with(command::Power2))
        return &m_Power2;
    return nullptr;
}

void GivenToInstrument::Sent(std::string_view command) {
    if (std::string* const place = PlaceOf(command))
        place->clear();
}

void GivenToInstrument::NotEchoed(std::string_view command) {
    if (std::string* const place = PlaceOf(command))
        place->assign("not echoed");
}

void GivenToInstrument::Echoed(std::string_view command) {
    if (std::string* const place = PlaceOf(command))
        place->assign(command);
}

} // namespace qor
