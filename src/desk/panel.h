#pragma once

#include <string>

namespace qor {

struct Session;

/// The one lamp of the form.
enum class Lamp {
    NotReady, ///< red: a start would be refused, there is no instrument or its initialisation is under way
    Running,
    Ready, ///< green
};

/// What the operator sees on the panel. Nothing keeps one, and nothing is decided by its texts.
struct Panel {
    std::string m_Band_sel;
    std::string m_IM_sel;
    std::string m_Mode_sel;
    std::string m_Path_sel;
    std::string m_SweepKind_text;
    std::string m_f1_text;
    std::string m_f2_text;
    std::string m_fIM_text;
    std::string m_ReadingText; ///< level read last, in the unit shown
    std::string m_WorstFreqText;
    std::string m_WorstLevelText;
    std::string m_AlarmText;
    std::string m_lossInfo; ///< compensation and cable loss, empty until one is set
    /// The external receiver in use: what it is, or where it is missing and why. Empty for the instrument's.
    std::string receiver;
    bool receiverMissing = false;
    std::string unit;
    bool overLimit = false; ///< the level read last: its box is red
    // Of a file that is shown; empty without one.
    std::string m_FileText; ///< its name
    std::string m_NextText; ///< what the next start measures: "EGSM IM3 2-TON 43.0 / 43.0 dBm 5 s"
    std::string m_FileNote; ///< why nothing of it is in force, or what it does not state
    Lamp lamp = Lamp::NotReady;
    bool portButtonShown = false;
    bool portListShown = false;
    bool menuShown = true; ///< an operator goes without the menu bar
};

[[nodiscard]] Panel PanelOf(const Session& session);

} // namespace qor
