// Commands of auto-save.
#include "desk/command.h"
#include "desk/dialogs.h"
#include "desk/program.h"

namespace qor {

namespace {

Outcome FlipAutoSave(Desk& desk, int) {
    AutoSave& settings = desk.program.State().results.autoSave;
    if (settings.IsOn()) {
        settings.Switch(false);
        return Outcome::Done();
    }
    return desk.dialogs.Open("auto_save") ? Outcome::Done() : Outcome::Refused("Einbauen misserfolg");
}

} // namespace

void AddAutoSaveRows(MenuBuilder& menu) {
    menu.Add(
        {.id = "auto_save",
         .caption = "Auto Save On/Off(&A)\tCtrl+A",
         .guards = {.run = true},
         .run = FlipAutoSave,
         .checked = [](const Program& program, int) { return program.State().results.autoSave.IsOn(); }});
    menu.Menu("Auto Save Namen(&N)");
    menu.Add({.id = "auto_save_prefix",
              .caption = "Frefix Set(&F)",
              .guards = {.run = true},
              .noDialog = "Einbauen misserfolg"});
    menu.Add({.id = "auto_save_series",
              .caption = "Ordner der Serie(&O)",
              .guards = {.run = true},
              .noDialog = "Einbauen misserfolg"});
    menu.Add({.id = "sheet_templates",
              .caption = "Excel Vorlagen(&V)",
              .guards = {.run = true},
              .noDialog = "Einbauen misserfolg"});
    menu.End();
}

} // namespace qor
