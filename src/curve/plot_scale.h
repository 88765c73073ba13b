#pragma once

namespace qor {

/// What the levels are drawn and told in: ends of the level axis, the unit, the width of the plot.
class PlotScale {
public:
    [[nodiscard]] float Top() const { return g_plotTop; }       ///< dBm
    [[nodiscard]] float Bottom() const { return g_plotBottom; } ///< dBm
    [[nodiscard]] bool InDbc() const { return g_UnitDbc != 0; }
    [[nodiscard]] float Carrier() const { return g_CarrierDbm; }
    /// What the unit takes off a level in dBm.
    [[nodiscard]] float Reference() const { return g_UnitDbc ? g_CarrierDbm : 0.0f; }
    [[nodiscard]] bool ShowsBar() const { return g_histogramOn != 0; }
    [[nodiscard]] int Width() const { return g_plotWidth; }

    void SetRange(float top, float bottom) {
        g_plotTop = top;
        g_plotBottom = bottom;
    }
    void SetUnit(bool dbc) { g_UnitDbc = dbc ? 1 : 0; }
    void SetCarrier(float dBm) { g_CarrierDbm = dBm; }
    void ShowBar(bool shown) { g_histogramOn = shown ? 1 : 0; }
    void SetWidth(int pixels) { g_plotWidth = pixels; }

private:
    float g_plotTop = -60.0f;
    float g_plotBottom = -150.0f;
    float g_CarrierDbm = 43.0f; ///< reference of dBc
    int g_UnitDbc = 0;          ///< 1: levels are shown in dBc
    int g_histogramOn = 0;      ///< 1: the level bar stands at the left of the plot
    int g_plotWidth = 800;      ///< of the plot in its window, pixels, at most 2000; rules the time per point
};

} // namespace qor
