#pragma once

#include "service/ui/service_pane.h"

#include <functional>
#include <optional>
#include <string_view>

class QBoxLayout;
class QCheckBox;
class QFormLayout;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace qor::ui {

/// A group of a service page: its caption, a form of fields, and rows of buttons. Each control is found by
/// its caption, from the keyboard and from outside.
class GroupPane : public ServicePane {
public:
    GroupPane(std::string_view caption, QWidget* parent);

    [[nodiscard]] QVBoxLayout* Column() { return m_Column; }
    [[nodiscard]] QFormLayout* AddForm();
    /// A one-line field; `tip` says its range, `unit` stands behind it.
    QLineEdit* AddField(QFormLayout* form, std::string_view caption, const QString& text,
                        std::string_view tip, std::string_view unit = {});
    QCheckBox* AddCheck(QBoxLayout* row, std::string_view caption, std::string_view tip = {});
    QPushButton* AddButton(QBoxLayout* row, std::string_view caption, std::function<void()> pressed,
                           std::string_view tip = {});

    /// Marks a field as wrong, or right again.
    static void Mark(QWidget* field, bool wrong);
    /// The whole number in a field, `low` to `high`; the field is marked when it holds none.
    [[nodiscard]] static std::optional<int> WholeNumber(QLineEdit* field, int low, int high);

private:
    QVBoxLayout* m_Column;
};

} // namespace qor::ui
