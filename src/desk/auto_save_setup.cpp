#include "desk/auto_save_setup.h"

#include "base/text_format.h"
#include "desk/program.h"
#include "platform/clock.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::size_t LongestPath = 4096;
// shown to the operator
constexpr std::string_view NoSeparators = "Der Name darf weder / noch \\ enthalten.";

bool HasSeparator(const std::string& text) {
    return text.find_first_of("/\\") != std::string::npos;
}

std::string Trimmed(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(" \t");
    return begin == std::string::npos ? std::string()
                                      : text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

} // namespace

std::string ProposedAutoSavePath(const Program& program) {
    const ResultState& results = program.State().results;
    std::string path = results.autoSave.Path();
    if (path.empty())
        path = program.Stores().Read("LastPdfPath.ccz", LongestPath).value_or("");
    if (path.empty())
        path = (program.Stores().Directory() / "AutoSave" / "").string();
    const std::size_t divider = path.find_last_of("/\\");
    return path.substr(0, divider == std::string::npos ? 0 : divider + 1) + results.device.Serial();
}

Outcome SetAutoSave(Program& program, const AutoSaveForms& forms, std::string path) {
    AutoSave& settings = program.State().results.autoSave;
    path = Trimmed(path);
    if (forms.Any() && path.empty())
        return Outcome::Refused("Please select the correct directory for saving!");
    settings.SetForms(forms);
    settings.Switch(forms.Any());
    settings.SetPath(std::move(path));
    return Outcome::Done();
}

Outcome SetAutoSavePrefix(Program& program, const std::string& name, const std::string& number,
                          bool& numberIsWrong) {
    numberIsWrong = !std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (numberIsWrong)
        return Outcome::Refused("The start value of SN should be number symbol!");
    if (HasSeparator(name))
        return Outcome::Refused(std::string(NoSeparators));
    const LocalTime now = program.Parts().clock.Now();
    program.State().results.autoSave.SetPrefix(
        name, ZeroPadded(now.year, 4) + "-" + ZeroPadded(now.month, 2) + "-" + ZeroPadded(now.day, 2),
        number);
    return Outcome::Done();
}

Outcome SetAutoSaveSeries(Program& program, const std::string& name, const std::string& folder) {
    AutoSave& settings = program.State().results.autoSave;
    if (settings.Path().empty())
        return Outcome::Refused("Please select auto-save file path from [Auto-Save] menu at first!");
    if (HasSeparator(name))
        return Outcome::Refused(std::string(NoSeparators));
    std::string below = folder;
    std::replace(below.begin(), below.end(), '\\', '/');
    const std::filesystem::path whole = std::filesystem::path(settings.Path()).parent_path() /
                                        std::filesystem::path(below).relative_path(); // never beside it
    std::error_code failed;
    std::filesystem::create_directories(whole, failed);
    if (failed || !std::filesystem::is_directory(whole, failed))
        return Outcome::Refused("Failed to create folder!");
    settings.SetSeries(whole.string(), name);
    return Outcome::Done();
}

} // namespace qor
