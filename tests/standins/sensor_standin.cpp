// The library of the power sensors as their maker installs it: one sensor, which hears QOR_STANDIN_WATTS.
#include "standins/standin.h"

#include <cstdint>

extern "C" {

std::int32_t rsnrpz_init(char* resource, std::uint16_t idQuery, std::uint16_t reset, std::uint32_t* session) {
    Note("rsnrpz_init", " %s %u %u", resource, static_cast<unsigned>(idQuery), static_cast<unsigned>(reset));
    *session = 80;
    return std::atoi(Told("QOR_STANDIN_SENSOR", "0"));
}

std::int32_t rsnrpz_chan_setContAvAperture(std::uint32_t session, std::int32_t channel, double seconds) {
    Note("rsnrpz_chan_setContAvAperture", " %u %d %g", session, channel, seconds);
    return -1; // its result is nobody's matter
}

std::int32_t rsnrpz_chan_setContAvSmoothingEnabled(std::uint32_t session, std::int32_t channel,
                                                   std::uint16_t on) {
    Note("rsnrpz_chan_setContAvSmoothingEnabled", " %u %d %u", session, channel, static_cast<unsigned>(on));
    return -1;
}

std::int32_t rsnrpz_avg_configureAvgNSRatio(std::uint32_t session, std::int32_t channel, double ratio,
                                            double seconds) {
    Note("rsnrpz_avg_configureAvgNSRatio", " %u %d %g %g", session, channel, ratio, seconds);
    return -1;
}

std::int32_t rsnrpz_chans_initiate(std::uint32_t session) {
    Note("rsnrpz_chans_initiate", " %u", session);
    return -1;
}

#ifndef QOR_STANDIN_OLD
std::int32_t rsnrpz_meass_readMeasurement(std::uint32_t session, std::int32_t channel, std::int32_t timeoutMs,
                                          double* watts) {
    Note("rsnrpz_meass_readMeasurement", " %u %d %d", session, channel, timeoutMs);
    *watts = std::atof(Told("QOR_STANDIN_WATTS", "1e-8"));
    return 0;
}
#endif

std::int32_t rsnrpz_close(std::uint32_t session) {
    Note("rsnrpz_close", " %u", session);
    return 0;
}
}
