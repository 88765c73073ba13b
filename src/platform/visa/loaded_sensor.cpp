#include "platform/visa/loaded_sensor.h"

#include "platform/visa/resolve.h"

namespace qor::visa {

namespace {

constexpr const char* Names[] = {"librsnrpz.so", "librsnrpz.so.1"};
constexpr int InitMs = 3000; ///< a sensor that is reset takes its time
constexpr int SetMs = 500;
constexpr int OverTimeoutMs = 500; ///< that a reading may take beyond its own time

} // namespace

std::span<const char* const> InstalledSensorNames() {
    return Names;
}

std::unique_ptr<PowerSensorLibrary> MakeSensor() {
    std::string why;
    return LoadedSensor::Load(InstalledSensorNames(), why);
}

std::unique_ptr<LoadedSensor> LoadedSensor::Load(std::span<const char* const> names, std::string& why) {
    for (const char* name : names) {
        // Never unloaded: a call that was given up may still be inside.
        void* library = dlopen(name, RTLD_NOW | RTLD_LOCAL);
        if (!library)
            continue;
        Operations o;
        std::string missing;
        if (Resolve(library, "rsnrpz_init", o.rsnrpz_init, missing) &&
            Resolve(library, "rsnrpz_chan_setContAvAperture", o.rsnrpz_chan_setContAvAperture, missing) &&
            Resolve(library, "rsnrpz_chan_setContAvSmoothingEnabled", o.rsnrpz_chan_setContAvSmoothingEnabled,
                    missing) &&
            Resolve(library, "rsnrpz_avg_configureAvgNSRatio", o.rsnrpz_avg_configureAvgNSRatio, missing) &&
            Resolve(library, "rsnrpz_chans_initiate", o.rsnrpz_chans_initiate, missing) &&
            Resolve(library, "rsnrpz_meass_readMeasurement", o.rsnrpz_meass_readMeasurement, missing) &&
            Resolve(library, "rsnrpz_close", o.rsnrpz_close, missing))
            return std::unique_ptr<LoadedSensor>(new LoadedSensor(o));
        why = std::string(name) + ": " + missing;
    }
    return nullptr;
}

std::int32_t LoadedSensor::Init(std::string_view resource, bool idQuery, bool reset, std::uint32_t& session) {
    std::string text(resource);
    return m_Operations.rsnrpz_init(text.data(), idQuery ? 1 : 0, reset ? 1 : 0, &session);
}

void LoadedSensor::SetContAvAperture(std::uint32_t session, int channel, double seconds) {
    m_Operations.rsnrpz_chan_setContAvAperture(session, channel, seconds);
}

void LoadedSensor::SetContAvSmoothingEnabled(std::uint32_t session, int channel, bool on) {
    m_Operations.rsnrpz_chan_setContAvSmoothingEnabled(session, channel, on ? 1 : 0);
}

void LoadedSensor::ConfigureAvgNSRatio(std::uint32_t session, int channel, double noiseRatio,
                                       double upperSeconds) {
    m_Operations.rsnrpz_avg_configureAvgNSRatio(session, channel, noiseRatio, upperSeconds);
}

void LoadedSensor::Initiate(std::uint32_t session) {
    m_Operations.rsnrpz_chans_initiate(session);
}

void LoadedSensor::ReadMeasurement(std::uint32_t session, int channel, int timeoutMs, double& watts) {
    m_Operations.rsnrpz_meass_readMeasurement(session, channel, timeoutMs, &watts);
}

void LoadedSensor::Close(std::uint32_t session) {
    m_Operations.rsnrpz_close(session);
}

void BoundedSensor::Do(CallThread<PowerSensorLibrary>::Job job) {
    static_cast<void>(m_Calls.Do(std::move(job), SetMs)); // what comes of it is not asked
}

std::int32_t BoundedSensor::Init(std::string_view resource, bool idQuery, bool reset,
                                 std::uint32_t& session) {
    struct Answer {
        std::int32_t status = -1;
        std::uint32_t session = 0;
    };
    m_Calls.Start();
    const auto answer = std::make_shared<Answer>();
    const auto call = m_Calls.Do(
        [=, text = std::string(resource)](PowerSensorLibrary& sensor) {
            answer->status = sensor.Init(text, idQuery, reset, answer->session);
        },
        InitMs);
    if (call != CallThread<PowerSensorLibrary>::Call::Done)
        return -1;
    session = answer->session;
    return answer->status;
}

void BoundedSensor::SetContAvAperture(std::uint32_t session, int channel, double seconds) {
    Do([=](PowerSensorLibrary& sensor) { sensor.SetContAvAperture(session, channel, seconds); });
}

void BoundedSensor::SetContAvSmoothingEnabled(std::uint32_t session, int channel, bool on) {
    Do([=](PowerSensorLibrary& sensor) { sensor.SetContAvSmoothingEnabled(session, channel, on); });
}

void BoundedSensor::ConfigureAvgNSRatio(std::uint32_t session, int channel, double noiseRatio,
                                        double upperSeconds) {
    Do([=](PowerSensorLibrary& sensor) {
        sensor.ConfigureAvgNSRatio(session, channel, noiseRatio, upperSeconds);
    });
}

void BoundedSensor::Initiate(std::uint32_t session) {
    Do([=](PowerSensorLibrary& sensor) { sensor.Initiate(session); });
}

void BoundedSensor::ReadMeasurement(std::uint32_t session, int channel, int timeoutMs, double& watts) {
    const auto answer = std::make_shared<double>(watts);
    const auto call = m_Calls.Do(
        [=](PowerSensorLibrary& sensor) { sensor.ReadMeasurement(session, channel, timeoutMs, *answer); },
        timeoutMs + OverTimeoutMs);
    if (call == CallThread<PowerSensorLibrary>::Call::Done)
        watts = *answer;
}

void BoundedSensor::Close(std::uint32_t session) {
    Do([=](PowerSensorLibrary& sensor) { sensor.Close(session); });
}

} // namespace qor::visa
