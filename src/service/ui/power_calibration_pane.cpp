// Fields, buttons and progress of the power calibration.
#include "desk/commands.h"
#include "desk/program.h"
#include "desk/ui/text.h"
#include "service/ui/group_pane.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

constexpr int Any = 100'000; // what fits no table is told at the press

QString Duration(int seconds) {
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

class PowerCalibrationPane final : public GroupPane {
public:
    PowerCalibrationPane(Program& program, Commands& commands, QWidget* parent)
        : GroupPane("Power Calibration", parent), m_Program(program), m_Commands(commands) {
        auto* tones = new QHBoxLayout;
        AddTone(tones, 0, "f1");
        AddTone(tones, 1, "f2");
        Column()->addLayout(tones);
        QFormLayout* form = AddForm();
        constexpr std::string_view Levels = "Ausgangspegel, 20 bis 46 dBm (bis Firmware 4.9: 33 bis 46)";
        m_LevelStart = AddWhole(form, "Level Start:", Levels, "dBm");
        m_LevelDelta = AddWhole(form, "Level Delta:", "Schritt der Pegel, ab 1 dB", "dB");
        m_LevelStop = AddWhole(form, "Level Stop:", Levels, "dBm");
        m_Cell = AddField(form, "Attenuation Cell: ", {},
                          "Daempfung zwischen Ausgang und Empfaenger, ab 0.1 dB", "dB");
        QObject::connect(m_Cell, &QLineEdit::textEdited, this, [this] { Take(); });
        auto* row = new QHBoxLayout;
        m_Run = AddButton(
            row, "Calibration", [this] { m_Commands.Run("calibration_run"); },
            "Sucht jeden Pegel und schreibt ihn ins Geraet");
        m_Run->setObjectName(QStringLiteral("calibration_run"));
        m_Read = AddButton(
            row, "Read", [this] { m_Commands.Run("calibration_read"); },
            "Misst, was bei jedem Pegel wirklich herauskommt");
        m_Continue = AddButton(
            row, "Fortsetzen", [this] { m_Commands.Run("calibration_continue"); },
            "Beginnt mit dem ersten Punkt, der noch nicht geschrieben ist");
        Column()->addLayout(row);
    }

    void Refresh() override {
        const CalibrationDesk& desk = m_Program.Calibrations();
        if (desk.Filled() != m_Seen) {
            m_Seen = desk.Filled();
            Show(desk.Plan());
        }
        const CalibrationProgress& progress = desk.Power().Progress();
        SetCaption(m_Run, Tr(progress.isOn ? "Stop Cal" : "Calibration"));
        m_Run->setEnabled(!progress.isStopping);
        m_Read->setEnabled(!progress.isOn);
        m_Continue->setEnabled(desk.CanContinue());
        for (QWidget* const field : m_Fields)
            field->setEnabled(!progress.isOn);
        m_Cell->setEnabled(!progress.isOn);
    }

private:
    struct Tone {
        QCheckBox* use;
        QLineEdit* start;
        QLineEdit* delta;
        QLineEdit* stop;
    };

    void AddTone(QHBoxLayout* row, std::size_t number, std::string_view name) {
        auto* column = new QVBoxLayout;
        Tone& tone = m_Tones[number];
        tone.use = AddCheck(column, name, "Diesen Ton kalibrieren");
        QObject::connect(tone.use, &QCheckBox::toggled, this, [this] { Take(); });
        m_Fields.push_back(tone.use);
        auto* form = new QFormLayout;
        column->addLayout(form);
        tone.start = AddWhole(form, "Start:", "Erste Frequenz, ganze MHz", "MHz");
        tone.delta = AddWhole(form, "Delta:", "Schritt, ab 1 MHz; RT-DB22 und RT-L027 ab 2 MHz", "MHz");
        tone.stop = AddWhole(form, "Stop:", "Letzte Frequenz, ganze MHz", "MHz");
        for (QLineEdit* const field : {tone.start, tone.delta, tone.stop})
            field->setAccessibleDescription(Tr(name));
        row->addLayout(column);
    }

    QLineEdit* AddWhole(QFormLayout* form, std::string_view caption, std::string_view tip,
                        std::string_view unit) {
        QLineEdit* field = AddField(form, caption, {}, tip, unit);
        QObject::connect(field, &QLineEdit::textEdited, this, [this] { Take(); });
        m_Fields.push_back(field);
        return field;
    }

    static void SetCaption(QPushButton* button, const QString& caption) {
        if (button->text() == caption)
            return;
        button->setText(caption);
        button->setAccessibleName(caption);
    }

    /// What stands in the fields is what the next press takes; what is no number counts as 0 there.
    void Take() {
        CalibrationPlan plan = m_Program.Calibrations().Plan();
        ToneRange* const ranges[] = {&plan.f1, &plan.f2};
        for (std::size_t n = 0; n < m_Tones.size(); ++n)
            *ranges[n] = {Number(m_Tones[n].start), Number(m_Tones[n].delta), Number(m_Tones[n].stop)};
        plan.useF1 = m_Tones[0].use->isChecked();
        plan.useF2 = m_Tones[1].use->isChecked();
        plan.powStart = Number(m_LevelStart);
        plan.powDelta = Number(m_LevelDelta);
        plan.powStop = Number(m_LevelStop);
        bool isNumber = false;
        plan.attenuation = QLocale::c().toFloat(m_Cell->text().trimmed(), &isNumber);
        Mark(m_Cell, !isNumber || plan.attenuation < 0.1f || plan.attenuation > 200);
        if (!isNumber || plan.attenuation > 200)
            plan.attenuation = 0;
        m_Program.Calibrations().SetPlan(plan);
    }

    [[nodiscard]] static int Number(QLineEdit* field) { return WholeNumber(field, -Any, Any).value_or(0); }

    void Show(const CalibrationPlan& plan) {
        const ToneRange* const ranges[] = {&plan.f1, &plan.f2};
        for (std::size_t n = 0; n < m_Tones.size(); ++n) {
            const QSignalBlocker quiet(m_Tones[n].use);
            m_Tones[n].use->setChecked(n == 0 ? plan.useF1 : plan.useF2);
            Put(m_Tones[n].start, ranges[n]->start);
            Put(m_Tones[n].delta, ranges[n]->delta);
            Put(m_Tones[n].stop, ranges[n]->stop);
        }
        Put(m_LevelStart, plan.powStart);
        Put(m_LevelDelta, plan.powDelta);
        Put(m_LevelStop, plan.powStop);
        m_Cell->setText(plan.attenuation > 0 ? QString::number(static_cast<double>(plan.attenuation))
                                             : QString());
        Mark(m_Cell, false);
    }

    static void Put(QLineEdit* field, int number) {
        field->setText(QString::number(number));
        Mark(field, false);
    }

    Program& m_Program;
    Commands& m_Commands;
    std::array<Tone, 2> m_Tones{};
    QLineEdit* m_LevelStart;
    QLineEdit* m_LevelDelta;
    QLineEdit* m_LevelStop;
    QLineEdit* m_Cell;
    QPushButton* m_Run;
    QPushButton* m_Read;
    QPushButton* m_Continue;
    std::vector<QWidget*> m_Fields;
    unsigned m_Seen = 0;
};

/// How far the run has come, and a line for each of its points.
class CalibrationProgressPane final : public GroupPane {
public:
    CalibrationProgressPane(Program& program, QWidget* parent)
        : GroupPane("Fortschritt", parent), m_Program(program), m_Bar(new QProgressBar),
          m_Log(new QPlainTextEdit) {
        m_Bar->setAccessibleName(Tr("Fortschritt"));
        Column()->addWidget(m_Bar);
        QFormLayout* form = AddForm();
        m_Point = AddText(form, "Punkt:");
        m_Drive = AddText(form, "Steuerspannung:");
        m_Reading = AddText(form, "Messwert:");
        m_Left = AddText(form, "Restzeit:");
        m_Log->setReadOnly(true);
        m_Log->setTabChangesFocus(true);
        m_Log->setAccessibleName(Tr("Punkte"));
        m_Log->setToolTip(Tr("Frequenz in MHz, Pegel in dBm, Steuerspannung in V"));
        m_Log->setMinimumHeight(120);
        Column()->addWidget(m_Log);
    }

    void Refresh() override {
        const CalibrationProgress& progress = m_Program.Calibrations().Power().Progress();
        m_Bar->setMaximum(std::max(progress.total, 1));
        m_Bar->setValue(progress.done);
        const bool begun = progress.isOn && progress.tone > 0;
        m_Point->setText(
            begun
                ? QStringLiteral("f%1, %2 MHz, %3 dBm").arg(progress.tone).arg(progress.mhz).arg(progress.dBm)
                : QStringLiteral("-"));
        m_Drive->setText(begun ? QStringLiteral("%1 V").arg(static_cast<double>(progress.drive), 0, 'f', 3)
                               : QStringLiteral("-"));
        m_Reading->setText(progress.reading && begun ? QStringLiteral("%1 dBm").arg(
                                                           static_cast<double>(*progress.reading), 0, 'f', 2)
                                                     : QStringLiteral("-"));
        m_Left->setText(begun ? Duration(progress.secondsLeft) : QStringLiteral("-"));
        if (progress.log.size() < m_Lines) {
            m_Log->clear();
            m_Lines = 0;
        }
        for (; m_Lines < progress.log.size(); ++m_Lines)
            m_Log->appendPlainText(Plain(progress.log[m_Lines]));
    }

private:
    QLabel* AddText(QFormLayout* form, std::string_view caption) {
        auto* text = new QLabel(QStringLiteral("-"));
        text->setAccessibleName(Tr(caption));
        form->addRow(Tr(caption), text);
        return text;
    }

    Program& m_Program;
    QProgressBar* m_Bar;
    QPlainTextEdit* m_Log;
    QLabel* m_Point;
    QLabel* m_Drive;
    QLabel* m_Reading;
    QLabel* m_Left;
    std::size_t m_Lines = 0;
};

const PaneEntry
    PowerPaneEntry(ServicePage::Calibration, 10, [](Program& program, Commands& commands, QWidget* parent) {
        return static_cast<ServicePane*>(new PowerCalibrationPane(program, commands, parent));
    });
const PaneEntry
    ProgressPaneEntry(ServicePage::Calibration, 20, [](Program& program, Commands&, QWidget* parent) {
        return static_cast<ServicePane*>(new CalibrationProgressPane(program, parent));
    });

} // namespace

} // namespace qor::ui
