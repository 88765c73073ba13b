#include "core/menu.h"

#include "bands/catalogue.h"
#include "core/appearance.h"
#include "measure/run_state.h"

namespace qor {

namespace {

using Kind = MenuLine::Kind;

constexpr MenuLine Menu(std::string_view caption) {
    return {Kind::Menu, caption};
}
constexpr MenuLine End() {
    return {Kind::End, {}};
}
constexpr MenuLine Line() {
    return {Kind::Separator, {}};
}
constexpr MenuLine Item(std::string_view caption, Command command, int argument = 0) {
    return {Kind::Item, caption, command, argument};
}
/// An item with a check mark.
constexpr MenuLine Check(std::string_view caption, Command command, int argument = 0) {
    return {Kind::Item, caption, command, argument, true};
}
/// Band items take their captions from the catalogue.
constexpr MenuLine Band(int band) {
    return Check({}, Command::SelectBand, band);
}
constexpr MenuLine Setup(int band) {
    return Item({}, Command::BandSetup, band);
}

constexpr MenuLine Lines[] = {
    Menu("Datei(&D)"),
    Item("Einfuehren Daten(&L)\tCtrl+L", Command::LoadData),
    Item("Speichern Daten(&T)\tCtrl+T", Command::SaveData),
    Check("Auto Save On/Off(&A)\tCtrl+A", Command::AutoSave),
    Line(),
    Item("Einfuehren Firmenlogo(&I)\tCtrl+I", Command::CompanyLogo),
    Item("Addieren Anmerkung(&C)\tCtrl+C", Command::Comment),
    Line(),
    Item("Speichern JPG(&J)\tCtrl+J", Command::SaveJpg),
    Item("Speichern BMP(&B)\tCtrl+B", Command::SaveBmp),
    Item("Speichern Graph(&G)\tCtrl+G", Command::SaveGraph),
    Item("Speichern PDF(&S)\tCtrl+S", Command::SavePdf),
    // Ctrl+X belongs to the way out; two items on one key would leave both without it.
    Item("Speichern Excel(&X)\tCtrl+E", Command::SaveExcel),
    Line(),
    Item("Drucken(&V)\tCtrl+V", Command::Print),
    Item("Drucken Direkt(&P)\tCtrl+P", Command::PrintDirect),
    Line(),
    Item("Load Configure", Command::LoadConfiguration),
    Item("Save Configure", Command::SaveConfiguration),
    Line(),
    Item("Sich(&X)\tCtrl+X", Command::Exit),
    End(),

    Menu("Messung(&M)"),
    Item("Start/Stop Measurement(&M)\tCtrl+M", Command::StartStop),
    Line(),
    Check("IM3(&3)\tCtrl+3", Command::Order, 1),
    Check("IM5(&5)\tCtrl+5", Command::Order, 2),
    Check("IM7(&7)\tCtrl+7", Command::Order, 3),
    Check("IM9(&9)\tCtrl+9", Command::Order, 4),
    Line(),
    Check("2 Ton(&2)", Command::Method, ModeTwoTone),
    Check("Scannen(&S)", Command::Method, ModeSweep),
    Check("Spectrum Analyzer(&N)", Command::Method, ModeSpectrum),
    Line(),
    Check("Reflex(&R)", Command::Path, 1),
    Check("Uebergeben(&T)", Command::Path, 2),
    Line(),
    Check("Seriennummer(&N)\tCtrl+N", Command::SerialField),
    End(),

    Menu("Breite(&B)"),
    Band(BandLte),
    Band(BandDigDiv),
    Band(BandAmps),
    Band(BandEgsm),
    Band(BandDcs),
    Band(BandPcs),
    Menu("TD-SCDMA 2000"),
    Band(BandTdScdmaF),
    Band(BandTdScdmaA),
    Band(BandTdScdmaE),
    End(),
    Band(BandUmts),
    Band(BandAws),
    Band(BandUmts2),
    Band(BandWiMax),
    Band(BandTetra390),
    Band(BandTetra392),
    Band(BandLte700L),
    Band(BandLte700U),
    End(),

    Menu("Setup(&S)"),
    Menu("Breite/Power(&B)"),
    Setup(BandLte),
    Setup(BandDigDiv),
    Setup(BandAmps),
    Setup(BandEgsm),
    Setup(BandDcs),
    Setup(BandPcs),
    Setup(BandTdScdmaF),
    Setup(BandTdScdmaA),
    Setup(BandTdScdmaE),
    Setup(BandUmts),
    Setup(BandAws),
    Setup(BandUmts2),
    Setup(BandWiMax),
    Setup(BandTetra390),
    Setup(BandTetra392),
    Setup(BandLte700L),
    Setup(BandLte700U),
    Setup(BandWifi),
    End(),
    Item("Measurement Mode Setup(&M)", Command::RunSetup),
    Check("Inter-band Measurement(&O)", Command::InterBand),
    Line(),
    Menu("Receiver Ports(&P)"),
    Check("Intern", Command::Receiver, 1),
    Check("Extern", Command::Receiver, 0),
    End(),
    Item("R/S Analysator Setup(&A)", Command::AnalyserSetup),
    Line(),
    Menu("Route Verlust(&V)"),
    Item("Route Verlust Einbauen(&X)", Command::PathLoss),
    Item("Compensation(&C)", Command::Compensation),
    Item("Path Cable Loss(&L)", Command::PathCableLoss),
    Item("Load Rx Loss", Command::LoadRxLoss),
    End(),
    Line(),
    Check("Administrator/Operator Mode Enable(&E)", Command::UserMode),
    End(),

    Menu("Anzeige(&Z)"),
    Item("Bereich Log(&D)", Command::PlotRange),
    Check("Einheit: dBm/dBc(&C)", Command::LevelUnit),
    Check("Histogramm(&H)", Command::Histogram),
    Check("Display Grafik Nur(&I)", Command::PlotOnly),
    Line(),
    Item("Marker 1 Bilden", Command::Marker, 0),
    Item("Marker 2 Bilden", Command::Marker, 1),
    Item("Marker 3 Bilden", Command::Marker, 2),
    Line(),
    Menu("Bilden(&B)"),
    Check("Bilden 1", Command::ShowRun, 1),
    Check("Bilden 2", Command::ShowRun, 2),
    Check("Bilden 3", Command::ShowRun, 3),
    Check("Bilden 4", Command::ShowRun, 4),
    Check("Bilden 5", Command::ShowRun, 5),
    Check("Bilden 6", Command::ShowRun, 6),
    Check("Bilden 7", Command::ShowRun, 7),
    Check("Bilden 8", Command::ShowRun, 8),
    Check("Bilden 9", Command::ShowRun, 9),
    Check("Bilden 10", Command::ShowRun, 10),
    Item("Bilden...", Command::RunNumber),
    End(),
    Line(),
    Menu("Darstellung(&A)"),
    Check("Anschaulich", Command::Skin, SkinVivid),
    Check("Asche", Command::Skin, SkinAsh),
    Check("Aktivitaet", Command::Skin, SkinActive),
    End(),
    Menu("Schnittstelle Entwurf(&Z)"),
    Check("Entsprechen Bildschirm", Command::Layout, 0),
    Check("1024*600", Command::Layout, 8),
    Check("1024*768", Command::Layout, 2),
    Check("1280*800", Command::Layout, 5),
    Check("1280*1024", Command::Layout, 6),
    Check("1440*900", Command::Layout, 4),
    Check("1600*1200", Command::Layout, 1),
    Check("1920*1200", Command::Layout, 3),
    Check("Auf Bestellung Anfertigen...", Command::CustomLayout, LayoutCustom),
    End(),
    Menu("Sprache(&L)"),
    Check("English", Command::Language, 0),
    Check("Chinese", Command::Language, 1),
    Check("Deutsch", Command::Language, 2),
    End(),
    End(),

    Menu("Alarm(&A)"),
    Check("Alarm Oeffnen/Schliessen", Command::Alarm),
    Check("Alarm Stempel Oeffnen/Schliessen", Command::AlarmStamp),
    Item("Niveau", Command::AlarmLevel),
    Line(),
    Menu("Lautstaerke"),
    Check("Hoch", Command::BeepTone, 2200),
    Check("Mitte", Command::BeepTone, 1500),
    Check("Klein", Command::BeepTone, 500),
    Check("Leise", Command::BeepTone, 0),
    End(),
    Check("Under Limit Beep On/Off", Command::UnderLimitBeep),
    End(),

    Menu("Werkzeug(&W)"),
    Item("dBm <-> mW <-> mV", Command::Calculator),
    Item("PIM", Command::SideTool),
    End(),

    Menu("Hilfe(&H)"),
    Item("QOR Handbuch(&Q)\tCtrl+Q", Command::Handbook),
    Item("QOR Device SN(&Z)\tCtrl+Z", Command::DeviceSerial),
    Item("Equipment type", Command::EquipmentType),
    Menu("Update(&U)"),
    Item("Europe", Command::Update, 0),
    Item("America", Command::Update, 1),
    Item("Aisa Pacific", Command::Update, 2),
    End(),
    Line(),
    Item("Ansehend QOR(&H)\tCtrl+H", Command::About),
    End(),
};

} // namespace

std::span<const MenuLine> MenuLines() {
    return Lines;
}

std::string_view CaptionOf(const MenuLine& line) {
    const BandInfo* band = line.caption.empty() ? FindBand(line.argument) : nullptr;
    if (!band)
        return line.caption;
    const std::string_view text = line.command == Command::BandSetup ? band->setupText : band->menuText;
    return text.empty() ? band->bandText : text;
}

} // namespace qor
