#pragma once

namespace qor {

class Channel;
class Connection;
class Initialisation;
class SetupStore;
struct Platform;
struct Session;

/// The operator's choices of band, order, method and path, each behind the guards that keep a run or an
/// initialisation from being disturbed. A refusal is told to the operator and changes nothing.
class Selection {
public:
    Selection(Session& session, const Platform& platform, SetupStore& store, Channel& channel,
              Initialisation& init, Connection& connection);

    /// The band selected already is deselected, as a second click on its menu item means it.
    bool SelectBand(int band);
    bool SelectOrder(int imIndex); ///< 1 IM3 to 5 IM11; ignored in the inter-band mode
    bool SelectMethod(int mode);   ///< TestMode; a spectrum run is started by the start button
    bool SelectPath(int path);     ///< 1 reflection, 2 transmission
    /// Levels are read with the instrument's own receiver, and the choice is kept.
    void UseInternalReceiver();
    /// A new plot for what has just been chosen: its frequencies, powers and axis become the working set.
    void ResetPlot();
    /// Renews the panel's text for the kind of repetition.
    void ShowRepetition();

private:
    Session& m_Session;
    const Platform& m_Platform;
    SetupStore& m_Store;
    Channel& m_Channel;
    Initialisation& m_Init;
    Connection& m_Connection;
};

} // namespace qor
