#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace qor {

/// What the unit says of itself, and how it stands in the list of ports.
inline constexpr std::string_view SwitchUnitName = "MPX";

/// Settings at which instruments speak.
inline constexpr std::string_view InstrumentSettings = "9600,n,8,1";

/// What is known of the band switch unit, the relay box on a port of its own.
class SwitchUnitState {
public:
    [[nodiscard]] bool IsKnown() const { return m_MpxPort != 0; }
    /// COM number of its port, 0 while no unit is known.
    [[nodiscard]] int Port() const { return m_MpxPort; }
    [[nodiscard]] const std::string& Settings() const { return m_Settings; }
    /// The band that its relays were told last and have answered; empty while that is not known.
    [[nodiscard]] const std::string& Band() const { return m_Band; }
    /// It was told a band that its table does not have.
    [[nodiscard]] bool LacksPosition() const { return !m_Band.empty() && !m_HasPosition; }
    /// It did not answer when it was told a band: where its relays stand nobody knows.
    [[nodiscard]] bool IsSilent() const { return m_IsSilent; }
    /// The line is lent to it: what is on the wire is not the instrument's.
    [[nodiscard]] bool HasLine() const { return g_bSetMPXband; }

    /// It has said its name on port `number`, at these settings.
    void Found(int number, std::string_view settings) {
        if (number != m_MpxPort)
            Forget();
        m_MpxPort = number;
        m_Settings = settings;
    }
    /// An instrument has answered on its port.
    void Forget() { *this = {}; }
    void Lend() {
        g_bSetMPXband = true;
        m_Band.clear();
    }
    void Return() { g_bSetMPXband = false; }
    void StandsAt(std::string band, bool hasPosition) {
        m_Band = std::move(band);
        m_HasPosition = hasPosition;
        m_IsSilent = false;
    }
    void WasSilent() { m_IsSilent = true; }

private:
    int m_MpxPort = 0;          ///< COM number; 0 when no unit is known
    std::string m_Settings;     ///< at which it has answered
    bool g_bSetMPXband = false; ///< a transaction with it runs
    std::string m_Band;
    bool m_HasPosition = false;
    bool m_IsSilent = false;
};

} // namespace qor
