#include "core/ui/user_modes_dialog.h"

#include "core/program.h"
#include "core/ui/form_dialog.h"
#include "core/ui/text.h"
#include "core/user_modes.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

QLineEdit* Masked(QLineEdit* field) {
    field->setEchoMode(QLineEdit::Password);
    field->setMaxLength(static_cast<int>(PasswordLength));
    return field;
}

class ModifyPasswordDialog final : public FormDialog {
public:
    ModifyPasswordDialog(Program& program, QWidget* parent)
        : FormDialog("Modify Password", parent), m_Program(program) {
        QFormLayout* form = AddGroup("");
        m_Old = Masked(AddField(form, "Old Password:", {}));
        m_New = Masked(AddField(form, "New Password:", {}));
        m_Again = Masked(AddField(form, "Confirm the Password:", {}));
        // A character is a byte in the store.
        for (QLineEdit* field : {m_New, m_Again})
            field->setValidator(
                new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[ -~]*")), field));
        AddButtons("Okey");
        SetAccept([this] { return Change(); });
    }

private:
    bool Change() {
        const PasswordChange result =
            ChangePassword(Utf8(m_Old->text()), Utf8(m_New->text()), Utf8(m_Again->text()),
                           m_Program.Stores(), m_Program.Parts());
        MarkField(m_Old, false);
        MarkField(m_Again, false);
        if (result == PasswordChange::WrongOld)
            MarkField(m_Old, true, Tr("Wrong password."), true);
        if (result == PasswordChange::NotEqual)
            MarkField(m_Again, true, Tr("Die beiden neuen Passwoerter sind nicht gleich."), true);
        return result == PasswordChange::Done;
    }

    Program& m_Program;
    QLineEdit* m_Old;
    QLineEdit* m_New;
    QLineEdit* m_Again;
};

class UserModeDialog final : public FormDialog {
public:
    UserModeDialog(Program& program, QWidget* parent) : FormDialog("User Mode", parent), m_Program(program) {
        QFormLayout* administrator = AddGroup("Administrator Mode");
        m_Password = Masked(AddField(administrator, "Password:", {}));
        auto* logOn = new QPushButton(Tr("Log On"));
        logOn->setDefault(true);
        auto* modify = new QPushButton(Tr("Modify Password"));
        modify->setAutoDefault(false);
        auto* row = new QHBoxLayout;
        row->addWidget(logOn);
        row->addWidget(modify);
        administrator->addRow(row);
        QFormLayout* user = AddGroup("Operator Mode");
        auto* plainLogOn = new QPushButton(Tr("Log On"));
        plainLogOn->setAutoDefault(false);
        plainLogOn->setAccessibleDescription(Tr("Operator Mode"));
        user->addRow(Tr("No Function Menu"), plainLogOn);
        QObject::connect(logOn, &QPushButton::clicked, this, [this] { accept(); });
        QObject::connect(plainLogOn, &QPushButton::clicked, this, [this] { reject(); });
        QObject::connect(modify, &QPushButton::clicked, this,
                         [this] { OpenModifyPassword(m_Program, this); });
        SetAccept([this] { return LogOn(); });
    }

private:
    bool LogOn() {
        const bool right = LogOnAsAdministrator(Utf8(m_Password->text()), m_Program.State(),
                                                m_Program.Stores(), m_Program.Parts());
        MarkField(m_Password, !right, Tr("Wrong password."), true);
        m_Password->selectAll();
        return right;
    }

    Program& m_Program;
    QLineEdit* m_Password;
};

} // namespace

bool OpenModifyPassword(Program& program, QWidget* parent) {
    ModifyPasswordDialog(program, parent).exec();
    return true;
}

bool OpenUserLogOn(Program& program, QWidget* parent) {
    if (AsksForUser(program.Stores()) && UserModeDialog(program, parent).exec() != QDialog::Accepted)
        LogOnAsOperator(program.State());
    return true;
}

} // namespace qor::ui
