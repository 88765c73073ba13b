#include "desk/ui/user_modes_dialog.h"

#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"
#include "desk/user_modes.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

QLineEdit* Masked(QLineEdit* field) {
    field->setEchoMode(QLineEdit::Password);
    return field;
}

/// A character of a password is a byte in its store.
bool CanBeStored(const QString& password) {
    return password.size() <= static_cast<qsizetype>(PasswordLength) &&
           std::all_of(password.begin(), password.end(), [](QChar c) { return c >= ' ' && c <= '~'; });
}

class ModifyPasswordDialog final : public FormDialog {
public:
    ModifyPasswordDialog(Program& program, QWidget* parent)
        : FormDialog("Modify Password", parent), m_Program(program) {
        QFormLayout* form = AddGroup("");
        m_Old = Masked(AddField(form, "Old Password:", {}));
        m_New = Masked(AddField(form, "New Password:", {}));
        m_Again = Masked(AddField(form, "Confirm the Password:", {}));
        AddButtons("Okey");
        SetAccept([this] { return Change(); });
    }

private:
    bool Change() {
        MarkField(m_New, false);
        if (!CanBeStored(m_New->text())) {
            MarkField(m_New, true,
                      Tr("Hoechstens so viele Zeichen, ohne Umlaute:") + ' ' +
                          QString::number(PasswordLength),
                      true);
            return false;
        }
        const PasswordChange result = ChangePassword(Utf8(m_Old->text()), Utf8(m_New->text()),
                                                     Utf8(m_Again->text()), m_Program.Stores());
        Tell(OutcomeOf(result), m_Program.Parts().user);
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
                         [this] { ModifyPasswordDialog(m_Program, this).exec(); });
        SetAccept([this] { return LogOn(); });
    }

private:
    bool LogOn() {
        const bool right =
            Tell(m_Program.State().user.LogOnAsAdministrator(Utf8(m_Password->text()), m_Program.Stores()),
                 m_Program.Parts().user);
        MarkField(m_Password, !right, Tr("Wrong password."), true);
        m_Password->selectAll();
        return right;
    }

    Program& m_Program;
    QLineEdit* m_Password;
};

bool OpenModifyPassword(Program& program, int /*argument*/, QWidget* parent) {
    ModifyPasswordDialog(program, parent).exec();
    return true;
}

const DialogEntry ModifyPasswordEntry("modify_password", OpenModifyPassword);

} // namespace

bool OpenUserLogOn(Program& program, QWidget* parent) {
    if (AsksForUser(program.Stores()) && UserModeDialog(program, parent).exec() != QDialog::Accepted)
        program.State().user.LogOnAsOperator();
    return true;
}

} // namespace qor::ui
