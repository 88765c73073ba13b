#pragma once

#include "desk/setup/plan_setup.h"

#include <QWidget>

#include <array>
#include <functional>
#include <optional>

class QFormLayout;
class QGroupBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace qor {
class Operator;
}

namespace qor::ui {

class FormDialog;

/// One frequency page of a band's set-up dialog.
class PlanPage : public QWidget {
public:
    /// Its fields are marked through `dialog`, which it stands in.
    PlanPage(FormDialog& dialog, Operator& user, PlanSetup setup);

private:
    struct Field {
        PlanValue value;
        QLineEdit* edit;
    };

    QWidget* MakeFields();
    QWidget* MakeButtons();
    void AddField(QFormLayout* form, std::string_view caption, PlanValue value);
    void AddStretchedForms(QGroupBox* group, std::initializer_list<QFormLayout*> forms);
    /// The plan in the fields; nothing while one of them holds no number, which is marked then.
    [[nodiscard]] std::optional<FrequencyPlan> PlanInFields(bool focus);
    void OnEdited();
    void WithPlan(const std::function<void()>& action);
    void ShowPlan();
    void ShowVerdict();

    FormDialog& m_Dialog;
    Operator& m_User;
    PlanSetup m_Setup;
    std::array<Field, 9> m_Fields{};
    std::size_t m_FieldCount = 0;
    QPlainTextEdit* m_checkText = nullptr;
    QPushButton* m_Save = nullptr;
};

} // namespace qor::ui
