#pragma once

#include "bands/band.h"

#include <string>
#include <string_view>

namespace qor {

class SetupStore;
struct Platform;
struct Session;

/// Makes the selected band and order the working set: frequencies and powers from the stores or the built-in
/// tables, the settings queued for the instrument, the frequency axis of the plot.
class BandActivation {
public:
    BandActivation(Session& session, const Platform& platform, SetupStore& store);

    /// With `keepCurve` the plot stays as it is: a run that a lost line cut short can still be saved.
    /// A band without a plan sets nothing. False when there is no band or a tone is above 46.0 dBm with its
    /// compensation: the initialisation chain stops there.
    bool HardBandInit(bool keepCurve);

private:
    void TakeLimits();
    void TakeFrequencies(std::string_view prefix);
    [[nodiscard]] bool QueuePower(std::string_view command, const std::string& stored,
                                  const std::string& compensation, std::string_view refusal);
    void ResetPlot();

    Session& m_Session;
    const Platform& m_Platform;
    SetupStore& m_Store;
};

} // namespace qor
