#pragma once

#include "base/outcome.h"

#include <string>

namespace qor {

class CMSComm;
class Channel;
class GivenToInstrument;
class Initialisation;
class RunControl;
class WorkingSet;
struct LinkState;

/// Brings band, order and path to the instrument, as an operator chooses them.
class InstrumentSelection {
public:
    InstrumentSelection(LinkState& link, WorkingSet& working, CMSComm& comm, Channel& channel,
                        Initialisation& init, const RunControl& run)
        : m_Link(link), m_Working(working), m_Comm(comm), m_Channel(channel), m_Init(init), m_Run(run) {}

    /// Refused when this model and firmware do not carry the band.
    [[nodiscard]] Outcome Carries(int band) const;
    /// The same, and nothing has changed then.
    Outcome SelectBand(int band);
    void SelectOrder(int imIndex);
    void SelectPath(int path);
    /// The instrument's own receiver measures again.
    void UseOwnReceiver();
    /// The measurement is handed over to an external one.
    void UseExternalReceiver();
    /// What is selected becomes the working set, and goes to the instrument where it is connected.
    void Activate();

    /// The instrument stands in a position that only shares its name with the catalogue's of the band in
    /// force.
    [[nodiscard]] bool StandsElsewhere() const;
    /// True when the instrument was last given another position, order or power than those in force: it would
    /// measure something else than the panel shows.
    [[nodiscard]] bool DiffersFromInstrument() const;
    /// Refused while a tone in force is above 46.0 dBm with its compensation: it is not sent.
    [[nodiscard]] Outcome PowersFit() const;
    /// Chooses band and order in force anew, as the operator would; the curve in the plot stays. Nothing is
    /// said to the instrument when it does not carry them: that is refused with its reason.
    Outcome BringToInstrument();

private:
    Outcome SelectBand(int band, bool byOperator);
    void Activate(bool byOperator);
    [[nodiscard]] std::string PositionOf(int band) const;
    [[nodiscard]] GivenToInstrument Coming() const;
    [[nodiscard]] bool ReceiverDiffers(const GivenToInstrument& given) const;
    [[nodiscard]] bool PowerDiffers(const GivenToInstrument& given) const;

    LinkState& m_Link;
    WorkingSet& m_Working;
    CMSComm& m_Comm;
    Channel& m_Channel;
    Initialisation& m_Init;
    const RunControl& m_Run;
};

} // namespace qor
