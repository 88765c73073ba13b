// Commands of what is seen: scale, unit, markers, runs, looks, layouts, language.
#include "curve/curve.h"
#include "curve/markers.h"
#include "curve/plot_range.h"
#include "curve/run_view.h"
#include "desk/appearance.h"
#include "desk/command.h"
#include "desk/guards.h"
#include "desk/level_unit.h"
#include "desk/program.h"
#include "desk/setup/path_loss.h"
#include "platform/launcher.h"

namespace qor {

namespace {

/// Empties the display: curve, worst values, markers, verdict.
Outcome ClearDisplay(Desk& desk, int) {
    Session& session = desk.program.State();
    if (Outcome off = RunIsOff(session); !off) // one that waits for its turn is not dropped
        return off;
    ClearPlot(session.curve, session.markers);
    RestorePathLoss(session, desk.program.Stores());
    session.readout.ClearLevel();
    session.results.loaded.Clear();
    return Outcome::Done();
}

Outcome FlipHistogram(Desk& desk, int) {
    PlotScale& scale = desk.program.State().curve.scale;
    scale.ShowBar(!scale.ShowsBar());
    desk.program.Stores().Write("histogram.ccz", scale.ShowsBar() ? "1" : "0");
    return Outcome::Done();
}

Outcome ChangeLanguage(Desk& desk, int language) {
    Launcher* launcher = desk.program.Parts().launcher;
    if (!launcher || static_cast<int>(CurrentLanguage(desk.program.Stores())) == language)
        return Outcome::Done();
    if (!ChooseLanguage(static_cast<Language>(language), desk.program.Stores()))
        return Outcome::Refused("Oeffnen file Misserfolg");
    static_cast<void>(desk.program.Restart(false));
    return Outcome::Done();
}

void AddPlotRows(MenuBuilder& menu) {
    menu.Add({.id = "plot_range",
              .caption = "Bereich Log(&D)",
              .guards = {.run = true},
              .noDialog = "Einbauen misserfolg"});
    menu.Add({.id = "unit",
              .caption = "Einheit: dBm/dBc(&C)",
              .run =
                  [](Desk& desk, int) {
                      Session& session = desk.program.State();
                      return SetLevelUnit(!session.curve.scale.InDbc(), session, desk.program.Stores());
                  },
              .checked = [](const Program& program, int) { return program.State().curve.scale.InDbc(); }});
    menu.Add({.id = "histogram",
              .caption = "Histogramm(&H)",
              .run = FlipHistogram,
              .checked = [](const Program& program, int) { return program.State().curve.scale.ShowsBar(); }});
    menu.Add(
        {.id = "plot_only",
         .caption = "Display Grafik Nur(&I)",
         .run =
             [](Desk& desk, int) {
                 static_cast<void>(desk.program.State().appearance.FlipPlotOnly(desk.program.Stores()));
                 return Outcome::Done();
             },
         .checked = [](const Program& program, int) { return program.State().appearance.IsPlotOnly(); }});
}

void AddMarkerRows(MenuBuilder& menu) {
    // shown to the operator
    static constexpr std::string_view Markers[] = {"Marker 1 Bilden", "Marker 2 Bilden", "Marker 3 Bilden"};
    for (int marker = 0; marker < 3; ++marker)
        menu.Add({.id = "marker",
                  .argument = marker,
                  .caption = Markers[marker],
                  .noDialog = "Can not setup Marker."});
}

void AddRunRows(MenuBuilder& menu) {
    // shown to the operator
    static constexpr std::string_view Runs[] = {"Bilden 1", "Bilden 2", "Bilden 3", "Bilden 4", "Bilden 5",
                                                "Bilden 6", "Bilden 7", "Bilden 8", "Bilden 9", "Bilden 10"};
    int run = 0;
    for (const std::string_view caption : Runs)
        menu.Add(
            {.id = "show_run",
             .argument = ++run,
             .caption = caption,
             .run =
                 [](Desk& desk, int n) {
                     if (Outcome off = RunIsOff(desk.program.State()); !off)
                         return off;
                     ShowRun(n, desk.program.State().curve);
                     return Outcome::Done();
                 },
             .checked = [](const Program& program, int n) { return program.State().curve.ShownRun() == n; },
             .enabled = [](const Program& program, int n) { return CanShowRun(program.State().curve, n); }});
    menu.Add({.id = "run_number",
              .caption = "Bilden...",
              .guards = {.run = true},
              .noDialog = "Einbauen misserfolg"});
}

void AddLookRows(MenuBuilder& menu) {
    const auto skin = [&menu](std::string_view caption, int number) {
        menu.Add({.id = "skin",
                  .argument = number,
                  .caption = caption,
                  .run =
                      [](Desk& desk, int n) {
                          static_cast<void>(
                              desk.program.State().appearance.ChooseSkin(n, desk.program.Stores()));
                          return Outcome::Done();
                      },
                  .checked = [](const Program& program,
                                int n) { return program.State().appearance.Skin() == n; }});
    };
    // shown to the operator
    static constexpr std::string_view Skins[] = {"Anschaulich", "Asche", "Aktivitaet"};
    skin(Skins[0], SkinVivid);
    skin(Skins[1], SkinAsh);
    skin(Skins[2], SkinActive);
}

void AddLayoutRows(MenuBuilder& menu) {
    constexpr auto isLaidOut = [](const Program& program, int n) {
        return program.State().appearance.Layout() == n;
    };
    // shown to the operator
    static constexpr std::pair<std::string_view, int> Layouts[] = {{"Entsprechen Bildschirm", 0},
                                                                   {"1024*600", 8},
                                                                   {"1024*768", 2},
                                                                   {"1280*800", 5},
                                                                   {"1280*1024", 6},
                                                                   {"1440*900", 4},
                                                                   {"1600*1200", 1},
                                                                   {"1920*1200", 3}};
    for (const auto& [caption, number] : Layouts)
        menu.Add({.id = "layout",
                  .argument = number,
                  .caption = caption,
                  .run =
                      [](Desk& desk, int n) {
                          desk.program.State().appearance.ChooseLayout(n, desk.program.Stores());
                          return Outcome::Done();
                      },
                  .checked = isLaidOut});
    menu.Add({.id = "custom_layout",
              .argument = LayoutCustom,
              .caption = "Auf Bestellung Anfertigen...",
              .checked = isLaidOut,
              .noDialog = "Einbauen misserfolg"});
}

void AddLanguageRows(MenuBuilder& menu) {
    // shown to the operator
    static constexpr std::string_view Languages[] = {"English", "Chinese", "Deutsch"};
    for (int language = 0; language < 3; ++language)
        menu.Add({.id = "language",
                  .argument = language,
                  .caption = Languages[language],
                  .guards = {.run = true}, // it ends the program
                  .run = ChangeLanguage,
                  .checked = [](const Program& program, int n) {
                      return static_cast<int>(CurrentLanguage(program.Stores())) == n;
                  }});
}

} // namespace

void AddViewRows(MenuBuilder& menu) {
    menu.Menu("Anzeige(&Z)");
    AddPlotRows(menu);
    menu.Line();
    AddMarkerRows(menu);
    menu.Line();
    menu.Menu("Bilden(&B)");
    AddRunRows(menu);
    menu.End();
    menu.Line();
    menu.Menu("Darstellung(&A)");
    AddLookRows(menu);
    menu.End();
    menu.Menu("Schnittstelle Entwurf(&Z)");
    AddLayoutRows(menu);
    menu.End();
    menu.Menu("Sprache(&L)");
    AddLanguageRows(menu);
    menu.End();
    menu.End();
    menu.AddHidden({.id = "clear_display", .run = ClearDisplay});
    const auto step = [](Desk& desk, int up) {
        StepPlotRange(up != 0, desk.program.State().curve, desk.program.Stores());
        return Outcome::Done();
    };
    menu.AddHidden({.id = "scale_step", .argument = 0, .run = step});
    menu.AddHidden({.id = "scale_step", .argument = 1, .run = step});
}

} // namespace qor
