#include "soak/observer.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace qor::test {

namespace {

constexpr std::int64_t OffWithinMs = 2000;
constexpr std::int64_t LampLagMs = 100; ///< lamp and port change in one breath, not in one instruction
constexpr std::int64_t CloseWithinMs = 2300;
constexpr std::int64_t ReadyWithinMs = 30000;
constexpr std::int64_t StandsMs = 1500;      ///< nothing goes over the line in a run
constexpr std::int64_t EndsWithinMs = 20000; ///< of twice its length
constexpr std::int64_t UsualReplyMs = 60;
constexpr int UnknownLengthMs = 60000;
constexpr int SettlingReadings = 17; ///< of an external receiver, 1600 ms at 100 ms each
constexpr int MostTimes = 3;         ///< that one message comes by itself

/// The number before "dBm" at the end of a reply, whatever stands before it.
std::optional<double> LevelOf(std::string_view reply) {
    if (!reply.ends_with("dBm\r\n"))
        return {};
    reply.remove_suffix(5);
    const std::size_t begin = reply.size() > 7 ? reply.size() - 7 : 0;
    const std::string number(reply.substr(begin));
    char* end = nullptr;
    const double level = std::strtod(number.c_str(), &end);
    const bool isNumber = *end == '\0' && number.find_first_not_of(" -+.0123456789") == std::string::npos &&
                          number.find_first_of("0123456789") != std::string::npos;
    return isNumber ? std::optional(level) : std::nullopt;
}

} // namespace

void Observer::Break(std::int64_t ms, const std::string& promise, const std::string& how) {
    if (m_BrokenPromises.insert(promise).second)
        m_Broken.push_back(promise + " (" + how + (how.empty() ? "" : ", ") + std::to_string(ms) + " ms)");
}

std::int64_t Observer::Lasts(std::optional<std::int64_t>& since, bool isSo, std::int64_t ms) {
    if (!isSo)
        since.reset();
    else if (!since)
        since = ms;
    return since ? ms - *since : 0;
}

void Observer::Sent(std::int64_t ms, std::string_view bytes) {
    if (bytes == "\r")
        return;
    Reading(); // of the command before, which gets no more
    m_Command = bytes;
    m_Reply.clear();
    m_SentMs = m_TrafficMs = ms;
    m_Owed = true;
    const auto number = [&] {
        return bytes.size() > 4 ? std::atoi(std::string(bytes.substr(4)).c_str()) : 0;
    };
    if (bytes.starts_with("#SFA"))
        m_F1 = number();
    else if (bytes.starts_with("#SFB"))
        m_F2 = number();
    else if (bytes.starts_with("#M2T1"))
        m_Priming = true;
    else if (bytes == "#IMP?" && m_Running && !m_Priming) {
        m_AskMs.push_back(ms);
        m_Asked.insert(std::to_string(m_F1) + "/" + std::to_string(m_F2));
    } else if (bytes.starts_with("#SAB") && bytes != "#SAB?" && m_CarrierOn)
        Break(ms, "a band is chosen under carriers");
    if (bytes == "#M2T1")
        m_MethodOff.insert("#M2T0");
    else if (bytes == "#SPA1" || bytes == "#SPB1")
        m_MethodOff.insert("#MSWL0");
    if (m_OffOwed)
        m_OffOwed->erase(std::string(bytes));
}

void Observer::Came(std::int64_t ms, std::string_view bytes) {
    m_Reply += bytes;
    m_TrafficMs = ms;
    if (m_Reply.find('\n') == std::string::npos)
        return;
    const bool isAnswer = m_Command.size() < 4 || m_Reply.find(m_Command.substr(1, 3)) != std::string::npos;
    if (isAnswer && std::exchange(m_Owed, false)) // what was spoilt is waited for
        m_LineMs += std::max<std::int64_t>(0, ms - m_SentMs - UsualReplyMs);
    for (const char* const error : {"SYNTAX ERROR\r\n", "OUT OF RANGE\r\n", "PLL NOT LOCKED\r\n"})
        m_Refused = m_Refused || (m_Running && m_Reply == error);
    if (m_Reply.find("M2T0\r\n") != std::string::npos)
        m_MethodOff.erase("#M2T0");
    if (m_Reply.find("SPB0\r\n") != std::string::npos)
        m_MethodOff.erase("#MSWL0");
    if (LevelOf(m_Reply))
        Reading();
}

/// Books what the command under way has brought.
void Observer::Reading() {
    const auto level = LevelOf(m_Reply);
    if (m_Command != "#IMP?" || !level || !m_Running)
        return;
    m_Command.clear();
    if (!m_AtStart.twoTone || !std::exchange(m_Priming, false))
        Take(level);
}

void Observer::Take(std::optional<double> dBm) {
    if (!dBm)
        return;
    ++m_Valid;
    ++m_Read[std::to_string(m_F1) + "/" + std::to_string(m_F2)];
    m_HighestDbm = std::max(m_HighestDbm.value_or(-999), *dBm);
}

void Observer::External(std::int64_t ms, std::int64_t tookMs, std::optional<double> dBm) {
    m_TrafficMs = ms;
    m_LineMs += std::max<std::int64_t>(0, tookMs - UsualReplyMs);
    if (!m_Running)
        return;
    m_AskMs.push_back(ms);
    m_Asked.insert(std::to_string(m_F1) + "/" + std::to_string(m_F2));
    if (!m_AtStart.twoTone || m_AskMs.size() > SettlingReadings)
        Take(dBm);
}

void Observer::Told(std::int64_t ms, const std::string& message) {
    m_MessageMs.push_back(ms);
    const std::size_t count = m_MessageMs.size();
    if (++m_Times[message] > MostTimes || (count > 12 && ms - m_MessageMs[count - 12] < 10000))
        Break(ms, "messages repeat themselves", message);
}

void Observer::Acts(std::int64_t ms, Hand hand) {
    m_MessageMs.clear();
    m_Times.clear();
    m_RedSinceMs.reset();
    m_OwedSinceMs.reset();
    if (hand == Hand::Start && m_Running) {
        m_Stopped = true;
        m_StopMs = m_StopMs.value_or(ms);
    }
    if (hand == Hand::ClosePort)
        m_ClosingMs = ms;
}

void Observer::Asks(std::int64_t ms, bool up) {
    m_Questions += up ? 1 : -1;
    m_TrafficMs = ms;
}

/// Of a 2-tone pass, by its length and by how they follow each other.
int Observer::ReadingsOfPass() const {
    std::vector<std::int64_t> gaps;
    for (std::size_t i = 1; i < m_AskMs.size(); ++i)
        gaps.push_back(m_AskMs[i] - m_AskMs[i - 1]);
    if (gaps.empty())
        return 1;
    std::nth_element(gaps.begin(), gaps.begin() + static_cast<std::ptrdiff_t>(gaps.size() / 2), gaps.end());
    const auto spacing = std::max<std::int64_t>(gaps[gaps.size() / 2], 100);
    return std::max(1, static_cast<int>(m_AtStart.lengthMs / spacing));
}

std::string Observer::WhatIsMissing() const {
    const bool neverEnds = m_AtStart.spectrum || (m_AtStart.repeats && m_AtStart.passes == 0);
    if (neverEnds && !m_Stopped)
        return "cut short";
    // Of what repeats until it is stopped a whole pass is enough.
    const int passes = m_AtStart.repeats && !m_AtStart.spectrum && !m_Stopped ? m_AtStart.passes : 1;
    if (m_AtStart.twoTone) {
        const int asked = passes * ReadingsOfPass();
        return m_Valid >= asked ? "" : std::to_string(m_Valid) + " of " + std::to_string(asked) + " points";
    }
    const auto clean = m_Clean(m_AtStart.choice).places;
    // A bridge that was not recognised, a file's plan: what was asked for is all there is to go by.
    const bool samePlan = std::all_of(m_Read.begin(), m_Read.end(),
                                      [&clean](const auto& read) { return clean.contains(read.first); });
    if (!samePlan)
        return m_Read.size() >= m_Asked.size() ? "" : "readings missing";
    int missing = 0;
    int of = 0;
    for (const auto& [place, count] : clean) {
        const auto read = m_Read.find(place);
        missing += std::max(0, passes * count - (read == m_Read.end() ? 0 : read->second));
        of += passes * count;
    }
    return missing == 0 ? "" : std::to_string(missing) + " of " + std::to_string(of) + " readings missing";
}

void Observer::JudgeStamp(std::int64_t ms, const Face& face) {
    if (face.stamp != Face::Stamp::Passed || face.isFile || face.isOneRun)
        return;
    if (m_RunSinceMs == 0)
        return Break(ms, "passed without a run");
    if (m_Running)
        return Break(ms, "passed while the run is on");
    if (m_HighestDbm && *m_HighestDbm > face.limitDbm + 0.0101)
        Break(ms, "passed over the limit",
              std::to_string(*m_HighestDbm) + " over " + std::to_string(face.limitDbm));
    if (m_AtStart.floorDbm && face.limitDbm < *m_AtStart.floorDbm)
        Break(ms, "passed by a receiver that does not hear the limit");
    if (std::exchange(m_Judged, true))
        return; // the wire tells no more than it has told
    if (m_Refused)
        Break(ms, "passed in spite of an error");
    const std::string missing = WhatIsMissing();
    if (missing.empty() || (m_Stopped && face.saysHowMany && m_Valid > 0))
        return;
    Break(ms, m_Stopped ? "passed though stopped, and does not say how many points" : "passed, incomplete",
          m_AtStart.choice + ": " + missing);
}

void Observer::BeginRun(std::int64_t ms, const Face& face) {
    m_AtStart = face;
    m_RunSinceMs = m_TrafficMs = ms;
    m_LineMs = 0;
    m_Read.clear();
    m_Asked.clear();
    m_AskMs.clear();
    m_Valid = 0;
    m_HighestDbm.reset();
    m_Stopped = m_Refused = m_Judged = m_Priming = false;
    m_StopMs.reset();
    m_Command.clear();
}

/// It goes on, and it ends.
void Observer::WatchRun(std::int64_t ms) {
    if (m_Questions > 0)
        return;
    if (!m_Owed && ms - m_TrafficMs > StandsMs + m_AtStart.pauseMs)
        Break(ms, "a run stands still", m_AtStart.choice);
    if (m_AtStart.spectrum || (m_AtStart.repeats && m_AtStart.passes == 0))
        return;
    const std::int64_t since = ms - m_RunSinceMs - m_LineMs - EndsWithinMs;
    const int passes = m_AtStart.repeats ? m_AtStart.passes : 1;
    if (since < 0 || m_BrokenPromises.contains("a run does not end"))
        return;
    std::int64_t length = m_AtStart.lengthMs;
    if (!m_AtStart.twoTone) {
        length = m_Clean(m_AtStart.choice).ms;
        length = length != 0 ? length : UnknownLengthMs;
    }
    if (since > 2 * passes * length)
        Break(ms, "a run does not end", m_AtStart.choice);
}

void Observer::WatchCarriers(std::int64_t ms, const Face& face, bool portOpen, FarEnd far) {
    m_CarrierOn = far.carrier;
    if (!far.hears)
        m_Hurt = true;
    else if (!far.carrier)
        m_Hurt = false;
    if (!far.carrier)
        m_StopMs.reset();
    const bool needless = far.carrier && !m_Running;
    if (Lasts(m_OnSinceMs, needless && !m_Hurt, ms) > OffWithinMs)
        Break(ms, "carriers on behind the end of a run", portOpen ? "port open" : "port closed");
    if (m_StopMs && !m_Hurt && m_Questions == 0 && ms - *m_StopMs > OffWithinMs + 500)
        Break(ms, "carriers on behind the stop button");
    // Behind a failed line they may be on until contact is there again: a green lamp says that it is.
    if (Lasts(m_GreenSinceMs, needless && far.hears && face.light == Face::Light::Green, ms) > OffWithinMs)
        Break(ms, "carriers on under a green lamp");
    if (Lasts(m_OwedSinceMs, needless && far.isWell && portOpen && !face.waitsForOperator, ms) >
        ReadyWithinMs)
        Break(ms, "carriers stay on, and the line is well");
}

void Observer::WatchPort(std::int64_t ms, const Face& face, bool portOpen, FarEnd far) {
    const bool contradicts = face.light != Face::Light::Red && (!portOpen || !face.portOffersClosing);
    if (Lasts(m_ContradictionMs, contradicts, ms) > LampLagMs)
        Break(ms, "the lamp says more than the port",
              std::string(m_Running ? "running" : "green") + (portOpen ? ", button" : ", port closed"));
    if (!portOpen)
        m_ClosingMs.reset();
    if (m_ClosingMs && ms - *m_ClosingMs > CloseWithinMs)
        Break(ms, "the port does not close");
    const bool waits = face.light == Face::Light::Red && far.isWell && !face.waitsForOperator;
    if (Lasts(m_RedSinceMs, waits && m_Questions == 0, ms) > ReadyWithinMs)
        Break(ms, "the line is well, and the lamp stays red");
}

void Observer::Looks(std::int64_t ms, const Face& face, bool portOpen, FarEnd far) {
    if (std::exchange(m_WasWell, far.isWell) != far.isWell)
        m_Times.clear();
    const bool running = face.light == Face::Light::Running;
    if (running && !m_Running)
        BeginRun(ms, face);
    else if (m_Running && !running)
        Reading();
    m_Running = running;
    if (running)
        WatchRun(ms);
    JudgeStamp(ms, face);
    WatchCarriers(ms, face, portOpen, far);
    WatchPort(ms, face, portOpen, far);
}

void Observer::Leaves(const Face& face, bool portOpen, FarEnd far) {
    m_OffOwed.emplace();
    if (portOpen && face.portOffersClosing) // an instrument has answered there
        *m_OffOwed = {"#SPA0", "#SPB0"};
    if (portOpen && (m_Running || far.carrier))
        m_OffOwed->insert(m_MethodOff.begin(), m_MethodOff.end());
}

void Observer::Ended(std::int64_t tookMs, FarEnd far) {
    if (tookMs < 0 || tookMs > OffWithinMs + 100)
        Break(tookMs, "leaving takes too long");
    if (far.carrier && far.hears && !m_Hurt)
        Break(tookMs, "carriers on behind the program");
    if (far.isPlugged && m_OffOwed && !m_OffOwed->empty())
        Break(tookMs, "the way out leaves an off command unwritten", *m_OffOwed->begin());
}

} // namespace qor::test
