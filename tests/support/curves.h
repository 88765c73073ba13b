#pragma once

#include "curve/curve.h"

#include <algorithm>
#include <vector>

namespace qor::test {

/// Frequencies from one on, in even steps, MHz.
inline std::vector<float> EvenGrid(float from, float step, std::size_t count) {
    std::vector<float> grid;
    for (std::size_t i = 0; i < count; ++i)
        grid.push_back(from + step * static_cast<float>(i));
    return grid;
}

/// An empty sweep over a grid whose frequencies mean nothing.
inline void MakeSweep(Curve& curve) {
    curve.SetGrid(EvenGrid(800, 1, CurvePoints), 1);
}

/// The levels in the curve are all that its run has asked for, and it has ended by itself.
inline void Complete(Curve& curve) {
    const auto points = static_cast<int>(std::ranges::count_if(curve.Up(), IsPresent) +
                                         std::ranges::count_if(curve.Down(), IsPresent));
    curve.tally.Count({points, points});
    curve.tally.EndByItself();
}

} // namespace qor::test
