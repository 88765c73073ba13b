#pragma once

class QWidget;

namespace qor {
class Program;
}

namespace qor::ui {

// The dialogs about bands. Each comes back when it is closed.

/// Powers and frequency plans of a band; false when the band has no set-up.
bool OpenBandSetup(Program& program, int band, QWidget* parent);
/// "Route Verlust Einbauen"
bool OpenPathLoss(Program& program, QWidget* parent);
/// Compensation of the two tones
bool OpenCompensation(Program& program, QWidget* parent);
/// "Path Cable Loss": loss of port 2 for this session
bool OpenPathCableLoss(Program& program, QWidget* parent);

} // namespace qor::ui
