// The fatigue test: times and cycles, and how far it is.
#include "curve/plot_scene.h"
#include "desk/commands.h"
#include "desk/program.h"
#include "desk/ui/plot_words.h"
#include "desk/ui/text.h"
#include "service/ui/group_pane.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

QString LevelText(const std::optional<float>& level) {
    return level ? QLocale::c().toString(static_cast<double>(*level), 'f', 1) + QStringLiteral(" dBm")
                 : QString();
}

QString DurationText(int seconds) {
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

class FatiguePane final : public GroupPane {
public:
    FatiguePane(Program& program, Commands& commands, QWidget* parent)
        : GroupPane("Fatigue Test Set", parent), m_Program(program), m_Commands(commands) {
        const FatigueSettings& entered = program.Fatigue().Entered();
        QFormLayout* form = AddForm();
        m_On = AddField(form, "Power On Duration:", QString::number(entered.on),
                        "Sekunden vom Start bis zum Halten, 1 bis 100", "Sek.");
        m_Off = AddField(form, "Power Off Duration:", QString::number(entered.off),
                         "Sekunden vom Halten bis zum naechsten Start, 1 bis 100", "Sek.");
        m_Times = AddField(form, "Repeat Times:", QString::number(entered.times), "Zyklen, 1 bis 100000");
        m_Done =
            AddShown(form, "Finished Times:", "Begonnene Zyklen; einer mehr als verlangt beendet den Test");
        m_Finished = AddShown(form, "Fertige Zyklen:", "Zyklen, deren Messung zu Ende ist");
        m_Left = AddShown(form, "Noch:", "Stunden, Minuten und Sekunden bis zum Ende des Tests");
        m_Last = AddShown(
            form, "Zuletzt gemessen:", "Ergebnis der letzten Messung, ihre Punkte und ihr hoechster Pegel");
        m_Worst = AddShown(form, "Hoechster Pegel:", "Hoechster Pegel aller Zyklen in dBm");
        auto* row = new QHBoxLayout;
        row->addStretch();
        m_Button = AddButton(row, "Start Fatigue Test", [this] { Press(); });
        Column()->addLayout(row);
        Refresh();
    }

    void Refresh() override {
        const FatigueTest& test = m_Program.Fatigue();
        const bool isOn = test.IsOn();
        const QString caption = isOn ? Tr("Stop Fatigue Test") : Tr("Start Fatigue Test");
        m_Button->setText(caption);
        m_Button->setAccessibleName(caption);
        m_Button->setToolTip(Plain(test.Protocol().string()));
        for (QLineEdit* const field : {m_On, m_Off, m_Times})
            field->setReadOnly(isOn);
        Show(m_Done, QString::number(test.Begun()));
        Show(m_Finished, QString::number(test.Finished()));
        Show(m_Left, DurationText(test.SecondsLeft()));
        Show(m_Last, test.Last() ? CycleText(*test.Last()) : QString());
        Show(m_Worst, LevelText(test.Worst()));
    }

private:
    QLineEdit* AddShown(QFormLayout* form, std::string_view caption, std::string_view tip) {
        QLineEdit* const field = AddField(form, caption, {}, tip);
        field->setReadOnly(true);
        field->setFocusPolicy(Qt::NoFocus);
        return field;
    }

    static void Show(QLineEdit* field, const QString& text) {
        if (field->text() == text)
            return;
        field->setText(text);
        field->setCursorPosition(0);
    }

    static QString CycleText(const FatigueCycle& cycle) {
        const RunFacts& facts = cycle.facts;
        return VerdictText(facts) + QStringLiteral(", ") +
               Tr(PointsPattern).arg(facts.taken).arg(facts.asked) + QStringLiteral(", ") +
               LevelText(facts.highest);
    }

    void Press() {
        const auto on = WholeNumber(m_On, 1, FatigueSettings::LongestSeconds);
        const auto off = WholeNumber(m_Off, 1, FatigueSettings::LongestSeconds);
        const auto times = WholeNumber(m_Times, 1, FatigueSettings::MostTimes);
        if (!m_Program.Fatigue().IsOn())
            m_Program.Fatigue().Enter({on.value_or(0), off.value_or(0), times.value_or(0)});
        m_Commands.Run("fatigue_test");
        Refresh();
    }

    Program& m_Program;
    Commands& m_Commands;
    QLineEdit* m_On;
    QLineEdit* m_Off;
    QLineEdit* m_Times;
    QLineEdit* m_Done;
    QLineEdit* m_Finished;
    QLineEdit* m_Left;
    QLineEdit* m_Last;
    QLineEdit* m_Worst;
    QPushButton* m_Button;
};

const PaneEntry
    FatiguePaneEntry(ServicePage::Test, 31, [](Program& program, Commands& commands, QWidget* parent) {
        return static_cast<ServicePane*>(new FatiguePane(program, commands, parent));
    });

} // namespace

} // namespace qor::ui
