#pragma once

#include <filesystem>
#include <string>

namespace qor {

/// Other programs of the computer.
class Launcher {
public:
    Launcher() = default;
    Launcher(const Launcher&) = delete;
    Launcher& operator=(const Launcher&) = delete;
    virtual ~Launcher() = default;

    /// Shows an address or a document in the program the computer has for it; false when there is none.
    virtual bool Show(const std::string& addressOrPath) = 0;
    /// Starts a program of its own that outlives this one; false when it cannot be started.
    virtual bool Start(const std::filesystem::path& program) = 0;
    /// Tells the programs that Start has started, and that still run, to end.
    virtual void CloseStarted() {}
    /// Has this program started anew once it has ended. With `keepSession` the choices of this session stay
    /// in force in it.
    virtual void RestartAfterEnd(bool keepSession) = 0;
};

} // namespace qor
