#include "desk/setup/ui/run_setup_dialog.h"

#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

constexpr int MostEndlessTimes = 1000000;
constexpr int MostSeconds = 2147483; ///< as ms still a whole number of 32 bits
constexpr int MostRuns = 1000;
constexpr int MostInterval = 9999999; ///< seven characters of its store

/// "Einbauen": how often a continuous measurement repeats, and what each pass does to the one before.
class ContinuousSetup final : public FormDialog {
public:
    ContinuousSetup(RunSettings& runs, QWidget* parent) : FormDialog("Einbauen", parent), m_Runs(runs) {
        QFormLayout* form = AddGroup({});
        m_Times = AddField(form, "Nummer (0 vertreten unendlich):", QString::number(runs.ContinuousTimes()));
        m_Replace = AddCheck(form, "Replace data", runs.ReplacesData());
        m_Clear = AddCheck(form, "Clear screen", !runs.ReplacesData());
        QObject::connect(m_Replace, &QCheckBox::clicked, this, [this](bool on) { m_Clear->setChecked(!on); });
        QObject::connect(m_Clear, &QCheckBox::clicked, this, [this](bool on) { m_Replace->setChecked(!on); });
        AddButtons("Okey");
        SetAccept([this] { return Take(); });
    }

private:
    bool Take() {
        bool ok = true;
        const int times = WholeNumberOf(m_Times, 0, MostEndlessTimes, ok);
        if (!ok)
            return false;
        m_Runs.SetContinuousTimes(times);
        m_Runs.SetReplacesData(m_Replace->isChecked());
        return true;
    }

    RunSettings& m_Runs;
    QLineEdit* m_Times;
    QCheckBox* m_Replace;
    QCheckBox* m_Clear;
};

} // namespace

CSweeptimes::CSweeptimes(Program& program, QWidget* parent)
    : FormDialog("Mesurement Einbauen", parent), m_Program(program) {
    const RunSetup now = CurrentRunSetup(program.State().curve, program.State().runs);
    QFormLayout* tone = AddGroup("2 Tone");
    m_ToneSeconds = AddField(tone, "Time: ", QString::number(now.seconds), "Sek.",
                             "Laenge einer 2-Ton-Messung, 1 bis 2147483 Sekunden");
    QFormLayout* sweep = AddGroup("Sweep");
    m_RunsText = AddField(sweep, "Abtasten Nummer(1-10): ", {});
    m_IntervalText = AddField(sweep, "Intervall:", {}, "Sek.", "Pause zwischen zwei Durchlaeufen");
    m_bSaEnclosed = AddCheck(sweep, "Spectrum Analyze Enclosed", now.saEnclosed,
                             "Zwei Durchlaeufe ohne Pause, der erste mit ausgeschalteten Traegern");
    QFormLayout* endless = AddGroup({});
    m_Continu = AddCheck(endless, "Continuous Measurement Enable", now.continuous);
    m_SetupButton = new QPushButton(Tr("Continuous Measurement Setup"));
    m_SetupButton->setAutoDefault(false);
    endless->addRow(m_SetupButton);
    AddButtons("Okey");
    m_RunsEdit = QString::number(now.runs);
    m_IntervalEdit = QString::number(now.interval);
    ShowDependencies();

    QObject::connect(m_SetupButton, &QPushButton::clicked, this, [this] { OpenContinuousSetup(); });
    QObject::connect(m_Continu, &QCheckBox::clicked, this, [this](bool on) {
        if (on)
            m_bSaEnclosed->setChecked(false);
        else
            m_RunsEdit = QStringLiteral("1");
        ShowDependencies();
    });
    QObject::connect(m_bSaEnclosed, &QCheckBox::clicked, this, [this](bool on) {
        m_RunsEdit = on ? QStringLiteral("2") : QStringLiteral("1");
        if (on) {
            m_IntervalEdit = QStringLiteral("0");
            m_Continu->setChecked(false);
        }
        ShowDependencies();
    });
    QObject::connect(m_RunsText, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_RunsEdit = text;
        ShowDependencies();
    });
    QObject::connect(m_IntervalText, &QLineEdit::textEdited, this,
                     [this](const QString& text) { m_IntervalEdit = text; });
    SetAccept([this] { return Take(); });
}

/// Which fields can be used: a continuous or enclosed measurement has its own count and no interval.
void CSweeptimes::ShowDependencies() {
    const bool free = !m_Continu->isChecked() && !m_bSaEnclosed->isChecked();
    const bool several = free && m_RunsEdit.toInt() > 1;
    m_SetupButton->setEnabled(m_Continu->isChecked());
    m_RunsText->setEnabled(free);
    m_IntervalText->setEnabled(several);
    if (m_RunsText->text() != (free ? m_RunsEdit : QString()))
        m_RunsText->setText(free ? m_RunsEdit : QString());
    m_IntervalText->setText(several ? m_IntervalEdit : QString());
}

void CSweeptimes::OpenContinuousSetup() {
    ContinuousSetup(m_Program.State().runs, this).exec();
}

bool CSweeptimes::Take() {
    bool ok = true;
    RunSetup setup;
    setup.seconds = WholeNumberOf(m_ToneSeconds, 1, MostSeconds, ok);
    setup.runs = m_RunsText->isEnabled() ? WholeNumberOf(m_RunsText, 1, MostRuns, ok) : m_RunsEdit.toInt();
    setup.interval = m_IntervalText->isEnabled() ? WholeNumberOf(m_IntervalText, 0, MostInterval, ok)
                                                 : m_IntervalEdit.toInt();
    setup.saEnclosed = m_bSaEnclosed->isChecked();
    setup.continuous = m_Continu->isChecked();
    Session& session = m_Program.State();
    return ok && Tell(ApplyRunSetup(setup, session.user.IsAdministrator(), session.curve, session.runs,
                                    m_Program.Stores()),
                      m_Program.Parts().user);
}

namespace {

bool OpenRunSetup(Program& program, int /*argument*/, QWidget* parent) {
    CSweeptimes(program, parent).exec();
    return true;
}

const DialogEntry RunSetupEntry("run_setup", OpenRunSetup);

} // namespace

} // namespace qor::ui
