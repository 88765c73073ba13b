#pragma once

#include <string>
#include <vector>

namespace qor {

/// Cells by row and column, both from 0, in UTF-8. A row ends at its last cell that holds something.
using SheetRows = std::vector<std::vector<std::string>>;

struct Sheet {
    std::string name;
    SheetRows rows;
};

/// The sheets of a workbook in the order of their tabs.
using Workbook = std::vector<Sheet>;

} // namespace qor
