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

void CTestSDIFormView::Place(QWidget* widget, Control control) {
    const PanelRect& r = m_Layout[control];
    PlaceAt(widget, {r.left, r.top, r.right - r.left, r.bottom - r.top});
}

void CTestSDIFormView::Relayout() {
    const Session& session = m_Program.State();
    const Appearance& appearance = session.appearance;
    m_ListShown = session.results.list.IsOpen();
    const WindowSize size = appearance.Size();
    LayoutRequest request{
        size.width, size.height, appearance.IsPlotOnly(), m_ListShown, static_cast<int>(m_NoticeLines.size()),
        width(),    height()};
    m_Service.Ask(request);
    m_Layout = qor::Relayout(request);

    Place(m_Notices, Control::NoticeBar);
    QStringList notices; // one that is too long for its row ends in dots and is whole in the tip
    for (const QString& line : m_NoticeLines)
        notices << m_Notices->fontMetrics().elidedText(line, Qt::ElideRight, m_Notices->width() - 12);
    m_Notices->setText(notices.join('\n'));
    Place(m_Curve, Control::Plot);
    Place(m_ScaleUp, Control::ScaleUp);
    Place(m_ScaleDown, Control::ScaleDown);
    m_List.Place(m_Layout);
    m_Service.Place(m_Layout);
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
                                                   {m_Port.Label(), Control::PortLabel},
                                                   {m_Port.List(), Control::PortListBox},
                                                   {m_Port.Button(), Control::PortButtonControl},
                                                   {m_Start, Control::StartButton},
                                                   {m_Clear, Control::ClearButton},
                                                   {m_Exit, Control::ExitButton}};
    for (const auto& [widget, control] : single)
        Place(widget, control);
    // What measures is not there for a service page, and for nobody who asks what is shown.
    for (QWidget* const widget : std::initializer_list<QWidget*>{
             m_FrequencyBox, m_ReadingBox, m_AlarmBox, m_Start, m_Clear, m_Exit, m_Alarm, m_Reading, m_Lamp})
        widget->setVisible(!m_Service.IsOpen());
    for (int n = 0; n < 3; ++n)
        m_Markers[static_cast<std::size_t>(n)].Place(m_Layout[Nth(Control::MarkerBox, n)]);

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
