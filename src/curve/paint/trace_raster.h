#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace qor::paint {

/// Place of a point in pixels of the image.
struct TracePoint {
    int x;
    int y;
};

/// A rectangle of pixels; right and bottom lie outside.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    [[nodiscard]] bool Empty() const { return left >= right || top >= bottom; }
    [[nodiscard]] PixelRect Cut(const PixelRect& other) const;
    /// Grows to hold the other.
    void Join(const PixelRect& other);
    bool operator==(const PixelRect&) const = default;
};

/// Pixels of an image, 32 bits each.
struct Pixels {
    std::uint32_t* first = nullptr;
    std::ptrdiff_t stride = 0; ///< pixels from one row to the next

    [[nodiscard]] std::uint32_t* At(int x, int y) const { return first + y * stride + x; }
};

/// Line of a trace: solid and wide for up curves, dotted and thin for down curves.
struct TracePen {
    std::uint32_t colour = 0;
    int width = 1; ///< pixels, 1 and up
    int dot = 0;   ///< pixels that are one unit of the dots, which go two on and two off; 0: solid
};

/// A trace collapsed to its pixel columns: what a line one pixel wide through its points covers of each. No
/// more than one span a column, however many points stand on it, because the points go from left to right.
///
/// What is painted of a column depends on the spans alone, so a trace that grows can be painted again where
/// its spans have changed and comes out as if it had been painted whole.
class TraceColumns {
public:
    /// Empties all columns.
    void Reset(std::size_t columns);
    /// Draws straight from point to point.
    void Draw(std::span<const TracePoint> points);

    [[nodiscard]] bool Empty() const { return m_From > m_To; }
    /// Where the two come out differently.
    [[nodiscard]] PixelRect Difference(const TraceColumns& other, const TracePen& pen) const;
    void Paint(Pixels pixels, const PixelRect& clip, const TracePen& pen) const;

private:
    struct Rows {
        int low = std::numeric_limits<int>::max();
        int high = std::numeric_limits<int>::min();
        void Take(int row) {
            low = std::min(low, row);
            high = std::max(high, row);
        }
        bool operator==(const Rows&) const = default;
    };

    [[nodiscard]] Rows At(int column) const {
        return column >= 0 && column < static_cast<int>(m_Columns.size())
                   ? m_Columns[static_cast<std::size_t>(column)]
                   : Rows{};
    }
    void Cover(int column, const Rows& rows) {
        Rows& there = m_Columns[static_cast<std::size_t>(column)];
        there.low = std::min(there.low, rows.low);
        there.high = std::max(there.high, rows.high);
    }
    void CoverLine(TracePoint from, TracePoint to);
    void PaintPairs(Pixels pixels, const PixelRect& clip, std::uint32_t colour) const;
    void PaintColumns(Pixels pixels, const PixelRect& clip, const TracePen& pen) const;

    std::vector<Rows> m_Columns;
    int m_From = std::numeric_limits<int>::max(); ///< columns in use
    int m_To = std::numeric_limits<int>::min();
};

} // namespace qor::paint
