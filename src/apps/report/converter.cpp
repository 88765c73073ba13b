#include "apps/report/converter.h"

#include "base/atomic_write.h"
#include "base/tenths.h"
#include "results/read_document.h"
#include "results/xlsx/xlsx_writer.h"

namespace qor::app {

namespace {

/// A directory that cannot be: a store there has nothing and keeps nothing.
constexpr const char* NoStores = "/dev/null";

} // namespace

Converter::Converter(const ReportOptions& options, const PageForms* pictures)
    : m_Options(options), m_Store(options.dataDirectory.empty() ? NoStores : options.dataDirectory),
      m_Maker(pictures, m_Store) {
    AddXlsx(m_Forms);
    if (const auto limit = m_Store.Read("AlarmUp.ccz", 16); limit && !limit->empty())
        m_View.limit = static_cast<float>(NumberIn(*limit));
}

Outcome Converter::Prepare() {
    if (m_Options.language)
        m_Maker.UseLanguage(*m_Options.language);
    return m_Options.logo.empty() ? Outcome::Done() : m_Maker.UseLogo(m_Options.logo);
}

Outcome Converter::Load(const std::filesystem::path& source, ResultDocument& document) const {
    const Outcome read = LoadResult(source, document);
    if (!read)
        return read;
    if (m_Options.limit || (!document.limit && m_View.limit)) {
        document.limit = m_Options.limit ? m_Options.limit : m_View.limit;
        JudgeRows(document);
    }
    return read;
}

Outcome Converter::Form(const ResultDocument& document, const std::filesystem::path& target,
                        std::string& bytes) const {
    if (ReportMaker::IsPageFile(target))
        return m_Maker.FormPage(DocumentPage(document, m_View).Subject(), target, bytes);
    return m_Forms.Write(document, target, m_Options.templates, bytes);
}

Converted Converter::Convert(const Conversion& job) const {
    ResultDocument document;
    if (const Outcome read = Load(job.source, document); !read)
        return {Converted::What::NotRead, read.Text()};
    Converted converted;
    for (const std::filesystem::path& target : job.targets) {
        std::string bytes;
        if (const Outcome formed = Form(document, target, bytes); !formed) {
            converted = {Converted::What::NotRead,
                         job.source.string() + " -> " + EndingOf(target) + ": " + formed.Text()};
        } else if (const std::string problem = WriteAtomically(target, bytes); !problem.empty()) {
            return {Converted::What::NotWritten, problem};
        }
    }
    return converted;
}

} // namespace qor::app
