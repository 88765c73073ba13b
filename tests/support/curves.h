#pragma once

#include "curve/curve.h"

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

} // namespace qor::test
