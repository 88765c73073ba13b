#include "desk/ui/form_dialog.h"

#include "desk/ui/form_parts.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

constexpr int FrameButtons = 130; ///< pixels beside the title on a window's frame

} // namespace

FormDialog::FormDialog(std::string_view title, QWidget* parent)
    : QDialog(parent), m_Column(new QVBoxLayout), m_Fault(new QLabel) {
    setWindowTitle(Tr(title));
    setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) + FrameButtons);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(m_Column);
    m_Fault->setObjectName("fault");
    m_Fault->setWordWrap(true);
    m_Fault->hide();
    whole->addWidget(m_Fault);
}

QFormLayout* FormDialog::AddGroup(std::string_view caption) {
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    if (caption.empty()) {
        m_Column->addLayout(form);
        return form;
    }
    auto* group = new QGroupBox(Tr(caption));
    group->setLayout(form);
    m_Column->addWidget(group);
    return form;
}

QLineEdit* FormDialog::AddField(QFormLayout* form, std::string_view caption, const QString& text,
                                std::string_view unit, std::string_view tip) {
    return ui::AddField(form, caption, text, unit, tip);
}

QCheckBox* FormDialog::AddCheck(QFormLayout* form, std::string_view caption, bool on, std::string_view tip) {
    auto* box = new QCheckBox(Tr(caption));
    box->setChecked(on);
    if (!tip.empty())
        box->setToolTip(Tr(tip));
    form->addRow(box);
    return box;
}

void FormDialog::AddButtons(std::string_view okay, std::string_view cancel) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    auto* ok = new QPushButton(Tr(okay));
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, this, [this] { accept(); });
    row->addWidget(ok);
    if (!cancel.empty()) {
        auto* no = new QPushButton(Tr(cancel));
        no->setAutoDefault(false);
        QObject::connect(no, &QPushButton::clicked, this, [this] { reject(); });
        row->addWidget(no);
    }
    m_ButtonRow = row;
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

QPushButton* FormDialog::AddButton(std::string_view caption, std::function<void()> pressed) {
    auto* button = new QPushButton(Tr(caption));
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, this, std::move(pressed));
    static_cast<QHBoxLayout*>(m_ButtonRow)->insertWidget(m_LeftButtons++, button);
    return button;
}

void FormDialog::MarkField(QWidget* field, bool wrong, const QString& why, bool focus) {
    field->setProperty("wrong", wrong);
    field->style()->unpolish(field); // the style sheet looks at the property
    field->style()->polish(field);
    field->setToolTip(wrong ? why : QString());
    field->setAccessibleDescription(wrong ? why : QString());
    if (!wrong) {
        if (m_FaultOf == field)
            ForgetFault();
        return;
    }
    if (m_FaultOf && m_FaultOf != field)
        return; // one at a time, the first
    if (!why.isEmpty()) {
        m_FaultOf = field;
        m_Fault->setText(why);
        m_Fault->show();
    }
    if (focus)
        field->setFocus(Qt::OtherFocusReason);
}

void FormDialog::ForgetFault() {
    m_FaultOf = nullptr;
    m_Fault->hide();
}

double FormDialog::NumberOf(QLineEdit* field, bool& ok, double low, double high) {
    bool isNumber = false;
    const double number = QLocale::c().toDouble(field->text().trimmed(), &isNumber);
    if (isNumber && number >= low && number <= high) {
        MarkField(field, false);
        return number;
    }
    ok = false;
    Refuse(field, isNumber ? Tr("braucht eine Zahl:") + QStringLiteral(" %1 .. %2").arg(low).arg(high)
                           : Tr("ist keine Zahl. Bitte mit Dezimalpunkt eingeben."));
    return 0;
}

int FormDialog::WholeNumberOf(QLineEdit* field, int low, int high, bool& ok) {
    bool isNumber = false;
    const int number = QLocale::c().toInt(field->text().trimmed(), &isNumber);
    if (isNumber && number >= low && number <= high) {
        MarkField(field, false);
        return number;
    }
    ok = false;
    Refuse(field, Tr("braucht eine ganze Zahl:") + QStringLiteral(" %1 .. %2").arg(low).arg(high));
    return low;
}

/// The first field that is refused takes the focus; what was typed stays, selected.
void FormDialog::Refuse(QLineEdit* field, const QString& why) {
    QString name = field->accessibleName().trimmed();
    while (name.endsWith(':'))
        name.chop(1);
    field->selectAll();
    MarkField(field, true, name + ' ' + why, true);
}

void FormDialog::accept() {
    ForgetFault();
    if (!m_Accept || m_Accept())
        QDialog::accept();
}

} // namespace qor::ui
