#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// Caption and state of the port button.
enum class PortButton { Scan, Open, Close };

/// A port of the list and, once probed, what hangs on it.
struct PortEntry {
    int number = 0;
    std::string text;     ///< "COM3 (/dev/ttyUSB0)", later with ": RT-DB22" behind
    bool answers = false; ///< an instrument has said its name there
};

/// Ports, the button that opens and closes them, and the search for the instrument. The connection writes it.
class ConnectionState {
public:
    [[nodiscard]] const std::vector<PortEntry>& Ports() const { return g_PortList; }
    [[nodiscard]] PortButton Button() const { return m_Button; }
    [[nodiscard]] bool ButtonIsShown() const { return m_ButtonShown; }
    [[nodiscard]] bool ListIsShown() const { return m_ListShown; }
    /// Number of the port opened last, 0 when none was.
    [[nodiscard]] int LastPort() const { return g_LastPort; }
    /// An instrument has said who it is on the port opened last.
    [[nodiscard]] bool InstrumentAnswered() const { return g_LastPort != 0 && m_AnsweredPort == g_LastPort; }
    /// The port is being closed: the button is ignored, no run begins.
    [[nodiscard]] bool IsClosing() const { return m_CloseCountdown > 0; }
    /// Ports are being looked at, outside the queue.
    [[nodiscard]] bool IsProbing() const { return g_bProbing; }
    /// Times contact was lost since the program started.
    [[nodiscard]] int Losses() const { return m_Losses; }

    /// The operator is to choose a port and to press the button; what hangs on each is known.
    [[nodiscard]] bool AwaitsChoice() const {
        return m_ListShown && m_Button == PortButton::Open && !g_bProbing && !IsClosing();
    }
    /// The entry chosen in the list box, its text; the one port that has answered until another is chosen.
    [[nodiscard]] const std::string& Chosen() const { return m_Chosen; }
    void Choose(std::string_view entry) { m_Chosen = entry; }
    /// Contact with an instrument was lost, and it has not been found again.
    [[nodiscard]] bool ContactIsLost() const { return m_ContactIsLost; }
    void CountLoss() {
        ++m_Losses;
        m_ContactIsLost = m_AnsweredPort != 0;
    }

private:
    friend class Connection;

    std::string m_comm_sel_v;                  ///< number of the selected port, as text
    std::string m_comm_settings;               ///< settings text of the port
    std::vector<PortEntry> g_PortList;         ///< ports found
    std::string m_Chosen;                      ///< entry chosen in the list box
    int g_LastPort = 0;                        ///< number of the port opened last
    int m_AnsweredPort = 0;                    ///< number of the port where an instrument has answered
    int g_ProbeIndex = 0;                      ///< port being looked at
    bool g_bProbing = false;                   ///< its answer is awaited
    bool m_ProbeIsOut = false;                 ///< it was asked
    bool g_bProbeSlow = true;                  ///< it is asked at 9600 baud
    std::map<int, std::string> m_PortSettings; ///< settings at which a port has answered
    int tagCommTimer = 0;                      ///< ticks of the wait for an identity
    bool bCOMResponse = true;                  ///< the last opening has come back
    int m_CloseCountdown = 0;                  ///< ticks until the port closes
    PortButton m_Button = PortButton::Scan;
    bool m_ButtonShown = false;
    bool m_ListShown = false;
    int m_Losses = 0;
    bool m_ContactIsLost = false;
};

} // namespace qor
