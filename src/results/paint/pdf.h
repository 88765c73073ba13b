#pragma once

#include "results/report/page_forms.h"

#include <span>
#include <string>
#include <string_view>

namespace qor {

/// The bytes of a PDF of one page, A4, that shows a picture of the report page and holds its texts unseen
/// over it: they can be searched, copied and read aloud. `jpeg` is put in as it is. Empty when it cannot be
/// made.
[[nodiscard]] std::string FormatPdf(std::string_view jpeg, std::span<const LayerText> texts);

} // namespace qor
