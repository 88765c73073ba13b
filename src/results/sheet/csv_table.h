#pragma once

#include "base/outcome.h"
#include "results/result_document.h"

#include <string>
#include <string_view>

namespace qor {

/// A result as comma-separated values after RFC 4180: UTF-8, CR LF, decimal points, one line with the names
/// of the columns, then a line for each point of every run. What holds for the whole result stands in each
/// line, so that lines of several files can be put together. A level that was not measured is empty; the
/// carriers are those that were sent.
Outcome WriteCsv(const ResultDocument& document, std::string& bytes);

/// Back into the result; columns are found by their names, in any order. Any byte string is safe; refused,
/// with `document` unchanged, when it is no such table, or one between bands.
Outcome ReadCsv(std::string_view bytes, ResultDocument& document);

} // namespace qor
