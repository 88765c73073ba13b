#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qor {

/// Number of an open VISA session; 0 is none.
using VisaSession = std::uint32_t;
/// Result of a VISA operation: negative is a failure.
using VisaStatus = std::int32_t;

enum class VisaAttribute { TimeoutMs, ReadBufferMode, WriteBufferMode };

/// The operations of a VISA library, under their published names without the "vi".
class VisaLibrary {
public:
    VisaLibrary() = default;
    VisaLibrary(const VisaLibrary&) = delete;
    VisaLibrary& operator=(const VisaLibrary&) = delete;
    virtual ~VisaLibrary() = default;

    virtual VisaStatus OpenDefaultRM(VisaSession& manager) = 0;
    virtual VisaStatus Open(VisaSession manager, std::string_view address, VisaSession& session) = 0;
    virtual VisaStatus Close(VisaSession session) = 0;
    virtual VisaStatus SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) = 0;
    virtual VisaStatus Write(VisaSession session, std::string_view text) = 0;
    /// Reads at most `limit` bytes into `reply`, replacing it.
    virtual VisaStatus Read(VisaSession session, std::size_t limit, std::string& reply) = 0;
};

/// The measuring operation of a USB power sensor's library.
class PowerSensorLibrary {
public:
    PowerSensorLibrary() = default;
    PowerSensorLibrary(const PowerSensorLibrary&) = delete;
    PowerSensorLibrary& operator=(const PowerSensorLibrary&) = delete;
    virtual ~PowerSensorLibrary() = default;

    /// Leaves `watts` alone when there is no result within the time.
    virtual void ReadMeasurement(std::uint32_t session, int channel, int timeoutMs, double& watts) = 0;
};

} // namespace qor
