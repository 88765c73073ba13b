#pragma once

class QWidget;

namespace qor {

class Program;

namespace ui {

/// The question at start, "User Mode", when the stores ask for it; ahead of everything else the window does.
/// Closed in any way but the administrator's, it means an operator.
bool OpenUserLogOn(Program& program, QWidget* parent);

} // namespace ui
} // namespace qor
