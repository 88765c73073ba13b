#pragma once

#include "platform/visa.h"
#include "platform/visa/call_thread.h"

#include <span>

namespace qor::visa {

/// Names under which the maker installs the library of the power sensors.
[[nodiscard]] std::span<const char* const> InstalledSensorNames();

/// The maker's library through its published C interface. It blocks as long as it likes: see BoundedSensor.
class LoadedSensor final : public PowerSensorLibrary {
public:
    /// The first of the libraries that loads and has all operations; none when there is none. `why` then
    /// names the operation that one of them lacks.
    [[nodiscard]] static std::unique_ptr<LoadedSensor> Load(std::span<const char* const> names,
                                                            std::string& why);

    std::int32_t Init(std::string_view resource, bool idQuery, bool reset, std::uint32_t& session) override;
    void SetContAvAperture(std::uint32_t session, int channel, double seconds) override;
    void SetContAvSmoothingEnabled(std::uint32_t session, int channel, bool on) override;
    void ConfigureAvgNSRatio(std::uint32_t session, int channel, double noiseRatio,
                             double upperSeconds) override;
    void Initiate(std::uint32_t session) override;
    void ReadMeasurement(std::uint32_t session, int channel, int timeoutMs, double& watts) override;
    void Close(std::uint32_t session) override;

private:
    // The published types: 32-bit sessions, results and channels, 16-bit truth values.
    struct Operations {
        std::int32_t (*rsnrpz_init)(char*, std::uint16_t, std::uint16_t, std::uint32_t*) = nullptr;
        std::int32_t (*rsnrpz_chan_setContAvAperture)(std::uint32_t, std::int32_t, double) = nullptr;
        std::int32_t (*rsnrpz_chan_setContAvSmoothingEnabled)(std::uint32_t, std::int32_t,
                                                              std::uint16_t) = nullptr;
        std::int32_t (*rsnrpz_avg_configureAvgNSRatio)(std::uint32_t, std::int32_t, double, double) = nullptr;
        std::int32_t (*rsnrpz_chans_initiate)(std::uint32_t) = nullptr;
        std::int32_t (*rsnrpz_meass_readMeasurement)(std::uint32_t, std::int32_t, std::int32_t,
                                                     double*) = nullptr;
        std::int32_t (*rsnrpz_close)(std::uint32_t) = nullptr;
    };
    explicit LoadedSensor(const Operations& operations) : m_Operations(operations) {}

    Operations m_Operations;
};

/// A sensor's library whose every call comes back by a deadline. Behind a call that is given up it is taken
/// as gone until Init.
class BoundedSensor final : public PowerSensorLibrary {
public:
    explicit BoundedSensor(CallThread<PowerSensorLibrary>::Factory factory) : m_Calls(std::move(factory)) {}

    void SetWhileWaiting(std::function<void()> whileWaiting) override {
        m_Calls.SetWhileWaiting(std::move(whileWaiting));
    }
    void Abandon() override { m_Calls.Abandon(); }

    std::int32_t Init(std::string_view resource, bool idQuery, bool reset, std::uint32_t& session) override;
    void SetContAvAperture(std::uint32_t session, int channel, double seconds) override;
    void SetContAvSmoothingEnabled(std::uint32_t session, int channel, bool on) override;
    void ConfigureAvgNSRatio(std::uint32_t session, int channel, double noiseRatio,
                             double upperSeconds) override;
    void Initiate(std::uint32_t session) override;
    void ReadMeasurement(std::uint32_t session, int channel, int timeoutMs, double& watts) override;
    void Close(std::uint32_t session) override;

private:
    void Do(CallThread<PowerSensorLibrary>::Job job);

    CallThread<PowerSensorLibrary> m_Calls;
};

/// The sensor's library of this computer; none when it is not installed.
[[nodiscard]] std::unique_ptr<PowerSensorLibrary> MakeSensor();

} // namespace qor::visa
