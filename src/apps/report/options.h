#pragma once

#include "results/report/report_page.h"
#include "results/sheet/sheet_forms.h"

#include <QStringList>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qor::app {

/// What the command line of qor-report asks for, checked.
struct ReportOptions {
    std::vector<std::filesystem::path> inputs; ///< files and folders, as they were named
    std::vector<std::string> to;               ///< endings of the forms, with their point
    std::filesystem::path outDir;              ///< empty: beside each file
    std::vector<std::filesystem::path> summaries;
    std::optional<float> limit; ///< dBm; that of each file otherwise
    std::optional<ReportLanguage> language;
    std::filesystem::path logo;
    std::filesystem::path dataDirectory; ///< empty: no stores are looked at
    SheetTemplates templates;
    int jobs = 1;
    bool json = false;

    /// Some of it can be done by a program with graphics only.
    [[nodiscard]] bool WantsPictures() const;
};

struct ParsedReportOptions {
    std::optional<ReportOptions> options;
    std::string text;      ///< help or version to print, or what is wrong
    bool isAnswer = false; ///< `text` is what was asked for
};

[[nodiscard]] ParsedReportOptions ParseReportOptions(const QStringList& arguments);

/// Lower case, with its point; empty for a name without one.
[[nodiscard]] std::string EndingOf(const std::filesystem::path& path);

} // namespace qor::app
