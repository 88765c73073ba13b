#include "results/output_names.h"

#include <map>
#include <set>

namespace qor {

namespace {

constexpr std::size_t ShortestCut = 5; ///< a name with fewer characters has no ending of its own

std::filesystem::path Beside(const std::filesystem::path& source, const std::filesystem::path& folder,
                             const std::string& name) {
    return (folder.empty() ? source.parent_path() : folder) / name;
}

/// The same for every way that leads to a file.
std::string Key(const std::filesystem::path& path) {
    std::error_code unknown; // of a folder that cannot be looked into: its name alone tells
    const std::filesystem::path real = std::filesystem::weakly_canonical(path, unknown);
    return (unknown ? std::filesystem::absolute(path).lexically_normal() : real).string();
}

} // namespace

std::vector<std::filesystem::path> OutputNames(const std::vector<std::filesystem::path>& sources,
                                               const std::filesystem::path& folder, std::string_view ending) {
    std::set<std::string> taken;
    for (const std::filesystem::path& source : sources)
        taken.insert(Key(source));
    std::vector<std::filesystem::path> outputs;
    std::map<std::string, int> wanted;
    for (const std::filesystem::path& source : sources) {
        const std::string name = source.filename().string();
        const std::string stem = name.size() < ShortestCut ? name : source.stem().string();
        outputs.push_back(Beside(source, folder, stem + std::string(ending)));
        ++wanted[Key(outputs.back())];
    }
    for (std::size_t i = 0; i < sources.size(); ++i) {
        const std::string key = Key(outputs[i]);
        if (wanted[key] > 1 || taken.contains(key))
            outputs[i] = Beside(sources[i], folder, sources[i].filename().string() + std::string(ending));
        // The same name from several folders.
        const std::filesystem::path first = outputs[i];
        for (int n = 2; !taken.insert(Key(outputs[i])).second; ++n)
            outputs[i] =
                first.parent_path() / (first.stem().string() + "_" + std::to_string(n) + std::string(ending));
    }
    return outputs;
}

} // namespace qor
