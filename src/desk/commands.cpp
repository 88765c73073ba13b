#include "desk/commands.h"

#include "desk/dialogs.h"
#include "desk/guards.h"
#include "desk/program.h"
#include "desk/tell.h"

#include <algorithm>

namespace qor {

const std::vector<MenuLine>& MenuLines() {
    static const std::vector<MenuLine> lines = [] {
        std::vector<MenuLine> all;
        MenuBuilder menu(all);
        for (const auto add : {AddResultRows, AddMeasureRows, AddBandRows, AddSetupRows, AddViewRows,
                               AddAlarmRows, AddToolRows, AddServiceRows, AddFatigueRows, AddCalibrationRows})
            add(menu);
        return all;
    }();
    return lines;
}

const CommandRow* FindCommand(std::string_view id, int argument) {
    const auto& lines = MenuLines();
    const auto found = std::find_if(lines.begin(), lines.end(), [&](const MenuLine& line) {
        return line.row.id == id && !id.empty() && line.row.argument == argument;
    });
    return found != lines.end() ? &found->row : nullptr;
}

Outcome Commands::Try(const CommandRow& row) {
    Program& program = m_Desk.program;
    if (!IsEnabled(row))
        return Outcome::Refused({});
    if (row.guards.page != ServicePage::None && !program.State().factory.IsOpen(row.guards.page))
        return Outcome::Refused({});
    if (row.guards.run) {
        if (Outcome off = RunIsOff(program.State()); !off)
            return off;
        if (Outcome off = NothingIsSaved(program); !off)
            return off;
    }
    if (row.guards.port) {
        if (Outcome open = PortIsOpen(program.Parts()); !open)
            return open;
    }
    if (row.guards.run)
        program.DropStart(); // it would begin behind the dialog, with what is being changed there
    if (row.run)
        return row.run(m_Desk, row.argument);
    if (!m_Desk.dialogs.Open(row.id, row.argument))
        return Outcome::Refused(std::string(row.noDialog));
    return Outcome::Done();
}

Outcome Commands::Try(std::string_view id, int argument) {
    const CommandRow* const row = FindCommand(id, argument);
    return row ? Try(*row) : Outcome::Refused({});
}

bool Commands::Run(const CommandRow& row) {
    return Tell(Try(row), m_Desk.program.Parts().user);
}

bool Commands::Run(std::string_view id, int argument) {
    return Tell(Try(id, argument), m_Desk.program.Parts().user);
}

bool Commands::IsChecked(const CommandRow& row) const {
    return row.checked && row.checked(m_Desk.program, row.argument);
}

bool Commands::IsEnabled(const CommandRow& row) const {
    return row.IsMade() && (!row.enabled || row.enabled(m_Desk.program, row.argument));
}

} // namespace qor
