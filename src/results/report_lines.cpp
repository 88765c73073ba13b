#include "results/report_lines.h"

#include "base/text_format.h"

namespace qor {

std::string TwoValues(double first, double second, std::string_view unit) {
    constexpr std::size_t SecondColumn = 15;
    std::string row = Fixed(first, 1);
    row += unit;
    if (row.size() < SecondColumn)
        row.append(SecondColumn - row.size(), ' ');
    AppendFixed(row, second, 1);
    row += unit;
    return row;
}

} // namespace qor
