#include "desk/configuration.h"

#include "base/atomic_write.h"
#include "base/setup_store.h"
#include "base/text_format.h"
#include "desk/restore.h"
#include "platform/clock.h"
#include "platform/operator.h"
#include "platform/platform.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <set>
#include <system_error>

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view ContentsName = "contents.txt";
constexpr std::string_view LossTable = "loss.conf"; ///< the one store with another ending
constexpr std::string_view PasswordStore = "pin.ccz";
constexpr std::string_view SettingsName = "qor.ini";
constexpr std::string_view Unfinished = ".part";
constexpr std::string_view PointerBegin = ":\\QOR\\";
constexpr std::size_t StampLength = 14;
constexpr std::size_t LongestPointer = 300;
constexpr std::size_t LongestContents = 4 << 20;

constexpr std::string_view SaveTitle = "Save Configure";
constexpr std::string_view LoadTitle = "Load Configure";
constexpr std::string_view SaveFailed = "failed to save config file!\n";
constexpr std::string_view LoadFailed = "failed to load config file!\n";

bool IsStamp(std::string_view name) {
    return name.size() == StampLength &&
           std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string Stamp(const LocalTime& now) {
    std::string stamp = ZeroPadded(now.year, 4);
    for (const int part : {now.month, now.day, now.hour, now.minute, now.second})
        stamp += ZeroPadded(part, 2);
    return stamp;
}

/// A name that can only lie inside the folder it is looked for in, and that is one of a store.
bool IsStoreName(std::string_view name) {
    if (name.empty() || std::any_of(name.begin(), name.end(),
                                    [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\\'; }))
        return false;
    const fs::path path(name);
    if (path.is_absolute() || path.lexically_normal() != path || *path.begin() == "..")
        return false;
    return path.extension() == ".ccz" || name == LossTable;
}

/// Text of a file; nothing when it cannot be read or is longer than `longest` bytes.
std::optional<std::string> ReadText(const fs::path& path, std::size_t longest) {
    std::error_code unknown;
    std::ifstream file;
    if (fs::is_regular_file(path, unknown)) // opening a pipe would wait for ever
        file.open(path, std::ios::binary);
    if (!file.is_open())
        return std::nullopt;
    std::string text(longest + 1, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    if (text.size() > longest)
        return std::nullopt;
    return text;
}

/// The stores below `root`. Inside an earlier save the saves that it took along are left out: each of them
/// stands beside it, and copies of copies would double with every save.
std::vector<ConfigurationFile> ListStores(const fs::path& root) {
    std::vector<ConfigurationFile> files;
    std::error_code error;
    fs::recursive_directory_iterator at(root, fs::directory_options::skip_permission_denied, error);
    for (; !error && at != fs::recursive_directory_iterator(); at.increment(error)) {
        const fs::path& path = at->path();
        std::error_code unknown;
        if (at->is_directory(unknown)) {
            const bool savedAlong =
                IsStamp(path.filename().string()) && IsStamp(path.parent_path().filename().string());
            if ((savedAlong && path.parent_path() != root) || path.extension() == Unfinished)
                at.disable_recursion_pending();
            continue;
        }
        std::string name = path.lexically_relative(root).generic_string();
        if (!at->is_regular_file(unknown) || !IsStoreName(name))
            continue;
        const std::uintmax_t size = at->file_size(unknown);
        if (!unknown)
            files.push_back({std::move(name), size});
    }
    std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
    return files;
}

bool SameBytes(const fs::path& one, const fs::path& other) {
    std::ifstream a(one, std::ios::binary);
    std::ifstream b(other, std::ios::binary);
    const std::istreambuf_iterator<char> end;
    return a && b &&
           std::equal(std::istreambuf_iterator<char>(a), end, std::istreambuf_iterator<char>(b), end);
}

/// A copy is as private as what it replaces, the password always, and its owner can write it.
void GuardCopy(const fs::path& copy, const fs::path& replaced) {
    constexpr fs::perms Owner = fs::perms::owner_read | fs::perms::owner_write;
    std::error_code unknown;
    const fs::perms before =
        fs::status(fs::exists(replaced, unknown) ? replaced : copy, unknown).permissions();
    fs::permissions(copy, copy.filename() == PasswordStore ? Owner : before | Owner, unknown);
}

enum class Copied { All, Cancelled, Failed };

/// Copies `files` from one folder into another, and looks at what has arrived. They are to take the place of
/// those in `stores`.
Copied CopyAll(const std::vector<ConfigurationFile>& files, const fs::path& from, const fs::path& to,
               const fs::path& stores, Operator& user, std::string_view what, std::string& problem) {
    const int total = static_cast<int>(files.size());
    for (int done = 0; done < total; ++done) {
        if (!user.Progress(what, done, total))
            return Copied::Cancelled;
        const std::string& name = files[static_cast<std::size_t>(done)].name;
        const fs::path target = to / name;
        std::error_code error;
        fs::create_directories(target.parent_path(), error);
        if (!error)
            fs::copy_file(from / name, target, fs::copy_options::overwrite_existing, error);
        if (error || !SameBytes(from / name, target)) {
            problem = target.string() + ": " + (error ? error.message() : "the copy differs.");
            return Copied::Failed;
        }
        GuardCopy(target, stores / name);
    }
    return user.Progress(what, total, total) ? Copied::All : Copied::Cancelled;
}

/// A folder for unfinished work that is gone again whatever happens.
class WorkFolder {
public:
    explicit WorkFolder(fs::path path) : m_Path(std::move(path)) { Remove(); }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder() { Remove(); }
    [[nodiscard]] const fs::path& Path() const { return m_Path; }

private:
    void Remove() {
        std::error_code ignored;
        fs::remove_all(m_Path, ignored);
    }
    fs::path m_Path;
};

/// What a saved folder lacks of its contents, for the operator; empty when it is whole.
std::string MissingIn(const fs::path& folder, const std::vector<ConfigurationFile>& files) {
    constexpr int MostNamed = 10;
    std::string text;
    int missing = 0;
    for (const ConfigurationFile& file : files) {
        std::error_code unknown;
        if (fs::is_regular_file(folder / file.name, unknown) &&
            fs::file_size(folder / file.name, unknown) == file.size)
            continue;
        if (++missing <= MostNamed)
            text += "\n" + file.name;
    }
    if (missing > MostNamed)
        text += "\n... " + std::to_string(missing);
    return text;
}

/// The files of a saved folder, checked; nothing, with the reason, when it is not whole.
std::optional<std::vector<ConfigurationFile>> WholeContents(const fs::path& folder, std::string& problem) {
    std::error_code unknown;
    std::vector<ConfigurationFile> files;
    if (!fs::exists(folder / ContentsName, unknown)) {
        files = ListStores(folder); // of another station: what is there is what was saved
        if (files.empty())
            problem = "\n*.ccz";
    } else {
        const auto text = ReadText(folder / ContentsName, LongestContents);
        auto listed = text ? ParseContents(*text) : std::nullopt;
        if (!listed) {
            problem = (folder / ContentsName).string();
            return std::nullopt;
        }
        files = std::move(*listed);
        problem = MissingIn(folder, files);
    }
    if (problem.empty())
        return files;
    problem =
        "The configuration is incomplete, nothing was restored.\nMissing in: " + folder.string() + problem;
    return std::nullopt;
}

/// True when a file of that name would take a store's place.
bool IsStore(const fs::path& path, const fs::path& stores) {
    std::error_code unknown;
    const fs::path name =
        fs::weakly_canonical(path, unknown).lexically_relative(fs::weakly_canonical(stores, unknown));
    return name == SettingsName || IsStoreName(name.generic_string());
}

/// The stores that a configuration has nothing to say of, a line each; saves within it count for themselves.
std::string UntouchedBy(const std::vector<ConfigurationFile>& files, const fs::path& stores) {
    std::string names;
    for (const ConfigurationFile& store : ListStores(stores)) {
        const auto same = [&store](const ConfigurationFile& file) { return file.name == store.name; };
        if (store.name.find('/') == std::string::npos && std::none_of(files.begin(), files.end(), same))
            names += "\n" + store.name;
    }
    return names;
}

/// Brings the new files into place, or leaves everything as it was; then the reason.
std::string Replace(const std::vector<ConfigurationFile>& files, const fs::path& stores) {
    for (const ConfigurationFile& file : files) {
        std::error_code unknown;
        if (fs::is_directory(stores / file.name, unknown))
            return (stores / file.name).string() + ": is a folder.";
    }
    return RunSteps(RestoreSteps(files, stores));
}

} // namespace

std::optional<std::string> ConfigurationFolder(std::string_view pointer) {
    pointer = pointer.substr(0, std::min(pointer.find_first_of("\r\n"), pointer.size()));
    const std::size_t drive = pointer.find(PointerBegin);
    if (drive > 1) // at most a drive letter in front
        return std::nullopt;
    pointer.remove_prefix(drive + PointerBegin.size());
    while (pointer.ends_with('\\') || pointer.ends_with(' '))
        pointer.remove_suffix(1);
    if (!IsStamp(pointer))
        return std::nullopt;
    return std::string(pointer);
}

std::optional<std::vector<ConfigurationFile>> ParseContents(std::string_view text) {
    std::vector<ConfigurationFile> files;
    std::set<std::string> names;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos)
            return std::nullopt; // cut short
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 1);
        ConfigurationFile file;
        const auto size = std::from_chars(line.data(), line.data() + line.size(), file.size);
        const auto digits = static_cast<std::size_t>(size.ptr - line.data());
        if (size.ec != std::errc() || digits >= line.size() || line[digits] != ' ')
            return std::nullopt;
        file.name = line.substr(digits + 1);
        if (!IsStoreName(file.name) || !names.insert(file.name).second)
            return std::nullopt;
        files.push_back(std::move(file));
    }
    return files;
}

Outcome SaveConfiguration(const SetupStore& store, const Platform& platform) {
    const fs::path pointer =
        platform.user.FileToSave(SaveTitle, store.PathOf("configuration.conf"), "*.conf");
    if (pointer.empty())
        return Outcome::Refused({});
    if (IsStore(pointer, store.Directory()))
        return Outcome::Refused(std::string(SaveFailed) + pointer.string() + ": is a store of the program.");
    std::error_code error;
    if (fs::exists(pointer, error) &&
        !platform.user.Ask("The file has already existed. Do you want to replace it?\n\n" + pointer.string(),
                           SaveTitle))
        return Outcome::Refused({});
    const auto failed = [](const std::string& why) {
        return Outcome::Refused(std::string(SaveFailed) + why);
    };
    const std::string stamp = Stamp(platform.clock.Now());
    const fs::path folder = store.PathOf(stamp);
    std::vector<ConfigurationFile> files = ListStores(store.Directory());
    // A save within the same second takes the folder's place.
    std::erase_if(files, [&stamp](const ConfigurationFile& f) { return f.name.starts_with(stamp + "/"); });
    const WorkFolder work(store.PathOf(stamp + std::string(Unfinished)));
    fs::create_directories(work.Path(), error);
    if (error)
        return failed(work.Path().string() + ": " + error.message());

    std::string problem;
    const Copied copied =
        CopyAll(files, store.Directory(), work.Path(), store.Directory(), platform.user, SaveTitle, problem);
    if (copied == Copied::Cancelled)
        return Outcome::Refused({});
    std::string contents;
    for (const ConfigurationFile& file : files)
        contents += std::to_string(fs::file_size(work.Path() / file.name, error)) + " " + file.name + "\n";
    if (copied == Copied::All)
        problem = WriteAtomically(work.Path() / ContentsName, contents);
    if (problem.empty())
        problem = WriteAtomically(pointer, std::string(PointerBegin) + stamp + "\\");
    if (!problem.empty())
        return failed(problem);
    fs::remove_all(folder, error);
    fs::rename(work.Path(), folder, error);
    if (error)
        return failed(folder.string() + ": " + error.message());
    return Outcome::Done();
}

Outcome LoadConfiguration(const SetupStore& store, const Platform& platform, bool& restart) {
    const auto chosen = platform.user.FilesToOpen(LoadTitle, store.Directory(), "*.conf");
    if (chosen.empty())
        return Outcome::Refused({});
    const fs::path& pointer = chosen.front();
    const auto failed = [](const std::string& why) {
        return Outcome::Refused(std::string(LoadFailed) + why);
    };
    const auto text = ReadText(pointer, LongestPointer);
    const auto name = text ? ConfigurationFolder(*text) : std::nullopt;
    if (!name)
        return failed(pointer.string() + ": " + (text ? "not a saved configuration." : "cannot be read."));
    std::error_code error;
    fs::path folder = store.PathOf(*name);
    if (!fs::is_directory(folder, error))
        folder = pointer.parent_path() / *name;
    if (!fs::is_directory(folder, error)) {
        restart = true; // the session begins anew with the stores as they are
        platform.user.Acknowledge(std::string(LoadFailed) + store.PathOf(*name).string() +
                                  ": the folder does not exist. Nothing was restored.");
        return Outcome::Refused({});
    }
    std::string problem;
    const auto files = WholeContents(folder, problem);
    if (!files)
        return failed(problem);
    const fs::path& stores = store.Directory();
    TakeBackBrokenRestore(stores);
    const std::string untouched = UntouchedBy(*files, stores);
    const Copied copied =
        CopyAll(*files, folder, FreshFolder(stores), stores, platform.user, LoadTitle, problem);
    if (copied == Copied::All)
        problem = Replace(*files, stores);
    if (copied != Copied::All || !problem.empty())
        TakeBackBrokenRestore(stores);
    if (copied == Copied::Cancelled)
        return Outcome::Refused({});
    if (!problem.empty())
        return failed(problem + "\nNothing was restored.");
    restart = true;
    if (!untouched.empty())
        platform.user.Acknowledge("Diese Ablagen kennt die Konfiguration nicht, sie bleiben:" + untouched);
    return Outcome::Done();
}

} // namespace qor
