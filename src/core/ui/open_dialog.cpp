#include "core/ui/open_dialog.h"

#include "bands/ui/band_dialogs.h"
#include "core/program.h"
#include "core/ui/small_dialogs.h"
#include "measure/ui/run_setup_dialog.h"

namespace qor::ui {

bool OpenDialog(Program& program, DialogId dialog, int argument, QWidget* parent) {
    switch (dialog) {
    case DialogId::RunSetup:
        CSweeptimes(program, parent).exec();
        program.Select().ShowRepetition();
        return true;
    case DialogId::CustomLayout:
        return OpenCustomLayout(program, parent);
    case DialogId::BandSetup:
        return OpenBandSetup(program, argument, parent);
    case DialogId::PathLoss:
        return OpenPathLoss(program, parent);
    case DialogId::Compensation:
        return OpenCompensation(program, parent);
    case DialogId::PathCableLoss:
        return OpenPathCableLoss(program, parent);
    case DialogId::About:
        return OpenAbout(program, parent);
    default:
        return false;
    }
}

} // namespace qor::ui
