#pragma once

#include "results/report/document_page.h"

#include <filesystem>
#include <optional>
#include <string>

namespace qor {

class Program;

/// The measurement in the plot with all that its page states; nothing when the band does not have the order.
[[nodiscard]] std::optional<ReportSubject> ShownSubject(Program& program);
/// The plot as it is seen.
[[nodiscard]] PlotSubject ShownPlot(Program& program);
/// How the pages of files look in this session.
[[nodiscard]] PageView ViewOf(const Program& program);

/// Writes the page of the shown measurement; .pdf, .jpg or .bmp by the ending.
Outcome SaveShownPage(Program& program, const std::filesystem::path& path, WorkingFiles working);
/// The page of the shown measurement as it is printed.
Outcome PaintShownPage(Program& program, PaintedPage& page);
/// Prints it; an empty name is the default printer.
Outcome PrintShownPage(Program& program, const std::string& printer);
/// The same as a file of the printer's, to where the operator wants it.
Outcome PrintShownPageToFile(Program& program);

} // namespace qor
