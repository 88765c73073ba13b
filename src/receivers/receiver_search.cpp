#include "receivers/receiver_search.h"

#include "base/setup_store.h"
#include "platform/visa.h"
#include "receivers/analyser_setup.h"
#include "receivers/receiver_access.h"
#include "receivers/receiver_state.h"

#include <algorithm>
#include <optional>

namespace qor {

namespace {

/// The first text: an instrument that does not take it is treated as absent.
constexpr std::string_view SignOfLife = "DISP:WIND:TRAC:Y:SPAC LOG";
constexpr std::uint32_t AnalyserTimeoutMs = 5000;
constexpr int ScanOpenMs = 300;
constexpr int DevicesOfBoard = 99;
/// Calls of one board that had to be given up: it hangs, the rest of it is passed over.
constexpr int MostHangs = 3;

// shown to the operator
constexpr std::string_view Reasons[] = {"keine gueltige Adresse", "keine VISA-Bibliothek installiert",
                                        "antwortet nicht", "nicht erreichbar"};

std::string ReasonFor(VisaStatus status) {
    switch (status) {
    case visa::ErrorInvalidName:
        return std::string(Reasons[0]);
    case visa::ErrorNoLibrary:
        return std::string(Reasons[1]);
    case visa::ErrorTimeout:
        return std::string(Reasons[2]);
    default:
        return std::string(Reasons[3]);
    }
}

/// An answer to *IDN? as it is kept: printable, blanks at its ends cut.
std::string Printable(std::string_view answer) {
    std::string text(answer);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, ' ');
    const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
    return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

int KindOf(std::string_view identity) {
    if (identity.find("NRV") != std::string_view::npos)
        return ReceiverNrv;
    return identity.find("NRP") != std::string_view::npos ? ReceiverNrp : ReceiverAnalyser;
}

} // namespace

std::string ReceiverSearch::AddressInUse() const {
    const std::string address = m_Access.Address();
    return address.empty() ? std::string(UsualReceiverAddress) : address;
}

bool ReceiverSearch::TryOpen(const std::string& address) {
    const VisaStatus status = m_Access.TryOpen(address, SignOfLife);
    if (status < 0)
        m_State.Miss(ReasonFor(status));
    return status >= 0;
}

bool ReceiverSearch::TryAddress() {
    const std::string address = AddressInUse();
    m_State.Search(address);
    if (!m_Access.OpenManager())
        m_State.Miss(ReasonFor(visa::ErrorNoLibrary));
    else if (TryOpen(address) && Identify())
        return true;
    m_WhyNot = m_State.Trouble();
    return false;
}

bool ReceiverSearch::TryScan(const Goes& goes) {
    if (Scan(goes) && Identify())
        return true;
    EndScan();
    return false;
}

void ReceiverSearch::EndScan() {
    m_State.Search(AddressInUse());
    m_State.Miss(m_WhyNot);
}

bool ReceiverSearch::MayScan() const {
    return m_Access.ReachesGpib();
}

std::string ReceiverSearch::ScanAddress(int place) {
    return "GPIB" + std::to_string(place / DevicesOfBoard) +
           "::" + std::to_string(place % DevicesOfBoard + 1) + "::INSTR";
}

bool ReceiverSearch::OpenScanned(int place) {
    const std::string address = ScanAddress(place);
    m_State.Search(address);
    m_Access.LimitOpen(ScanOpenMs);
    const bool open = m_Access.OpenManager();
    const VisaStatus status = open ? m_Access.TryOpen(address, SignOfLife) : visa::ErrorNoLibrary;
    m_Access.LimitOpen(0);
    if (status != visa::Success) {
        m_State.Miss(ReasonFor(status));
        return false;
    }
    m_Store.Write("gpib_addr.ccz", address);
    return true;
}

bool ReceiverSearch::Scan(const Goes& goes) {
    int hangs = 0;
    for (int place = 0; place < ScanLength; ++place) {
        if (place % DevicesOfBoard == 0)
            hangs = 0;
        if (!goes(ScanAddress(place), place, ScanLength))
            return false;
        if (OpenScanned(place)) {
            goes(ScanAddress(place), ScanLength, ScanLength);
            return true;
        }
        if (m_State.Trouble() == Reasons[2] && ++hangs == MostHangs)
            place += DevicesOfBoard - 1 - place % DevicesOfBoard;
    }
    goes({}, ScanLength, ScanLength);
    return false;
}

bool ReceiverSearch::TrySensor() {
    if (!m_Access.OpenSensor())
        return false;
    m_State.Find(ReceiverSensor, m_Access.SensorName());
    return true;
}

std::optional<std::string> ReceiverSearch::AskIdentity() {
    const auto answer = m_Access.Query("*IDN?");
    return answer ? std::optional(Printable(*answer)) : std::nullopt;
}

/// What answers says what it is, and is set up accordingly.
bool ReceiverSearch::Identify() {
    const std::string identity = AskIdentity().value_or("");
    if (identity.empty() && !m_Access.ReachesGpib()) {
        m_Access.Close();
        m_State.Miss(ReasonFor(visa::ErrorTimeout));
        return false;
    }
    const int kind = KindOf(identity);
    m_State.Find(kind, identity);
    bool set = true;
    if (kind == ReceiverNrv)
        set = m_Access.SetUpMeter();
    else if (kind == ReceiverNrp)
        m_Access.VisaIO("UNIT:POW DBM"); // its replies are taken as dBm
    else
        set = m_Access.SetTimeout(AnalyserTimeoutMs);
    if (set && kind == ReceiverAnalyser)
        ApplySetup();
    m_Access.Accept();
    return true;
}

void ReceiverSearch::ApplySetup() {
    const StoredAnalyserSetup stored = ReadAnalyserSetup(m_Store);
    if (!stored.isThere)
        return;
    m_Access.Write(SetupCommands(stored.fields));
    if (stored.fields) {
        if (const std::string_view field = FieldBeyondItsList(*stored.fields); !field.empty())
            m_State.FindFault("R/S Analysator Setup(&A): " + std::string(field));
    }
}

Outcome ReceiverSearch::BeReady() {
    const bool well =
        m_State.IsThere() && !m_Access.IsLost() &&
        (m_State.ExternalKind() == ReceiverSensor || (!m_Access.HasFailed() && !m_Access.WasReopened()));
    if (well || TryAddress() || TrySensor()) {
        m_Access.ForgetReadings();
        return Outcome::Done();
    }
    return Outcome::Refused("Kein Empfaenger: " + m_State.Address() + ": " + m_State.Trouble());
}

bool ReceiverSearch::Restore() {
    const auto identity = AskIdentity();
    if (!identity)
        return false;
    if (*identity != m_State.Identity()) {
        m_Access.Disown();
        return false;
    }
    switch (m_State.ExternalKind()) {
    case ReceiverAnalyser:
        ApplySetup();
        break;
    case ReceiverNrv:
        m_Access.SetUpMeter();
        break;
    default:
        m_Access.VisaIO("UNIT:POW DBM");
        break;
    }
    return !m_Access.HasFailed();
}

Outcome ReceiverSearch::Recover(const Goes& goes) {
    m_Access.ClearFailure();
    const std::string address = AddressInUse();
    m_State.Search(address);
    if (!m_Access.OpenManager()) {
        m_State.Miss(ReasonFor(visa::ErrorNoLibrary));
        return Outcome::Refused("Could not open a session to the VISA Resource Manager!\n");
    }
    if (!TryOpen(address)) {
        m_WhyNot = m_State.Trouble();
        if (!MayScan() || !Scan(goes)) {
            EndScan();
            return Outcome::Refused("Can not open a session to the device.\n");
        }
    }
    if (!m_Access.SetTimeout(AnalyserTimeoutMs)) {
        m_State.Miss(ReasonFor(visa::ErrorNotFound));
        return Outcome::Refused("Can not set attribute to the device.\n");
    }
    // Another one may stand there by now: results name the one that measures.
    m_State.Find(ReceiverAnalyser, AskIdentity().value_or(""));
    if (ReadAnalyserSetup(m_Store).fields)
        ApplySetup();
    m_Access.Accept();
    return Outcome::Done();
}

} // namespace qor
