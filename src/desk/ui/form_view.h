#pragma once

#include "desk/panel.h"
#include "desk/panel_layout.h"
#include "desk/ui/list_controls.h"
#include "desk/ui/marker_controls.h"
#include "desk/ui/port_controls.h"
#include "service/ui/service_pages.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <array>
#include <functional>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace qor {
class Commands;
class Program;
} // namespace qor

namespace qor::ui {

class CCurveWnd;
class HeadPicture;
class LampPicture;
class PathPicture;
class StartButton;

/// The panel: plot, cells, boxes and the control column. It shows what the engine's panel says and hands
/// every press and entry to the engine.
class CTestSDIFormView final : public QWidget {
public:
    CTestSDIFormView(Program& program, Commands& commands, QWidget* parent);

    void Refresh();
    /// Places all controls for the layout in force.
    void Relayout();
    /// An entry that is being typed is taken before a command runs.
    void LeaveFields();
    /// The start button was pressed: a choice of ports that was passed over is offered once more.
    void OfferPortsAgain() { m_Port.OfferAgain(); }
    /// Gives the keyboard to the start button.
    void FocusStart();
    /// What is going on, as the sixth cell says it.
    [[nodiscard]] QString StateText() const;
    /// Called after every press on the panel.
    void SetAfterCommand(std::function<void()> after) { m_AfterCommand = std::move(after); }

    /// Between these, size changes are the program's own; otherwise they make a layout of the operator's.
    void BeginLayout();
    void EndLayout();
    /// True while the layout in force is the size the operator has just dragged the window to.
    [[nodiscard]] bool TakesDraggedSize() const { return m_Dragging; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildCells();
    void BuildBoxes();
    void BuildColumn();
    void BuildButtons();
    void SetTabOrder();
    void RefreshCells();
    void RefreshNotices();
    void RefreshPlotWords();
    void TakeLimit();
    void Pressed(const std::function<void()>& what);
    [[nodiscard]] Lamp ShownLamp() const;
    void Place(QWidget* widget, Control control);

    Program& m_Program;
    Commands& m_Commands;
    std::function<void()> m_AfterCommand;
    Press m_Press;

    CCurveWnd* m_Curve;
    QWidget* m_Stamp; ///< painted by the plot; told here to those who cannot see it
    QLabel* m_Notices;
    ListControls m_List;
    std::array<MarkerControls, 3> m_Markers;
    PortControls m_Port;
    QPushButton* m_ScaleUp;
    QPushButton* m_ScaleDown;
    std::array<QLineEdit*, 6> m_Cell{};
    QGroupBox* m_FrequencyBox;
    QLabel* m_F1Label;
    QLabel* m_F2Label;
    QLineEdit* m_F1;
    QLineEdit* m_F2;
    PathPicture* m_Path;
    LampPicture* m_Lamp;
    QGroupBox* m_ReadingBox;
    QLabel* m_FimLabel;
    QLineEdit* m_Fim;
    QLineEdit* m_Reading;
    QLabel* m_ReadingUnit;
    HeadPicture* m_Head;
    QGroupBox* m_AlarmBox;
    QLineEdit* m_Alarm;
    QLabel* m_AlarmUnit;
    QLabel* m_SerialLabel;
    QLineEdit* m_Serial;
    unsigned m_SavedRuns = 0; ///< by auto-save, when this was refreshed last
    StartButton* m_Start;
    QPushButton* m_Clear;
    QPushButton* m_Exit;
    ServicePages m_Service;

    PanelLayout m_Layout;
    QTimer m_Settled;          ///< ends the time in which size changes are the program's own
    bool m_LayoutDone = false; ///< g_LayoutDone
    bool m_Dragging = false;
    bool m_ListShown = false;
    QStringList m_NoticeLines;
};

} // namespace qor::ui
