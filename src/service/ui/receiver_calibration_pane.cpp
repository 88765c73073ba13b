// The instrument's receiver, calibrated with a signal generator.
#include "desk/commands.h"
#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/text.h"
#include "platform/platform.h"
#include "service/ui/group_pane.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

class ReceiverCalibrationPane final : public GroupPane {
public:
    ReceiverCalibrationPane(Program& program, Commands& commands, QWidget* parent)
        : GroupPane("Receiver Calibration", parent), m_Program(program), m_Commands(commands),
          m_Hint(new QLabel) {
        QFormLayout* form = AddForm();
        m_F1 = AddField(form, "f1: ", {}, "Erster Traeger in MHz, im Sendebereich der Breite", "MHz");
        m_F2 = AddField(form, "f2:", {}, "Zweiter Traeger in MHz, im Sendebereich der Breite", "MHz");
        for (QLineEdit* const field : {m_F1, m_F2})
            QObject::connect(field, &QLineEdit::editingFinished, this, [this] { Take(); });
        m_Hint->setTextFormat(Qt::PlainText);
        m_Hint->setWordWrap(true);
        Column()->addWidget(m_Hint);
        m_Strong = AddReading("-50dBm", -50, "Den Detektor bei -50 dBm lesen");
        m_Weak = AddReading("-80dBm", -80, "Den Detektor bei -80 dBm lesen");
        auto* row = new QHBoxLayout;
        row->addStretch();
        AddButton(
            row, "Write to EEPROM", [this] { m_Commands.Run("receiver_calibration_write"); },
            "Schreibt Steigung und Versatz ins Geraet");
        Column()->addLayout(row);
    }

    void Refresh() override {
        const ReceiverCalibration& receiver = m_Program.Calibrations().Receiver();
        for (const auto& [field, text] : {std::pair{m_F1, &receiver.F1()}, {m_F2, &receiver.F2()}})
            if (!field->hasFocus() && field->text() != Plain(*text))
                field->setText(Plain(*text));
        const auto signal = receiver.SignalMhz();
        const QString hint = signal ? Tr("Set %1 in signal generator.").arg(*signal, 4, 10, QLatin1Char('0'))
                                    : Tr("Set        in signal generator.");
        if (m_Hint->text() != hint) {
            m_Hint->setText(hint);
            m_Hint->setAccessibleName(hint);
        }
        using Signal = ReceiverCalibration::Signal;
        Show(m_Strong, receiver.Reading(Signal::Strong));
        Show(m_Weak, receiver.Reading(Signal::Weak));
    }

private:
    QLabel* AddReading(std::string_view caption, int dBm, std::string_view tip) {
        auto* row = new QHBoxLayout;
        AddButton(
            row, caption, [this, dBm] { m_Commands.Run("receiver_calibration_read", dBm); }, tip);
        auto* value = new QLabel(QStringLiteral("-"));
        row->addWidget(value, 1);
        Column()->addLayout(row);
        return value;
    }

    static void Show(QLabel* label, std::optional<int> millivolts) {
        const QString text = millivolts ? QStringLiteral("%1 mV").arg(*millivolts) : QStringLiteral("-");
        if (label->text() != text) {
            label->setText(text);
            label->setAccessibleName(text);
        }
    }

    void Take() {
        ReceiverCalibration& receiver = m_Program.Calibrations().Receiver();
        const std::string f1 = Utf8(m_F1->text());
        const std::string f2 = Utf8(m_F2->text());
        if (f1 != receiver.F1() || f2 != receiver.F2())
            Tell(receiver.SetCarriers(f1, f2), m_Program.Parts().user);
    }

    Program& m_Program;
    Commands& m_Commands;
    QLineEdit* m_F1;
    QLineEdit* m_F2;
    QLabel* m_Hint;
    QLabel* m_Strong;
    QLabel* m_Weak;
};

const PaneEntry ReceiverPaneEntry(ServicePage::Calibration, 11,
                                  [](Program& program, Commands& commands, QWidget* parent) {
                                      return static_cast<ServicePane*>(
                                          new ReceiverCalibrationPane(program, commands, parent));
                                  });

} // namespace

} // namespace qor::ui
