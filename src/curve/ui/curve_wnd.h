#pragma once

#include "curve/paint/plot_painter.h"

#include <QWidget>

namespace qor {
class Program;
}

namespace qor::ui {

/// The plot's window: shows the painter's image and hands the mouse to the markers.
class CCurveWnd final : public QWidget {
public:
    CCurveWnd(Program& program, QWidget* parent);

    /// Brings the picture up to date; only what has changed is shown anew.
    void Refresh();
    /// A screen that has no room for the long texts.
    void SetNarrow(bool narrow) { m_Narrow = narrow; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Program& m_Program;
    PlotPainter m_Painter;
    bool m_Narrow = false;
};

} // namespace qor::ui
