#pragma once

#include "base/outcome.h"
#include "results/sheet/workbook.h"

#include <string_view>

namespace qor {

/// The cells of the stream "Workbook" of an .xls of the BIFF8 form, whoever wrote it: texts as they are,
/// numbers in as few digits as give them back, formulas by their last value. Any byte string is safe and what
/// is read stays small: at most 32 sheets, 400,000 cells and 8 MB of text. Refused, with `workbook`
/// unchanged, when it is damaged, encrypted, of an older form, or larger.
Outcome ReadBiff8(std::string_view stream, Workbook& workbook);

} // namespace qor
