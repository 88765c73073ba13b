#include "curve/paint/plot_painter.h"

#include "curve/curve.h"
#include "curve/paint/scene_painter.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace qor {

using paint::PixelRect;
using paint::Pixels;
using paint::TraceColumns;
using paint::TracePen;
using paint::TracePoint;

namespace {

constexpr double UpWidth = 2; ///< pixels of the window
constexpr double DownWidth = 1;
constexpr std::uint32_t Opaque = 0xFF000000;

Pixels PixelsOf(QImage& image) {
    return {reinterpret_cast<std::uint32_t*>(image.bits()),
            static_cast<std::ptrdiff_t>(image.bytesPerLine()) / 4};
}

/// The image's own pixels without its ratio: painted in pixels of the image.
QImage Canvas(QImage& image) {
    return QImage(image.bits(), image.width(), image.height(), image.bytesPerLine(), image.format());
}

QRegion InWindow(const std::vector<PixelRect>& areas, double ratio) {
    QRegion region;
    for (const PixelRect& area : areas) {
        const auto down = [ratio](int pixel) { return static_cast<int>(std::floor(pixel / ratio)); };
        const auto up = [ratio](int pixel) { return static_cast<int>(std::ceil(pixel / ratio)); };
        region +=
            QRect(QPoint(down(area.left), down(area.top)), QPoint(up(area.right) - 1, up(area.bottom) - 1));
    }
    return region;
}

} // namespace

PixelRect PlotPainter::Whole() const {
    return {0, 0, m_Image.width(), m_Image.height()};
}

TracePen PlotPainter::UpPen(std::size_t run) const {
    return {Opaque | TraceColour(run, m_PrintMode), std::max(InImage(UpWidth), 1), 0};
}

TracePen PlotPainter::DownPen(std::size_t run) const {
    const int width = std::max(InImage(DownWidth), 1);
    return {Opaque | TraceColour(run, m_PrintMode), width, width};
}

/// The pen of the edge of a trace; the trace's own where it has none.
TracePen PlotPainter::EdgeOf(const TracePen& pen) const {
    const auto edge = TraceEdge(pen.colour & ~Opaque, m_Look);
    return edge ? TracePen{Opaque | *edge, pen.width + 2 * std::max(InImage(1), 1), pen.dot} : pen;
}

void PlotPainter::Lay(const TraceColumns& trace, Pixels pixels, const PixelRect& area,
                      const TracePen& pen) const {
    if (const TracePen edge = EdgeOf(pen); edge.width != pen.width)
        trace.Paint(pixels, area, edge);
    trace.Paint(pixels, area, pen);
}

void PlotPainter::Resize(int width, int height, double ratio) {
    m_Ratio = ratio;
    const QSize size(InImage(width), InImage(height));
    m_Image = QImage(size, QImage::Format_RGB32);
    m_Image.setDevicePixelRatio(ratio);
    m_Base = QImage(size, QImage::Format_RGB32);
    m_Ground.clear();
}

/// Takes over where points stand in the image; true when traces painted so far do not fit it.
bool PlotPainter::TakeLayout(const Curve& curve, const PlotGeometry& plot, const PlotFacts& facts) {
    const bool sweep = curve.IsSweep();
    std::vector<int> places(TracePoints(curve));
    for (std::size_t i = 0; i < places.size(); ++i) {
        // A sweep of more steps than the plot has columns runs out of it.
        const bool outside = sweep && !IsOnPlot(curve, plot, i);
        places[i] = outside ? -1 : InImage(std::max(XOfPoint(curve, plot, i), plot.left + 1));
    }
    const bool fits = places == m_Places && plot == m_Plot && sweep == m_Sweep &&
                      facts.m_PrintMode == m_PrintMode && facts.look == m_Look &&
                      curve.RowsRevision() == m_Revision && curve.Row() >= m_LiveRun;
    m_Places = std::move(places);
    m_Plot = plot;
    m_Sweep = sweep;
    m_PrintMode = facts.m_PrintMode;
    m_Look = facts.look;
    m_Revision = curve.RowsRevision();
    m_TraceArea =
        PixelRect{InImage(plot.left + 1), InImage(plot.top + 1), InImage(plot.right), InImage(plot.axis)}.Cut(
            Whole());
    return !fits;
}

void PlotPainter::Collapse(TraceColumns& trace, std::span<const float> levels) {
    // Two plain loops: the first does several points at once.
    const PlotGeometry plot = m_Plot;
    const std::size_t count = m_Places.size();
    m_Rows.resize(count);
    int* rows = m_Rows.data();
    for (std::size_t i = 0; i < count; ++i)
        rows[i] = plot.YOf(levels[i]);
    m_Points.resize(count);
    TracePoint* next = m_Points.data();
    for (std::size_t i = 0; i < count; ++i) {
        *next = {m_Places[i], InImage(rows[i])};
        next += IsPresent(levels[i]) && m_Places[i] >= 0;
    }
    const std::span<const TracePoint> points(m_Points.data(), next);
    trace.Reset(static_cast<std::size_t>(m_Image.width()));
    trace.Draw(points);
}

void PlotPainter::PaintGround(const std::vector<PlotItem>& items) {
    QImage canvas = Canvas(m_Base);
    QPainter painter(&canvas);
    painter.scale(m_Ratio, m_Ratio);
    for (const PlotItem& item : items)
        paint::PaintItem(painter, item);
}

/// Paints all that stands still while a run is in progress.
void PlotPainter::PaintBase(const Curve& curve) {
    PaintGround(m_Ground);
    m_LiveUp.Reset(0);
    m_LiveDown.Reset(0);
    m_LiveRun = curve.Row();
    m_DownsStand = false;
    for (std::size_t run = 0; run < m_LiveRun; ++run) {
        Collapse(m_Scratch, curve.ShownUp(run));
        Lay(m_Scratch, PixelsOf(m_Base), m_TraceArea, UpPen(run));
    }
}

void PlotPainter::PaintDowns(const Curve& curve, Pixels pixels) {
    for (std::size_t run = 0; run < m_LiveRun; ++run) {
        Collapse(m_Scratch, curve.ShownDown(run));
        Lay(m_Scratch, pixels, m_TraceArea, DownPen(run));
    }
}

/// Lays the runs that have ended since down upon the base, as they stand in the matrices now.
void PlotPainter::FinishRuns(const Curve& curve, std::vector<PixelRect>& changed) {
    for (; m_LiveRun < curve.Row(); ++m_LiveRun) {
        TakeLive(curve, changed);
        Lay(m_LiveUp, PixelsOf(m_Base), m_TraceArea, UpPen(m_LiveRun));
        if (m_DownsStand)
            Lay(m_LiveDown, {m_Downs.data(), m_Image.width()}, m_TraceArea, DownPen(m_LiveRun));
        m_LiveUp.Reset(0);
        m_LiveDown.Reset(0);
    }
}

void PlotPainter::TakeLive(const Curve& curve, std::vector<PixelRect>& changed) {
    Collapse(m_Scratch, curve.ShownUp(m_LiveRun));
    changed.push_back(m_Scratch.Difference(m_LiveUp, EdgeOf(UpPen(m_LiveRun))));
    std::swap(m_Scratch, m_LiveUp);
    if (!m_Sweep)
        return;
    Collapse(m_Scratch, curve.ShownDown(m_LiveRun));
    changed.push_back(m_Scratch.Difference(m_LiveDown, EdgeOf(DownPen(m_LiveRun))));
    std::swap(m_Scratch, m_LiveDown);
}

void PlotPainter::TakeFront(std::vector<PlotItem> items, std::vector<PixelRect>& changed) {
    std::vector<FrontItem> front;
    front.reserve(items.size());
    for (PlotItem& item : items) {
        const auto same = std::find_if(m_Front.begin(), m_Front.end(),
                                       [&item](const FrontItem& old) { return old.item == item; });
        if (same != m_Front.end()) {
            front.push_back(std::move(*same));
            m_Front.erase(same);
        } else {
            const PixelRect bounds = paint::BoundsOf(item, m_Ratio);
            front.push_back({std::move(item), bounds});
            changed.push_back(bounds);
        }
    }
    for (const FrontItem& gone : m_Front)
        changed.push_back(gone.bounds);
    m_Front = std::move(front);
}

/// Puts the down curves of the finished runs over an area.
void PlotPainter::CoverDowns(const Curve& curve, const PixelRect& area) {
    if (!m_Sweep || m_LiveRun == 0 || area.Empty())
        return;
    const Pixels image = PixelsOf(m_Image);
    if (area == m_TraceArea) {
        PaintDowns(curve, image); // cheaper than to look at each pixel, and the layer may never be needed
        return;
    }
    if (!m_DownsStand) {
        m_Downs.assign(static_cast<std::size_t>(m_Image.width()) * static_cast<std::size_t>(m_Image.height()),
                       0);
        PaintDowns(curve, {m_Downs.data(), m_Image.width()});
        m_DownsStand = true;
    }
    const Pixels downs{m_Downs.data(), m_Image.width()};
    for (int y = area.top; y < area.bottom; ++y) {
        std::uint32_t* to = image.At(area.left, y);
        const std::uint32_t* from = downs.At(area.left, y);
        for (int x = area.left; x < area.right; ++x, ++to, ++from)
            *to = *from ? *from : *to;
    }
}

void PlotPainter::Compose(const Curve& curve, const PixelRect& area, QPainter& painter) {
    const Pixels image = PixelsOf(m_Image);
    const Pixels base = PixelsOf(m_Base);
    for (int y = area.top; y < area.bottom; ++y)
        std::memcpy(image.At(area.left, y), base.At(area.left, y),
                    static_cast<std::size_t>(area.right - area.left) * sizeof(std::uint32_t));
    const PixelRect traces = area.Cut(m_TraceArea);
    Lay(m_LiveUp, image, traces, UpPen(m_LiveRun));
    CoverDowns(curve, traces);
    Lay(m_LiveDown, image, traces, DownPen(m_LiveRun));

    painter.save();
    painter.setClipRect(QRect(area.left, area.top, area.right - area.left, area.bottom - area.top));
    painter.scale(m_Ratio, m_Ratio);
    for (const FrontItem& front : m_Front) {
        if (!front.bounds.Cut(area).Empty())
            paint::PaintItem(painter, front.item);
    }
    painter.restore();
}

QRegion PlotPainter::Update(const Curve& curve, const PlotGeometry& plot, const PlotFacts& facts,
                            double ratio) {
    if (plot.width <= 0 || plot.height <= 0 || !(ratio > 0)) {
        *this = PlotPainter();
        return {};
    }
    const bool resized =
        m_Image.isNull() || plot.width != m_Plot.width || plot.height != m_Plot.height || ratio != m_Ratio;
    if (resized)
        Resize(plot.width, plot.height, ratio);
    PlotScene scene = BuildScene(curve, plot, facts);
    const bool moved = TakeLayout(curve, plot, facts);
    std::vector<PixelRect> changed;
    const bool all = moved || scene.ground != m_Ground;
    if (all) {
        m_Ground = std::move(scene.ground);
        PaintBase(curve);
    } else {
        FinishRuns(curve, changed);
    }
    TakeLive(curve, changed);
    TakeFront(std::move(scene.front), changed);
    if (all)
        changed.assign(1, Whole());
    for (PixelRect& area : changed)
        area = area.Cut(Whole());
    std::erase_if(changed, [](const PixelRect& area) { return area.Empty(); });
    if (changed.empty())
        return {};

    QImage canvas = Canvas(m_Image);
    QPainter painter(&canvas);
    for (const PixelRect& area : changed)
        Compose(curve, area, painter);
    return InWindow(changed, m_Ratio);
}

QImage PaintPicture(const Curve& curve, const PlotGeometry& plot, const PlotFacts& facts) {
    PlotPainter painter;
    painter.Update(curve, plot, facts);
    return painter.Image();
}

} // namespace qor
