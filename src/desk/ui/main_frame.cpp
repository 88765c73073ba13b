#include "desk/ui/main_frame.h"

#include "desk/panel.h"
#include "desk/panel_layout.h"
#include "desk/program.h"
#include "desk/ui/form_view.h"
#include "desk/ui/looks.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

constexpr int RefreshMs = 100;
constexpr int IdleRefreshMs = 250; ///< while nothing happens by itself but the status poll

/// "Caption(&X)" in the toolkit's way: a mnemonic at the beginning of a word or within one, else behind it.
QString MenuCaption(const QString& caption) {
    static const QRegularExpression Mnemonic(QStringLiteral(R"(\(&(.)\)$)"));
    const QRegularExpressionMatch match = Mnemonic.match(caption);
    if (!match.hasMatch())
        return caption;
    QString text = caption.left(match.capturedStart());
    qsizetype at = (' ' + text).indexOf(' ' + match.captured(1), 0, Qt::CaseInsensitive);
    if (at < 0)
        at = text.indexOf(match.captured(1), 0, Qt::CaseInsensitive);
    return at < 0 ? caption : text.insert(at, '&');
}

} // namespace

CMainFrame::CMainFrame(Program& program, Dialogs& dialogs)
    : m_Program(program), m_Commands(program, dialogs),
      m_Form(new CTestSDIFormView(program, m_Commands, this)), m_Receiver(new QLabel(this)) {
    m_Receiver->setObjectName(QStringLiteral("receiver"));
    m_Receiver->setTextFormat(Qt::PlainText);
    m_Receiver->hide();
    setAccessibleName(QStringLiteral("QOR"));
    setCentralWidget(m_Form);
    BuildMenu();
    QObject::connect(&m_Refresh, &QTimer::timeout, this, [this] { Refresh(); });
    m_Refresh.start(RefreshMs);
    m_Form->SetAfterCommand([this] { Refresh(); });
    qApp->installEventFilter(this);
    Refresh();
}

void CMainFrame::BuildMenu() {
    std::vector<QMenu*> open;
    for (const MenuLine& line : MenuLines()) {
        const QString whole = Tr(line.kind == MenuLine::Kind::Item ? line.row.caption : line.caption);
        const QString caption = MenuCaption(whole.section('\t', 0, 0));
        switch (line.kind) {
        case MenuLine::Kind::Menu:
            open.push_back(open.empty() ? menuBar()->addMenu(caption) : open.back()->addMenu(caption));
            QObject::connect(open.back(), &QMenu::aboutToShow, this, [this] { ShowChecks(); });
            break;
        case MenuLine::Kind::End:
            open.pop_back();
            break;
        case MenuLine::Kind::Separator:
            open.back()->addSeparator();
            break;
        case MenuLine::Kind::Item: {
            QAction* action = open.back()->addAction(caption);
            action->setCheckable(line.row.checked != nullptr);
            action->setMenuRole(QAction::NoRole);
            // The key is the same in every language, so it comes from the source.
            const QString key = Plain(line.row.caption).section('\t', 1);
            if (!key.isEmpty())
                action->setShortcut(QKeySequence(key));
            addAction(action); // its key works without the menu bar, too: an operator has none
            m_Entries.push_back({action, &line.row});
            QObject::connect(action, &QAction::triggered, this, [this, &row = line.row] {
                // Later, outside the menu's own event: a message box must not hold the menu open.
                QMetaObject::invokeMethod(
                    this, [this, &row] { RunCommand(row); }, Qt::QueuedConnection);
            });
            break;
        }
        case MenuLine::Kind::Hidden:
            break;
        }
    }
    ShowChecks();
}

void CMainFrame::ShowChecks() {
    for (const Entry& entry : m_Entries) {
        entry.action->setEnabled(m_Commands.IsEnabled(*entry.row));
        if (entry.action->isCheckable())
            entry.action->setChecked(m_Commands.IsChecked(*entry.row));
    }
}

void CMainFrame::RunCommand(const CommandRow& row) {
    // A key struck twice comes a second time when the first has opened its dialog.
    if (m_Program.IsLeaving() || QApplication::activeModalWidget())
        return;
    if (m_Program.IsInCall()) {
        if (&row == FindCommand("start_stop"))
            m_Program.OnMeasButton();
        return;
    }
    m_Form->LeaveFields();
    if (&row == FindCommand("start_stop"))
        m_Form->OfferPortsAgain();
    m_Commands.Run(row);
    Refresh();
    ShowChecks();
}

void CMainFrame::Refresh() {
    ApplyAppearance();
    const Session& session = m_Program.State();
    const Panel panel = PanelOf(session);
    const bool idle = panel.lamp == Lamp::Ready;
    if (const int wanted = idle ? IdleRefreshMs : RefreshMs; m_Refresh.interval() != wanted)
        m_Refresh.start(wanted);
    menuBar()->setVisible(panel.menuShown);
    ShowReceiver(TrText(panel.receiver));
    ShowTitle(panel);
    m_Form->Refresh();
}

/// "QOR", and behind it what tells this window from another one: instrument, band, state.
void CMainFrame::ShowTitle(const Panel& panel) {
    const Identity& identity = m_Program.State().link.identity;
    QStringList parts{QStringLiteral("QOR")};
    for (const std::string& part :
         {identity.ModelName(), identity.HasModel() ? identity.Serial() : std::string()})
        if (!part.empty())
            parts << Plain(part);
    parts << TrText(panel.m_Band_sel) << m_Form->StateText();
    const QString title = parts.join(QStringLiteral(" - "));
    if (windowTitle() != title)
        setWindowTitle(title);
    setAccessibleDescription(title);
}

void CMainFrame::ShowReceiver(const QString& text) {
    if (m_Receiver->toolTip() == text)
        return;
    m_Receiver->setToolTip(text);
    m_Receiver->setAccessibleName(text);
    PlaceReceiver();
}

/// At the right end of the menu bar, and no part of it: a menu bar has nothing but its menus for those who
/// read the window from outside.
void CMainFrame::PlaceReceiver() {
    const QString text = m_Receiver->toolTip();
    const int room = std::max(width() / 2, 100);
    m_Receiver->setText(m_Receiver->fontMetrics().elidedText(text, Qt::ElideRight, room) +
                        QStringLiteral("  "));
    m_Receiver->adjustSize();
    m_Receiver->move(width() - m_Receiver->width(),
                     menuBar()->y() + (menuBar()->height() - m_Receiver->height()) / 2);
    m_Receiver->setVisible(!text.isEmpty() && !menuBar()->isHidden());
    m_Receiver->raise();
}

void CMainFrame::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    PlaceReceiver();
}

/// Follows the look, the layout and the plot-only display of the engine.
void CMainFrame::ApplyAppearance() {
    Appearance& appearance = m_Program.State().appearance;
    if (const QScreen* display = screen()) {
        const QRect area = display->availableGeometry();
        appearance.NoteScreen({area.width(), area.height()});
    }
    const bool skin = appearance.Skin() != m_AppliedSkin;
    if (skin) {
        const bool first = m_AppliedSkin < 0;
        m_AppliedSkin = appearance.Skin();
        ApplyLook(appearance.Skin());
        const WindowSize size = appearance.Size();
        if (!first && IsNarrow(size.width, size.height))
            appearance.ChooseLayout(LayoutScreen,
                                    m_Program.Stores()); // the small forms fall back to the screen
        m_AppliedLayout = -1;
    }
    if (!isVisible())
        return;
    if (appearance.Layout() != m_AppliedLayout || appearance.Custom() != m_AppliedCustom ||
        appearance.IsPlotOnly() != m_AppliedPlotOnly) {
        appearance.ChooseLayout(appearance.Layout(), m_Program.Stores()); // what is in force is what is kept
        m_AppliedLayout = appearance.Layout();
        m_AppliedCustom = appearance.Custom();
        const bool plotOnlyChanged = appearance.IsPlotOnly() != m_AppliedPlotOnly;
        m_AppliedPlotOnly = appearance.IsPlotOnly();
        if (plotOnlyChanged && m_Shown)
            m_Form->Relayout();
        else
            ResizeToLayout();
        if (!m_Shown) // the frame's own size is only known once the window manager has made it
            QTimer::singleShot(150, this, [this] {
                ResizeToLayout();
                m_Form->FocusStart();
            });
        m_Shown = true;
    }
}

/// Gives the window the size of the layout in force, as far as the screen has it.
void CMainFrame::ResizeToLayout() {
    const Appearance& appearance = m_Program.State().appearance;
    if (m_Form->TakesDraggedSize())
        return; // the operator has just made this layout with the window's edge
    m_Form->BeginLayout();
    if (isMaximized() || isFullScreen())
        showNormal();
    const WindowSize size = appearance.Size();
    const QRect area = screen()->availableGeometry();
    const QSize frame = frameGeometry().size() - geometry().size();
    const QSize room = area.size() - frame;
    if (appearance.Layout() == LayoutScreen) {
        move(area.topLeft());
        resize(room);
    } else {
        const PanelLayout layout = qor::Relayout({size.width, size.height});
        const QSize client(layout.clientWidth, layout.clientHeight + menuBar()->sizeHint().height());
        move(area.topLeft());
        resize(client.boundedTo(room));
    }
    m_Form->EndLayout();
}

/// The keys of the window itself, wherever the keyboard is: the space bar starts, and stops whatever runs;
/// Home is the door of the factory mode. Where nothing runs, a control that uses the key itself keeps it.
bool CMainFrame::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return QMainWindow::eventFilter(watched, event);
    const auto* const key = static_cast<QKeyEvent*>(event);
    const bool isOurs = key->modifiers() == Qt::NoModifier && QApplication::activeWindow() == this &&
                        !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
    if (!isOurs || !TakesKey(key->key()))
        return QMainWindow::eventFilter(watched, event);
    if (!key->isAutoRepeat())
        RunCommand(*FindCommand(key->key() == Qt::Key_Space ? "start_stop" : "factory_mode"));
    return true;
}

bool CMainFrame::TakesKey(int key) {
    const QWidget* const focus = QApplication::focusWidget();
    const bool isField = qobject_cast<const QLineEdit*>(focus) || qobject_cast<const QComboBox*>(focus) ||
                         qobject_cast<const QAbstractScrollArea*>(focus);
    if (key == Qt::Key_Home)
        return !isField;
    return key == Qt::Key_Space &&
           (m_Program.State().run.IsOn() || !(isField || qobject_cast<const QAbstractButton*>(focus)));
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    if (m_MayClose) {
        event->accept();
        return;
    }
    if (m_Program.IsInCall()) { // heard at once; the exit's question comes when the call is over
        event->ignore();
        if (!m_Program.State().run.IsOn()) // a run is not ended by the way out
            m_Program.GiveCallUp(RunEnd::CutShort);
        QTimer::singleShot(300, this, [this] { close(); });
        return;
    }
    event->ignore(); // the exit button's way: carriers off, port closed, then it ends by itself
    if (!m_Program.IsLeaving())
        RunCommand(*FindCommand("exit"));
}

} // namespace qor::ui
