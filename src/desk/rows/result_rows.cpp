// Commands of the results: files, pictures, paper, saved configurations, and the way out.
#include "bands/catalogue.h"
#include "desk/command.h"
#include "desk/configuration.h"
#include "desk/program.h"
#include "desk/replace.h"
#include "platform/operator.h"

#include <algorithm>

namespace qor {

namespace {

Outcome LoadData(Desk& desk, int) {
    const std::filesystem::path folder = desk.program.State().results.list.Folder();
    const auto paths =
        desk.program.Parts().user.FilesToOpen("Einfuehren Daten", folder, "*.dat *.txt *.xls *.csv");
    desk.program.List().Load(paths);
    return Outcome::Done();
}

/// What a file dialog takes for a name: of the device under test; without one by what was measured with which
/// instrument and when.
std::string ProposedName(const Desk& desk) {
    std::string name = desk.program.State().results.device.Serial();
    if (const auto document = name.empty() ? desk.program.Files().Document() : std::nullopt) {
        for (const std::string& part : {document->serial, std::string(BandText(document->band)),
                                        "IM" + std::to_string(document->order), document->date})
            name += (name.empty() || part.empty() ? "" : "_") + part;
    }
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '/' || c == '\\' || c == '\0'; }, '-');
    return name.empty() ? "qor" : name;
}

/// Saves in the form of the ending; an empty path was not chosen. The folder is where the next dialog begins.
Outcome SaveTo(Desk& desk, std::string_view title, std::string_view endings) {
    Operator& user = desk.program.Parts().user;
    ResultState& results = desk.program.State().results;
    const std::filesystem::path folder =
        results.saveFolder.empty() ? results.list.Folder() : results.saveFolder;
    const std::filesystem::path path = user.FileToSave(title, folder / ProposedName(desk), endings);
    if (path.empty())
        return Outcome::Done();
    if (!MayReplace(user, path))
        return Outcome::Refused({});
    Outcome saved = desk.program.Files().DataSave(path);
    if (saved) {
        results.saveFolder = path.parent_path();
        desk.program.Stores().Write("LastSavePath.ccz", path.string());
    }
    return saved;
}

/// A curve that came from anything else than a .dat can be passed on, not turned into an original.
Outcome SaveData(Desk& desk, int) {
    const ResultDocument* const file = ShownFile(desk.program.State());
    return SaveTo(desk, "Speichern Daten",
                  file && !file->genuine ? "*.txt *.xls *.xlsx *.csv" : "*.txt *.dat *.xls *.xlsx *.csv");
}

Outcome SaveExcel(Desk& desk, int) {
    return SaveTo(desk, "Speichern Excel", "*.xls *.xlsx *.csv");
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
    menu.Add({.id = "own_settings",
              .caption = "Eigene Einstellungen(&E)",
              .guards = {.run = true},
              .run = [](Desk& desk, int) { return desk.program.FileInForce().BringBackOwn(); },
              .enabled = [](const Program& program, int) { return program.FileInForce().HasOwn(); }});
    menu.Add({.id = "measure_as_file",
              .caption = "Messung wie Datei(&W)",
              .guards = {.run = true},
              .run = [](Desk& desk, int) { return desk.program.FileInForce().MeasureAsFile(); },
              .enabled = [](const Program& program, int) { return ShownFile(program.State()) != nullptr; }});
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
