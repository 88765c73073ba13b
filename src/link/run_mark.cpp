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

void RunMark::Set(std::string_view port, std::string_view methodOff) {
    std::string text = ThisProcess();
    for (const std::string_view line : {port, methodOff})
        text.append("\n").append(line);
    m_Set = WriteAtomically(Own(), text + "\n").empty();
}

void RunMark::Remove() {
    if (!m_Set)
        return;
    m_Set = false;
    std::error_code ignored;
    fs::remove(Own(), ignored);
}

std::optional<std::string> RunMark::FindOld() {
    std::optional<std::string> found;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_Directory, error)) {
        if (!entry.path().filename().string().starts_with(Prefix) || !entry.is_regular_file(error))
            continue;
        std::ifstream file(entry.path());
        std::string process;
        std::string port;
        std::string methodOff;
        std::getline(file, process);
        std::getline(file, port);
        std::getline(file, methodOff);
        if (ProcessRuns(process))
            continue;
        m_Old.push_back(entry.path());
        found = methodOff;
    }
    return found;
}

void RunMark::ClearOld() {
    std::error_code ignored;
    for (const fs::path& path : m_Old)
        fs::remove(path, ignored);
    m_Old.clear();
}

} // namespace qor
