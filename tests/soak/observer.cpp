#include "soak/observer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace qor::test {

namespace {

constexpr std::int64_t OffWithinMs = 2000;
constexpr std::int64_t LongestRunMs = 400000;
constexpr std::int64_t LampLagMs = 100; ///< lamp and port change in one breath, not in one instruction

/// A level in the instrument's own form and nothing else.
std::optional<double> CleanLevel(std::string_view reply) {
    if (!reply.starts_with("IMP") || !reply.ends_with("dBm\r\n"))
        return {};
    const std::size_t blank = reply.find(' ');
    if (blank == std::string_view::npos)
        return {};
    const std::string number(reply.substr(blank + 1, reply.size() - blank - 6));
    char* end = nullptr;
    const double level = std::strtod(number.c_str(), &end);
    const bool isWhole =
        !number.empty() && *end == '\0' && number.find_first_not_of("-.0123456789") == std::string::npos;
    return isWhole && level > -200 && level < 50 ? std::optional(level) : std::nullopt;
}

/// Anything that could be taken for a level, by whoever wants to.
bool MayBeLevel(std::string_view reply) {
    return std::count_if(reply.begin(), reply.end(), [](char c) { return c >= '0' && c <= '9'; }) >= 2;
}

} // namespace

void Observer::Break(std::int64_t ms, const std::string& promise, const std::string& how) {
    if (m_BrokenPromises.insert(promise).second)
        m_Broken.push_back(promise + " (" + how + (how.empty() ? "" : ", ") + std::to_string(ms) + " ms)");
}

void Observer::Sent(std::int64_t ms, std::string_view bytes) {
    if (bytes == "\r")
        return;
    Reading(); // of the command before, which gets no more
    m_Command = bytes;
    m_Reply.clear();
    const auto number = [&] {
        return bytes.size() > 4 ? std::atoi(std::string(bytes.substr(4)).c_str()) : 0;
    };
    if (bytes.starts_with("#SFA"))
        m_F1 = number();
    else if (bytes.starts_with("#SFB"))
        m_F2 = number();
    else if (bytes.starts_with("#M2T1"))
        m_Priming = true;
    else if (bytes == "#IMP?" && m_Running && !m_Priming)
        m_AskMs.push_back(ms);
    else if (bytes.starts_with("#SAB") && bytes != "#SAB?" && m_CarrierOn)
        Break(ms, "a band is chosen under carriers");
    m_LastAskMs = ms;
}

void Observer::Came(std::int64_t, std::string_view bytes) {
    m_Reply += bytes;
    if (m_Reply.find("\r\n") != std::string::npos && CleanLevel(m_Reply))
        Reading();
}

/// Books what the command under way has brought.
void Observer::Reading() {
    if (m_Command != "#IMP?" || !MayBeLevel(m_Reply) || !m_Running)
        return;
    const auto level = CleanLevel(m_Reply);
    m_Command.clear();
    if (m_AtStart.twoTone && std::exchange(m_Priming, false))
        return;
    ++m_Valid;
    ++m_Read[std::to_string(m_F1) + "/" + std::to_string(m_F2)];
    if (level)
        m_HighestDbm = std::max(m_HighestDbm.value_or(-999), *level);
}

void Observer::Told(std::int64_t ms, const std::string& message) {
    m_MessageMs.push_back(ms);
    if (m_MessageMs.size() > 12 && ms - m_MessageMs[m_MessageMs.size() - 12] < 10000)
        Break(ms, "messages repeat themselves", message);
}

void Observer::Acts(std::int64_t ms, bool start) {
    m_MessageMs.clear();
    if (start && m_Running)
        m_Stopped = true;
    static_cast<void>(ms);
}

std::string Observer::WhatIsMissing() const {
    if (m_AtStart.repeats || m_AtStart.spectrum) // a whole pass is enough
        return m_Stopped && m_Valid > 0 ? "" : "nothing read";
    if (m_AtStart.twoTone) {
        if (m_AskMs.size() < 2)
            return "no readings";
        const auto asks = static_cast<double>(m_AskMs.size());
        const double spacing = static_cast<double>(m_AskMs.back() - m_AskMs.front()) / (asks - 1);
        const int asked = static_cast<int>(m_AtStart.lengthMs / std::max(spacing, 100.0));
        return m_Valid >= asked ? "" : std::to_string(m_Valid) + " of " + std::to_string(asked) + " points";
    }
    const Places clean = m_Clean(m_AtStart.choice);
    const bool samePlan = std::all_of(m_Read.begin(), m_Read.end(),
                                      [&clean](const auto& read) { return clean.contains(read.first); });
    if (!samePlan) // a bridge that was not recognised, a file's plan: what was
                   // asked for is all there is to go by
        return m_Valid >= static_cast<int>(m_AskMs.size()) ? "" : "readings missing";
    int missing = 0;
    int of = 0;
    for (const auto& [place, count] : clean) {
        const auto read = m_Read.find(place);
        missing += std::max(0, count - (read == m_Read.end() ? 0 : read->second));
        of += count;
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
    if (m_Judged)
        return;
    m_Judged = true; // the wire tells no more than it has told
    const std::string missing = WhatIsMissing();
    if (missing.empty() || (m_Stopped && face.saysHowMany && m_Valid > 0))
        return;
    Break(ms, m_Stopped ? "passed though stopped, and does not say how many points" : "passed, incomplete",
          m_AtStart.choice + ": " + missing);
}

void Observer::Looks(std::int64_t ms, const Face& face, bool portOpen, FarEnd far) {
    const bool running = face.light == Face::Light::Running;
    if (running && !m_Running) {
        m_AtStart = face;
        m_RunSinceMs = ms;
        m_Read.clear();
        m_AskMs.clear();
        m_Valid = m_Passes = 0;
        m_HighestDbm.reset();
        m_Stopped = m_Judged = false;
        m_Command.clear();
    } else if (m_Running && !running) {
        Reading();
    }
    m_Running = running;
    if (running && !face.repeats && !face.spectrum && ms - m_RunSinceMs > LongestRunMs)
        Break(ms, "a run does not end", m_AtStart.choice);
    JudgeStamp(ms, face);

    // Carriers.
    if (!far.hears)
        m_Hurt = true;
    m_CarrierOn = far.carrier;
    if (!far.carrier) {
        m_OnSinceMs.reset();
        if (far.hears)
            m_Hurt = false;
    } else if (running) {
        m_OnSinceMs.reset();
    } else if (!m_Hurt) {
        if (!m_OnSinceMs)
            m_OnSinceMs = ms;
        if (ms - *m_OnSinceMs > OffWithinMs)
            Break(ms, "carriers on behind the end of a run", portOpen ? "port open" : "port closed");
    }
    // Behind a failed line they may be on until contact is there again: a green
    // lamp says that it is.
    if (face.light != Face::Light::Green || !far.carrier || !far.hears)
        m_GreenSinceMs.reset();
    else if (!m_GreenSinceMs)
        m_GreenSinceMs = ms;
    else if (ms - *m_GreenSinceMs > OffWithinMs)
        Break(ms, "carriers on under a green lamp");

    // Lamp, port and button.
    const bool contradiction = face.light != Face::Light::Red && (!portOpen || !face.portOffersClosing);
    if (!contradiction)
        m_ContradictionMs.reset();
    else if (!m_ContradictionMs)
        m_ContradictionMs = ms;
    else if (ms - *m_ContradictionMs > LampLagMs)
        Break(ms, "the lamp says more than the port",
              std::string(running ? "running" : "green") + (portOpen ? ", button" : ", port closed"));
}

void Observer::Ended(std::int64_t tookMs, FarEnd far) {
    if (tookMs < 0 || tookMs > OffWithinMs + 100)
        Break(tookMs, "leaving takes too long");
    if (far.carrier && far.hears && !m_Hurt)
        Break(tookMs, "carriers on behind the program");
}

} // namespace qor::test
