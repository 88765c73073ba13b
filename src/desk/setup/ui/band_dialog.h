#pragma once

#include "desk/setup/band_setup.h"
#include "desk/setup/power_setup.h"
#include "desk/ui/form_dialog.h"

class QComboBox;

namespace qor {
class Program;
}

namespace qor::ui {

/// The set-up dialog of a band: its frequency pages at the left, the powers at the right.
class BandDialog : public FormDialog {
public:
    /// For a band that has a set-up.
    BandDialog(Program& program, int band, QWidget* parent);

private:
    QWidget* MakePages(Program& program, int band);
    QWidget* MakeToneGroup(Program& program);
    QWidget* MakePowerGroup();
    QLineEdit* AddPower(QFormLayout* form, std::string_view caption, QComboBox*& unit);
    void ShowPower();
    void SavePower();

    SetupCaptions m_Captions;
    Program& m_Program;
    PowerSetup m_Power;
    QLineEdit* m_powF1 = nullptr;
    QLineEdit* m_powF2 = nullptr;
    QComboBox* m_unitF1 = nullptr;
    QComboBox* m_unitF2 = nullptr;
    QCheckBox* m_synchron = nullptr;
    QPushButton* m_Save = nullptr;
};

} // namespace qor::ui
