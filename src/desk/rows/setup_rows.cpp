// Commands of the set-up: bands and powers, runs, receiver, losses, users.
#include "bands/catalogue.h"
#include "desk/command.h"
#include "desk/dialogs.h"
#include "desk/program.h"
#include "desk/setup/path_loss.h"
#include "desk/user_modes.h"

namespace qor {

namespace {

struct BandFailure {
    int band;
    std::string_view text;
};

// shown to the operator
constexpr BandFailure NoSetup[] = {
    {BandAmps, "Nichts einbauen AMPS."},         {BandLte, "Nichts einbauen LTE."},
    {BandEgsm, "Nichts einbauen EGSM."},         {BandDcs, "Nichts einbauen DCS."},
    {BandPcs, "Nichts einbauen PCS."},           {BandTdScdmaA, "Nichts einbauen TD-SCDMA."},
    {BandTdScdmaF, "Nichts einbauen TD-SCDMA."}, {BandTdScdmaE, "Nichts einbauen TD-SCDMA."},
    {BandUmts, "Nichts einbauen UMTS."},         {BandWiMax, "Nichts einbauen WiMax."},
    {BandUmts2, "Nichts einbauen UMTS2."},       {BandAws, "Nichts einbauen AWS."},
    {BandWifi, "Nichts einbauen WIFI."},         {BandDigDiv, "Can not setup DIG-DIV."},
    {BandLte700L, "Can not setup LTE 700 L."},   {BandLte700U, "Can not setup LTE 700 U."},
};

/// Said when the set-up dialog of a band cannot be opened.
std::string_view NoBandSetup(int band) {
    for (const BandFailure& failure : NoSetup) {
        if (failure.band == band)
            return failure.text;
    }
    // shown to the operator
    static constexpr std::string_view Other = "Einbauen misserfolg";
    return Other;
}

void AddBandSetup(MenuBuilder& menu, int number) {
    const BandInfo& band = *FindBand(number);
    menu.Add({.id = "band_setup",
              .argument = number,
              .caption = band.setupText.empty() ? band.bandText : band.setupText,
              .guards = {.run = true, .port = true},
              .noDialog = NoBandSetup(number)});
}

Outcome SwitchUserModes(Desk& desk, int) {
    return FlipUserModes(desk.program.Stores(), desk.program.Parts().user,
                         [&desk] { static_cast<void>(desk.dialogs.Open("modify_password")); });
}

} // namespace

void AddSetupRows(MenuBuilder& menu) {
    menu.Menu("Setup(&S)");
    menu.Menu("Breite/Power(&B)");
    for (const int band : {BandLte, BandDigDiv, BandAmps, BandEgsm, BandDcs, BandPcs, BandTdScdmaF,
                           BandTdScdmaA, BandTdScdmaE, BandUmts, BandAws, BandUmts2, BandWiMax, BandTetra390,
                           BandTetra392, BandLte700L, BandLte700U, BandWifi})
        AddBandSetup(menu, band);
    menu.End();
    menu.Add({.id = "run_setup",
              .caption = "Measurement Mode Setup(&M)",
              .guards = {.run = true},
              .noDialog = "Einbauen misserfolg"});
    menu.Add({.id = "inter_band",
              .caption = "Inter-band Measurement(&O)",
              .guards = {.run = true},
              .checked = [](const Program& program, int) { return program.State().interBand.IsOn(); },
              .noDialog = "Einbauen misserfolg"});
    menu.Line();
    AddReceiverRows(menu);
    menu.Line();
    menu.Menu("Route Verlust(&V)");
    menu.Add({.id = "path_loss", .caption = "Route Verlust Einbauen(&X)", .noDialog = "Einbauen misserfolg"});
    menu.Add({.id = "compensation",
              .caption = "Compensation(&C)",
              .guards = {.run = true},
              .noDialog = "Einbauen misserfolg"});
    menu.Add({.id = "path_cable_loss",
              .caption = "Path Cable Loss(&L)",
              .guards = {.run = true},
              .noDialog = "Einbauen misserfolg"});
    menu.Add({.id = "load_rx_loss", .caption = "Load Rx Loss", .run = [](Desk& desk, int) {
                  return LoadRxLoss(desk.program.State(), desk.program.Parts(), desk.program.Stores());
              }});
    menu.End();
    menu.Line();
    menu.Add({.id = "user_modes",
              .caption = "Administrator/Operator Mode Enable(&E)",
              .run = SwitchUserModes,
              .checked = [](const Program& program, int) { return AsksForUser(program.Stores()); }});
    menu.End();
}

} // namespace qor
