#pragma once

#include <string>
#include <utility>

namespace qor {

/// What an external receiver is; any other number is asked as the third is.
enum ExternalReceiver : int { ReceiverAnalyser = 1, ReceiverNrv = 2, ReceiverNrp = 3, ReceiverSensor = 4 };

/// Which receiver measures the levels, and what is known of the external one.
class ReceiverState {
public:
    [[nodiscard]] bool InstrumentListens() const { return tagReceiver == 1; }
    /// Of the external receiver, one of ExternalReceiver; the last one found keeps it.
    [[nodiscard]] int ExternalKind() const { return g_ExtRxKind; }
    /// An external receiver is open.
    [[nodiscard]] bool IsThere() const { return m_There; }
    /// What it says it is, printable, at most 100 characters; empty without one.
    [[nodiscard]] const std::string& Identity() const { return m_Identity; }
    /// Where it is, or was looked for last.
    [[nodiscard]] const std::string& Address() const { return m_Address; }
    /// Why there is none, or what is wrong with its set-up.
    [[nodiscard]] const std::string& Trouble() const { return m_Trouble; }
    /// It is being looked for at Address.
    [[nodiscard]] bool IsSearched() const { return m_Searched; }

    void UseInstrument() { tagReceiver = 1; }
    void UseExternal() { tagReceiver = 0; }
    void Search(std::string address) {
        *this = ReceiverState(tagReceiver, g_ExtRxKind);
        m_Address = std::move(address);
        m_Searched = true;
    }
    void Find(int kind, std::string identity) {
        g_ExtRxKind = kind;
        m_Identity = std::move(identity);
        m_There = true;
        m_Searched = false;
    }
    void Miss(std::string why) {
        m_There = m_Searched = false;
        m_Identity.clear();
        m_Trouble = std::move(why);
    }
    void FindFault(std::string what) { m_Trouble = std::move(what); }

    ReceiverState() = default;

private:
    ReceiverState(int receiver, int kind) : tagReceiver(receiver), g_ExtRxKind(kind) {}

    int tagReceiver = 1; ///< 1: the instrument's own receiver measures, 0: an external one
    int g_ExtRxKind = ReceiverAnalyser;
    bool m_There = false;
    bool m_Searched = false;
    std::string m_Identity;
    std::string m_Address;
    std::string m_Trouble;
};

} // namespace qor
