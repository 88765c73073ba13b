#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// The file that stands in the data directory while carriers may be on, so that a program which did not live
/// to switch them off leaves word of it. It names the process, the port and the method's off command, a line
/// each. Its name has no .ccz: it is no setting, and configurations leave it alone.
class RunMark {
public:
    explicit RunMark(std::filesystem::path directory) : m_Directory(std::move(directory)) {}

    /// Writes the mark of this process. One that cannot be written is no reason not to measure.
    void Set(std::string_view port, std::string_view methodOff);
    void Remove();
    [[nodiscard]] bool IsSet() const { return m_Set; }

    /// The off command in a mark whose process is gone, if there is one. Those marks go with ClearOld.
    [[nodiscard]] std::optional<std::string> FindOld();
    void ClearOld();

private:
    [[nodiscard]] std::filesystem::path Own() const;

    std::filesystem::path m_Directory;
    std::vector<std::filesystem::path> m_Old;
    bool m_Set = false;
};

} // namespace qor
