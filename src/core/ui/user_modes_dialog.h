#pragma once

class QWidget;

namespace qor {

class Program;

namespace ui {

/// "Administrator/Operator Mode Enable": turns the question at start on or off, and when it comes on offers
/// "Modify Password". True once it has been done or refused with a message.
bool OpenUserModes(Program& program, QWidget* parent);
/// The question at start, "User Mode", when the stores ask for it; ahead of everything else the window does.
/// Closed in any way but the administrator's, it means an operator.
bool OpenUserLogOn(Program& program, QWidget* parent);
/// "Modify Password".
bool OpenModifyPassword(Program& program, QWidget* parent);

} // namespace ui
} // namespace qor
