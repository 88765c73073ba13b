#pragma once

#include "base/outcome.h"

#include <string>
#include <string_view>

namespace qor {

class CommandQueue;
class SetupStore;
class WorkingSet;

/// Makes the selected band and order the working set: frequencies and powers from the stores or the built-in
/// tables, and the settings queued for the instrument.
class BandActivation {
public:
    BandActivation(WorkingSet& working, CommandQueue& queue, SetupStore& store)
        : m_Working(working), m_Queue(queue), m_Store(store) {}

    /// `firmware` decides what the instrument understands. Refused when there is no band, or, in words, when
    /// a tone is above 46.0 dBm with its compensation: the initialisation chain stops there. A band without a
    /// plan sets nothing.
    Outcome Activate(float firmware);
    /// Refused, with the tone's name, when one of the stored powers is above 46.0 dBm with its compensation.
    [[nodiscard]] static Outcome Fits(std::string_view power1, std::string_view power2,
                                      const WorkingSet& working);
    /// Neither tone is above 46.0 dBm with its compensation, by what the store holds now.
    [[nodiscard]] bool PowersFit() const;
    /// What is said to an operator whose order the band does not have.
    [[nodiscard]] bool HasOrder() const { return m_HasOrder; }

    /// Wifi and positions that carry nothing take no part in it.
    [[nodiscard]] static bool TakesPart(int band);
    /// "#SPWA" or "#SPWB" with a stored power, tenths of dBm, and the compensation in dB; empty above 46.0
    /// dBm.
    [[nodiscard]] static std::string PowerCommand(std::string_view command, std::string_view stored,
                                                  std::string_view compensation);

private:
    void TakeFrequencies(int band);
    void QueuePlan();

    WorkingSet& m_Working;
    CommandQueue& m_Queue;
    SetupStore& m_Store;
    bool m_HasOrder = true;
};

} // namespace qor
