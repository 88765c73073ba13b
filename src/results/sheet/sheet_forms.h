#pragma once

#include "base/outcome.h"
#include "results/result_document.h"

#include <string>
#include <string_view>

namespace qor {

/// Which forms a sheet of a sweep takes; a 2-tone result has one form of its own.
struct SheetTemplates {
    bool sweep = true; ///< a head, and the curve in pairs of columns: up, down
    bool detail =
        false; ///< a row for each level with its carriers; behind the other form when both are chosen
};

/// A result as the bytes of an .xls, every cell a text. It holds the last run. A refusal says "Save ERR", or
/// that a result between bands has no such form.
Outcome WriteXls(const ResultDocument& document, SheetTemplates templates, std::string& bytes);
/// The same rows as text, a line each: what a file of an unknown ending holds.
Outcome WriteSheetText(const ResultDocument& document, SheetTemplates templates, std::string& bytes);

/// An .xls or a text of a sheet back into the result, as far as its cells state it: whole MHz and dBm in the
/// head, no limit, no comment, no serial number of the device under test; a detail form alone gives curve,
/// unit and order. Any byte string is safe; refused, with `document` unchanged, when it is no sheet of a
/// result.
Outcome ReadSheet(std::string_view bytes, ResultDocument& document);

// Texts of the cells, shared by writer and reader.

inline constexpr std::string_view ReceiverCell = "RECEIVER: ";
inline constexpr std::string_view FloorCell = "FLOOR: "; ///< dBm that it hears nothing below
inline constexpr std::string_view DetailTitles[] = {"Carrier 1 Freq, MHz",
                                                    "Carrier 2 Freq, MHz",
                                                    "Carrier 1 Power",
                                                    "Carrier 2 Power",
                                                    "Carrier Power Units",
                                                    "IM Order",
                                                    "IM Freq, MHz",
                                                    "IM Power",
                                                    "IM Units"};

} // namespace qor
