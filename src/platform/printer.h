#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// What a sheet of a printer is: the part of it that can be printed on.
struct PaperFacts {
    double widthMm = 0;
    double heightMm = 0;
    int dpiX = 0;
    int dpiY = 0;
};

/// The upper left part of a picture, `pixelsWide` x `pixelsHigh`, is stretched over so many dots of the
/// sheet, from its upper left corner on.
struct PaperPlace {
    int dotsWide = 0;
    int dotsHigh = 0;
    double pixelsWide = 0;
    double pixelsHigh = 0;
};

/// One sheet for a printer. The pixels are 16 bits, five each for red, green and blue.
struct PrintJob {
    std::string_view title; ///< as the queue of the printer names it
    int width = 0;
    int height = 0;
    const std::uint16_t* pixels = nullptr;
    std::function<PaperPlace(const PaperFacts&)> place;
};

/// The printers of the system.
class Printers {
public:
    Printers() = default;
    Printers(const Printers&) = delete;
    Printers& operator=(const Printers&) = delete;
    virtual ~Printers() = default;

    [[nodiscard]] virtual std::vector<std::string> Names() const = 0;
    /// The one that is used unless another is chosen; empty when there is none.
    [[nodiscard]] virtual std::string DefaultName() const = 0;
    /// False when the printer does not take the sheet.
    [[nodiscard]] virtual bool Print(const std::string& printer, const PrintJob& job) = 0;
    /// The same sheet as a PDF file.
    [[nodiscard]] virtual bool PrintToFile(const std::filesystem::path& path, const PrintJob& job) = 0;
};

} // namespace qor
