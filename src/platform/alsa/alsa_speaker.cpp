#include "platform/alsa/alsa_speaker.h"

#include <algorithm>
#include <alsa/asoundlib.h>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace qor {

namespace {

constexpr unsigned Rate = 44100;
constexpr unsigned LatencyUs = 50000;
constexpr double Loudness = 9000; ///< of 32767
constexpr int FadeSamples = 200;  ///< at both ends, against clicks

void Quiet(const char*, int, const char*, int, const char*, ...) {}

std::vector<std::int16_t> Tone(int hz, int ms) {
    std::vector<std::int16_t> samples(static_cast<std::size_t>(Rate) * static_cast<std::size_t>(ms) / 1000);
    const int count = static_cast<int>(samples.size());
    for (int i = 0; i < count; ++i) {
        const double fade = std::min(
            {1.0, i / static_cast<double>(FadeSamples), (count - i) / static_cast<double>(FadeSamples)});
        const double phase = 2 * std::numbers::pi * hz * i / Rate;
        samples[static_cast<std::size_t>(i)] = static_cast<std::int16_t>(Loudness * fade * std::sin(phase));
    }
    return samples;
}

void PlayTone(int hz, int ms) {
    snd_pcm_t* device = nullptr;
    if (snd_pcm_open(&device, "default", SND_PCM_STREAM_PLAYBACK, 0) < 0)
        return;
    if (snd_pcm_set_params(device, SND_PCM_FORMAT_S16, SND_PCM_ACCESS_RW_INTERLEAVED, 1, Rate, 1,
                           LatencyUs) == 0) {
        const std::vector<std::int16_t> samples = Tone(hz, ms);
        snd_pcm_sframes_t written = snd_pcm_writei(device, samples.data(), samples.size());
        if (written < 0)
            written = snd_pcm_recover(device, static_cast<int>(written), 1);
        if (written >= 0)
            snd_pcm_drain(device);
    }
    snd_pcm_close(device);
}

} // namespace

AlsaSpeaker::AlsaSpeaker() {
    snd_lib_error_set_handler(Quiet);
}

AlsaSpeaker::~AlsaSpeaker() {
    {
        const std::lock_guard lock(m_Lock);
        m_End = true;
    }
    m_Wake.notify_one();
    if (m_Thread.joinable())
        m_Thread.join();
    snd_config_update_free_global();
}

void AlsaSpeaker::Beep(int hz, int ms) {
    if (hz <= 0 || ms <= 0)
        return;
    {
        const std::lock_guard lock(m_Lock);
        m_Hz = hz;
        m_Ms = std::min(ms, 10000);
    }
    if (!m_Thread.joinable())
        m_Thread = std::thread([this] { Play(); });
    m_Wake.notify_one();
}

void AlsaSpeaker::Play() {
    for (;;) {
        int hz = 0;
        int ms = 0;
        {
            std::unique_lock lock(m_Lock);
            m_Wake.wait(lock, [this] { return m_End || m_Hz != 0; });
            if (m_End)
                return;
            hz = m_Hz;
            ms = m_Ms;
        }
        PlayTone(hz, ms);
        const std::lock_guard lock(m_Lock);
        m_Hz = 0; // what was asked for meanwhile is over
    }
}

} // namespace qor
