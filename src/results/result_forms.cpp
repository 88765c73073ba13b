#include "results/result_forms.h"

#include "results/data_file.h"
#include "results/sheet/compound_file.h"
#include "results/sheet/csv_table.h"
#include "results/sheet/spread_sheet.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace qor {

namespace {

char Small(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string SmallName(const std::filesystem::path& name) {
    std::string text = name.filename().string();
    std::transform(text.begin(), text.end(), text.begin(), Small);
    return text;
}

Outcome WriteText(const ResultDocument& document, bool scrambled, std::string& bytes) {
    if (!document.interBand.empty())
        return Outcome::Refused("Does not support the current selection!");
    if (!document.limit)
        return Outcome::Refused("This form wants a limit.");
    if (!document.hasHead || document.date.size() != 8 || document.time.size() != 5)
        return Outcome::Refused("This form wants the whole head of a result.");
    bytes = EncodeResult(FormatResult(document), scrambled);
    return Outcome::Done();
}

/// Reads at most one byte more than a result can have. Empty on success, else the reason.
std::string ReadBytes(const std::filesystem::path& path, std::string& bytes) {
    std::error_code unknown;
    const auto status = std::filesystem::status(path, unknown);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        // shown to the operator
        return "not a regular file"; // reading a pipe would wait for ever
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"), &std::fclose);
    if (!file)
        return std::strerror(errno);
    const auto size = std::filesystem::file_size(path, unknown);
    bytes.resize(unknown ? 0 : std::min<std::size_t>(size, LongestFileOfResult) + 1);
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    return std::ferror(file.get()) ? std::strerror(errno) : std::string();
}

} // namespace

ResultForms::ResultForms() {
    const auto text = [](bool scrambled) {
        return [scrambled](const ResultDocument& document, SheetTemplates, std::string& bytes) {
            return WriteText(document, scrambled, bytes);
        };
    };
    Register(".dat", text(true));
    Register(".txt", text(false));
    Register(".xls", WriteXls);
    Register(".csv", [](const ResultDocument& document, SheetTemplates, std::string& bytes) {
        return WriteCsv(document, bytes);
    });
}

void ResultForms::Register(std::string ending, Writer writer) {
    m_Forms.push_back({std::move(ending), std::move(writer)});
}

const ResultForms::Writer* ResultForms::Find(const std::filesystem::path& name) const {
    const std::string text = SmallName(name);
    const auto at = std::find_if(m_Forms.begin(), m_Forms.end(),
                                 [&](const Form& form) { return text.ends_with(form.ending); });
    return at != m_Forms.end() ? &at->write : nullptr;
}

Outcome ResultForms::Write(const ResultDocument& document, const std::filesystem::path& name,
                           SheetTemplates templates, std::string& bytes) const {
    if (const Writer* write = Find(name))
        return (*write)(document, templates, bytes);
    if (SmallName(name).ends_with('t'))
        return WriteText(document, IsDatName(name), bytes);
    return WriteSheetText(document, templates, bytes);
}

bool IsDatName(const std::filesystem::path& name) {
    return SmallName(name).ends_with("at");
}

Outcome LoadResult(const std::filesystem::path& path, ResultDocument& document) {
    std::string bytes;
    if (const std::string reason = ReadBytes(path, bytes); !reason.empty())
        return Outcome::Refused(path.string() + ": " + reason + ".");
    const Outcome read = ReadResult(bytes, path, document);
    return read ? read : Outcome::Refused(path.string() + ": " + read.Text());
}

Outcome ReadResult(std::string_view bytes, const std::filesystem::path& name, ResultDocument& document) {
    ResultDocument found;
    Outcome read = Outcome::Done();
    if (IsCompoundFile(bytes) || IsSheetText(bytes)) {
        read = ReadSheet(bytes, found);
    } else if (SmallName(name).ends_with(".csv")) {
        read = ReadCsv(bytes, found);
    } else if (ParsedResult parsed = ParseResult(bytes); parsed.document) {
        found = std::move(*parsed.document);
        found.genuine = SmallName(name).ends_with(".dat");
    } else {
        read = Outcome::Refused(std::move(parsed.problem));
    }
    if (!read)
        return read;
    found.source = name.filename().string();
    document = std::move(found);
    return read;
}

} // namespace qor
