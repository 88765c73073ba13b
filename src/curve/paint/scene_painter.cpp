#include "curve/paint/scene_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace qor::paint {

namespace {

constexpr int TriangleHeight = 8;
constexpr int TriangleHalf = 8;
constexpr double LeastSqueeze = 0.6; ///< what would have to be drawn narrower loses its middle
constexpr double OutlineWidth = 3;   ///< half of it is under the letters

QFont FontOf(const PlotText& item) {
    QFont font;
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(item.size, 1));
    if (item.font == PlotFont::Stamp) {
        font.setFamily(QStringLiteral("Arial"));
        font.setBold(true);
    }
    return font;
}

QColor ColourOf(Rgb rgb) {
    return QColor::fromRgb(0xFF000000u | rgb);
}

/// A text ready to be put down.
struct LaidText {
    QFont font;
    QString text;
    QRectF box;     ///< in the window
    double squeeze; ///< to keep to its room
    double ascent;
};

LaidText LayOut(const PlotText& item) {
    LaidText laid{FontOf(item), QString::fromStdString(item.text), {}, 1, 0};
    if (item.align != PlotAlign::Left)
        laid.text = laid.text.trimmed();
    const QFontMetricsF metrics(laid.font);
    double width = metrics.horizontalAdvance(laid.text);
    if (item.room > 0 && width * LeastSqueeze > item.room) {
        laid.text = metrics.elidedText(laid.text, Qt::ElideMiddle, item.room / LeastSqueeze);
        width = metrics.horizontalAdvance(laid.text);
    }
    if (item.room > 0 && width > item.room) {
        laid.squeeze = item.room / width;
        width = item.room;
    }
    const double left = item.align == PlotAlign::Left     ? item.x
                        : item.align == PlotAlign::Centre ? item.x - std::floor(width / 2)
                                                          : item.x - std::ceil(width);
    laid.box = QRectF(left, item.y, width, metrics.height());
    laid.ascent = metrics.ascent();
    return laid;
}

void Paint(QPainter& painter, const PlotBox& box) {
    painter.fillRect(box.left, box.top, box.width, box.height, ColourOf(box.colour));
}

void Paint(QPainter& painter, const PlotTriangle& triangle) {
    const int base = triangle.upwards ? triangle.y + TriangleHeight : triangle.y - TriangleHeight;
    const QPoint corners[] = {
        {triangle.x, triangle.y}, {triangle.x - TriangleHalf, base}, {triangle.x + TriangleHalf, base}};
    painter.setPen(QPen(ColourOf(triangle.colour), 1));
    painter.setBrush(triangle.filled ? QBrush(ColourOf(triangle.colour)) : QBrush(Qt::NoBrush));
    painter.drawPolygon(corners, 3);
}

void Paint(QPainter& painter, const PlotText& item) {
    const LaidText laid = LayOut(item);
    painter.setFont(laid.font);
    painter.setPen(ColourOf(item.colour));
    if (laid.squeeze == 1 && !item.outline) {
        painter.drawText(QPointF(laid.box.left(), laid.box.top() + laid.ascent), laid.text);
        return;
    }
    painter.save();
    painter.translate(laid.box.left(), laid.box.top() + laid.ascent);
    painter.scale(laid.squeeze, 1);
    if (item.outline) {
        QPainterPath letters;
        letters.addText(0, 0, laid.font, laid.text);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.strokePath(
            letters, QPen(ColourOf(*item.outline), OutlineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    painter.drawText(QPointF(0, 0), laid.text);
    painter.restore();
}

QRectF Bounds(const PlotBox& box) {
    return QRectF(box.left, box.top, box.width, box.height);
}

QRectF Bounds(const PlotTriangle& triangle) {
    const int top = triangle.upwards ? triangle.y : triangle.y - TriangleHeight;
    return QRectF(triangle.x - TriangleHalf, top, 2 * TriangleHalf, TriangleHeight).adjusted(-2, -2, 3, 3);
}

QRectF Bounds(const PlotText& item) {
    // Slanted and wide letters lean out of their box.
    return LayOut(item).box.adjusted(-4, -2, 4, 2);
}

} // namespace

void PaintItem(QPainter& painter, const PlotItem& item) {
    std::visit([&painter](const auto& shape) { Paint(painter, shape); }, item);
}

TextLine LineOf(const PlotText& item) {
    const LaidText laid = LayOut(item);
    return {laid.box.left(), laid.box.top() + laid.ascent, laid.box.width(), laid.text.toStdString()};
}

PixelRect BoundsOf(const PlotItem& item, double ratio) {
    const QRectF box = std::visit([](const auto& shape) { return Bounds(shape); }, item);
    const auto out = [ratio](double edge, double by) {
        return static_cast<int>(std::floor(edge * ratio + by));
    };
    return {out(box.left(), -1), out(box.top(), -1), out(box.right(), 2), out(box.bottom(), 2)};
}

} // namespace qor::paint
