#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qor {

/// The file that stands in the data directory while carriers may be on, so that a program which did not live
/// to switch them off leaves word of it. It names the process, the port, the method's off command and the
/// instrument, a line each. Its name has no .ccz: it is no setting, and configurations leave it alone.
class RunMark {
public:
    explicit RunMark(std::filesystem::path directory) : m_Directory(std::move(directory)) {}

    /// Writes a mark of this process, one for each instrument. One that cannot be written is no reason not to
    /// measure.
    void Set(std::string_view port, std::string_view methodOff, std::string_view instrument);
    void Remove(std::string_view instrument);
    [[nodiscard]] bool IsSet(std::string_view instrument) const { return FindOwn(instrument) != m_Own.end(); }

    /// What a program that is gone has left on.
    struct Left {
        std::string port;
        std::string methodOff;
        std::string instrument; ///< Identity::Description; empty when it was not told
    };
    /// The mark of a process that is gone, if there is one; of several any.
    [[nodiscard]] std::optional<Left> FindOld() const;
    /// Removes such marks of this instrument, and those that name none.
    void ClearOld(std::string_view instrument);

private:
    struct Own {
        std::string instrument;
        std::filesystem::path path;
    };
    [[nodiscard]] std::vector<Own>::const_iterator FindOwn(std::string_view instrument) const;
    [[nodiscard]] std::filesystem::path FreePath() const;

    [[nodiscard]] std::vector<std::pair<std::filesystem::path, Left>> Old() const;

    std::filesystem::path m_Directory;
    std::vector<Own> m_Own;
};

} // namespace qor
