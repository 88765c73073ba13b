#include "platform/alsa/alsa_speaker.h"
#include "support/temp_dir.h"

#include <chrono>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <thread>

namespace qor::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// What a device that writes to a file has been given, 16 bits a sample.
std::vector<std::int16_t> Played(const std::filesystem::path& path) {
    const std::string bytes = FileText(path);
    std::vector<std::int16_t> samples(bytes.size() / 2);
    std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
    return samples;
}

TEST(AlsaSpeaker, PlaysTheToneForItsTimeWithoutKeepingTheCallerWaiting) {
    TempDir dir;
    const auto file = dir / "tone";
    constexpr std::size_t Samples = 44100 * 3 / 10;
    std::vector<std::int16_t> samples;
    {
        AlsaSpeaker speaker("file:'" + file.string() + "',raw");
        const auto begin = steady_clock::now();
        speaker.Beep(0, 300);
        speaker.Beep(1500, 0);
        speaker.Beep(1500, 300);
        EXPECT_LT(steady_clock::now() - begin, milliseconds(250));
        while (samples.size() < Samples && steady_clock::now() - begin < std::chrono::seconds(10)) {
            std::this_thread::sleep_for(milliseconds(20));
            samples = Played(file);
        }
    }
    ASSERT_GE(samples.size(), Samples) << "300 ms at 44.1 kHz";
    int rising = 0;
    for (std::size_t i = 1; i < 4410; ++i)
        rising += samples[i - 1] < 0 && samples[i] >= 0 ? 1 : 0;
    EXPECT_NEAR(rising, 150, 2);
    EXPECT_LT(std::abs(samples[1]), 1000) << "it swells";
}

TEST(AlsaSpeaker, WithoutSoundItIsSilentAndEndsAtOnce) {
    const auto begin = steady_clock::now();
    for (const char* device : {"no such device", "default", "null"}) {
        AlsaSpeaker speaker(device);
        testing::internal::CaptureStderr();
        for (int i = 0; i < 50; ++i)
            speaker.Beep(2200, 5000);
        std::this_thread::sleep_for(milliseconds(50));
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << device;
    }
    EXPECT_LT(steady_clock::now() - begin, milliseconds(2000)) << "a tone that sounds is broken off";
}

} // namespace
} // namespace qor::test
