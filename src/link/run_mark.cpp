#include "link/run_mark.h"

#include "base/atomic_write.h"
#include "platform/process.h"

#include <algorithm>
#include <fstream>

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view Prefix = "carriers_on.";

} // namespace

std::vector<RunMark::Own>::const_iterator RunMark::FindOwn(std::string_view instrument) const {
    return std::find_if(m_Own.begin(), m_Own.end(),
                        [&](const Own& own) { return own.instrument == instrument; });
}

fs::path RunMark::FreePath() const {
    const std::string process = ThisProcess();
    const std::string name = std::string(Prefix) + process.substr(0, process.find(' '));
    fs::path path = m_Directory / name;
    const auto isTaken = [&] {
        return std::any_of(m_Own.begin(), m_Own.end(), [&](const Own& own) { return own.path == path; });
    };
    for (int n = 2; isTaken(); ++n)
        path = m_Directory / (name + "-" + std::to_string(n));
    return path;
}

void RunMark::Set(std::string_view port, std::string_view methodOff, std::string_view instrument) {
    std::string text = ThisProcess();
    for (const std::string_view line : {port, methodOff, instrument})
        text.append("\n").append(line);
    const fs::path path = FreePath();
    if (WriteAtomically(path, text + "\n").empty())
        m_Own.push_back({std::string(instrument), path});
}

void RunMark::Remove(std::string_view instrument) {
    const auto own = FindOwn(instrument);
    if (own == m_Own.end())
        return;
    std::error_code ignored;
    fs::remove(own->path, ignored);
    m_Own.erase(own);
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
