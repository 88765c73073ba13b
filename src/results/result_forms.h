#pragma once

#include "base/outcome.h"
#include "results/result_document.h"
#include "results/sheet/sheet_forms.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// No file of a result is longer, bytes.
inline constexpr std::size_t LongestFileOfResult = 24U << 20;

/// The forms that a result is filed in, told by the ending of the name.
///
/// A form that needs more than the standard library is registered by the program that has it.
class ResultForms {
public:
    using Writer = std::function<Outcome(const ResultDocument&, SheetTemplates, std::string& bytes)>;

    /// .dat, .txt, .xls and .csv.
    ResultForms();

    /// `ending` in small letters, with its point.
    void Register(std::string ending, Writer writer);

    /// True for a registered ending, whatever its case.
    [[nodiscard]] bool Has(const std::filesystem::path& name) const { return Find(name) != nullptr; }
    /// The bytes of a file of this name. Of other names those that end in "t" are texts, as .txt, and in "at"
    /// .dat; every other one is the text of a sheet.
    Outcome Write(const ResultDocument& document, const std::filesystem::path& name, SheetTemplates templates,
                  std::string& bytes) const;

private:
    [[nodiscard]] const Writer* Find(const std::filesystem::path& name) const;

    struct Form {
        std::string ending;
        Writer write;
    };
    std::vector<Form> m_Forms;
};

/// True for a name whose file is a .dat, the only form that an official report is made of.
[[nodiscard]] bool IsDatName(const std::filesystem::path& name);

/// Reads a file. Refused with its path and the reason.
Outcome LoadResult(const std::filesystem::path& path, ResultDocument& document);

/// The bytes of a file back into the result, with the name as its source; the form is told by the bytes, but
/// for a .csv, which is told by its name. Any byte string is safe; refused with the reason, and `document`
/// unchanged.
Outcome ReadResult(std::string_view bytes, const std::filesystem::path& name, ResultDocument& document);

} // namespace qor
