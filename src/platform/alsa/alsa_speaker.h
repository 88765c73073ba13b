#pragma once

#include "platform/speaker.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace qor {

/// Tones through the computer's sound system, played by a thread of their own so that nobody waits for them.
/// A tone that comes while one sounds is dropped. Without a sound device there is silence.
class AlsaSpeaker final : public Speaker {
public:
    AlsaSpeaker();
    ~AlsaSpeaker() override;

    void Beep(int hz, int ms) override;

private:
    void Play();

    std::mutex m_Lock;
    std::condition_variable m_Wake;
    int m_Hz = 0; ///< tone asked for, 0: none
    int m_Ms = 0;
    bool m_End = false;
    std::thread m_Thread; ///< begins with the first tone
};

} // namespace qor
