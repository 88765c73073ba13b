#include "desk/restore.h"

#include "base/atomic_write.h"

#include <fstream>
#include <iterator>
#include <system_error>

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view WorkName = "restore.part";
constexpr std::string_view JournalName = "journal"; ///< a line a file, its size 1 where there was a store

fs::path Work(const fs::path& stores) {
    return stores / WorkName;
}

fs::path Kept(const fs::path& stores) {
    return Work(stores) / "old";
}

std::string Words(const fs::path& path, const std::error_code& error) {
    return error ? path.string() + ": " + error.message() : std::string();
}

/// Makes the folders that a file needs and moves it.
std::string Move(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    if (!error)
        fs::rename(from, to, error);
    return Words(to, error);
}

std::string Remove(const fs::path& path) {
    std::error_code error;
    fs::remove_all(path, error);
    return Words(path, error);
}

bool IsThere(const fs::path& path) {
    std::error_code unknown;
    return fs::exists(path, unknown);
}

std::vector<ConfigurationFile> Journal(const fs::path& stores) {
    std::ifstream file(Work(stores) / JournalName, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    return ParseContents(text).value_or(std::vector<ConfigurationFile>());
}

} // namespace

fs::path FreshFolder(const fs::path& stores) {
    return Work(stores) / "new";
}

std::vector<FileStep> RestoreSteps(const std::vector<ConfigurationFile>& files, const fs::path& stores) {
    std::string journal;
    std::vector<FileStep> steps(1);
    for (const ConfigurationFile& file : files) {
        const fs::path store = stores / file.name;
        const bool replaces = IsThere(store);
        journal += (replaces ? "1 " : "0 ") + file.name + "\n";
        if (replaces)
            steps.emplace_back([store, kept = Kept(stores) / file.name] { return Move(store, kept); });
        steps.emplace_back([store, fresh = FreshFolder(stores) / file.name] { return Move(fresh, store); });
    }
    steps.front() = [journal, work = Work(stores)] {
        std::error_code error;
        fs::create_directories(work, error);
        return error ? Words(work, error) : WriteAtomically(work / JournalName, journal);
    };
    steps.emplace_back([path = Work(stores) / JournalName] { return Remove(path); });
    steps.emplace_back([path = Work(stores)] { return Remove(path); });
    return steps;
}

std::vector<FileStep> TakeBackSteps(const fs::path& stores) {
    std::vector<FileStep> steps;
    for (const ConfigurationFile& file : Journal(stores)) {
        const fs::path store = stores / file.name;
        const fs::path kept = Kept(stores) / file.name;
        if (file.size == 0)
            steps.emplace_back([store] { return Remove(store); });
        else if (IsThere(kept)) // else it was not reached, or is back already
            steps.emplace_back([store, kept] { return Move(kept, store); });
    }
    steps.emplace_back([path = Work(stores) / JournalName] { return Remove(path); });
    steps.emplace_back([path = Work(stores)] { return Remove(path); });
    return steps;
}

std::string RunSteps(const std::vector<FileStep>& steps) {
    for (const FileStep& step : steps) {
        if (std::string problem = step(); !problem.empty())
            return problem;
    }
    return {};
}

bool TakeBackBrokenRestore(const fs::path& stores) {
    const bool wasBroken = IsThere(Work(stores) / JournalName);
    if (IsThere(Work(stores)))
        RunSteps(TakeBackSteps(stores));
    return wasBroken;
}

} // namespace qor
