#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"
#include "tools/calculator.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

class CalculatorDialog final : public FormDialog {
public:
    explicit CalculatorDialog(QWidget* parent) : FormDialog("Calculate", parent) {
        QFormLayout* form = AddGroup("");
        Add(form, "dBm", "", CalculatorField::Dbm, &CalculatorFields::dBm);
        Add(form, "Power (mW)", "", CalculatorField::Mw, &CalculatorFields::mW);
        Add(form, "mV", "", CalculatorField::Mv, &CalculatorFields::mV);
        Add(form, "Zo=", "Ohm", CalculatorField::Zo, &CalculatorFields::zo);
        AddButtons("Okey", "");
    }

private:
    struct Field {
        QLineEdit* edit;
        std::string CalculatorFields::*text;
    };

    void Add(QFormLayout* form, std::string_view caption, std::string_view unit, CalculatorField field,
             std::string CalculatorFields::*text) {
        QLineEdit* edit = AddField(form, caption, Plain(CalculatorFields().*text), unit);
        m_Fields.push_back({edit, text});
        QObject::connect(edit, &QLineEdit::textEdited, this, [this, edit, field] { Changed(edit, field); });
    }

    void Changed(QLineEdit* changed, CalculatorField field) {
        CalculatorFields fields;
        for (const Field& f : m_Fields)
            fields.*f.text = Utf8(f.edit->text());
        const bool good = Calculate(fields, field);
        const QString fault = field == CalculatorField::Zo
                                  ? Tr("ist keine ganze Zahl von 0 bis 10000.")
                                  : Tr("ist keine Zahl. Bitte mit Dezimalpunkt eingeben.");
        MarkField(changed, !good, changed->accessibleName() + ' ' + fault);
        if (!good)
            return;
        for (const Field& f : m_Fields) {
            const QString text = Plain(fields.*f.text);
            if (f.edit == changed || f.edit->text() == text)
                continue;
            f.edit->setText(text);
            MarkField(f.edit, false);
        }
    }

    std::vector<Field> m_Fields;
};

bool OpenCalculator(Program& /*program*/, int /*argument*/, QWidget* parent) {
    CalculatorDialog(parent).exec();
    return true;
}

const DialogEntry CalculatorEntry("calculator", OpenCalculator);

} // namespace

} // namespace qor::ui
