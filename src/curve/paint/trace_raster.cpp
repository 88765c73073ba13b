#include "curve/paint/trace_raster.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace qor::paint {

namespace {

struct Quotient {
    int whole;
    int rest; ///< never negative
};

Quotient Divide(int number, int by) {
    Quotient q{number / by, number % by};
    if (q.rest < 0)
        q = {q.whole - 1, q.rest + by};
    return q;
}

} // namespace

PixelRect PixelRect::Cut(const PixelRect& other) const {
    return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
            std::min(bottom, other.bottom)};
}

void PixelRect::Join(const PixelRect& other) {
    if (other.Empty())
        return;
    *this = Empty() ? other
                    : PixelRect{std::min(left, other.left), std::min(top, other.top),
                                std::max(right, other.right), std::max(bottom, other.bottom)};
}

void TraceColumns::Reset(std::size_t columns) {
    m_Columns.assign(columns, Rows{});
    m_From = std::numeric_limits<int>::max();
    m_To = std::numeric_limits<int>::min();
}

void TraceColumns::Draw(std::span<const TracePoint> points) {
    const int columns = static_cast<int>(m_Columns.size());
    if (points.empty() || columns == 0)
        return;
    const auto kept = [columns](TracePoint p) { return TracePoint{std::clamp(p.x, 0, columns - 1), p.y}; };
    // The column under the pen is collected apart: with many points on a column the memory is left alone.
    TracePoint last = kept(points.front());
    Rows here{last.y, last.y};
    int from = std::min(m_From, last.x);
    int to = std::max(m_To, last.x);
    for (const TracePoint& given : points.subspan(1)) {
        const TracePoint point = kept(given);
        if (point.x == last.x) {
            here.Take(point.y);
        } else if (point.x == last.x + 1) {
            const int leave = last.y + ((point.y - last.y + 1) >> 1);
            here.Take(leave > last.y ? leave - 1 : leave < last.y ? leave + 1 : leave);
            Cover(last.x, here);
            here = {std::min(leave, point.y), std::max(leave, point.y)};
        } else {
            Cover(last.x, here);
            CoverLine(last, point);
            here = {point.y, point.y};
            from = std::min(from, point.x);
        }
        to = std::max(to, point.x);
        last = point;
    }
    Cover(last.x, here);
    m_From = from;
    m_To = to;
}

/// A straight line over several columns. It passes from each into the next at the row where it crosses their
/// border; half way between two rows it is taken to the next number. Whole numbers step by step: no division
/// and no rounding error a column.
void TraceColumns::CoverLine(TracePoint from, TracePoint to) {
    if (from.x > to.x)
        std::swap(from, to);
    const int dx = to.x - from.x;
    const int dy = to.y - from.y;
    const int back = dy > 0 ? -1 : dy < 0 ? 1 : 0;
    const Quotient step = Divide(2 * dy, 2 * dx);
    Quotient crossing = Divide(dy + dx, 2 * dx);
    int enter = from.y;
    for (int column = from.x; column < to.x; ++column) {
        const int leave = from.y + crossing.whole;
        Rows rows{enter, enter};
        rows.Take(leave == enter ? leave : leave + back);
        Cover(column, rows);
        enter = leave;
        crossing.whole += step.whole;
        crossing.rest += step.rest;
        if (crossing.rest >= 2 * dx) {
            crossing.rest -= 2 * dx;
            ++crossing.whole;
        }
    }
    Cover(to.x, {std::min(enter, to.y), std::max(enter, to.y)});
}

PixelRect TraceColumns::Difference(const TraceColumns& other, const TracePen& pen) const {
    const int from = std::min(m_From, other.m_From);
    const int to = std::max(m_To, other.m_To);
    // Dots are counted from the upper end of what the pen covers, which takes in the columns beside.
    const int beside = pen.dot == 0 ? 0 : pen.width - 1;
    PixelRect changed;
    for (int column = from; column <= to; ++column) {
        if (At(column) == other.At(column))
            continue;
        for (int near = column - beside; near <= column + beside; ++near) {
            const Rows mine = At(near);
            const Rows theirs = other.At(near);
            changed.Join(
                {column, std::min(mine.low, theirs.low), column + 1, std::max(mine.high, theirs.high) + 1});
        }
    }
    if (changed.Empty())
        return {};
    return {changed.left - pen.width, changed.top - pen.width, changed.right + pen.width,
            changed.bottom + pen.width};
}

void TraceColumns::Paint(Pixels pixels, const PixelRect& clip, const TracePen& pen) const {
    if (Empty() || clip.Empty())
        return;
    if (pen.width == 2 && pen.dot == 0)
        PaintPairs(pixels, clip, pen.colour);
    else
        PaintColumns(pixels, clip, pen);
}

/// The common pen: the two pixels of a row at once.
void TraceColumns::PaintPairs(Pixels pixels, const PixelRect& clip, std::uint32_t colour) const {
    const std::uint64_t both = static_cast<std::uint64_t>(colour) << 32 | colour;
    const int to = std::min(clip.right, m_To);
    for (int column = std::max(clip.left, m_From); column <= to; ++column) {
        const Rows& rows = m_Columns[static_cast<std::size_t>(column)];
        const int start = std::max(rows.low - 1, clip.top);
        const int end = std::min(rows.high, clip.bottom - 1);
        if (start > end)
            continue;
        const bool left = column > clip.left;
        std::uint32_t* pixel = pixels.At(left ? column - 1 : column, start);
        if (left && column < clip.right) {
            for (int row = start; row <= end; ++row, pixel += pixels.stride)
                std::memcpy(pixel, &both, sizeof both);
        } else {
            for (int row = start; row <= end; ++row, pixel += pixels.stride)
                *pixel = colour;
        }
    }
}

void TraceColumns::PaintColumns(Pixels pixels, const PixelRect& clip, const TracePen& pen) const {
    // A square pen of this width around a pixel covers it and `before` pixels before it.
    const int before = pen.width / 2;
    const int after = pen.width - 1 - before;
    const int from = std::max(clip.left, m_From - before);
    const int to = std::min(clip.right - 1, m_To + after);
    const int last = static_cast<int>(m_Columns.size()) - 1;
    const int on = 2 * pen.dot;
    for (int column = from; column <= to; ++column) {
        Rows rows;
        for (int near = std::max(column - after, 0); near <= std::min(column + before, last); ++near) {
            rows.low = std::min(rows.low, m_Columns[static_cast<std::size_t>(near)].low);
            rows.high = std::max(rows.high, m_Columns[static_cast<std::size_t>(near)].high);
        }
        if (rows.low > rows.high)
            continue;
        const int top = rows.low - before;
        const int start = std::max(top, clip.top);
        const int end = std::min(rows.high + after, clip.bottom - 1);
        if (start > end)
            continue;
        if (pen.dot == 0) {
            std::uint32_t* pixel = pixels.At(column, start);
            for (int row = start; row <= end; ++row, pixel += pixels.stride)
                *pixel = pen.colour;
            continue;
        }
        // The dots run along a flat line and up a steep one.
        for (int dot = top - column % (2 * on); dot <= end; dot += 2 * on) {
            const int stop = std::min(dot + on, end + 1);
            for (int row = std::max(dot, start); row < stop; ++row)
                *pixels.At(column, row) = pen.colour;
        }
    }
}

} // namespace qor::paint
