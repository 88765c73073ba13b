// Commands of the receivers: which one measures, where the external one is, how it is set up.
#include "desk/command.h"
#include "desk/dialogs.h"
#include "desk/program.h"
#include "receivers/analyser_setup.h"

namespace qor {

namespace {

Outcome ChooseReceiver(Desk& desk, int internal) {
    if (internal == 1)
        desk.program.Receiver().UseInternal();
    else
        desk.program.Receiver().UseExternal();
    return Outcome::Done();
}

Outcome SetAnalyserUp(Desk& desk, int) {
    if (desk.program.State().receiver.InstrumentListens())
        return Outcome::Refused(
            "Please select external receiver by menu \"Setup->Receiver Ports->External\"");
    return desk.dialogs.Open("analyser_setup") ? Outcome::Done() : Outcome::Refused("Einbauen misserfolg");
}

} // namespace

void AddReceiverRows(MenuBuilder& menu) {
    menu.Menu("Receiver Ports(&P)");
    const auto receives = [](const Program& program, int n) {
        return program.State().receiver.InstrumentListens() == (n == 1);
    };
    menu.Add({.id = "receiver",
              .argument = 1,
              .caption = "Intern",
              .guards = {.run = true},
              .run = ChooseReceiver,
              .checked = receives});
    menu.Add({.id = "receiver",
              .argument = 0,
              .caption = "Extern",
              .guards = {.run = true},
              .run = ChooseReceiver,
              .checked = receives});
    menu.Add({.id = "receiver_address",
              .caption = "Adresse(&D)",
              .guards = {.run = true},
              .noDialog = "Einbauen misserfolg"});
    menu.End();
    menu.Add({.id = "analyser_setup",
              .caption = "R/S Analysator Setup(&A)",
              .guards = {.run = true},
              .run = SetAnalyserUp});
}

} // namespace qor
