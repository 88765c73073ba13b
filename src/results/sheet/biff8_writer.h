#pragma once

#include "base/outcome.h"
#include "results/sheet/workbook.h"

#include <string>

namespace qor {

inline constexpr std::size_t MostSheetRows = 65536;
inline constexpr std::size_t MostSheetColumns = 256;
inline constexpr std::size_t MostCellCharacters = 32767; ///< as UTF-16 counts them
inline constexpr std::size_t MostSheetNameCharacters = 31;

/// The stream "Workbook" of an .xls: BIFF8 records, each cell a text that stays one when it is edited. Empty
/// cells are not written. Refused, with `stream` unchanged, when the form has no room for the workbook.
Outcome WriteBiff8(const Workbook& workbook, std::string& stream);

} // namespace qor
