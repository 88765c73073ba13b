// Tools and help.
#include "base/settings_file.h"
#include "desk/command.h"
#include "desk/program.h"
#include "platform/launcher.h"
#include "tools/side_tool.h"

namespace qor {

namespace {

Outcome ShowHandbook(Desk& desk, int) {
    const SetupStore& store = desk.program.Stores();
    std::string handbook = SettingOf(store, "handbook");
    for (const std::string_view name : {"QOR_Handbook.chm", "QOR_Handbook.pdf", "QOR_Handbook.html"}) {
        if (handbook.empty() && store.Exists(name))
            handbook = store.PathOf(name).string();
    }
    Launcher* launcher = desk.program.Parts().launcher;
    if (!handbook.empty() && launcher && launcher->Show(handbook))
        return Outcome::Done();
    return Outcome::Refused("Kein Handbuch gefunden. Bitte QOR_Handbook.pdf in den Datenordner legen oder in "
                            "qor.ini die Zeile handbook=... eintragen.");
}

Outcome ShowUpdatePage(Desk& desk, int region) {
    static constexpr std::string_view Keys[] = {"update_europe", "update_america", "update_asia_pacific"};
    const std::string_view key = Keys[region];
    const std::string page = SettingOf(desk.program.Stores(), key);
    Launcher* launcher = desk.program.Parts().launcher;
    if (!page.empty() && launcher && launcher->Show(page))
        return Outcome::Done();
    return Outcome::Refused(
        "Keine Seite fuer Updates eingetragen. Bitte in qor.ini diese Zeile eintragen:\n" + std::string(key) +
        "=https://...");
}

Outcome ShowEquipmentType(Desk& desk, int) {
    const std::string& type = desk.program.State().link.identity.Model();
    return Outcome::DoneWith(type.empty() ? "Kein Geraet verbunden." : type);
}

} // namespace

void AddToolRows(MenuBuilder& menu) {
    menu.Menu("Werkzeug(&W)");
    menu.Add({.id = "calculator", .caption = "dBm <-> mW <-> mV", .noDialog = "Einbauen misserfolg"});
    menu.Add({.id = "side_tool", .caption = "PIM", .run = [](Desk& desk, int) {
                  return StartSideTool(desk.program.Stores(), desk.program.Parts().launcher);
              }});
    menu.End();

    menu.Menu("Hilfe(&H)");
    menu.Add({.id = "handbook", .caption = "QOR Handbuch(&Q)\tCtrl+Q", .run = ShowHandbook});
    menu.Add({.id = "device_serial", .caption = "QOR Device SN(&Z)\tCtrl+Z", .run = [](Desk& desk, int) {
                  return Outcome::DoneWith(desk.program.State().link.identity.Serial());
              }});
    menu.Add({.id = "equipment_type", .caption = "Equipment type", .run = ShowEquipmentType});
    menu.Menu("Update(&U)");
    // shown to the operator
    static constexpr std::string_view Regions[] = {"Europe", "America", "Aisa Pacific"};
    for (int region = 0; region < 3; ++region)
        menu.Add({.id = "update", .argument = region, .caption = Regions[region], .run = ShowUpdatePage});
    menu.End();
    menu.Line();
    menu.Add({.id = "about", .caption = "Ansehend QOR(&H)\tCtrl+H", .noDialog = "Einbauen misserfolg"});
    menu.End();
}

} // namespace qor
