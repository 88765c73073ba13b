#pragma once

#include "curve/plot_scene.h"

namespace qor {

/// Appends background, title, frame, grid, scale and limit line.
void AddGround(std::vector<PlotItem>& items, const Curve& curve, const PlotGeometry& plot,
               const PlotFacts& facts);

/// `text` in the language of the screen.
[[nodiscard]] std::string Translated(const PlotFacts& facts, std::string_view text);

// The level bar stands left of the scale.
inline constexpr int BarLeft = 99; ///< pixels left of the plot
inline constexpr int BarWidth = 40;
inline constexpr Rgb BarGround = 0x808A87;
inline constexpr Rgb OverLimitRed = 0xFF0000;

} // namespace qor
