#pragma once

#include "core/menu.h"

namespace qor {

class Dialogs;
class Program;

/// What stands in the way of a command.
struct Guards {
    bool run = false;           ///< refused while a measurement or a calibration runs
    bool fileWhileBusy = false; ///< refused while the instrument is not ready and the curve is a file's
    bool port = false;          ///< refused while the port is closed
};

/// The guards of a command. Band selection has one of its own, about the initialisation.
[[nodiscard]] Guards GuardsOf(Command command);

/// Every command of the menu behind its guards. A refusal is told to the operator and changes nothing.
class Commands {
public:
    Commands(Program& program, Dialogs& dialogs) : m_Program(program), m_Dialogs(dialogs) {}

    void Run(Command command, int argument = 0);
    /// Whether the item has its check mark now.
    [[nodiscard]] bool IsChecked(Command command, int argument = 0) const;
    /// Whether the item can be chosen at all: what this program cannot do yet stays grey.
    [[nodiscard]] bool IsEnabled(Command command, int argument = 0) const;

    /// Empties the display: curve, worst values, markers, verdict. Refused during a run.
    void ClearDisplay();
    /// Moves the end of the level scale: `up` is the button at the top of the plot.
    void StepScale(bool up);

private:
    [[nodiscard]] bool Passes(const Guards& guards);
    void Execute(Command command, int argument);
    void OpenDialog(Command command, int argument);
    void SelectBand(int band);
    void LoadData();
    void SaveData();
    void ShowUpdatePage(int region);
    void ShowHandbook();
    void ChangeLanguage(int language);
    void Tell(std::string_view text, std::string_view title = {});

    Program& m_Program;
    Dialogs& m_Dialogs;
};

} // namespace qor
