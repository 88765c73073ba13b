#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <span>

namespace qor {

inline constexpr std::size_t CurvePoints = 2000;
inline constexpr std::size_t CurveRuns = 1000;

/// A matrix of runs (rows) by points (columns) whose memory is taken as rows are first written.
class RunMatrix {
public:
    RunMatrix() : m_Cells(static_cast<float*>(std::calloc(CurveRuns * CurvePoints, sizeof(float)))) {
        if (!m_Cells)
            throw std::bad_alloc();
    }

    [[nodiscard]] std::span<float, CurvePoints> Row(std::size_t run) {
        return std::span<float, CurvePoints>(m_Cells.get() + run * CurvePoints, CurvePoints);
    }
    [[nodiscard]] std::span<const float, CurvePoints> Row(std::size_t run) const {
        return std::span<const float, CurvePoints>(m_Cells.get() + run * CurvePoints, CurvePoints);
    }

private:
    struct Free {
        void operator()(float* cells) const { std::free(cells); }
    };
    std::unique_ptr<float[], Free> m_Cells;
};

} // namespace qor
