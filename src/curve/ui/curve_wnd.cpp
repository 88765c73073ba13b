#include "curve/ui/curve_wnd.h"

#include "curve/curve.h"
#include "desk/plot_facts.h"
#include "desk/program.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

CCurveWnd::CCurveWnd(Program& program, QWidget* parent) : QWidget(parent), m_Program(program) {
    setObjectName(QStringLiteral("plot"));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CCurveWnd::Refresh() {
    Session& session = m_Program.State();
    Curve& curve = session.curve;
    static_cast<void>(curve.Follow(session.receiver.InstrumentListens()));
    const PlotGeometry plot = ComputeLayout(curve, width(), height());
    curve.scale.SetWidth(plot.CurveWidth());
    curve.SearchMaxima();
    PlotFacts facts = FactsOf(session);
    facts.marks = m_Program.Marks().Place(plot);
    facts.narrowScreen = m_Narrow;
    facts.translate = [](std::string_view text) { return Utf8(Tr(text)); };
    const QRegion changed = m_Painter.Update(curve, plot, facts, devicePixelRatioF());
    if (!changed.isEmpty())
        update(changed);
}

void CCurveWnd::paintEvent(QPaintEvent* event) {
    const QImage& image = m_Painter.Image();
    QPainter painter(this);
    if (image.isNull()) {
        painter.fillRect(event->rect(), Qt::black);
        return;
    }
    const double ratio = image.devicePixelRatio();
    for (const QRect& area : event->region()) {
        const QRectF source(area.x() * ratio, area.y() * ratio, area.width() * ratio, area.height() * ratio);
        painter.drawImage(QRectF(area), image, source);
    }
}

void CCurveWnd::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (event->button() == Qt::LeftButton && m_Program.Marks().Press(at.x(), at.y()))
        setCursor(Qt::SizeAllCursor);
}

void CCurveWnd::mouseMoveEvent(QMouseEvent* event) {
    if (!m_Program.Marks().IsDragging())
        return;
    const QPoint at = event->position().toPoint();
    m_Program.Marks().Move(at.x(), at.y());
    Refresh();
}

void CCurveWnd::mouseReleaseEvent(QMouseEvent*) {
    m_Program.Marks().Release();
    unsetCursor();
    Refresh();
}

void CCurveWnd::resizeEvent(QResizeEvent*) {
    Refresh();
}

} // namespace qor::ui
