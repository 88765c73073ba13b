#include "display/ui/curve_wnd.h"

#include "core/program.h"

#include <QtWidgets>

namespace qor::ui {

CCurveWnd::CCurveWnd(Program& program, QWidget* parent) : QWidget(parent), m_Program(program) {
    setObjectName(QStringLiteral("plot"));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CCurveWnd::Refresh() {}

void CCurveWnd::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
}

void CCurveWnd::resizeEvent(QResizeEvent*) {}

} // namespace qor::ui
