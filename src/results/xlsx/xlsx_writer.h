#pragma once

#include "base/outcome.h"
#include "results/result_forms.h"

#include <string>

namespace qor {

/// A result as the bytes of an .xlsx: numbers as numbers, every run, the carriers that were sent, a frozen
/// head, the curve and the limit as a chart, and a second sheet with what holds for the whole result.
Outcome WriteXlsx(const ResultDocument& document, std::string& bytes);

/// Lets the program save results as .xlsx.
void AddXlsx(ResultForms& forms);

} // namespace qor
