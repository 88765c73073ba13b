#pragma once

#include "desk/dialogs.h"

class QWidget;

namespace qor {
class Program;
}

namespace qor::ui {

/// A dialog of the window and the command that opens it. Each dialog's file makes one, and that is all it
/// takes: `const DialogEntry entry("calculator", OpenCalculator);`
class DialogEntry {
public:
    /// Shows the dialog and comes back when it is closed; false when there is none for this argument.
    using Open = bool (*)(Program& program, int argument, QWidget* parent);

    DialogEntry(std::string_view command, Open open);

    [[nodiscard]] static Open Find(std::string_view command);

private:
    std::string_view m_Command;
    Open m_Open;
    const DialogEntry* m_Next;
};

/// The dialogs of the window.
class WindowDialogs final : public Dialogs {
public:
    /// Until this is called no dialog can be opened.
    void SetWindow(Program& program, QWidget& window) {
        m_Program = &program;
        m_Window = &window;
    }

    bool Open(std::string_view command, int argument = 0) override;

private:
    Program* m_Program = nullptr;
    QWidget* m_Window = nullptr;
};

} // namespace qor::ui
