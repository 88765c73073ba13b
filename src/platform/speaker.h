#pragma once

namespace qor {

/// The loudspeaker of the computer.
class Speaker {
public:
    Speaker() = default;
    Speaker(const Speaker&) = delete;
    Speaker& operator=(const Speaker&) = delete;
    virtual ~Speaker() = default;

    /// Starts a tone of `hz` for `ms` and returns at once. A tone of 0 Hz is silence; a computer that has
    /// no sound stays silent too.
    virtual void Beep(int hz, int ms) = 0;
};

} // namespace qor
