#pragma once

#include "desk/setup/run_setup.h"
#include "desk/ui/form_dialog.h"

namespace qor {
class Program;
}

namespace qor::ui {

/// "Mesurement Einbauen": length, count and repetition of the runs.
class CSweeptimes final : public FormDialog {
public:
    CSweeptimes(Program& program, QWidget* parent);

private:
    void ShowDependencies();
    void OpenContinuousSetup();
    bool Take();

    Program& m_Program;
    QLineEdit* m_ToneSeconds;
    QLineEdit* m_RunsText;
    QLineEdit* m_IntervalText;
    QCheckBox* m_bSaEnclosed;
    QCheckBox* m_Continu;
    QPushButton* m_SetupButton;
    QString m_RunsEdit; ///< what the fields hold while they are switched off
    QString m_IntervalEdit;
};

} // namespace qor::ui
