#pragma once

class QWidget;

namespace qor {

class Program;

namespace ui {

/// "Addieren Anmerkung". True once it has been shown and is closed.
bool OpenCommentDialog(Program& program, QWidget* parent);

} // namespace ui
} // namespace qor
