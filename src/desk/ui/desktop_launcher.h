#pragma once

#include "platform/launcher.h"

namespace qor::ui {

/// Other programs as the desktop starts them.
class DesktopLauncher final : public Launcher {
public:
    bool Show(const std::string& addressOrPath) override;
    bool Start(const std::filesystem::path& program) override;
    void RestartAfterEnd(bool keepSession) override;

    /// True once a restart was asked for.
    [[nodiscard]] bool RestartAsked() const { return m_Restart; }
    [[nodiscard]] bool KeepsSession() const { return m_KeepSession; }

private:
    bool m_Restart = false;
    bool m_KeepSession = false;
};

} // namespace qor::ui
