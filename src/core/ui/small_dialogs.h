#pragma once

class QWidget;

namespace qor {
class Program;
}

namespace qor::ui {

/// Width and height of a layout of the operator's own.
bool OpenCustomLayout(Program& program, QWidget* parent);
/// Name and version of the program and what it talks to.
bool OpenAbout(Program& program, QWidget* parent);

} // namespace qor::ui
