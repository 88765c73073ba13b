#pragma once

#include <QFontMetrics>
#include <QWidget>

#include <algorithm>

namespace qor::ui {

/// Largest font of the widget's family in which the text fits its room.
inline void FitFont(QWidget* widget, const QString& text, int largest, bool bold) {
    QFont font = widget->font();
    font.setBold(bold);
    int size = std::max(largest, 8);
    do
        font.setPixelSize(size);
    while (size-- > 8 && QFontMetrics(font).horizontalAdvance(text) > widget->width() - 6);
    if (font != widget->font())
        widget->setFont(font);
}

} // namespace qor::ui
