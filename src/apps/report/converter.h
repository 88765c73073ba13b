#pragma once

#include "apps/report/options.h"
#include "base/setup_store.h"
#include "results/report/document_page.h"
#include "results/result_forms.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace qor {
class PageForms;
}

namespace qor::app {

/// A source and one of the files that come of it.
struct Conversion {
    std::filesystem::path source;
    std::vector<std::filesystem::path> targets; ///< one for each form
};

/// What became of one source.
struct Converted {
    enum class What : char { Done, NotRead, NotWritten };
    What what = What::Done;
    std::string problem; ///< with the name of the file; empty when all is done
};

/// Reads results and writes them in other forms. The stores are read and never written.
class Converter {
public:
    Converter(const ReportOptions& options, const PageForms* pictures);

    /// Picture and language of the reports; refused when the picture cannot be read.
    Outcome Prepare();
    /// A result with the limit that holds for it.
    Outcome Load(const std::filesystem::path& source, ResultDocument& document) const;
    [[nodiscard]] Converted Convert(const Conversion& job) const;
    [[nodiscard]] ReportLanguage Language() const { return m_Maker.Language(); }

private:
    Outcome Form(const ResultDocument& document, const std::filesystem::path& target,
                 std::string& bytes) const;

    const ReportOptions& m_Options;
    SetupStore m_Store;
    ReportMaker m_Maker;
    ResultForms m_Forms;
    PageView m_View;
};

/// Does all jobs, so many at once, each in a process of its own where there are several. `make` gives each
/// process what it converts with; `done` is told of each as it is ready. A process that dies takes the file
/// it was at with it, and the others go on.
void ConvertAll(const std::vector<Conversion>& jobs, int processes,
                const std::function<std::function<Converted(const Conversion&)>()>& make,
                const std::function<void(std::size_t index, const Converted&)>& done);

} // namespace qor::app
