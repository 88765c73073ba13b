#pragma once

class QWidget;

namespace qor {

class Program;

namespace ui {

/// "Calculate": dBm, mW and mV. True once it has been shown and is closed.
bool OpenCalculator(Program& program, QWidget* parent);

} // namespace ui
} // namespace qor
