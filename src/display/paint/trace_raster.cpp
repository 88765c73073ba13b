#include "display/paint/trace_raster.h"

#include <algorithm>
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

void TraceColumns::Cover(int column, int from, int to) {
    Rows& rows = m_Columns[static_cast<std::size_t>(column)];
    rows.low = std::min({rows.low, from, to});
    rows.high = std::max({rows.high, from, to});
}

void TraceColumns::Add(TracePoint point) {
    const int columns = static_cast<int>(m_Columns.size());
    if (columns == 0)
        return;
    point.x = std::clamp(point.x, 0, columns - 1);
    const bool first = Empty();
    TracePoint from = std::exchange(m_Last, point);
    TracePoint to = point;
    m_From = std::min(m_From, point.x);
    m_To = std::max(m_To, point.x);
    if (first || from.x == to.x) {
        Cover(to.x, first ? to.y : from.y, to.y);
        return;
    }
    if (from.x > to.x)
        std::swap(from, to);
    // The line passes from each column into the next at the row where it crosses their border; a crossing
    // half way between two rows takes the upper side of its number. Whole numbers step by step: no division
    // and no rounding error a column.
    const int dx = to.x - from.x;
    const int dy = to.y - from.y;
    const int back = dy > 0 ? -1 : dy < 0 ? 1 : 0;
    const Quotient step = Divide(2 * dy, 2 * dx);
    Quotient crossing = Divide(dy + dx, 2 * dx);
    int enter = from.y;
    for (int column = from.x; column < to.x; ++column) {
        const int leave = from.y + crossing.whole;
        Cover(column, enter, leave == enter ? leave : leave + back);
        enter = leave;
        crossing.whole += step.whole;
        crossing.rest += step.rest;
        if (crossing.rest >= 2 * dx) {
            crossing.rest -= 2 * dx;
            ++crossing.whole;
        }
    }
    Cover(to.x, enter, to.y);
}

PixelRect TraceColumns::Difference(const TraceColumns& other, int penWidth) const {
    const int from = std::min(m_From, other.m_From);
    const int to = std::max(m_To, other.m_To);
    PixelRect changed;
    for (int column = from; column <= to; ++column) {
        const auto at = static_cast<std::size_t>(column);
        const Rows mine = at < m_Columns.size() ? m_Columns[at] : Rows{};
        const Rows theirs = at < other.m_Columns.size() ? other.m_Columns[at] : Rows{};
        if (!(mine == theirs))
            changed.Join(
                {column, std::min(mine.low, theirs.low), column + 1, std::max(mine.high, theirs.high) + 1});
    }
    if (changed.Empty())
        return {};
    return {changed.left - penWidth, changed.top - penWidth, changed.right + penWidth,
            changed.bottom + penWidth};
}

void TraceColumns::Paint(Pixels pixels, const PixelRect& clip, const TracePen& pen) const {
    if (Empty() || clip.Empty())
        return;
    // A square pen of this width around a pixel covers it and `before` pixels before it.
    const int before = pen.width / 2;
    const int after = pen.width - 1 - before;
    const int from = std::max(clip.left, m_From - before);
    const int to = std::min(clip.right - 1, m_To + after);
    const int last = static_cast<int>(m_Columns.size()) - 1;
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
        std::uint32_t* pixel = pixels.At(column, start);
        if (pen.dot == 0) {
            for (int row = start; row <= end; ++row, pixel += pixels.stride)
                *pixel = pen.colour;
        } else {
            // The dots run along a flat line and up a steep one.
            for (int row = start; row <= end; ++row, pixel += pixels.stride) {
                if (((column + row - top) / pen.dot & 3) < 2)
                    *pixel = pen.colour;
            }
        }
    }
}

} // namespace qor::paint
