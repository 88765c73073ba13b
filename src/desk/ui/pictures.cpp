#include "desk/ui/pictures.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

const QColor Ink(247, 242, 245);
const QColor Signal(2, 250, 250);

void DrawArrow(QPainter& painter, QPointF from, QPointF to) {
    painter.drawLine(from, to);
    const QLineF line(to, from);
    for (const double turn : {25.0, -25.0}) {
        QLineF barb = line;
        barb.setLength(8);
        barb.setAngle(line.angle() + turn);
        painter.drawLine(barb);
    }
}

QColor LampColor(Lamp lamp) {
    switch (lamp) {
    case Lamp::NotReady:
        return {226, 40, 36};
    case Lamp::Running:
        return {255, 184, 28};
    case Lamp::Ready:
        return {38, 205, 70};
    }
    return {};
}

} // namespace

PathPicture::PathPicture(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("pathPicture"));
}

void PathPicture::Show(bool reflection) {
    if (reflection == m_Reflection)
        return;
    m_Reflection = reflection;
    update();
}

void PathPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = rect().adjusted(3, 6, -3, -6);
    const double w = area.width();
    const double y = area.center().y();
    painter.setPen(QPen(Ink, 1.6));
    const QRectF device(area.left() + w * 0.42, area.top() + area.height() * 0.15, w * 0.3,
                        area.height() * 0.7);
    painter.drawRoundedRect(device, 3, 3);
    painter.setPen(QPen(Signal, 2.2));
    if (m_Reflection) {
        const double up = y - device.height() * 0.22;
        const double down = y + device.height() * 0.22;
        painter.drawLine(QPointF(area.left(), up), QPointF(device.center().x(), up));
        painter.drawArc(QRectF(device.center().x() - (down - up) / 2, up, down - up, down - up), -90 * 16,
                        180 * 16);
        DrawArrow(painter, {device.center().x(), down}, {area.left(), down});
    } else {
        DrawArrow(painter, {area.left(), y}, {device.left() - 1, y});
        painter.drawLine(QPointF(device.left() + 4, y), QPointF(device.right() - 4, y));
        DrawArrow(painter, {device.right() + 1, y}, {area.right(), y});
    }
}

LampPicture::LampPicture(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("lamp"));
}

void LampPicture::Show(Lamp lamp, const QString& state, const QString& detail) {
    const QString text = detail.isEmpty() ? state : state + QStringLiteral(", ") + detail;
    if (lamp == m_Lamp && text == m_Text)
        return;
    m_Lamp = lamp;
    m_Text = text;
    setAccessibleName(state);
    setAccessibleDescription(detail);
    update();
}

void LampPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double d = std::min(width(), height()) - 8.0;
    const QRectF bulb(4, (height() - d) / 2, d, d);
    const QColor color = LampColor(m_Lamp);
    QRadialGradient light(bulb.center() - QPointF(d * 0.15, d * 0.18), d * 0.7);
    light.setColorAt(0, color.lighter(175));
    light.setColorAt(0.45, color);
    light.setColorAt(1, color.darker(180));
    painter.setBrush(light);
    painter.setPen(QPen(QColor(40, 32, 38), 1.5));
    painter.drawEllipse(bulb);
    painter.setPen(Ink);
    painter.drawText(QRectF(bulb.right() + 8, 0, width() - bulb.right() - 8, height()),
                     Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap, m_Text);
}

HeadPicture::HeadPicture(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("head"));
}

void HeadPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double h = height();
    // Two carriers and the product they make between them.
    painter.setPen(QPen(Signal, 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(14, h - 8), QPointF(14, 8));
    painter.drawLine(QPointF(30, h - 8), QPointF(30, 8));
    painter.setPen(QPen(QColor(255, 255, 0), 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(46, h - 8), QPointF(46, h * 0.55));
    painter.setPen(QPen(Ink, 1.2));
    painter.drawLine(QPointF(4, h - 7), QPointF(58, h - 7));
    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(h * 0.62));
    font.setBold(true);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 5);
    painter.setFont(font);
    painter.setPen(Ink);
    painter.drawText(QRectF(74, 0, width() - 74, h), Qt::AlignVCenter, QStringLiteral("QOR"));
    font.setPixelSize(static_cast<int>(h * 0.27));
    font.setBold(false);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 1);
    painter.setFont(font);
    painter.drawText(QRectF(162, 0, width() - 162, h), Qt::AlignVCenter, QStringLiteral("PIM Analyzer"));
}

StartButton::StartButton(QWidget* parent) : QPushButton(parent) {}

void StartButton::Show(bool running, bool small, const QString& caption) {
    if (running == m_Running && small == m_Small && caption == text())
        return;
    m_Running = running;
    m_Small = small;
    setText(caption);
    update();
}

void StartButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor base = !isEnabled() ? QColor(120, 120, 120)
                        : m_Running  ? QColor(190, 44, 38)
                                     : QColor(24, 128, 62);
    const QRectF face = QRectF(rect()).adjusted(1, 1, -1, -1);
    const double radius = m_Small ? 3 : 8;
    QLinearGradient shade(face.topLeft(), face.bottomLeft());
    shade.setColorAt(0, (isDown() ? base.darker(115) : base.lighter(underMouse() ? 150 : 130)));
    shade.setColorAt(1, isDown() ? base.lighter(110) : base.darker(115));
    painter.setBrush(shade);
    painter.setPen(hasFocus() ? QPen(Qt::white, 2) : QPen(base.darker(170), 1));
    painter.drawRoundedRect(face, radius, radius);

    const double side = std::min(face.height() * 0.42, 20.0);
    const QRectF sign(face.left() + (m_Small ? 6 : 14), face.center().y() - side / 2, side, side);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    if (m_Running) {
        painter.drawRoundedRect(sign, 1.5, 1.5);
    } else {
        painter.drawPolygon(
            QPolygonF{sign.topLeft(), QPointF(sign.right(), sign.center().y()), sign.bottomLeft()});
    }
    QFont font = painter.font();
    font.setBold(!m_Small);
    const double left = sign.right() + (m_Small ? 4 : 10);
    const QRectF room(left, face.top(), face.right() - left - 3, face.height());
    font.setPixelSize(m_Small ? 12 : 16);
    while (font.pixelSize() > 8 && QFontMetricsF(font).horizontalAdvance(text()) > room.width())
        font.setPixelSize(font.pixelSize() - 1);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(room, m_Small ? Qt::AlignVCenter | Qt::AlignLeft : Qt::AlignCenter, text());
}

QIcon ProgramIcon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128}) {
        QPixmap picture(side, side);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(side / 64.0, side / 64.0);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(46, 36, 44));
        painter.drawRoundedRect(QRectF(1, 1, 62, 62), 12, 12);
        // Two carriers and the product they make between them.
        painter.setPen(QPen(Signal, 7, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(15, 50), QPointF(15, 14));
        painter.drawLine(QPointF(32, 50), QPointF(32, 14));
        painter.setPen(QPen(QColor(255, 255, 0), 7, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(49, 50), QPointF(49, 34));
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace qor::ui
