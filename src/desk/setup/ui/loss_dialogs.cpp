#include "base/setup_store.h"
#include "desk/program.h"
#include "desk/setup/path_loss.h"
#include "desk/setup/plan_setup.h"
#include "desk/tell.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

bool OpenPathLoss(Program& program, int /*argument*/, QWidget* parent) {
    const WorkingSet::PathLosses loss = program.State().working.OperatorsLosses();
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
        const double loss1 = dialog.NumberOf(port1, areNumbers, 0, HighestPathLoss);
        const double loss2 = areNumbers ? dialog.NumberOf(port2, areNumbers, 0, HighestPathLoss) : 0;
        return areNumbers &&
               Tell(ApplyPathLoss(loss1, loss2, program.State(), program.Stores()), program.Parts().user);
    });
    dialog.exec();
    return true;
}

const DialogEntry PathLossEntry("path_loss", OpenPathLoss);

bool OpenCompensation(Program& program, int /*argument*/, QWidget* parent) {
    FormDialog dialog(CompensationTitle(program.State(), program.Stores()), parent);
    const WorkingSet& working = program.State().working;
    QFormLayout* const form = dialog.AddGroup({});
    QLineEdit* const f1 = dialog.AddField(form, "F1 Compensation", Plain(working.Compensation1()), "dB");
    QLineEdit* const f2 = dialog.AddField(form, "F2 Compensation", Plain(working.Compensation2()), "dB");
    dialog.AddButtons("Okey", "Abbestellen");
    dialog.SetAccept([&] {
        bool areNumbers = true;
        dialog.NumberOf(f1, areNumbers);
        if (areNumbers)
            dialog.NumberOf(f2, areNumbers);
        return areNumbers &&
               Tell(ApplyCompensation(Utf8(f1->text()), Utf8(f2->text()), program.State(), program.Stores()),
                    program.Parts().user);
    });
    dialog.exec();
    return true;
}

const DialogEntry CompensationEntry("compensation", OpenCompensation);

bool OpenPathCableLoss(Program& program, int /*argument*/, QWidget* parent) {
    FormDialog dialog("Path Cable Loss", parent);
    QFormLayout* const form = dialog.AddGroup({});
    QLineEdit* const port2 = dialog.AddField(
        form, "Path Cable Loss", Plain(FieldText(program.State().working.OperatorsLosses().port2)), "dB");
    dialog.AddButtons("Okey", "Abbestellen");
    dialog.SetAccept([&] {
        bool isNumber = true;
        const double loss = dialog.NumberOf(port2, isNumber, 0, HighestPathLoss);
        return isNumber && Tell(SetPort2Loss(loss, program.State()), program.Parts().user);
    });
    dialog.exec();
    return true;
}

const DialogEntry PathCableLossEntry("path_cable_loss", OpenPathCableLoss);

} // namespace

} // namespace qor::ui
