#include "desk/setup/ui/plan_page.h"

#include "base/tenths.h"
#include "desk/tell.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/text.h"

#include <QtWidgets>

#include <algorithm>
#include <cmath>

namespace qor::ui {

namespace {

/// The engine's lines in the language in force: a fault is a text of its own, a line of frequencies begins
/// with one.
QString Translated(std::string_view text) {
    QStringList shown;
    for (const QString& line : Plain(text).split(QStringLiteral("\r\n"))) {
        const qsizetype numbers = line.lastIndexOf(QStringLiteral("> ")) + 1;
        shown += numbers > 0 ? Tr(Utf8(line.left(numbers))) + line.mid(numbers) : Tr(Utf8(line));
    }
    return shown.join('\n');
}

} // namespace

PlanPage::PlanPage(FormDialog& dialog, Operator& user, PlanSetup setup)
    : m_Dialog(dialog), m_User(user), m_Setup(std::move(setup)) {
    auto* column = new QVBoxLayout(this);
    column->addWidget(new QLabel(Plain(m_Setup.BandRangesText())));
    column->addWidget(MakeFields());
    m_checkText = new QPlainTextEdit;
    m_checkText->setReadOnly(true);
    m_checkText->setAccessibleName(Tr("Ueberpruefen ").trimmed());
    m_checkText->setTabChangesFocus(true);
    column->addWidget(m_checkText, 1);
    column->addWidget(MakeButtons());
    ShowPlan();
}

QWidget* PlanPage::MakeFields() {
    using Plan = FrequencyPlan;
    const auto form = [] { return new QFormLayout; };
    auto* twoTone = new QGroupBox(Tr("2 Ton Modell"));
    auto* tone1 = form();
    auto* tone2 = form();
    AddField(tone1, "Fix f1:", &Plan::f1);
    AddField(tone2, "Fix f2:", &Plan::f2);
    AddStretchedForms(twoTone, {tone1, tone2});

    auto* sweep = new QGroupBox(Tr("Scannen Modell"));
    auto* rising = form();
    AddField(rising, "Anfang f1:", &Plan::f1Start);
    AddField(rising, "Ende f1:", &Plan::f1Stop);
    AddField(rising, "Fix f2:", &Plan::f2Fix);
    auto* falling = form();
    AddField(falling, "Anfang f2:", &Plan::f2Start);
    AddField(falling, "Ende f2:", &Plan::f2Stop);
    AddField(falling, "Fix f1:", &Plan::f1Fix);
    AddField(rising, "Freq Schritt:", &Plan::step);
    AddStretchedForms(sweep, {rising, falling});

    auto* groups = new QWidget;
    auto* column = new QVBoxLayout(groups);
    column->setContentsMargins({});
    column->addWidget(twoTone);
    column->addWidget(sweep);
    return groups;
}

void PlanPage::AddStretchedForms(QGroupBox* group, std::initializer_list<QFormLayout*> forms) {
    auto* row = new QHBoxLayout(group);
    for (QFormLayout* form : forms)
        row->addLayout(form, 1);
}

void PlanPage::AddField(QFormLayout* form, std::string_view caption, PlanValue value) {
    QLineEdit* const edit = m_Dialog.AddField(form, caption, {}, "MHz");
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance("00000.000"));
    m_Fields[m_FieldCount++] = {value, edit};
    connect(edit, &QLineEdit::textEdited, this, [this] { OnEdited(); });
}

QWidget* PlanPage::MakeButtons() {
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins({});
    const auto add = [&](const QString& caption, auto pressed) {
        auto* button = new QPushButton(caption.trimmed());
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, pressed);
        row->addWidget(button);
        return button;
    };
    m_Save = add(Tr("Einbauen"), [this] { WithPlan([this] { Tell(m_Setup.Save(), m_User); }); });
    add(Tr("Standard"), [this] {
        m_Setup.Standard();
        ShowPlan();
    });
    add(Tr("Ueberpruefen "), [this] { WithPlan([this] { ShowPlan(); }); });
    if (m_Setup.OffersDefault())
        add(Tr("Speichern Standard"), [this] { WithPlan([this] { Tell(m_Setup.SaveDefault(), m_User); }); });
    return buttons;
}

std::optional<FrequencyPlan> PlanPage::PlanInFields(bool focus) {
    FrequencyPlan plan;
    QLineEdit* wrong = nullptr;
    for (const Field& field : m_Fields) {
        m_Dialog.MarkField(field.edit, false);
        if (const auto number = EnteredNumber(Utf8(field.edit->text())))
            plan.*field.value = static_cast<float>(*number);
        else if (!wrong)
            wrong = field.edit;
    }
    if (!wrong)
        return plan;
    m_Dialog.MarkField(wrong, true,
                       wrong->accessibleName() + ' ' + Tr("ist keine Zahl. Bitte mit Dezimalpunkt eingeben."),
                       focus);
    return std::nullopt;
}

void PlanPage::OnEdited() {
    if (const auto plan = PlanInFields(false)) {
        m_Setup.Edit(*plan);
        ShowVerdict();
        return;
    }
    m_checkText->clear();
    m_Save->setEnabled(false);
}

/// Runs what works on the plan as it stands in the fields.
void PlanPage::WithPlan(const std::function<void()>& action) {
    const auto plan = PlanInFields(true);
    if (!plan)
        return;
    m_Setup.Edit(*plan);
    ShowVerdict();
    action();
}

void PlanPage::ShowPlan() {
    for (const Field& field : m_Fields)
        field.edit->setText(Plain(FieldText(m_Setup.Plan().*field.value)));
    ShowVerdict();
}

void PlanPage::ShowVerdict() {
    const PlanVerdict& verdict = m_Setup.Verdict();
    m_checkText->setPlainText(Translated(verdict.text));
    m_Save->setEnabled(verdict.fits);
    for (const Field& field : m_Fields) {
        const auto& wrong = verdict.wrong;
        m_Dialog.MarkField(field.edit, std::find(wrong.begin(), wrong.end(), field.value) != wrong.end());
    }
}

} // namespace qor::ui
