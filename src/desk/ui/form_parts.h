// What the groups of the panel are built of.
#pragma once

#include <QWidget>

#include <functional>
#include <string_view>

class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace qor::ui {

/// How the panel runs what a press asks for: fields are left before it and the panel is refreshed behind it.
using Press = std::function<void(const std::function<void()>& what)>;

/// A text that is only read; its accessible name is that of its field. `text`: a field that is there already.
QLineEdit* AddText(QWidget* form, std::string_view name, QLineEdit* text = nullptr);
/// A button with a caption in the chosen language, which is its accessible name too.
QPushButton* AddButton(QWidget* form, std::string_view caption, std::string_view tip, const Press& press,
                       std::function<void()> pressed);
/// A one-line field of a form with its caption as label and accessible name; `unit` stands behind it.
QLineEdit* AddField(QFormLayout* form, std::string_view caption, const QString& text, std::string_view unit,
                    std::string_view tip);
/// What a control is, in the chosen language: its name is the field's.
void Describe(QWidget* widget, std::string_view what);

/// Text into a field unless it stands there; a field that is being typed in is left alone.
void Show(QLineEdit* field, const QString& text);
void Show(QLabel* label, const QString& text);
/// A text of a cell, whole: in a smaller font where the cell is narrow.
void ShowInCell(QLineEdit* cell, const QString& text);
/// A property that the style sheet looks at. A fitted font outlives the new look.
void SetFlag(QWidget* widget, const char* name, bool on);

/// Places a control in its form; one that lies outside the form is no stop of the tab key.
void PlaceAt(QWidget* widget, const QRect& place);

} // namespace qor::ui
