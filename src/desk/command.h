#pragma once

#include "base/outcome.h"
#include "service/factory_mode.h"

#include <string_view>
#include <vector>

namespace qor {

class Dialogs;
class Program;

/// What stands in the way of a command. Some have one of their own besides: choosing a band asks whether the
/// initialisation is over.
struct Guards {
    bool run =
        false; ///< refused while a measurement or a series of pages runs; a start that waits is dropped
    bool port = false;                    ///< refused while the port is closed
    ServicePage page = ServicePage::None; ///< not heard unless this service page is open
};

/// What a command works on.
struct Desk {
    Program& program;
    Dialogs& dialogs;
};

/// One thing that can be asked of the program: all there is to know of it. The menu, the keyboard, the
/// buttons and scripts run these rows; a row with neither an action nor a dialog is grey, it cannot be done
/// yet.
struct CommandRow {
    std::string_view id; ///< what a script or a remote control calls it; stays the same for ever
    int argument = 0;    ///< of several items that do the same with another band, order, number
    /// German, with its mnemonic as "(&X)" and its key behind a tab. Empty for a command without a menu item.
    std::string_view caption{};
    Guards guards{};
    Outcome (*run)(Desk& desk, int argument) = nullptr;
    /// Whether the item has its check mark now; null for an item without one.
    bool (*checked)(const Program& program, int argument) = nullptr;
    /// Whether it can be chosen now; null for always.
    bool (*enabled)(const Program& program, int argument) = nullptr;
    /// Without an action the dialog of the same id is opened. This is said where it cannot be.
    std::string_view noDialog{};

    [[nodiscard]] bool IsMade() const { return run || !noDialog.empty(); }
};

/// One line of the menu: a Menu line opens a menu or submenu that its End line closes.
struct MenuLine {
    enum class Kind { Item, Separator, Menu, End, Hidden };
    Kind kind = Kind::Item;
    std::string_view caption; ///< of a menu
    CommandRow row;           ///< of an item, or of a command without one
};

/// Takes the rows in the order of the menu.
class MenuBuilder {
public:
    explicit MenuBuilder(std::vector<MenuLine>& lines) : m_Lines(lines) {}

    void Menu(std::string_view caption) { m_Lines.push_back({MenuLine::Kind::Menu, caption, {}}); }
    void End() { m_Lines.push_back({MenuLine::Kind::End, {}, {}}); }
    void Line() { m_Lines.push_back({MenuLine::Kind::Separator, {}, {}}); }
    void Add(const CommandRow& row) { m_Lines.push_back({MenuLine::Kind::Item, {}, row}); }
    /// A command of a button or of scripts only.
    void AddHidden(const CommandRow& row) { m_Lines.push_back({MenuLine::Kind::Hidden, {}, row}); }

private:
    std::vector<MenuLine>& m_Lines;
};

// Parts of the first menu that have a file of their own.
void AddAutoSaveRows(MenuBuilder& menu);
void AddLogoRows(MenuBuilder& menu);
void AddPictureRows(MenuBuilder& menu);
void AddPrintRows(MenuBuilder& menu);

// The rows of each subject, each a file of its own, in the order of the menu.
void AddResultRows(MenuBuilder& menu);
void AddMeasureRows(MenuBuilder& menu);
void AddBandRows(MenuBuilder& menu);
void AddSetupRows(MenuBuilder& menu);
void AddReceiverRows(MenuBuilder& menu); // within the set-up's
void AddViewRows(MenuBuilder& menu);
void AddAlarmRows(MenuBuilder& menu);
void AddToolRows(MenuBuilder& menu);
void AddServiceRows(MenuBuilder& menu);
void AddFatigueRows(MenuBuilder& menu);
void AddCalibrationRows(MenuBuilder& menu);

/// The whole menu, and behind it the commands without an item.
[[nodiscard]] const std::vector<MenuLine>& MenuLines();
/// Null for a command that there is not.
[[nodiscard]] const CommandRow* FindCommand(std::string_view id, int argument = 0);

} // namespace qor
