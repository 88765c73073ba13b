#pragma once

#include "desk/appearance.h"
#include "desk/commands.h"
#include "desk/dialogs.h"

#include <QMainWindow>
#include <QTimer>

#include <vector>

class QAction;
class QLabel;
class QMenu;

namespace qor {
class Program;
struct Panel;
} // namespace qor

namespace qor::ui {

class CTestSDIFormView;

/// The main window: menu and keyboard in front of the engine's commands, the panel inside.
class CMainFrame final : public QMainWindow {
public:
    CMainFrame(Program& program, Dialogs& dialogs);

    /// Shows what has changed: called at each refresh and after each command.
    void Refresh();
    /// The program has ended; the window may close without asking.
    void LetGo() { m_MayClose = true; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        QAction* action;
        const CommandRow* row;
    };

    void BuildMenu();
    void ShowChecks();
    void ShowTitle(const Panel& panel);
    void RunCommand(const CommandRow& row);
    [[nodiscard]] bool TakesKey(int key);
    void ShowReceiver(const QString& text);
    void PlaceReceiver();
    void ApplyAppearance();
    void ResizeToLayout();

    Program& m_Program;
    Commands m_Commands;
    CTestSDIFormView* m_Form;
    QLabel* m_Receiver; ///< the external one, beside the menu
    std::vector<Entry> m_Entries;
    QTimer m_Refresh;
    bool m_MayClose = false;
    bool m_Shown = false; ///< the first layout was made
    int m_AppliedSkin = -1;
    int m_AppliedLayout = -1;
    bool m_AppliedPlotOnly = false;
    WindowSize m_AppliedCustom;
};

} // namespace qor::ui
