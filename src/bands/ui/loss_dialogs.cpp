#include "bands/path_loss.h"
#include "bands/plan_setup.h"
#include "bands/setup_store.h"
#include "bands/ui/band_dialogs.h"
#include "core/program.h"
#include "core/ui/form_dialog.h"
#include "core/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

bool OpenPathLoss(Program& program, QWidget* parent) {
    const PlanState::PathLosses loss = OperatorsPathLoss(program.State().plan);
    FormDialog dialog("Route Verlust Einbauen", parent);
    QFormLayout* const form = dialog.AddGroup({});
    QLineEdit* const port1 =
        dialog.AddField(form, "Port 1 To DUT Path Cable Loss:", Plain(FieldText(loss.powerOffset)), "dB");
    form->addRow(new QLabel, new QLabel(Tr("Bereich: 0-9.9")));
    QLineEdit* const port2 =
        dialog.AddField(form, "Port 2 To DUT Path Cable Loss:", Plain(FieldText(loss.port2)), "dB");
    auto* const range2 = new QLabel(Tr("Range: 0-9.9"));
    form->addRow(new QLabel, range2);
    if (LacksSecondPort(program.Stores())) {
        constexpr int Port2Row = 2;
        form->itemAt(Port2Row, QFormLayout::LabelRole)->widget()->setEnabled(false);
        port2->setEnabled(false);
        range2->setEnabled(false);
    }
    dialog.AddButtons("Okey", "Abbestellen");
    dialog.SetAccept([&] {
        bool areNumbers = true;
        const double loss1 = dialog.NumberOf(port1, areNumbers);
        const double loss2 = areNumbers ? dialog.NumberOf(port2, areNumbers) : 0;
        return areNumbers && ApplyPathLoss(loss1, loss2, program.State(), program.Parts(), program.Stores());
    });
    dialog.exec();
    return true;
}

bool OpenCompensation(Program& program, QWidget* parent) {
    FormDialog dialog(CompensationTitle(program.State(), program.Stores()), parent);
    const PlanState& plan = program.State().plan;
    QFormLayout* const form = dialog.AddGroup({});
    QLineEdit* const f1 = dialog.AddField(form, "F1 Compensation", Plain(plan.m_power1_compensation), "dB");
    QLineEdit* const f2 = dialog.AddField(form, "F2 Compensation", Plain(plan.m_power2_compensation), "dB");
    dialog.AddButtons("Okey", "Abbestellen");
    dialog.SetAccept([&] {
        bool areNumbers = true;
        dialog.NumberOf(f1, areNumbers);
        if (areNumbers)
            dialog.NumberOf(f2, areNumbers);
        return areNumbers && ApplyCompensation(Utf8(f1->text()), Utf8(f2->text()), program.State(),
                                               program.Parts(), program.Stores());
    });
    dialog.exec();
    return true;
}

bool OpenPathCableLoss(Program& program, QWidget* parent) {
    FormDialog dialog("Path Cable Loss", parent);
    QFormLayout* const form = dialog.AddGroup({});
    QLineEdit* const port2 = dialog.AddField(
        form, "Path Cable Loss", Plain(FieldText(OperatorsPathLoss(program.State().plan).port2)), "dB");
    dialog.AddButtons("Okey", "Abbestellen");
    dialog.SetAccept([&] {
        bool isNumber = true;
        const double loss = dialog.NumberOf(port2, isNumber);
        return isNumber && SetPort2Loss(loss, program.State(), program.Parts());
    });
    dialog.exec();
    return true;
}

} // namespace qor::ui
