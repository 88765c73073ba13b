#pragma once

#include <QDialog>

#include <functional>
#include <string_view>

class QCheckBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace qor::ui {

/// What all dialogs of the program share: a column of rows over a row of buttons, each field found by its
/// caption from the keyboard and from outside, and a line of its own for what is wrong.
///
/// A derived dialog adds its fields in its constructor and then its buttons. OK goes through `SetAccept`'s
/// function, which may keep the dialog open by returning false.
class FormDialog : public QDialog {
public:
    FormDialog(std::string_view title, QWidget* parent);

    /// The main column, for groups and pages.
    [[nodiscard]] QVBoxLayout* Column() { return m_Column; }
    /// A group with a form inside; an empty caption makes a plain form.
    QFormLayout* AddGroup(std::string_view caption);
    /// One-line field with its caption as label and accessible name; `unit` stands behind it.
    QLineEdit* AddField(QFormLayout* form, std::string_view caption, const QString& text,
                        std::string_view unit = {}, std::string_view tip = {});
    QCheckBox* AddCheck(QFormLayout* form, std::string_view caption, bool on, std::string_view tip = {});
    /// The row of buttons at the bottom: `okay` is the default button, a second one cancels.
    void AddButtons(std::string_view okay, std::string_view cancel = "Abbrechen");
    /// A further button at the left of that row; after AddButtons.
    QPushButton* AddButton(std::string_view caption, std::function<void()> pressed);
    /// True closes the dialog as accepted.
    void SetAccept(std::function<bool()> accept) { m_Accept = std::move(accept); }

    /// Marks a field as wrong, or right again; `why` becomes its tip. The first that is wrong has the line
    /// under the fields until it is right, and takes the focus when `focus` is set.
    void MarkField(QWidget* field, bool wrong, const QString& why = {}, bool focus = false);
    /// Number of a field with a decimal point, whatever the locale. A field that holds none, or one outside
    /// `low` to `high`, is refused by its name, takes the focus, and `ok` becomes false.
    double NumberOf(QLineEdit* field, bool& ok, double low = -1e300, double high = 1e300);
    /// Whole number of a field, `low` to `high`. Anything else, a decimal too, is refused by the field's name
    /// and its range; the text stays as it was typed.
    int WholeNumberOf(QLineEdit* field, int low, int high, bool& ok);

protected:
    void accept() override;

private:
    void Refuse(QLineEdit* field, const QString& why);
    void ForgetFault();

    QVBoxLayout* m_Column;
    QLabel* m_Fault;
    const QWidget* m_FaultOf = nullptr; ///< field whose fault the line tells
    QLayout* m_ButtonRow = nullptr;
    int m_LeftButtons = 0;
    std::function<bool()> m_Accept;
};

} // namespace qor::ui
