#pragma once

#include <span>
#include <string_view>

namespace qor {

/// What the operator can ask for from the menu. Some take a number: a band, a layout, a run.
enum class Command {
    StartStop,
    Order, ///< index of the order, 1 IM3 to 5 IM11
    SerialField,
    LoadData,
    SaveData,
    AutoSave,
    CompanyLogo,
    Comment,
    SaveJpg,
    SaveBmp,
    SaveGraph,
    SavePdf,
    SaveExcel,
    Print,
    PrintDirect,
    Exit,
    SelectBand, ///< band number
    BandSetup,  ///< band number
    Receiver,   ///< 1 internal, 0 external
    LoadRxLoss,
    PathLoss,
    Compensation,
    PathCableLoss,
    Method, ///< TestMode
    Path,   ///< 1 reflection, 2 transmission
    InterBand,
    RunSetup,
    AnalyserSetup,
    PlotRange,
    LevelUnit,
    Histogram,
    PlotOnly,
    Skin,   ///< number of the look
    Layout, ///< number of the layout
    CustomLayout,
    Language, ///< as qor::Language counts
    LoadConfiguration,
    SaveConfiguration,
    UserMode,
    Marker,  ///< 0 to 2
    ShowRun, ///< 1 to 10
    RunNumber,
    Alarm,
    AlarmStamp,
    UnderLimitBeep,
    AlarmLevel,
    BeepTone, ///< Hz
    Handbook,
    DeviceSerial,
    EquipmentType,
    Calculator,
    SideTool,
    Update, ///< 0 Europe, 1 America, 2 Asia Pacific
    About,
};

/// One line of the menu. Captions carry their mnemonic as "(&X)" and their key behind a tab.
struct MenuLine {
    enum class Kind { Item, Separator, Menu, End };
    Kind kind = Kind::Item;
    std::string_view caption;
    Command command = Command::StartStop;
    int argument = 0;
    bool checkable = false;
};

/// The whole menu in order: a Menu line opens a menu or submenu that its End line closes.
[[nodiscard]] std::span<const MenuLine> MenuLines();
/// Caption of an item or menu; a band's comes from the catalogue.
[[nodiscard]] std::string_view CaptionOf(const MenuLine& line);

} // namespace qor
