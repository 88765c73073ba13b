#include "desk/setup/band_setup.h"

#include "bands/catalogue.h"
#include "base/setup_store.h"
#include "base/text_format.h"
#include "link/commands.h"
#include "link/working_set.h"

#include <algorithm>

namespace qor {

namespace {

struct Title {
    int band;
    std::string_view text;
};

// shown to the operator
constexpr Title Titles[] = {
    {BandAmps, "AMPS Einbauen"},         {BandEgsm, "EGSM Einbauen"},
    {BandLte, "LTE Einbauen"},           {BandDcs, "DCS Einbauen"},
    {BandUmts, "UMTS Einbauen"},         {BandPcs, "PCS Einbauen"},
    {BandWiMax, "WiMax Setup"},          {BandTdScdmaA, "TD-A "},
    {BandTdScdmaF, "TD-F Setup"},        {BandUmts2, "UMTS2/LTE Einbauen"},
    {BandDigDiv, "DIG-DIV Setup"},       {BandAws, "AWS Setup"},
    {BandTdScdmaE, "TD-E Setup"},        {BandWifi, "Wifi Einbauen"},
    {BandTetra390, "Tetra 390 Setup"},   {BandTetra392, "Tetra 392"},
    {BandLte700L, "LTE 700 L Einbauen"}, {BandLte700U, "LTE 700 U Einbauen"},
};

// shown to the operator
constexpr SetupCaptions Captions = {"",
                                    "Staerke Einbauen",
                                    "Staerke  Ausfuhr f1:",
                                    "Staerke  Ausfuhr f2:",
                                    "Synchron ",
                                    "Einbauen",
                                    "Standard",
                                    "Sich"};
// shown to the operator
constexpr SetupCaptions OtherCaptions = {
    "", "Power Set", "Power Output f1:", "Power Output f2:", "Sync", "Set", "Default", "Exit"};

const Title* FindTitle(int band) {
    const auto* const row = std::find_if(std::begin(Titles), std::end(Titles),
                                         [band](const Title& title) { return title.band == band; });
    return row != std::end(Titles) ? row : nullptr;
}

} // namespace

bool HasSetup(int band) {
    return FindTitle(band) != nullptr;
}

bool HasPlanPages(int band) {
    return HasSetup(band) && band != BandTdScdmaA;
}

SetupCaptions CaptionsOf(int band) {
    const Title* const row = FindTitle(band);
    const bool other = band == BandAws || band == BandTdScdmaF || band == BandTdScdmaE || band == BandDigDiv;
    SetupCaptions captions = other ? OtherCaptions : Captions;
    captions.title = row ? row->text : std::string_view();
    return captions;
}

Outcome SaveTdScdmaAF1(double f1, const WorkingSet& working, CommandQueue& queue, SetupStore& store) {
    constexpr double Lowest = 0.1;
    constexpr double Highest = 9999.9;
    if (!(f1 >= Lowest && f1 <= Highest))
        return Outcome::Refused("Falsch, dichtesortierung.");
    if (!store.Write("tdb_f1.ccz", Fixed(f1, 1)))
        return Outcome::Refused("Oeffnen file Misserfolg");
    if (working.Band() == BandTdScdmaA) {
        queue.Append(WithTenths(command::Frequency1, f1));
        queue.Append(WithTenths(command::Frequency2, static_cast<double>(TdScdmaAF2)));
    }
    return Outcome::Done();
}

} // namespace qor
