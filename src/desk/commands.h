#pragma once

#include "desk/command.h"

namespace qor {

/// Runs the rows behind their guards, for whoever asks.
class Commands {
public:
    Commands(Program& program, Dialogs& dialogs) : m_Desk{program, dialogs} {}

    /// Does what the row says, or refuses with the words why; nothing has changed then.
    Outcome Try(const CommandRow& row);
    Outcome Try(std::string_view id, int argument = 0);
    /// The same for the operator, who is told.
    bool Run(const CommandRow& row);
    bool Run(std::string_view id, int argument = 0);

    /// Whether the item has its check mark now.
    [[nodiscard]] bool IsChecked(const CommandRow& row) const;
    [[nodiscard]] bool IsEnabled(const CommandRow& row) const;

private:
    Desk m_Desk;
};

} // namespace qor
