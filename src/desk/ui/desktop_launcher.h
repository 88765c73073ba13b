#pragma once

#include "platform/launcher.h"

#include <vector>

namespace qor::ui {

/// Other programs as the desktop starts them.
class DesktopLauncher final : public Launcher {
public:
    bool Show(const std::string& addressOrPath) override;
    ~DesktopLauncher() override;
    bool Start(const std::filesystem::path& program) override;
    void CloseStarted() override;
    void RestartAfterEnd(bool keepSession) override;

    /// True once a restart was asked for.
    [[nodiscard]] bool RestartAsked() const { return m_Restart; }
    [[nodiscard]] bool KeepsSession() const { return m_KeepSession; }

private:
    std::vector<int> m_Started; ///< a descriptor of each process, which no later one takes over
    bool m_Restart = false;
    bool m_KeepSession = false;
};

} // namespace qor::ui
