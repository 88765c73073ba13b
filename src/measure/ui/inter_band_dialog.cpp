#include "base/tenths.h"
#include "base/text_format.h"
#include "desk/program.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"
#include "measure/inter_band.h"
#include "platform/operator.h"
#include "platform/platform.h"

#include <QtWidgets>

#include <array>
#include <utility>

namespace qor::ui {

namespace {

class InterBandDialog final : public FormDialog {
public:
    InterBandDialog(Program& program, QWidget* parent)
        : FormDialog("Inter-band Setup", parent), m_Program(program),
          m_Setup(OpenInterBand(program.State().working, program.State().interBand)) {
        QFormLayout* twoTone = AddGroup("2 Tone Mode Set");
        AddFrequency(twoTone, "Fixed f1:", &FrequencyPlan::f1);
        AddFrequency(twoTone, "Fixed f2:", &FrequencyPlan::f2);
        QFormLayout* sweep = AddGroup("Sweep Mode");
        AddFrequency(sweep, "Start f1:", &FrequencyPlan::f1Start);
        AddFrequency(sweep, "Stop f1:", &FrequencyPlan::f1Stop);
        AddFrequency(sweep, "Fixed f2:", &FrequencyPlan::f2Fix);
        AddFrequency(sweep, "Start f2:", &FrequencyPlan::f2Start);
        AddFrequency(sweep, "Stop f2:", &FrequencyPlan::f2Stop);
        AddFrequency(sweep, "Fixed f1:", &FrequencyPlan::f1Fix);
        AddFrequency(sweep, "Freq Step:", &FrequencyPlan::step);
        AddChoices(AddGroup(""));
        AddButtons("Inter-band Measurement On");
        AddButton("Inter-band Measurement Off", [this] {
            SwitchInterBandOff(m_Program.State().working, m_Program.State().interBand);
            done(QDialog::Accepted);
        });
        SetAccept([this] { return SwitchOn(); });
        ShowPlan(true);
    }

private:
    struct Field {
        QLineEdit* edit;
        float FrequencyPlan::*value;
    };

    void AddFrequency(QFormLayout* form, std::string_view caption, float FrequencyPlan::*value) {
        m_Fields.push_back({AddField(form, caption, {}, "MHz"), value});
    }

    void AddChoices(QFormLayout* form) {
        const InterBandChoice* choice = InterBandChoiceOf(m_Setup.band);
        auto* rx = new QComboBox;
        rx->setAccessibleName(Tr("Receive Band:"));
        if (choice)
            for (const std::string_view text : choice->rxBands)
                rx->addItem(Plain(text));
        rx->setCurrentText(Plain(m_Setup.rxBand));
        rx->setEnabled(rx->count() > 1);
        form->addRow(Tr("Receive Band:"), rx);
        QObject::connect(rx, &QComboBox::currentTextChanged, this, [this](const QString& text) {
            m_Setup.rxBand = Utf8(text);
            Preset();
        });
        auto* row = new QHBoxLayout;
        for (int order = 2; order <= 5; ++order) {
            auto* box = new QCheckBox(QStringLiteral("IM%1").arg(order));
            box->setChecked(order == m_Setup.order);
            box->setEnabled(choice && (order == choice->orders[0] || order == choice->orders[1]));
            QObject::connect(box, &QCheckBox::clicked, this, [this, order](bool on) { Choose(order, on); });
            m_Orders[static_cast<std::size_t>(order - 2)] = box;
            row->addWidget(box);
        }
        form->addRow(row);
    }

    void Choose(int order, bool on) {
        m_Setup.order = on ? order : 0;
        for (int other = 2; other <= 5; ++other)
            m_Orders[static_cast<std::size_t>(other - 2)]->setChecked(other == m_Setup.order);
        Preset();
    }

    /// The pair in the fields decides whether it stays; the step is the operator's.
    void Preset() {
        for (const Field& field : m_Fields)
            m_Setup.plan.*field.value = static_cast<float>(NumberIn(Utf8(field.edit->text())));
        PresetInterBand(m_Setup);
        ShowPlan(false);
    }

    void ShowPlan(bool stepToo) {
        for (const Field& field : m_Fields) {
            if (field.value == &FrequencyPlan::step && !stepToo)
                continue;
            field.edit->setText(Plain(Fixed(static_cast<double>(m_Setup.plan.*field.value), 1)));
            MarkField(field.edit, false);
        }
    }

    bool SwitchOn() {
        bool good = true;
        InterBandSetup setup = m_Setup;
        for (const Field& field : m_Fields)
            if (good) // one fault at a time
                setup.plan.*field.value = static_cast<float>(NumberOf(field.edit, good));
        if (!good)
            return false;
        Session& session = m_Program.State();
        const Outcome outcome = SwitchInterBandOn(setup, session.working, session.interBand);
        m_Program.Parts().user.Failure(outcome.Text());
        return outcome.IsDone();
    }

    Program& m_Program;
    InterBandSetup m_Setup;
    std::vector<Field> m_Fields;
    std::array<QCheckBox*, 4> m_Orders{};
};

bool OpenInterBandDialog(Program& program, int /*argument*/, QWidget* parent) {
    InterBandDialog(program, parent).exec();
    return true;
}

const DialogEntry InterBandDialogEntry("inter_band", OpenInterBandDialog);

} // namespace

} // namespace qor::ui
