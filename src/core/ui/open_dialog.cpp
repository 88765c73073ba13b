#include "core/ui/open_dialog.h"

#include "bands/ui/band_dialogs.h"
#include "core/program.h"
#include "core/ui/small_dialogs.h"
#include "core/ui/user_modes_dialog.h"
#include "display/ui/plot_dialogs.h"
#include "measure/ui/inter_band_dialog.h"
#include "measure/ui/run_setup_dialog.h"
#include "tools/ui/calculator_dialog.h"
#include "tools/ui/comment_dialog.h"

namespace qor::ui {

bool WindowDialogs::Open(DialogId dialog, int argument) {
    if (!m_Program)
        return false;
    Program& program = *m_Program;
    switch (dialog) {
    case DialogId::RunSetup:
        return OpenRunSetup(program, m_Window);
    case DialogId::PlotRange:
        return OpenPlotRange(program, m_Window);
    case DialogId::Alarm:
        return OpenAlarm(program, m_Window);
    case DialogId::Marker:
        return OpenMarker(program, argument, m_Window);
    case DialogId::RunNumber:
        return OpenRunNumber(program, m_Window);
    case DialogId::CustomLayout:
        return OpenCustomLayout(program, m_Window);
    case DialogId::About:
        return OpenAbout(program, m_Window);
    case DialogId::BandSetup:
        return OpenBandSetup(program, argument, m_Window);
    case DialogId::PathLoss:
        return OpenPathLoss(program, m_Window);
    case DialogId::Compensation:
        return OpenCompensation(program, m_Window);
    case DialogId::PathCableLoss:
        return OpenPathCableLoss(program, m_Window);
    case DialogId::InterBand:
        return OpenInterBandDialog(program, m_Window);
    case DialogId::Comment:
        return OpenCommentDialog(program, m_Window);
    case DialogId::Calculator:
        return OpenCalculator(program, m_Window);
    case DialogId::ModifyPassword:
        return OpenModifyPassword(program, m_Window);
    }
    return false;
}

} // namespace qor::ui
