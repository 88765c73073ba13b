#include "desk/notices.h"

#include "base/setup_store.h"
#include "desk/session.h"

namespace qor {

std::vector<std::string> NoticesOf(const Session& session, const SetupStore& store) {
    std::vector<std::string> lines;
    if (session.link.connection.ContactIsLost())
        lines.emplace_back("Kontakt zum Geraet verloren, es wird gesucht.");
    if (const SwitchUnitState& unit = session.link.unit; unit.IsSilent())
        lines.emplace_back("Das Umschaltgeraet hat nicht geantwortet, seine Relais koennen falsch stehen.");
    else if (unit.LacksPosition())
        lines.push_back("Das Umschaltgeraet hat keine Stellung fuer diese Breite: " + unit.Band());
    if (!store.Unwritten().empty())
        lines.push_back("Einstellungen koennen nicht gespeichert werden: " + store.Unwritten());
    if (!store.Damaged().empty()) {
        std::string names;
        for (const std::string& name : store.Damaged())
            names += (names.empty() ? "" : ", ") + name;
        lines.push_back("Beschaedigt, zaehlt als nicht vorhanden: " + names);
    }
    return lines;
}

} // namespace qor
