#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qor {

/// Caption and state of the port button.
enum class PortButton { Scan, Open, Close };

/// A port of the list and, once probed, what hangs on it.
struct PortEntry {
    int number = 0;
    std::string text;     ///< "COM3 (/dev/ttyUSB0)", later with ": RT-DB22" behind
    bool answers = false; ///< an instrument has said its name there
    bool isUnit = false;  ///< the band switch unit has
};

/// What the connection shows of itself: ports, the button that opens and closes them, and how far it is.
class ConnectionState {
public:
    [[nodiscard]] const std::vector<PortEntry>& Ports() const { return g_PortList; }
    [[nodiscard]] PortButton Button() const { return m_Button; }
    [[nodiscard]] bool ButtonIsShown() const { return m_ButtonShown; }
    [[nodiscard]] bool ListIsShown() const { return m_ListShown; }
    /// The entry chosen in the list box, its text; the one port that has answered until another is chosen.
    [[nodiscard]] const std::string& Chosen() const { return m_Chosen; }
    /// Number of the port opened last, 0 when none was.
    [[nodiscard]] int LastPort() const { return g_LastPort; }
    /// An instrument has said who it is on the port opened last.
    [[nodiscard]] bool InstrumentAnswered() const { return g_LastPort != 0 && m_AnsweredPort == g_LastPort; }
    /// The port is being closed: the button is ignored, no run begins.
    [[nodiscard]] bool IsClosing() const { return m_Closing; }
    /// Ports are being looked at, outside the queue.
    [[nodiscard]] bool IsProbing() const { return g_bProbing; }
    /// Times contact was lost since the program started.
    [[nodiscard]] int Losses() const { return m_Losses; }

    /// The operator is to choose a port and to press the button; what hangs on each is known.
    [[nodiscard]] bool AwaitsChoice() const {
        return m_ListShown && m_Button == PortButton::Open && !g_bProbing && !m_ProbeIsDue && !m_Closing;
    }
    /// Contact with an instrument was lost, and it has not been found again.
    [[nodiscard]] bool ContactIsLost() const { return m_ContactIsLost; }

    void Choose(std::string_view entry) { m_Chosen = entry; }
    void CountLoss() {
        ++m_Losses;
        m_ContactIsLost = m_AnsweredPort != 0;
    }
    /// The ports found now; nothing is chosen among them.
    void TakePorts(std::vector<PortEntry> ports) {
        g_PortList = std::move(ports);
        m_Chosen.clear();
    }
    /// An instrument has answered on a port: says so in the list, with its model where that is known.
    void Label(std::size_t index, std::string_view model) {
        PortEntry& entry = g_PortList[index];
        entry.answers = true;
        if (!model.empty())
            entry.text.append(": ").append(model);
    }
    /// The band switch unit hangs on it: nothing to choose.
    void LabelUnit(std::size_t index, std::string_view name) {
        PortEntry& entry = g_PortList[index];
        entry.isUnit = true;
        entry.text.append(": ").append(name);
    }
    void Offer(PortButton button) { m_Button = button; }
    void ShowButton(bool shown) { m_ButtonShown = shown; }
    void ShowList(bool shown) { m_ListShown = shown; }
    /// 0: none counts as opened any more.
    void PortIsOpened(int number) { g_LastPort = number; }
    void InstrumentHasAnswered() {
        m_AnsweredPort = g_LastPort;
        m_ContactIsLost = false;
    }
    void BeginClosing() {
        m_Closing = true;
        m_ContactIsLost = false; // the operator has closed it
    }
    void EndClosing() { m_Closing = false; }
    /// The ports will be looked at before the operator chooses.
    void ExpectProbe() { m_ProbeIsDue = true; }
    void Probe(bool isOnTheWay) {
        g_bProbing = isOnTheWay;
        m_ProbeIsDue = false;
    }

private:
    std::vector<PortEntry> g_PortList; ///< ports found
    std::string m_Chosen;
    int g_LastPort = 0;
    int m_AnsweredPort = 0;  ///< number of the port where an instrument has answered
    bool g_bProbing = false; ///< an answer is awaited
    bool m_ProbeIsDue = false;
    bool m_Closing = false;
    PortButton m_Button = PortButton::Scan;
    bool m_ButtonShown = false;
    bool m_ListShown = false;
    int m_Losses = 0;
    bool m_ContactIsLost = false;
};

} // namespace qor
