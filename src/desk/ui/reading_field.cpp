#include "desk/ui/reading_field.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionFrame>

namespace qor::ui {

void ReadingField::paintEvent(QPaintEvent* event) {
    if (!property("over").toBool()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QStyleOptionFrame option;
    initStyleOption(&option);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    const QRectF area = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    const QFontMetricsF metrics(font());
    QPainterPath figures;
    figures.addText(area.center().x() - metrics.horizontalAdvance(text()) / 2,
                    area.center().y() + (metrics.ascent() - metrics.descent()) / 2, font(), text());
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = std::max(2.0, metrics.height() / 10);
    painter.strokePath(figures, QPen(QColor(20, 5, 10), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(figures, palette().color(QPalette::Text));
}

} // namespace qor::ui
