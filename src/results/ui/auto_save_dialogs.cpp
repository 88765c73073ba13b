#include "desk/auto_save_setup.h"
#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

constexpr int FieldWidth = 320; ///< pixels: what is wrong with a field has room below it

bool OpenSetup(Program& program, int /*argument*/, QWidget* parent) {
    const AutoSaveForms chosen = program.State().results.autoSave.Forms();
    FormDialog dialog("Auto Save Setup", parent);
    QLineEdit* path = dialog.AddField(dialog.AddGroup({}), "Path:", Plain(ProposedAutoSavePath(program)));
    path->setMinimumWidth(path->fontMetrics().horizontalAdvance('m') * 30);
    QFormLayout* group = dialog.AddGroup("Format Select");
    const QCheckBox* pdf = dialog.AddCheck(group, "PDF", chosen.pdf);
    const QCheckBox* dat = dialog.AddCheck(group, "DAT", chosen.dat);
    const QCheckBox* txt = dialog.AddCheck(group, "TXT", chosen.txt);
    const QCheckBox* sweep = dialog.AddCheck(group, "xls(Sweep  Templates)", chosen.sweepSheet);
    const QCheckBox* detail = dialog.AddCheck(group, "xls(Details Templates)", chosen.detailSheet);
    dialog.AddButtons("ok");
    dialog.AddButton("Browse...", [&program, path] {
        const std::string serial = program.State().results.device.Serial();
        const std::filesystem::path folder = program.Parts().user.Folder(
            "Auto Save Setup", std::filesystem::path(Utf8(path->text())).parent_path());
        if (!folder.empty())
            path->setText(Plain((folder / (serial.empty() ? "0" : serial)).string()));
    });
    dialog.SetAccept([&] {
        const AutoSaveForms forms{dat->isChecked(), txt->isChecked(), pdf->isChecked(), sweep->isChecked(),
                                  detail->isChecked()};
        return Tell(SetAutoSave(program, forms, Utf8(path->text())), program.Parts().user);
    });
    dialog.exec();
    return true;
}

bool OpenPrefix(Program& program, int /*argument*/, QWidget* parent) {
    const AutoSave& settings = program.State().results.autoSave;
    FormDialog dialog("Frefix Set", parent);
    QFormLayout* form = dialog.AddGroup({});
    QLineEdit* name = dialog.AddField(form, "Name:", Plain(settings.PrefixName()));
    QLineEdit* number = dialog.AddField(form, "SN:", Plain(settings.PrefixNumber()));
    name->setMinimumWidth(FieldWidth);
    name->setMaxLength(LongestPrefix);
    number->setMaxLength(LongestNumber);
    dialog.AddButtons("OK");
    dialog.SetAccept([&] {
        bool numberIsWrong = false;
        const Outcome set =
            SetAutoSavePrefix(program, Utf8(name->text()), Utf8(number->text()), numberIsWrong);
        dialog.MarkField(name, false);
        dialog.MarkField(number, false);
        if (!set)
            dialog.MarkField(numberIsWrong ? number : name, true, TrText(set.Text()), true);
        return set.IsDone();
    });
    dialog.exec();
    return true;
}

bool OpenSeries(Program& program, int /*argument*/, QWidget* parent) {
    FormDialog dialog("Ordner der Serie", parent);
    QFormLayout* form = dialog.AddGroup({});
    QLineEdit* name = dialog.AddField(form, "Name:", {});
    name->setMinimumWidth(FieldWidth);
    const QLineEdit* folder = dialog.AddField(form, "Ordner:", {});
    dialog.AddButtons("OK");
    dialog.SetAccept([&] {
        return Tell(SetAutoSaveSeries(program, Utf8(name->text()), Utf8(folder->text())),
                    program.Parts().user);
    });
    dialog.exec();
    return true;
}

bool OpenTemplates(Program& program, int /*argument*/, QWidget* parent) {
    AutoSave& settings = program.State().results.autoSave;
    const AutoSaveForms chosen = settings.Forms();
    FormDialog dialog("Excel Vorlagen", parent);
    QFormLayout* form = dialog.AddGroup({});
    const QCheckBox* sweep = dialog.AddCheck(form, "xls(Sweep  Templates)", chosen.sweepSheet);
    const QCheckBox* detail = dialog.AddCheck(form, "xls(Details Templates)", chosen.detailSheet);
    dialog.AddButtons("OK");
    dialog.SetAccept([&] {
        settings.SetTemplates(sweep->isChecked(), detail->isChecked());
        return true;
    });
    dialog.exec();
    return true;
}

const DialogEntry SetupEntry("auto_save", OpenSetup);
const DialogEntry PrefixEntry("auto_save_prefix", OpenPrefix);
const DialogEntry SeriesEntry("auto_save_series", OpenSeries);
const DialogEntry TemplatesEntry("sheet_templates", OpenTemplates);

} // namespace

} // namespace qor::ui
