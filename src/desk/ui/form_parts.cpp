#include "desk/ui/form_parts.h"

#include "desk/ui/fit_font.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

constexpr int CellFont = 12; ///< pixels, where a text has room

} // namespace

QLineEdit* AddText(QWidget* form, std::string_view name, QLineEdit* text) {
    if (!text)
        text = new QLineEdit(form);
    text->setAccessibleName(Plain(name));
    text->setReadOnly(true);
    text->setFrame(false);
    text->setFocusPolicy(Qt::NoFocus);
    text->setAlignment(Qt::AlignCenter);
    text->setContextMenuPolicy(Qt::NoContextMenu);
    return text;
}

QPushButton* AddButton(QWidget* form, std::string_view caption, std::string_view tip, const Press& press,
                       std::function<void()> pressed) {
    auto* button = new QPushButton(Tr(caption), form);
    button->setAccessibleName(Tr(caption));
    if (!tip.empty())
        button->setToolTip(Tr(tip));
    QObject::connect(button, &QPushButton::clicked, form,
                     [press, what = std::move(pressed)] { press(what); });
    return button;
}

QLineEdit* AddField(QFormLayout* form, std::string_view caption, const QString& text, std::string_view unit,
                    std::string_view tip) {
    auto* field = new QLineEdit(text);
    field->setAccessibleName(Tr(caption).trimmed());
    if (!tip.empty())
        field->setToolTip(Tr(tip));
    auto* label = new QLabel(Tr(caption));
    label->setBuddy(field);
    if (unit.empty()) {
        form->addRow(label, field);
        return field;
    }
    auto* row = new QHBoxLayout;
    row->addWidget(field);
    row->addWidget(new QLabel(Tr(unit)));
    form->addRow(label, row);
    return field;
}

void Describe(QWidget* widget, std::string_view what) {
    widget->setAccessibleDescription(Tr(what));
}

void Show(QLineEdit* field, const QString& text) {
    if (field->text() == text || (field->hasFocus() && field->isModified()))
        return;
    field->setText(text);
    if (field->isReadOnly())
        field->setCursorPosition(0); // what has no room shows its beginning
}

void Show(QLabel* label, const QString& text) {
    if (label->text() != text)
        label->setText(text);
}

void ShowInCell(QLineEdit* cell, const QString& text) {
    Show(cell, text);
    FitFont(cell, text, CellFont, false);
}

void SetFlag(QWidget* widget, const char* name, bool on) {
    if (widget->property(name).toBool() == on)
        return;
    const QFont font = widget->font();
    widget->setProperty(name, on);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
    widget->setFont(font);
}

void PlaceAt(QWidget* widget, const QRect& place) {
    static constexpr const char* Policy = "focusPolicyInSight";
    widget->setGeometry(place);
    if (!widget->property(Policy).isValid())
        widget->setProperty(Policy, static_cast<int>(widget->focusPolicy()));
    const bool inSight = widget->parentWidget()->rect().intersects(place);
    widget->setFocusPolicy(inSight ? static_cast<Qt::FocusPolicy>(widget->property(Policy).toInt())
                                   : Qt::NoFocus);
}

} // namespace qor::ui
