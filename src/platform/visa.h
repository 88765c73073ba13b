#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace qor {

/// Calls that may take seconds. While one is under way `whileWaiting` runs every 50 ms or so: the window
/// lives there, and a stop or the way out gives the call up through Abandon; it comes back at once as failed.
class SlowCalls {
public:
    SlowCalls() = default;
    SlowCalls(const SlowCalls&) = delete;
    SlowCalls& operator=(const SlowCalls&) = delete;

    virtual void SetWhileWaiting(std::function<void()> /*whileWaiting*/) {}
    virtual void Abandon() {}

protected:
    ~SlowCalls() = default;
};

/// Number of an open VISA session; 0 is none.
using VisaSession = std::uint32_t;
/// Result of a VISA operation: negative is a failure.
using VisaStatus = std::int32_t;

enum class VisaAttribute { TimeoutMs, ReadBufferMode, WriteBufferMode };

namespace visa {

// The published results that are told apart.
inline constexpr VisaStatus Success = 0;
inline constexpr VisaStatus ErrorInvalidObject = static_cast<VisaStatus>(0xBFFF000E);
inline constexpr VisaStatus ErrorNotFound = static_cast<VisaStatus>(0xBFFF0011);
inline constexpr VisaStatus ErrorInvalidName = static_cast<VisaStatus>(0xBFFF0012);
inline constexpr VisaStatus ErrorTimeout = static_cast<VisaStatus>(0xBFFF0015);
inline constexpr VisaStatus ErrorNoLibrary = static_cast<VisaStatus>(0xBFFF009E);
inline constexpr VisaStatus ErrorConnectionLost = static_cast<VisaStatus>(0xBFFF00A6);

} // namespace visa

/// The operations of a VISA library, under their published names without the "vi".
class VisaLibrary : public SlowCalls {
public:
    virtual ~VisaLibrary() = default;

    /// A library that a maker has installed: only one reaches GPIB.
    [[nodiscard]] virtual bool IsInstalled() { return false; }
    /// Bound of each Open, ms; 0 is the usual one.
    virtual void LimitOpen(int /*ms*/) {}

    virtual VisaStatus OpenDefaultRM(VisaSession& manager) = 0;
    virtual VisaStatus Open(VisaSession manager, std::string_view address, VisaSession& session) = 0;
    virtual VisaStatus Close(VisaSession session) = 0;
    virtual VisaStatus SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) = 0;
    /// Size of both buffers of a session, bytes.
    virtual VisaStatus SetBuf(VisaSession /*session*/, std::uint32_t /*bytes*/) { return visa::Success; }
    virtual VisaStatus Write(VisaSession session, std::string_view text) = 0;
    /// Reads at most `limit` bytes into `reply`, replacing it.
    virtual VisaStatus Read(VisaSession session, std::size_t limit, std::string& reply) = 0;
};

/// The operations of a USB power sensor's library, under their published names without the "rsnrpz".
class PowerSensorLibrary : public SlowCalls {
public:
    virtual ~PowerSensorLibrary() = default;

    /// What measures, as it is kept with a result.
    [[nodiscard]] virtual std::string Name() { return "rsnrpz"; }

    /// 0: a sensor is open.
    virtual std::int32_t Init(std::string_view resource, bool idQuery, bool reset,
                              std::uint32_t& session) = 0;
    virtual void SetContAvAperture(std::uint32_t session, int channel, double seconds) = 0;
    virtual void SetContAvSmoothingEnabled(std::uint32_t session, int channel, bool on) = 0;
    virtual void ConfigureAvgNSRatio(std::uint32_t session, int channel, double noiseRatio,
                                     double upperSeconds) = 0;
    virtual void Initiate(std::uint32_t session) = 0;
    /// Leaves `watts` alone when there is no result within the time.
    virtual void ReadMeasurement(std::uint32_t session, int channel, int timeoutMs, double& watts) = 0;
    virtual void Close(std::uint32_t session) = 0;
};

} // namespace qor
