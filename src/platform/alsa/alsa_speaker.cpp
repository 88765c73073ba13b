#include "platform/alsa/alsa_speaker.h"

#include <algorithm>
#include <alsa/asoundlib.h>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <memory>
#include <numbers>
#include <utility>
#include <vector>

namespace qor {

namespace {

constexpr unsigned Rate = 44100; ///< frames per second
constexpr unsigned LatencyUs = 50000;
constexpr int HighestHz = 20000;
constexpr int LongestMs = 5000;
constexpr int RampMs = 5; ///< a tone that begins or ends at once clicks
constexpr double Loudness = 0.5 * 32767;
constexpr int Patience = 20; ///< waits for a device that takes nothing; then the tone is given up
constexpr int WaitMs = 10;

/// The library would print what goes wrong; a computer without sound is no fault.
void Silent(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
            const char* /*format*/, ...) {} // NOLINT(cert-dcl50-cpp)

std::vector<std::int16_t> Samples(int hz, int ms) {
    std::vector<std::int16_t> samples(static_cast<std::size_t>(Rate) * static_cast<std::size_t>(ms) / 1000);
    const double ramp = Rate * RampMs / 1000.0;
    const double perSample = 2 * std::numbers::pi * hz / Rate;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const auto fromEnd = static_cast<double>(std::min(i, samples.size() - 1 - i));
        const double swell = std::min(fromEnd / ramp, 1.0);
        samples[i] = static_cast<std::int16_t>(
            std::lround(Loudness * swell * std::sin(perSample * static_cast<double>(i))));
    }
    return samples;
}

} // namespace

AlsaSpeaker::AlsaSpeaker(std::string device) : m_Device(std::move(device)) {
    snd_lib_error_set_handler(&Silent);
    m_Thread = std::thread([this] { Work(); });
}

AlsaSpeaker::~AlsaSpeaker() {
    {
        const std::lock_guard lock(m_Mutex);
        m_End = true;
    }
    m_Changed.notify_all();
    m_Thread.join();
    snd_config_update_free_global();
}

void AlsaSpeaker::Beep(int hz, int ms) {
    if (hz <= 0 || ms <= 0)
        return;
    {
        const std::lock_guard lock(m_Mutex);
        m_Next = {std::min(hz, HighestHz), std::min(ms, LongestMs)};
    }
    m_Changed.notify_all();
}

void AlsaSpeaker::Work() {
    for (;;) {
        Tone tone;
        {
            std::unique_lock lock(m_Mutex);
            m_Changed.wait(lock, [this] { return m_End || m_Next.hz != 0; });
            if (m_End)
                return;
            tone = std::exchange(m_Next, {});
        }
        Play(tone);
    }
}

/// False when the program ends meanwhile.
bool AlsaSpeaker::Pause(int ms) {
    std::unique_lock lock(m_Mutex);
    return !m_Changed.wait_for(lock, std::chrono::milliseconds(ms), [this] { return m_End; });
}

/// Never waits in the library: a device that hangs must not keep the program from ending.
void AlsaSpeaker::Play(const Tone& tone) {
    snd_pcm_t* opened = nullptr;
    if (snd_pcm_open(&opened, m_Device.c_str(), SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK) < 0)
        return;
    const std::unique_ptr<snd_pcm_t, int (*)(snd_pcm_t*)> pcm(opened, &snd_pcm_close);
    constexpr int Resample = 1;
    if (snd_pcm_set_params(opened, SND_PCM_FORMAT_S16, SND_PCM_ACCESS_RW_INTERLEAVED, 1, Rate, Resample,
                           LatencyUs) < 0)
        return;
    const std::vector<std::int16_t> samples = Samples(tone.hz, tone.ms);
    std::size_t written = 0;
    for (int waits = 0; written < samples.size();) {
        const snd_pcm_sframes_t taken = snd_pcm_writei(opened, &samples[written], samples.size() - written);
        if (taken > 0) {
            written += static_cast<std::size_t>(taken);
            waits = 0;
        } else if ((taken != 0 && taken != -EAGAIN &&
                    snd_pcm_recover(opened, static_cast<int>(taken), 1) < 0) ||
                   ++waits > Patience || !Pause(WaitMs)) {
            break;
        }
    }
    if (written == samples.size()) {
        snd_pcm_start(opened); // a tone shorter than the buffer has not begun by itself
        snd_pcm_sframes_t left = 0;
        for (int waits = 0; waits <= tone.ms / WaitMs + Patience; ++waits) {
            if (snd_pcm_state(opened) != SND_PCM_STATE_RUNNING || snd_pcm_delay(opened, &left) < 0 ||
                left <= 0 || !Pause(WaitMs))
                break;
        }
    }
    snd_pcm_drop(opened);
}

} // namespace qor
