#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qor::test {

/// What an onlooker sees at one moment: the panel and the plot, as they are
/// shown.
struct Face {
    enum class Light { Red, Running, Green };
    enum class Stamp { None, Passed, Failed, Error };
    Light light = Light::Red;
    Stamp stamp = Stamp::None;
    bool saysHowMany = false; ///< "n von m Punkten" stands somewhere
    bool portOffersClosing = false;
    bool isFile = false;   ///< the curve shown was loaded
    bool isOneRun = false; ///< one run of several is shown alone
    bool repeats = false;  ///< the measurement goes on until it is stopped
    double limitDbm = 0;

    int lengthMs = 0;   ///< of a 2-tone run
    int runs = 1;       ///< of a sweep
    std::string choice; ///< band, order, method, instrument: what a clean run is the measure of
    bool twoTone = false;
    bool spectrum = false;
};

/// What a clean run of a choice brings: how often a reading is taken at each
/// place.
using Places = std::map<std::string, int>;

/// Somebody who knows nothing of the program but what goes over the wire, what
/// the panel and the plot show, and what the operator does, and holds it to its
/// promises:
///
/// - "passed" means a complete measurement, or one that the operator stopped
/// and that says "n von m Punkten",
///   with no level over the limit in force;
/// - the carriers are off two seconds behind the end of a run, however it
/// ended, and no band is chosen under
///   them;
/// - lamp, port and port button say the same;
/// - every run ends; messages do not repeat themselves.
///
/// He tells the first break of each promise and goes on.
class Observer {
public:
    /// `clean`: the places of a clean run of a choice, asked for when a run has
    /// passed.
    explicit Observer(std::function<Places(const std::string& choice)> clean) : m_Clean(std::move(clean)) {}

    void Sent(std::int64_t ms, std::string_view bytes);
    void Came(std::int64_t ms, std::string_view bytes);
    void Told(std::int64_t ms, const std::string& message);
    /// The operator's hand is on something: what he is told now is not repeated
    /// by itself.
    void Acts(std::int64_t ms, bool start);
    /// What is at the far end of the wire, and whether it can hear and answer.
    struct FarEnd {
        bool carrier = false;
        bool hears = true;
    };
    void Looks(std::int64_t ms, const Face& face, bool portOpen, FarEnd far);
    /// The program has ended, so long after it was asked to.
    void Ended(std::int64_t tookMs, FarEnd far);

    [[nodiscard]] const std::vector<std::string>& Broken() const { return m_Broken; }
    /// Places that have been read since the start button.
    [[nodiscard]] const Places& Read() const { return m_Read; }
    void Break(std::int64_t ms, const std::string& promise, const std::string& how = {});

private:
    void Reading();
    void JudgeStamp(std::int64_t ms, const Face& face);
    [[nodiscard]] std::string WhatIsMissing() const;

    std::function<Places(const std::string&)> m_Clean;
    std::vector<std::string> m_Broken;
    std::set<std::string> m_BrokenPromises;

    // The wire.
    std::string m_Command; ///< under way
    std::string m_Reply;   ///< to it, so far
    std::int64_t m_LastAskMs = 0;
    int m_F1 = 0;
    int m_F2 = 0;
    bool m_Priming = false; ///< the first reading of a 2-tone pass only wakes the receiver

    // The measurement since the start button.
    bool m_Running = false;
    bool m_Stopped = false; ///< by the operator
    std::int64_t m_RunSinceMs = 0;
    Face m_AtStart;
    Places m_Read;
    std::vector<std::int64_t> m_AskMs; ///< of the 2-tone pass under way or over
    int m_Valid = 0;
    int m_Passes = 0;
    std::optional<double> m_HighestDbm;
    bool m_Judged = false;

    // Carriers.
    bool m_Hurt = false;                     ///< the line failed since the carriers went on: they may
                                             ///< be on behind its back
    std::optional<std::int64_t> m_OnSinceMs; ///< on with no run to need them
    std::optional<std::int64_t> m_GreenSinceMs;
    bool m_CarrierOn = false;

    std::vector<std::int64_t> m_MessageMs;
    std::optional<std::int64_t> m_ContradictionMs;
};

} // namespace qor::test
