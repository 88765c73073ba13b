#include "curve/alarm.h"
#include "curve/plot_range.h"
#include "curve/run_view.h"
#include "desk/panel.h"
#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

// shown to the operator
constexpr std::string_view MarkerTitles[] = {"Marker 1 Einbauen", "Marker 2 Einbauen", "Marker 3 Einbauen"};

std::string_view UnitOf(const Program& program) {
    return program.State().curve.scale.InDbc() ? "dBc" : "dBm";
}

QString OneDecimal(double value) {
    return QString::number(value, 'f', 1);
}

bool OpenPlotRange(Program& program, int /*argument*/, QWidget* parent) {
    FormDialog dialog("dBm Einbauen", parent);
    const PlotRange range = ShownPlotRange(program.State().curve);
    QFormLayout* form = dialog.AddGroup({});
    QLineEdit* top = dialog.AddField(form, "Anfang:", OneDecimal(range.top), UnitOf(program),
                                     "Oberes Ende der Pegelachse");
    QLineEdit* bottom = dialog.AddField(form, "Ende:", OneDecimal(range.bottom), UnitOf(program),
                                        "Unteres Ende der Pegelachse");
    dialog.AddButtons("OK");
    dialog.SetAccept([&] {
        bool ok = true;
        const PlotRange chosen{dialog.NumberOf(top, ok), dialog.NumberOf(bottom, ok)};
        return ok &&
               Tell(ApplyPlotRange(chosen, program.State().curve, program.Stores()), program.Parts().user);
    });
    dialog.exec();
    return true;
}

const DialogEntry PlotRangeEntry("plot_range", OpenPlotRange);

bool OpenAlarm(Program& program, int /*argument*/, QWidget* parent) {
    FormDialog dialog("Alarm Einbauen", parent);
    QLineEdit* limit =
        dialog.AddField(dialog.AddGroup({}), "Alarm Niveau", Plain(PanelOf(program.State()).m_AlarmText),
                        UnitOf(program), "Grenzwert, 0 bis -200");
    limit->selectAll();
    dialog.AddButtons("OK");
    dialog.SetAccept([&] {
        const bool taken = Tell(EnterLimit(Utf8(limit->text()), program.State().curve, program.Stores()),
                                program.Parts().user);
        dialog.MarkField(limit, !taken, {}, !taken);
        return taken;
    });
    dialog.exec();
    return true;
}

const DialogEntry AlarmEntry("alarm_level", OpenAlarm);

bool OpenMarker(Program& program, int marker, QWidget* parent) {
    const auto number = static_cast<std::size_t>(marker);
    FormDialog dialog(MarkerTitles[number], parent);
    auto* runs = new QComboBox;
    runs->setAccessibleName(Tr("Bilden:"));
    const int count = std::min(program.State().curve.Runs(), static_cast<int>(MarkerRuns));
    for (int run = 1; run <= count; ++run)
        runs->addItem(QString::number(run));
    runs->setCurrentIndex(program.State().markers.At(number).g_markerRun);
    auto* label = new QLabel(Tr("Bilden:"));
    label->setBuddy(runs);
    dialog.AddGroup({})->addRow(label, runs);
    dialog.AddButtons("OK");
    MarkerRunChoice choice(program.Marks(), number);
    if (dialog.exec() == QDialog::Accepted)
        choice.Take(runs->currentIndex());
    return true;
}

const DialogEntry MarkerEntry("marker", OpenMarker);

bool OpenRunNumber(Program& program, int /*argument*/, QWidget* parent) {
    FormDialog dialog("Bilden", parent);
    const int count = program.State().curve.Runs();
    QLineEdit* number = dialog.AddField(
        dialog.AddGroup({}), "Nummer (0 vertreten alle):", QString::number(program.State().curve.ShownRun()));
    number->selectAll();
    dialog.AddButtons("OK");
    dialog.SetAccept([&] {
        bool isNumber = false;
        const int run = QLocale::c().toInt(number->text().trimmed(), &isNumber);
        const bool fits = isNumber && run >= 0 && run <= count;
        dialog.MarkField(number, !fits,
                         Tr("Bitte eine ganze Zahl eingeben, hoechstens:") + ' ' + QString::number(count),
                         !fits);
        if (fits && run != program.State().curve.ShownRun())
            ShowRun(run, program.State().curve);
        return fits;
    });
    dialog.exec();
    return true;
}

const DialogEntry RunNumberEntry("run_number", OpenRunNumber);

} // namespace

} // namespace qor::ui
