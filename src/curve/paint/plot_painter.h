#pragma once

#include "curve/curve.h"
#include "curve/paint/trace_raster.h"
#include "curve/plot_scene.h"

#include <QImage>
#include <QRegion>

#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

class QPainter;

namespace qor {

/// Paints the plot into an image and keeps it up to date with little work: a tick that brings one point costs
/// its few pixels, however many runs there are.
///
/// Three layers lie over each other. The ground and the up curves of the finished runs stand in an image that
/// changes with the scale only, their down curves in a second; the run in progress and the front are put
/// between and upon them where something has changed. Up curves of all runs stand below all down curves.
/// Needs a QGuiApplication, for its fonts.
class PlotPainter {
public:
    /// Brings the image up to date with the curve and says where it has changed, in pixels of the window.
    ///
    /// Before it: ComputeLayout, Curve::Follow and SearchMaxima, and the marks.
    /// `ratio` is the image's pixels for one of the window. An empty plot leaves the image empty.
    QRegion Update(const Curve& curve, const PlotGeometry& plot, const PlotFacts& facts, double ratio = 1);

    /// 32 bits a pixel without alpha, of the window's size times the ratio.
    [[nodiscard]] const QImage& Image() const { return m_Image; }

private:
    struct FrontItem {
        PlotItem item;
        paint::PixelRect bounds;
    };

    void Resize(int width, int height, double ratio);
    [[nodiscard]] bool TakeLayout(const Curve& curve, const PlotGeometry& plot, const PlotFacts& facts);
    void Lay(const paint::TraceColumns& trace, paint::Pixels pixels, const paint::PixelRect& area,
             const paint::TracePen& pen) const;
    [[nodiscard]] paint::TracePen EdgeOf(const paint::TracePen& pen) const;
    void Collapse(paint::TraceColumns& trace, std::span<const float> levels);
    void PaintGround(const std::vector<PlotItem>& items);
    void PaintBase(const Curve& curve);
    void PaintDowns(const Curve& curve, paint::Pixels pixels);
    void FinishRuns(const Curve& curve, std::vector<paint::PixelRect>& changed);
    void TakeLive(const Curve& curve, std::vector<paint::PixelRect>& changed);
    void TakeFront(std::vector<PlotItem> items, std::vector<paint::PixelRect>& changed);
    void Compose(const Curve& curve, const paint::PixelRect& area, QPainter& painter);
    void CoverDowns(const Curve& curve, const paint::PixelRect& area);

    [[nodiscard]] int InImage(int pixel) const {
        return m_Ratio == 1 ? pixel : static_cast<int>(std::lround(pixel * m_Ratio));
    }
    [[nodiscard]] paint::PixelRect Whole() const;
    [[nodiscard]] paint::TracePen UpPen(std::size_t run) const;
    [[nodiscard]] paint::TracePen DownPen(std::size_t run) const;

    double m_Ratio = 1;
    QImage m_Image;
    QImage m_Base;                      ///< ground and up curves of finished runs
    std::vector<std::uint32_t> m_Downs; ///< down curves of finished runs, 0 where there are none
    bool m_DownsStand = false;          ///< m_Downs is painted; made when first needed
    std::vector<PlotItem> m_Ground;
    std::vector<FrontItem> m_Front;

    // What the traces were painted with.
    PlotGeometry m_Plot;
    paint::PixelRect m_TraceArea; ///< inside the frame
    std::vector<int> m_Places;    ///< x of each point in the image; negative: not on the plot
    bool m_Sweep = false;
    bool m_PrintMode = false;
    PlotLook m_Look = PlotLook::Screen;
    unsigned m_Revision = 0;

    std::size_t m_LiveRun = 0;
    paint::TraceColumns m_LiveUp;
    paint::TraceColumns m_LiveDown;
    paint::TraceColumns m_Scratch;
    std::vector<int> m_Rows; ///< of the trace that is being collapsed, as the next
    std::vector<paint::TracePoint> m_Points;
};

/// The whole plot as a picture of the size of `plot`.
[[nodiscard]] QImage PaintPicture(const Curve& curve, const PlotGeometry& plot, const PlotFacts& facts);

} // namespace qor
