#pragma once

namespace qor {

/// The dialogs that menu commands open.
enum class DialogId {
    RunSetup,       ///< "Mesurement Einbauen"
    PlotRange,      ///< "dBm Einbauen"
    Alarm,          ///< "Alarm Einbauen"
    Marker,         ///< "Marker n Einbauen"; argument 0 to 2
    RunNumber,      ///< "Bilden..."
    CustomLayout,   ///< "Auf Bestellung Anfertigen..."
    About,          ///< "Ansehend QOR"
    BandSetup,      ///< power and plans of one band; argument its number
    PathLoss,       ///< "Route Verlust Einbauen"
    Compensation,   ///< compensation of the two powers
    PathCableLoss,  ///< "Path Cable Loss"
    InterBand,      ///< "Inter-band Measurement"
    Comment,        ///< "Addieren Anmerkung"
    Calculator,     ///< "dBm <-> mW <-> mV"
    ModifyPassword, ///< the administrator's password
};

/// Opens the dialogs. A program without a window has none.
class Dialogs {
public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    /// Shows a dialog and comes back when it is closed; false when it could not be opened.
    virtual bool Open(DialogId dialog, int argument = 0) = 0;
};

} // namespace qor
