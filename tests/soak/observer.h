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

/// What an onlooker sees at one moment: the panel and the plot, as they are shown.
struct Face {
    enum class Light { Red, Running, Green };
    enum class Stamp { None, Passed, Failed, Error };
    Light light = Light::Red;
    Stamp stamp = Stamp::None;
    bool saysHowMany = false; ///< "n von m Punkten" stands somewhere
    bool portOffersClosing = false;
    bool waitsForOperator = false; ///< a port or a band has to be chosen
    bool isFile = false;           ///< the curve shown was loaded
    bool isOneRun = false;         ///< one run of several is shown alone
    double limitDbm = 0;

    std::string choice;   ///< band, order, method, instrument, runs: what a clean run is the measure of
    bool repeats = false; ///< the measurement goes on until it is stopped, or for so many passes more
    int passes = 0;       ///< of what repeats; 0: until it is stopped
    int lengthMs = 0;     ///< of a 2-tone run
    int pauseMs = 0;      ///< between the sweeps of a series
    bool twoTone = false;
    bool spectrum = false;
    std::optional<double> floorDbm; ///< it hears nothing below
};

/// What a clean press of the start button brings, or one pass of what never ends: how often a level is taken
/// at each pair of tones, and how long it takes.
struct CleanRun {
    std::map<std::string, int> places;
    std::int64_t ms = 0;
};

/// Somebody who knows nothing of the program but what goes over the wire and to the external receiver, what
/// the panel and the plot show, and what the operator does, and holds it to its promises:
///
/// - "passed" means a complete measurement, or one that the operator stopped and that says "n von m Punkten",
///   with no level over the limit in force and no error of the instrument;
/// - the carriers are off two seconds behind the end of a run, however it ended, and no band is chosen under
///   them; those that a dead line has left on are off when contact is there again;
/// - lamp, port and port button say the same; a port that is closed is closed two seconds later; on a line
/// that
///   is well the instrument is ready within half a minute, unless the operator has to choose something;
/// - every run goes on and ends: after twice its length, 20 s and what the line took; messages do not repeat
///   themselves;
/// - the way out takes two seconds, and the off commands have been written on it.
///
/// He tells the first break of each promise and goes on.
class Observer {
public:
    /// What the operator's hand is on.
    enum class Hand { Start, ClosePort, Other };
    /// What is at the far end of the wire.
    struct FarEnd {
        bool carrier = false;
        bool hears = true;     ///< it can hear and answer
        bool isWell = true;    ///< nothing whatever is wrong with the line
        bool isPlugged = true; ///< the cable is in
    };

    /// `clean`: a clean run of a choice, asked for when one is needed.
    explicit Observer(std::function<CleanRun(const std::string& choice)> clean) : m_Clean(std::move(clean)) {}

    void Sent(std::int64_t ms, std::string_view bytes);
    void Came(std::int64_t ms, std::string_view bytes);
    /// The external receiver was asked for a level and has given one, or not.
    void External(std::int64_t ms, std::int64_t tookMs, std::optional<double> dBm);
    void Told(std::int64_t ms, const std::string& message);
    /// What the operator is told now is not repeated by itself.
    void Acts(std::int64_t ms, Hand hand);
    /// A question is up, or has been answered: whoever asks it waits.
    void Asks(std::int64_t ms, bool up);
    void Looks(std::int64_t ms, const Face& face, bool portOpen, FarEnd far);
    /// The program is asked to end, and has ended so long after it; -1: not at all.
    void Leaves(const Face& face, bool portOpen, FarEnd far);
    void Ended(std::int64_t tookMs, FarEnd far);

    [[nodiscard]] const std::vector<std::string>& Broken() const { return m_Broken; }
    /// Pairs of tones at which a level has come since the start button.
    [[nodiscard]] const std::map<std::string, int>& Read() const { return m_Read; }
    void Break(std::int64_t ms, const std::string& promise, const std::string& how = {});

private:
    void Reading();
    void Take(std::optional<double> dBm);
    void BeginRun(std::int64_t ms, const Face& face);
    void JudgeStamp(std::int64_t ms, const Face& face);
    void WatchRun(std::int64_t ms);
    void WatchCarriers(std::int64_t ms, const Face& face, bool portOpen, FarEnd far);
    void WatchPort(std::int64_t ms, const Face& face, bool portOpen, FarEnd far);
    /// For how long something has been so, ms.
    [[nodiscard]] static std::int64_t Lasts(std::optional<std::int64_t>& since, bool isSo, std::int64_t ms);
    [[nodiscard]] int ReadingsOfPass() const;
    [[nodiscard]] std::string WhatIsMissing() const;

    std::function<CleanRun(const std::string&)> m_Clean;
    std::vector<std::string> m_Broken;
    std::set<std::string> m_BrokenPromises;

    // The wire.
    std::string m_Command; ///< under way
    std::string m_Reply;   ///< to it, so far
    std::int64_t m_SentMs = 0;
    std::int64_t m_TrafficMs = 0; ///< when anything went or came last
    bool m_Owed = false;          ///< a reply
    int m_F1 = 0;
    int m_F2 = 0;
    bool m_Priming = false; ///< the first reading of a 2-tone pass only wakes the receiver

    // The measurement since the start button.
    bool m_Running = false;
    bool m_Stopped = false; ///< by the operator
    std::int64_t m_RunSinceMs = 0;
    std::int64_t m_LineMs = 0; ///< time that line and receiver have kept it waiting
    Face m_AtStart;
    std::map<std::string, int> m_Read;
    std::set<std::string> m_Asked; ///< pairs of tones
    std::vector<std::int64_t> m_AskMs;
    int m_Valid = 0;
    std::optional<double> m_HighestDbm;
    bool m_Refused = false; ///< the instrument has answered with an error
    bool m_Judged = false;

    // Carriers.
    bool m_Hurt = false; ///< the line failed since the carriers went on: they may be on behind its back
    bool m_CarrierOn = false;
    std::optional<std::int64_t> m_StopMs;    ///< the stop button was pressed
    std::optional<std::int64_t> m_OnSinceMs; ///< on with no run to need them
    std::optional<std::int64_t> m_OwedSinceMs;
    std::optional<std::int64_t> m_GreenSinceMs;
    std::set<std::string> m_MethodOff; ///< commands that have not been echoed since the carriers went on
    std::optional<std::set<std::string>> m_OffOwed; ///< on the way out, and not written yet

    std::map<std::string, int> m_Times; ///< of each message since somebody did something
    std::vector<std::int64_t> m_MessageMs;
    int m_Questions = 0; ///< that are up
    bool m_WasWell = true;
    std::optional<std::int64_t> m_ContradictionMs;
    std::optional<std::int64_t> m_RedSinceMs;
    std::optional<std::int64_t> m_ClosingMs;
};

} // namespace qor::test
