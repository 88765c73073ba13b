// The maker's service pages. None of these is in the menu: keys and buttons, once the PIN was given.
#include "desk/command.h"
#include "desk/program.h"

namespace qor {

void AddServiceRows(MenuBuilder& menu) {
    menu.AddHidden({.id = "factory_mode",
                    .run = [](Desk& desk, int) { return desk.program.Service().Home(desk.dialogs); }});
    menu.AddHidden({.id = "test_page", .run = [](Desk& desk, int) {
                        return desk.program.Service().PressPage(ServicePage::Test);
                    }});
    menu.AddHidden({.id = "calibration_page", .run = [](Desk& desk, int) {
                        Outcome outcome = desk.program.Service().PressPage(ServicePage::Calibration);
                        CalibrationDesk& calibrations = desk.program.Calibrations();
                        calibrations.FillFields();
                        calibrations.LookForUnfinished();
                        calibrations.OrderIsChosen(); // the hint of the page
                        return outcome;
                    }});
    menu.AddHidden({.id = "restore_memory",
                    .guards = {.page = ServicePage::Test},
                    .run = [](Desk& desk, int) { return desk.program.Service().Memory().Restore(); }});
}

} // namespace qor
