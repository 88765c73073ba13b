#pragma once

#include "core/dialogs.h"

class QWidget;

namespace qor {
class Program;
}

namespace qor::ui {

/// The dialogs of the window.
class WindowDialogs final : public Dialogs {
public:
    /// Until this is called no dialog can be opened.
    void SetWindow(Program& program, QWidget& window) {
        m_Program = &program;
        m_Window = &window;
    }

    bool Open(DialogId dialog, int argument = 0) override;

private:
    Program* m_Program = nullptr;
    QWidget* m_Window = nullptr;
};

} // namespace qor::ui
