#pragma once

class QWidget;

namespace qor {

class Program;

namespace ui {

/// "Inter-band Setup". True once it has been shown and is closed.
bool OpenInterBandDialog(Program& program, QWidget* parent);

} // namespace ui
} // namespace qor
