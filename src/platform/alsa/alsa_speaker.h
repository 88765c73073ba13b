#pragma once

#include "platform/speaker.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace qor {

/// The loudspeaker through ALSA. Tones are played by a thread of their own, one at a time; a tone that comes
/// while another sounds takes the place of the one that waits. A computer without sound is asked anew for
/// each tone, so one that gets its sound later is heard.
class AlsaSpeaker final : public Speaker {
public:
    /// `device` is a name of the ALSA configuration.
    explicit AlsaSpeaker(std::string device = "default");
    /// Breaks off the tone that sounds.
    ~AlsaSpeaker() override;

    void Beep(int hz, int ms) override;

private:
    struct Tone {
        int hz = 0;
        int ms = 0;
    };

    void Work();
    void Play(const Tone& tone);
    bool Pause(int ms);

    const std::string m_Device;
    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    Tone m_Next; ///< 0 Hz: none waits
    bool m_End = false;
    std::thread m_Thread;
};

} // namespace qor
