#include "desk/program.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

/// Closes on whatever was typed; a wrong PIN changes nothing and says nothing.
bool OpenPinDialog(Program& program, int /*argument*/, QWidget* parent) {
    FormDialog dialog("PIN-CODE", parent);
    QLineEdit* pin = dialog.AddField(dialog.AddGroup({}), "PIN-Code:", {});
    pin->setEchoMode(QLineEdit::Password);
    dialog.AddButtons("Okey", "Abbestellen");
    if (dialog.exec() == QDialog::Accepted)
        program.Service().EnterPin(Utf8(pin->text()));
    return true;
}

const DialogEntry PinDialogEntry("factory_mode", OpenPinDialog);

} // namespace

} // namespace qor::ui
