#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace qor::test {

/// A fresh directory that goes with the test.
class TempDir {
public:
    TempDir() {
        std::string name = (std::filesystem::temp_directory_path() / "qor-test-XXXXXX").string();
        if (!::mkdtemp(name.data()))
            throw std::runtime_error("no temporary directory");
        m_Path = name;
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    ~TempDir() {
        std::error_code ignored;
        std::filesystem::remove_all(m_Path, ignored);
    }

    [[nodiscard]] const std::filesystem::path& Path() const { return m_Path; }
    [[nodiscard]] std::filesystem::path operator/(const std::string& name) const { return m_Path / name; }

private:
    std::filesystem::path m_Path;
};

inline std::string FileText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace qor::test
