#pragma once

#include "core/dialogs.h"

class QWidget;

namespace qor {
class Program;
}

namespace qor::ui {

/// Shows a dialog and comes back when it is closed; false for one that cannot be opened.
bool OpenDialog(Program& program, DialogId dialog, int argument, QWidget* parent);

} // namespace qor::ui
