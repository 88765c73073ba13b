// The fatigue test of the service's page.
#include "desk/command.h"
#include "desk/guards.h"
#include "desk/program.h"

namespace qor {

namespace {

Outcome StartOrStop(Desk& desk, int) {
    FatigueTest& test = desk.program.Fatigue();
    if (test.IsOn()) {
        test.Stop();
        return Outcome::Done();
    }
    const Outcome open = PortIsOpen(desk.program.Parts());
    return open ? test.Start() : open;
}

} // namespace

void AddFatigueRows(MenuBuilder& menu) {
    menu.AddHidden({.id = "fatigue_test", .guards = {.page = ServicePage::Test}, .run = StartOrStop});
}

} // namespace qor
