// Commands of the results: files, pictures, paper, saved configurations, and the way out.
#include "desk/command.h"
#include "desk/configuration.h"
#include "desk/program.h"
#include "platform/operator.h"

namespace qor {

namespace {

Outcome LoadData(Desk& desk, int) {
    const std::filesystem::path folder = desk.program.State().results.list.Folder();
    const auto paths =
        desk.program.Parts().user.FilesToOpen("Einfuehren Daten", folder, "*.dat *.txt *.xls *.csv");
    desk.program.List().Load(paths);
    return Outcome::Done();
}

std::filesystem::path ProposedPath(const Desk& desk) {
    const ResultState& results = desk.program.State().results;
    const std::string& serial = results.device.Serial();
    return results.list.Folder() / (serial.empty() ? "qor" : serial);
}

/// Saves in the form of the ending; an empty path was not chosen.
Outcome SaveTo(Desk& desk, const std::filesystem::path& path) {
    if (!path.empty())
        static_cast<void>(desk.program.Files().DataSave(path));
    return Outcome::Done();
}

Outcome SaveData(Desk& desk, int) {
    // A curve that came from a file can be passed on in another form, not turned into an original.
    const bool fromFile = desk.program.State().curve.IsFromFile();
    const std::string_view endings = fromFile ? "*.txt *.xls *.xlsx *.csv" : "*.dat *.txt *.xls *.xlsx *.csv";
    return SaveTo(desk, desk.program.Parts().user.FileToSave("Speichern Daten", ProposedPath(desk), endings));
}

Outcome SaveExcel(Desk& desk, int) {
    return SaveTo(desk, desk.program.Parts().user.FileToSave("Speichern Excel", ProposedPath(desk),
                                                             "*.xls *.xlsx *.csv"));
}

Outcome RestoreConfiguration(Desk& desk, int) {
    bool restart = false;
    Outcome outcome = LoadConfiguration(desk.program.Stores(), desk.program.Parts(), restart);
    if (restart)
        static_cast<void>(desk.program.Restart(true));
    return outcome;
}

} // namespace

void AddResultRows(MenuBuilder& menu) {
    menu.Menu("Datei(&D)");
    menu.Add(
        {.id = "load", .caption = "Einfuehren Daten(&L)\tCtrl+L", .guards = {.run = true}, .run = LoadData});
    menu.Add(
        {.id = "save", .caption = "Speichern Daten(&T)\tCtrl+T", .guards = {.run = true}, .run = SaveData});
    AddAutoSaveRows(menu);
    menu.Line();
    AddLogoRows(menu);
    menu.Add({.id = "comment",
              .caption = "Addieren Anmerkung(&C)\tCtrl+C",
              .noDialog = "Oeffnen file Misserfolg"});
    menu.Line();
    AddPictureRows(menu);
    // Ctrl+X belongs to the way out; two items on one key would leave both without it.
    menu.Add({.id = "save_excel",
              .caption = "Speichern Excel(&X)\tCtrl+E",
              .guards = {.run = true},
              .run = SaveExcel});
    menu.Line();
    AddPrintRows(menu);
    menu.Line();
    menu.Add({.id = "load_configuration",
              .caption = "Load Configure",
              .guards = {.run = true},
              .run = RestoreConfiguration});
    menu.Add({.id = "save_configuration",
              .caption = "Save Configure",
              .guards = {.run = true},
              .run = [](Desk& desk, int) {
                  return SaveConfiguration(desk.program.Stores(), desk.program.Parts());
              }});
    menu.Line();
    menu.Add({.id = "exit", .caption = "Sich(&X)\tCtrl+X", .run = [](Desk& desk, int) {
                  return desk.program.OnExitButton();
              }});
    menu.End();
}

} // namespace qor
