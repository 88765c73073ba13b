#include "link/run_mark.h"

#include "base/atomic_write.h"
#include "platform/process.h"

#include <fstream>

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view Prefix = "carriers_on.";

} // namespace

fs::path RunMark::Own() const {
    const std::string process = ThisProcess();
    return m_Directory / (std::string(Prefix) + process.substr(0, process.find(' ')));
}

void RunMark::Set(std::string_view port, std::string_view methodOff, std::string_view instrument) {
    std::string text = ThisProcess();
    for (const std::string_view line : {port, methodOff, instrument})
        text.append("\n").append(line);
    m_Instrument = instrument;
    m_Set = WriteAtomically(Own(), text + "\n").empty();
}

void RunMark::Remove() {
    if (!m_Set)
        return;
    m_Set = false;
    std::error_code ignored;
    fs::remove(Own(), ignored);
}

std::vector<std::pair<fs::path, RunMark::Left>> RunMark::Old() const {
    std::vector<std::pair<fs::path, Left>> old;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_Directory, error)) {
        if (!entry.path().filename().string().starts_with(Prefix) || !entry.is_regular_file(error))
            continue;
        std::ifstream file(entry.path());
        std::string process;
        Left left;
        std::getline(file, process);
        for (std::string* line : {&left.port, &left.methodOff, &left.instrument})
            std::getline(file, *line);
        if (!ProcessRuns(process))
            old.emplace_back(entry.path(), left);
    }
    return old;
}

std::optional<RunMark::Left> RunMark::FindOld() const {
    const auto old = Old();
    return old.empty() ? std::nullopt : std::optional(old.back().second);
}

void RunMark::ClearOld(std::string_view instrument) {
    std::error_code ignored;
    for (const auto& [path, left] : Old())
        if (left.instrument.empty() || left.instrument == instrument)
            fs::remove(path, ignored);
}

} // namespace qor
