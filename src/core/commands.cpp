#include "core/commands.h"

#include "bands/path_loss.h"
#include "bands/setup_store.h"
#include "core/appearance.h"
#include "core/configuration.h"
#include "core/dialogs.h"
#include "core/guards.h"
#include "core/program.h"
#include "core/settings_file.h"
#include "core/user_modes.h"
#include "display/curve_store.h"
#include "display/level_unit.h"
#include "display/plot_range.h"
#include "display/run_view.h"
#include "platform/launcher.h"
#include "platform/operator.h"
#include "tools/side_tool.h"

namespace qor {

namespace {

struct DialogOf {
    Command command;
    DialogId dialog;
    std::string_view failure; ///< said when the dialog cannot be opened
};

// shown to the operator
constexpr DialogOf DialogsOf[] = {
    {Command::RunSetup, DialogId::RunSetup, "Einbauen misserfolg"},
    {Command::PlotRange, DialogId::PlotRange, "Einbauen misserfolg"},
    {Command::AlarmLevel, DialogId::Alarm, "Can not setup Alarm."},
    {Command::Marker, DialogId::Marker, "Can not setup Marker."},
    {Command::RunNumber, DialogId::RunNumber, "Einbauen misserfolg"},
    {Command::CustomLayout, DialogId::CustomLayout, "Einbauen misserfolg"},
    {Command::About, DialogId::About, "Einbauen misserfolg"},
    {Command::PathLoss, DialogId::PathLoss, "Einbauen misserfolg"},
    {Command::Compensation, DialogId::Compensation, "Einbauen misserfolg"},
    {Command::PathCableLoss, DialogId::PathCableLoss, "Einbauen misserfolg"},
    {Command::InterBand, DialogId::InterBand, "Einbauen misserfolg"},
    {Command::Comment, DialogId::Comment, "Oeffnen file Misserfolg"},
    {Command::Calculator, DialogId::Calculator, "Einbauen misserfolg"},
};

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
    return "Einbauen misserfolg";
}

/// What this program cannot do yet.
bool IsMissing(Command command, int argument) {
    switch (command) {
    case Command::AutoSave:
    case Command::CompanyLogo:
    case Command::SaveJpg:
    case Command::SaveBmp:
    case Command::SaveGraph:
    case Command::SavePdf:
    case Command::SaveExcel:
    case Command::Print:
    case Command::PrintDirect:
    case Command::AnalyserSetup:
        return true;
    case Command::Receiver:
        return argument == 0;
    default:
        return false;
    }
}

} // namespace

Guards GuardsOf(Command command) {
    switch (command) {
    case Command::SerialField:
    case Command::LoadData:
    case Command::SaveData:
    case Command::Receiver:
    case Command::InterBand:
    case Command::RunSetup:
    case Command::PlotRange:
    case Command::RunNumber:
    case Command::Compensation:
    case Command::PathCableLoss:
    case Command::Language: // it ends the program
    case Command::LoadConfiguration:
    case Command::SaveConfiguration:
        return {.run = true};
    case Command::BandSetup:
        return {.run = true, .port = true};
    default:
        return {}; // none, or its own: Selection and the choice of runs
    }
}

void Commands::Tell(std::string_view text, std::string_view title) {
    m_Program.Parts().user.Message(text, title);
}

bool Commands::Passes(const Guards& guards) {
    const Session& session = m_Program.State();
    const Platform& platform = m_Program.Parts();
    return (!guards.run || RunIsOff(session, platform)) && (!guards.port || PortIsOpen(platform));
}

void Commands::Run(Command command, int argument) {
    const Guards guards = GuardsOf(command);
    if (!IsEnabled(command, argument) || !Passes(guards))
        return;
    if (guards.run)
        m_Program.DropStart(); // it would begin behind the dialog, with what is being changed there
    Execute(command, argument);
}

void Commands::Execute(Command command, int argument) {
    Session& session = m_Program.State();
    SetupStore& store = m_Program.Stores();
    AppearanceState& appearance = session.appearance;
    switch (command) {
    case Command::StartStop:
        return m_Program.OnMeasButton();
    case Command::Order:
        return static_cast<void>(m_Program.Select().SelectOrder(argument));
    case Command::Method: {
        const bool spectrum = argument == ModeSpectrum && session.run.g_TestMode != ModeSpectrum;
        if (m_Program.Select().SelectMethod(argument) && spectrum)
            m_Program.OnMeasButton(); // the spectrum is shown at once
        return;
    }
    case Command::Path:
        return static_cast<void>(m_Program.Select().SelectPath(argument));
    case Command::SelectBand:
        return SelectBand(argument);
    case Command::Receiver:
        return m_Program.Select().UseInternalReceiver();
    case Command::Exit:
        return static_cast<void>(m_Program.OnExitButton());
    case Command::Skin:
        return static_cast<void>(ChooseSkin(appearance, argument, store));
    case Command::Layout:
        return ChooseLayout(appearance, argument, store);
    case Command::PlotOnly:
        return static_cast<void>(FlipPlotOnly(appearance, appearance.screen, store));
    case Command::SerialField:
        appearance.serialShown = !appearance.serialShown;
        return;
    case Command::LoadData:
        return LoadData();
    case Command::LoadRxLoss:
        return static_cast<void>(LoadRxLoss(session, m_Program.Parts(), store));
    case Command::SaveConfiguration:
        return static_cast<void>(SaveConfiguration(store, m_Program.Parts()));
    case Command::LoadConfiguration:
        if (LoadConfiguration(store, m_Program.Parts(), session.run.runOn))
            static_cast<void>(m_Program.Restart(true));
        return;
    case Command::UserMode:
        static_cast<void>(FlipUserModes(store, m_Program.Parts(), [this] {
            static_cast<void>(m_Dialogs.Open(DialogId::ModifyPassword));
        }));
        return;
    case Command::SideTool:
        return static_cast<void>(StartSideTool(store, m_Program.Parts()));
    case Command::SaveData:
        return SaveData();
    case Command::LevelUnit:
        static_cast<void>(SetLevelUnit(session.curve.g_UnitDbc == 0, session, m_Program.Parts(), store));
        return;
    case Command::ShowRun:
        return static_cast<void>(ShowRun(argument, session, m_Program.Parts()));
    case Command::Alarm:
        return FlipAlarm(session, store);
    case Command::AlarmStamp:
        return FlipStamp(session, store);
    case Command::BeepTone:
        return ChooseBeepTone(argument, session.alarm, store);
    case Command::UnderLimitBeep:
        return FlipUnderLimitBeep(session.alarm, store);
    case Command::Histogram:
        session.curve.g_histogramOn = session.curve.g_histogramOn == 0 ? 1 : 0;
        store.Write("histogram.ccz", std::to_string(session.curve.g_histogramOn));
        return;
    case Command::Language:
        return ChangeLanguage(argument);
    case Command::Handbook:
        return ShowHandbook();
    case Command::Update:
        return ShowUpdatePage(argument);
    case Command::DeviceSerial:
        return Tell(session.link.g_DeviceSN);
    case Command::EquipmentType:
        return Tell(session.link.m_Type.empty() ? "Kein Geraet verbunden." : session.link.m_Type);
    default:
        return OpenDialog(command, argument);
    }
}

void Commands::OpenDialog(Command command, int argument) {
    if (command == Command::BandSetup) {
        if (!m_Dialogs.Open(DialogId::BandSetup, argument))
            Tell(NoBandSetup(argument));
        return;
    }
    for (const DialogOf& entry : DialogsOf) {
        if (entry.command == command && !m_Dialogs.Open(entry.dialog, argument))
            Tell(entry.failure);
    }
}

void Commands::SelectBand(int band) {
    const Session& session = m_Program.State();
    if (band == BandPcs && session.select.m_BandId != BandPcs && !session.run.runOn) {
        // Both lie at one position of the instrument's switch.
        const Answer answer =
            m_Program.Parts().user.AskOrCancel("Do you select PCS band?  Yes--PCS, No--AWS", "Selec PCS/AWS");
        if (answer == Answer::Cancel)
            return;
        if (answer == Answer::No)
            band = BandAws;
    }
    static_cast<void>(m_Program.Select().SelectBand(band));
}

void Commands::LoadData() {
    const std::filesystem::path folder =
        std::filesystem::path(m_Program.State().results.LastLoadPath).parent_path();
    const auto paths = m_Program.Parts().user.FilesToOpen("Einfuehren Daten", folder, "*.dat *.txt");
    m_Program.List().Load(paths);
}

void Commands::StepScale(bool up) {
    StepPlotRange(up, m_Program.State().curve, m_Program.Stores());
}

void Commands::SaveData() {
    Session& session = m_Program.State();
    const std::filesystem::path folder = std::filesystem::path(session.results.LastLoadPath).parent_path();
    const std::string name = session.results.m_DutSerial.empty() ? "qor" : session.results.m_DutSerial;
    // A curve that came from a file can be passed on as text, not turned into an original.
    const std::string_view endings = session.curve.g_fromFile != 0 ? "*.txt" : "*.dat *.txt";
    const std::filesystem::path path =
        m_Program.Parts().user.FileToSave("Speichern Daten", folder / name, endings);
    if (!path.empty())
        static_cast<void>(m_Program.Files().DataSave(path));
}

void Commands::ClearDisplay() {
    Session& session = m_Program.State();
    if (!RunIsOff(session, m_Program.Parts()))
        return;
    ResetCurve(session.curve);
    ClearLevels(session.curve);
    m_Program.Marks().Clear();
    session.curve.StoreDataPot = 0;
    session.curve.g_MeasVerdict = VerdictNone;
    session.panel.m_ReadingText.clear();
    session.panel.m_WorstFreqText.clear();
    session.panel.m_WorstLevelText.clear();
    session.results.loaded.reset();
}

void Commands::ChangeLanguage(int language) {
    Launcher* launcher = m_Program.Parts().launcher;
    if (!launcher || static_cast<int>(CurrentLanguage(m_Program.Stores())) == language)
        return;
    if (!ChooseLanguage(static_cast<Language>(language), m_Program.Stores()))
        return Tell("Oeffnen file Misserfolg");
    static_cast<void>(m_Program.Restart(false));
}

void Commands::ShowHandbook() {
    std::string handbook = SettingOf(m_Program.Stores(), "handbook");
    for (const std::string_view name : {"QOR_Handbook.chm", "QOR_Handbook.pdf", "QOR_Handbook.html"}) {
        if (handbook.empty() && m_Program.Stores().Exists(name))
            handbook = m_Program.Stores().PathOf(name).string();
    }
    Launcher* launcher = m_Program.Parts().launcher;
    if (handbook.empty() || !launcher || !launcher->Show(handbook))
        Tell("Kein Handbuch gefunden. Bitte QOR_Handbook.pdf in den Datenordner legen oder in qor.ini die "
             "Zeile "
             "handbook=... eintragen.");
}

void Commands::ShowUpdatePage(int region) {
    static constexpr std::string_view Keys[] = {"update_europe", "update_america", "update_asia_pacific"};
    const std::string_view key = Keys[region];
    const std::string page = SettingOf(m_Program.Stores(), key);
    Launcher* launcher = m_Program.Parts().launcher;
    if (page.empty() || !launcher || !launcher->Show(page))
        Tell("Keine Seite fuer Updates eingetragen. Bitte in qor.ini die Zeile " + std::string(key) +
             "=https://... eintragen.");
}

bool Commands::IsEnabled(Command command, int argument) const {
    if (IsMissing(command, argument))
        return false;
    if (command == Command::ShowRun)
        return CanShowRun(m_Program.State(), argument);
    return true;
}

bool Commands::IsChecked(Command command, int argument) const {
    const Session& session = m_Program.State();
    const CurveState& curve = session.curve;
    switch (command) {
    case Command::Order:
        return session.select.m_IMIndex == argument;
    case Command::SerialField:
        return session.appearance.serialShown;
    case Command::SelectBand:
        return session.select.m_BandId == argument;
    case Command::Receiver:
        return session.receiver.tagReceiver == argument;
    case Command::Method:
        return session.run.g_TestMode == argument;
    case Command::Path:
        return session.select.m_PathMode == argument;
    case Command::LevelUnit:
        return curve.g_UnitDbc != 0;
    case Command::Histogram:
        return curve.g_histogramOn != 0;
    case Command::PlotOnly:
        return session.appearance.g_ImageOnly;
    case Command::Skin:
        return session.appearance.m_skin == argument;
    case Command::Layout:
    case Command::CustomLayout:
        return session.appearance.g_layout == argument;
    case Command::Language:
        return static_cast<int>(CurrentLanguage(m_Program.Stores())) == argument;
    case Command::ShowRun:
        return curve.g_shownRun == argument;
    case Command::UserMode:
        return AsksForUser(m_Program.Stores());
    case Command::InterBand:
        return session.interBand.g_bInterBand;
    case Command::Alarm:
        return curve.g_alarmOff == 0;
    case Command::AlarmStamp:
        return curve.g_stampOff == 0;
    case Command::BeepTone:
        return session.alarm.g_beepTone == argument;
    case Command::UnderLimitBeep:
        return session.alarm.g_underBeepTone != 0;
    default:
        return false;
    }
}

} // namespace qor
