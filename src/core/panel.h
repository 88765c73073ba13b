#pragma once

#include "bands/catalogue.h"

#include <string>
#include <string_view>

namespace qor {

/// The one lamp of the form.
enum class Lamp {
    NotReady, ///< red: no instrument, or its initialisation is under way
    Running,
    Ready, ///< green
};

/// What the operator sees on the panel. The engine writes it, a window mirrors it on Refresh.
struct Panel {
    std::string m_Band_sel{NoBandText};
    std::string m_IM_sel = "IM3";
    std::string m_Mode_sel{"2 Ton Modell"};
    std::string m_Path_sel{"Reflex Modell"};
    std::string m_SweepKind_text = "Single";
    std::string m_f1_text;
    std::string m_f2_text;
    std::string m_fIM_text;
    std::string m_ReadingText; ///< a blank at its end marks the frozen text of a stopped run
    std::string m_WorstFreqText;
    std::string m_WorstLevelText;
    std::string m_AlarmText = "-90.0";
    std::string m_lossInfo; ///< compensation and cable loss, empty until one is set
    Lamp lamp = Lamp::NotReady;
    bool portButtonShown = false;
    bool portListShown = false;
    bool menuShown = true; ///< an operator goes without the menu bar
};

// shown to the operator
inline constexpr std::string_view ReflectionText = "Reflex Modell";
// shown to the operator
inline constexpr std::string_view TransmissionText = "Uegerbegen Modell";
// shown to the operator
inline constexpr std::string_view TwoToneText = "2 Ton Modell";
// shown to the operator
inline constexpr std::string_view SweepText = "Scannen Modell";
// shown to the operator
inline constexpr std::string_view SpectrumText = "Spectrum Mode";

} // namespace qor
