// Commands of measuring: start and stop, order, method, path.
#include "desk/command.h"
#include "desk/program.h"

namespace qor {

namespace {

Outcome SelectMethod(Desk& desk, int mode) {
    const bool spectrum = mode == ModeSpectrum && desk.program.State().working.Method() != ModeSpectrum;
    Outcome outcome = desk.program.Select().SelectMethod(mode);
    return outcome && spectrum ? desk.program.PressStart() : outcome; // the spectrum is shown at once
}

} // namespace

void AddMeasureRows(MenuBuilder& menu) {
    menu.Menu("Messung(&M)");
    menu.Add({.id = "start_stop",
              .caption = "Start/Stop Measurement(&M)\tCtrl+M",
              .run = [](Desk& desk, int) { return desk.program.PressStart(); }});
    menu.Line();
    CommandRow order{.id = "order",
                     .run =
                         [](Desk& desk, int imIndex) {
                             Outcome outcome = desk.program.Select().SelectOrder(imIndex);
                             desk.program.Calibrations().OrderIsChosen();
                             return outcome;
                         },
                     .checked = [](const Program& program,
                                   int imIndex) { return program.State().working.ImIndex() == imIndex; }};
    // shown to the operator
    static constexpr std::string_view Orders[] = {"IM3(&3)\tCtrl+3", "IM5(&5)\tCtrl+5", "IM7(&7)\tCtrl+7",
                                                  "IM9(&9)\tCtrl+9"};
    for (const std::string_view caption : Orders) {
        ++order.argument;
        order.caption = caption;
        menu.Add(order);
    }
    menu.Line();
    const auto method = [&menu](std::string_view caption, int mode) {
        menu.Add(
            {.id = "method",
             .argument = mode,
             .caption = caption,
             .run = SelectMethod,
             .checked = [](const Program& program, int n) { return program.State().working.Method() == n; }});
    };
    // shown to the operator
    static constexpr std::string_view Methods[] = {"2 Ton(&2)", "Scannen(&S)", "Spectrum Analyzer(&N)"};
    method(Methods[0], ModeTwoTone);
    method(Methods[1], ModeSweep);
    method(Methods[2], ModeSpectrum);
    menu.Line();
    const auto path = [&menu](std::string_view caption, int number) {
        menu.Add(
            {.id = "path",
             .argument = number,
             .caption = caption,
             .run = [](Desk& desk, int n) { return desk.program.Select().SelectPath(n); },
             .checked = [](const Program& program, int n) { return program.State().working.Path() == n; }});
    };
    // shown to the operator
    static constexpr std::string_view Paths[] = {"Reflex(&R)", "Uebergeben(&T)"};
    path(Paths[0], 1);
    path(Paths[1], 2);
    menu.Line();
    menu.Add(
        {.id = "serial_field",
         .caption = "Seriennummer(&N)\tCtrl+N",
         .guards = {.run = true},
         .run =
             [](Desk& desk, int) {
                 desk.program.State().appearance.FlipSerial();
                 return Outcome::Done();
             },
         .checked = [](const Program& program, int) { return program.State().appearance.ShowsSerial(); }});
    menu.End();
    order.argument = 5; // no instrument of the ordinary kind measures it
    order.caption = {};
    menu.AddHidden(order);
}

} // namespace qor
