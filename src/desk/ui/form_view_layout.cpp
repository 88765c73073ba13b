// Where the controls of the panel stand, and what a change of the window's size means.
#include "curve/ui/curve_wnd.h"
#include "desk/program.h"
#include "desk/ui/fit_font.h"
#include "desk/ui/form_view.h"
#include "desk/ui/pictures.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

constexpr int SettleMs = 400; ///< a window manager answers a resize within this

} // namespace

/// Places a control; one that lies outside the form is no stop of the tab key.
void CTestSDIFormView::PlaceAt(QWidget* widget, const QRect& place) {
    static constexpr const char* Policy = "focusPolicyInSight";
    widget->setGeometry(place);
    if (!widget->property(Policy).isValid())
        widget->setProperty(Policy, static_cast<int>(widget->focusPolicy()));
    const bool inSight = rect().intersects(place);
    widget->setFocusPolicy(inSight ? static_cast<Qt::FocusPolicy>(widget->property(Policy).toInt())
                                   : Qt::NoFocus);
}

void CTestSDIFormView::Place(QWidget* widget, Control control) {
    const PanelRect& r = m_Layout[control];
    PlaceAt(widget, {r.left, r.top, r.right - r.left, r.bottom - r.top});
}

void CTestSDIFormView::PlaceMarkerRow(const MarkerRow& row, const PanelRect& box) {
    PlaceAt(row.box, {box.left, box.top, box.right - box.left, box.bottom - box.top});
    const int x = box.left;
    const int y = box.top + 16;
    PlaceAt(row.on, {x + 5, y, 12, 62});
    PlaceAt(row.position, {x + 21, y + 4, 79, 26});
    PlaceAt(row.positionUnit, {x + 104, y + 4, 46, 26});
    PlaceAt(row.level, {x + 21, y + 34, 79, 26});
    PlaceAt(row.levelUnit, {x + 104, y + 34, 46, 26});
    PlaceAt(row.max, {x + 152, y, 92, 22});
    PlaceAt(row.up, {x + 152, y + 22, 92, 22});
    PlaceAt(row.down, {x + 152, y + 44, 92, 22});
}

void CTestSDIFormView::Relayout() {
    const Session& session = m_Program.State();
    const Appearance& appearance = session.appearance;
    m_ListShown = session.results.list.IsOpen();
    const WindowSize size = appearance.Size();
    m_Layout = qor::Relayout({size.width, size.height, appearance.IsPlotOnly(), m_ListShown,
                              static_cast<int>(m_NoticeLines.size()), width(), height()});

    Place(m_Notices, Control::NoticeBar);
    QStringList notices; // one that is too long for its row ends in dots and is whole in the tip
    for (const QString& line : m_NoticeLines)
        notices << m_Notices->fontMetrics().elidedText(line, Qt::ElideRight, m_Notices->width() - 12);
    m_Notices->setText(notices.join('\n'));
    Place(m_Curve, Control::Plot);
    Place(m_ScaleUp, Control::ScaleUp);
    Place(m_ScaleDown, Control::ScaleDown);
    for (int n = 0; n < 7; ++n)
        Place(m_ListRow[static_cast<std::size_t>(n)], Nth(Control::ListCell, n));
    for (int n = 0; n < 5; ++n)
        Place(m_ListButton[static_cast<std::size_t>(n)], Nth(Control::ListButton, n));
    for (int n = 0; n < 6; ++n)
        Place(m_Cell[static_cast<std::size_t>(n)], Nth(Control::StatusCell, n));
    const std::pair<QWidget*, Control> single[] = {{m_FrequencyBox, Control::FrequencyBox},
                                                   {m_F1Label, Control::F1Label},
                                                   {m_F2Label, Control::F2Label},
                                                   {m_F1, Control::F1Text},
                                                   {m_F2, Control::F2Text},
                                                   {m_Path, Control::PathPicture},
                                                   {m_Lamp, Control::LampPicture},
                                                   {m_ReadingBox, Control::ReadingBox},
                                                   {m_FimLabel, Control::FimLabel},
                                                   {m_Fim, Control::FimText},
                                                   {m_Reading, Control::Reading},
                                                   {m_ReadingUnit, Control::ReadingUnit},
                                                   {m_Head, Control::HeadPicture},
                                                   {m_AlarmBox, Control::AlarmBox},
                                                   {m_Alarm, Control::AlarmValue},
                                                   {m_AlarmUnit, Control::AlarmUnit},
                                                   {m_SerialLabel, Control::SerialLabel},
                                                   {m_Serial, Control::SerialField},
                                                   {m_PortLabel, Control::PortLabel},
                                                   {m_PortList, Control::PortListBox},
                                                   {m_PortButton, Control::PortButtonControl},
                                                   {m_Start, Control::StartButton},
                                                   {m_Clear, Control::ClearButton},
                                                   {m_Exit, Control::ExitButton},
                                                   {m_Calibration, Control::CalibrationButton},
                                                   {m_Test, Control::TestButton}};
    for (const auto& [widget, control] : single)
        Place(widget, control);
    for (int n = 0; n < 3; ++n)
        PlaceMarkerRow(m_Marker[static_cast<std::size_t>(n)], m_Layout[Nth(Control::MarkerBox, n)]);

    FitFont(m_Reading, QStringLiteral("-188.8"), m_Reading->height() * 3 / 4, true);
    FitFont(m_ReadingUnit, QStringLiteral("dBm"), 24, true);
    for (QLineEdit* text : {m_F1, m_F2, m_Fim})
        FitFont(text, QStringLiteral("2888.8"), 24, true);
    FitFont(m_Alarm, QStringLiteral("-188.8"), 24, true);
    FitFont(m_AlarmUnit, QStringLiteral("dBm"), 20, false);
    for (QLabel* label : {m_F1Label, m_F2Label, m_FimLabel})
        FitFont(label, QStringLiteral("fIM:"), 18, false);
    m_Curve->SetNarrow(m_Layout.narrowScreen);
    RefreshCells();
}

void CTestSDIFormView::BeginLayout() {
    m_LayoutDone = false;
    m_Settled.stop();
}

void CTestSDIFormView::EndLayout() {
    Relayout();
    m_Settled.start(SettleMs);
}

void CTestSDIFormView::resizeEvent(QResizeEvent*) {
    if (m_LayoutDone) {
        Session& session = m_Program.State();
        m_Dragging = true;
        session.appearance.TakeDraggedSize({width(), height()}, m_Program.Stores());
        if (m_AfterCommand)
            m_AfterCommand();
        m_Dragging = false;
    }
    Relayout();
}

} // namespace qor::ui
