#pragma once

#include "platform/printer.h"

namespace qor {

/// The system's printers through Qt. Needs a QGuiApplication.
class QtPrinters final : public Printers {
public:
    [[nodiscard]] std::vector<std::string> Names() const override;
    [[nodiscard]] std::string DefaultName() const override;
    [[nodiscard]] bool Print(const std::string& printer, const PrintJob& job) override;
    [[nodiscard]] bool PrintToFile(const std::filesystem::path& path, const PrintJob& job) override;
};

} // namespace qor
