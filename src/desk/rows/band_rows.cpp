// Commands of the link: the band, and the port.
#include "bands/catalogue.h"
#include "desk/command.h"
#include "desk/program.h"
#include "platform/operator.h"

namespace qor {

namespace {

/// PCS and AWS lie at one position of the instrument's switch.
Outcome SelectBand(Desk& desk, int band) {
    const Session& session = desk.program.State();
    if (band == BandPcs && session.working.Band() != BandPcs && !session.run.IsOn()) {
        const Answer answer = desk.program.Parts().user.AskOrCancel(
            "Do you select PCS band?  Yes--PCS, No--AWS", "Selec PCS/AWS");
        if (answer == Answer::Cancel)
            return Outcome::Done();
        if (answer == Answer::No)
            band = BandAws;
    }
    return desk.program.Select().SelectBand(band);
}

void AddBand(MenuBuilder& menu, int number) {
    const BandInfo& band = *FindBand(number);
    menu.Add({.id = "band",
              .argument = number,
              .caption = band.menuText.empty() ? band.bandText : band.menuText,
              .run = SelectBand,
              .checked = [](const Program& program, int n) { return program.State().working.Band() == n; }});
}

} // namespace

void AddBandRows(MenuBuilder& menu) {
    menu.Menu("Breite(&B)");
    for (const int band : {BandLte, BandDigDiv, BandAmps, BandEgsm, BandDcs, BandPcs})
        AddBand(menu, band);
    menu.Menu("TD-SCDMA 2000");
    for (const int band : {BandTdScdmaF, BandTdScdmaA, BandTdScdmaE})
        AddBand(menu, band);
    menu.End();
    for (const int band :
         {BandUmts, BandAws, BandUmts2, BandWiMax, BandTetra390, BandTetra392, BandLte700L, BandLte700U})
        AddBand(menu, band);
    menu.End();
    menu.AddHidden({.id = "port", .run = [](Desk& desk, int) {
                        desk.program.Link().OnButton1();
                        return Outcome::Done();
                    }});
    menu.AddHidden({.id = "choose_port", .noDialog = "Einbauen misserfolg"});
}

} // namespace qor
