#include "service/ui/group_pane.h"

#include "desk/ui/form_parts.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

GroupPane::GroupPane(std::string_view caption, QWidget* parent)
    : ServicePane(parent), m_Column(new QVBoxLayout) {
    auto* group = new QGroupBox(Tr(caption));
    group->setAccessibleName(Tr(caption));
    group->setLayout(m_Column);
    m_Column->setContentsMargins(6, 4, 6, 6);
    m_Column->setSpacing(4);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(group);
}

QFormLayout* GroupPane::AddForm() {
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setVerticalSpacing(3);
    m_Column->addLayout(form);
    return form;
}

QLineEdit* GroupPane::AddField(QFormLayout* form, std::string_view caption, const QString& text,
                               std::string_view tip, std::string_view unit) {
    QLineEdit* const field = ui::AddField(form, caption, text, unit, tip);
    field->setMinimumWidth(56);
    return field;
}

QCheckBox* GroupPane::AddCheck(QBoxLayout* row, std::string_view caption, std::string_view tip) {
    auto* box = new QCheckBox(Tr(caption));
    box->setAccessibleName(Tr(caption));
    if (!tip.empty())
        box->setToolTip(Tr(tip));
    row->addWidget(box);
    return box;
}

QPushButton* GroupPane::AddButton(QBoxLayout* row, std::string_view caption, std::function<void()> pressed,
                                  std::string_view tip) {
    auto* button = new QPushButton(Tr(caption));
    button->setAccessibleName(Tr(caption));
    button->setAutoDefault(false);
    if (!tip.empty())
        button->setToolTip(Tr(tip));
    QObject::connect(button, &QPushButton::clicked, this, std::move(pressed));
    row->addWidget(button);
    return button;
}

void GroupPane::Mark(QWidget* field, bool wrong) {
    if (field->property("wrong").toBool() == wrong)
        return;
    field->setProperty("wrong", wrong);
    field->style()->unpolish(field); // the style sheet looks at the property
    field->style()->polish(field);
}

std::optional<int> GroupPane::WholeNumber(QLineEdit* field, int low, int high) {
    bool isNumber = false;
    const int number = QLocale::c().toInt(field->text().trimmed(), &isNumber);
    const bool right = isNumber && number >= low && number <= high;
    Mark(field, !right);
    return right ? std::optional(number) : std::nullopt;
}

} // namespace qor::ui
