#pragma once

class QWidget;

namespace qor {
class Program;
}

namespace qor::ui {

// The dialogs about the plot. Each comes back when it is closed.

/// "dBm Einbauen": ends of the level scale
bool OpenPlotRange(Program& program, QWidget* parent);
/// "Alarm Einbauen": the limit
bool OpenAlarm(Program& program, QWidget* parent);
/// "Marker n Einbauen": the run a marker belongs to; `marker` 0 to 2
bool OpenMarker(Program& program, int marker, QWidget* parent);
/// "Bilden...": a run to be shown alone
bool OpenRunNumber(Program& program, QWidget* parent);

} // namespace qor::ui
