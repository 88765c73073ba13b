#pragma once

#include "base/outcome.h"

namespace qor {

class Connection;
class InstrumentSelection;
class SetupStore;
struct Platform;
struct Session;

/// The operator's choices of band, order, method and path, each behind the guards that keep a run or an
/// initialisation from being disturbed. What is refused changes nothing.
class Selection {
public:
    Selection(Session& session, const Platform& platform, SetupStore& store, InstrumentSelection& instrument,
              Connection& connection);

    /// The band selected already is deselected, as a second click on its menu item means it.
    Outcome SelectBand(int band);
    Outcome SelectOrder(int imIndex); ///< 1 IM3 to 5 IM11; ignored in the inter-band mode
    Outcome SelectMethod(int mode);   ///< TestMode; a spectrum run is started by the start button
    Outcome SelectPath(int path);     ///< 1 reflection, 2 transmission

private:
    [[nodiscard]] Outcome MayChoose() const;

    Session& m_Session;
    const Platform& m_Platform;
    SetupStore& m_Store;
    InstrumentSelection& m_Instrument;
    Connection& m_Connection;
};

} // namespace qor
