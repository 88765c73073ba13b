#include "measure/start_commands.h"

#include "bands/catalogue.h"
#include "link/commands.h"
#include "link/firmware.h"

#include <initializer_list>

namespace qor {

namespace {

/// Commands as they are put together.
class Script {
public:
    explicit Script(const StartSituation& at) : m_At(at) {}

    Script& Send(std::initializer_list<std::string_view> texts) {
        for (const std::string_view text : texts)
            m_Commands.push_back({std::string(text)});
        return *this;
    }
    Script& SendIf(bool wanted, std::initializer_list<std::string_view> texts) {
        return wanted ? Send(texts) : *this;
    }
    Script& SetTone(std::string_view command, float mhz, int tag = TagPlain) {
        m_Commands.push_back({WithTenths(command, static_cast<double>(mhz)), tag});
        return *this;
    }
    /// The instrument's short rest.
    Script& Rest(int count) {
        for (int i = 0; i < count; ++i)
            Send({command::Begin});
        return *this;
    }
    Script& SelectBandAgain() {
        return SendIf(m_At.firstRun && !m_At.bandCommand.empty(), {m_At.bandCommand});
    }
    Script& HandOver() { return SendIf(m_At.handsOver, {command::ExternalReceiver}); }
    Script& Recut() { return SendIf(m_At.firstRun && HasRecut(m_At.firmware), {command::SettingsLoaded}); }
    /// Transmission is told to every run, reflection to the first one.
    Script& Transmission() { return SendIf(m_At.transmission, {command::Transmission}); }
    Script& Reflection() { return SendIf(m_At.firstRun && !m_At.transmission, {command::Reflection}); }
    Script& InterBandPower() {
        if (!m_At.firstRun || !m_At.interBandPower)
            return *this;
        const PowerSetting& power = *m_At.interBandPower;
        return Send({std::string(command::Power1) + power.tone1.substr(0, 5),
                     std::string(command::Power2) + power.tone2.substr(0, 5)});
    }
    Script& TonesOfFirstStep() {
        return SetTone(command::Frequency2, m_At.plan.f2Fix).SetTone(command::Frequency1, m_At.plan.f1Start);
    }
    Script& Read(int tag, float param = 0) {
        if (m_At.internal)
            m_Commands.push_back({std::string(command::Level), tag, param});
        return *this;
    }
    /// The command last sent sets the first step: its reading follows it.
    [[nodiscard]] StartCommands EndWithFirstStep() {
        m_Commands.back().tag = TagStepUp;
        m_Commands.back().param = FirstProduct(m_At);
        Read(TagLevelUpQueued, m_Commands.back().param);
        return End();
    }
    [[nodiscard]] StartCommands End() { return std::move(m_Commands); }

private:
    const StartSituation& m_At;
    StartCommands m_Commands;
};

/// Rests with the carriers off, and the first half named meanwhile.
void RestBeforeFirstHalf(Script& script, const StartSituation& at) {
    const bool alone = at.saEnclosed && !at.interBandPower;
    const bool further = at.runIndex != 0 && !at.interBandPower;
    if (further && !alone && !at.rested)
        script.Send({command::Tone1Off, command::Tone2Off}).Rest(10);
    if (!further || !alone)
        script.Send({command::UpHalf});
    if (!alone)
        script.Rest(10);
}

} // namespace

float FirstProduct(const StartSituation& at) {
    return ImFrequency(at.band, at.product, at.plan.f1Start, at.plan.f2Fix);
}

StartCommands StartOfTwoTone(const StartSituation& at) {
    return Script(at)
        .HandOver()
        .SelectBandAgain()
        .Send({command::TwoToneOn, command::Begin})
        .Recut()
        .Transmission()
        .Reflection()
        .InterBandPower()
        .SetTone(command::Frequency1, at.plan.f1)
        .SetTone(command::Frequency2, at.plan.f2, TagLevel)
        .Read(TagPrimeQueued)
        .End();
}

StartCommands RepeatOfTwoTone(const StartSituation& at) {
    return Script(at).Read(TagPrimeQueued).End();
}

StartCommands StartOfSweep(const StartSituation& at) {
    const bool carriersOff = at.saEnclosed && at.runIndex == 0 && !at.interBandPower;
    Script script(at);
    script.HandOver();
    if (!at.prepared)
        script.SelectBandAgain();
    if (RestsBetweenHalves(at.firmware))
        RestBeforeFirstHalf(script, at);
    script.SendIf(!carriersOff, {command::Tone1On, command::Tone2On})
        .SendIf(!at.prepared, {command::Begin})
        .Transmission();
    if (!at.prepared)
        script.Recut().InterBandPower().Reflection();
    script.TonesOfFirstStep().Send({command::SweepOn});
    if (SelectsHalvesInPairs(at.firmware))
        script.Send({command::UpHalf, command::UpHalfOn});
    else
        script.SendIf(at.internal && SelectsHalves(at.firmware), {command::UpHalf});
    return script.SendIf(at.prepared, {command::Begin}).EndWithFirstStep();
}

StartCommands RepeatOfSweep(const StartSituation& at) {
    Script script(at);
    script.TonesOfFirstStep();
    if (SelectsHalvesInPairs(at.firmware))
        script.Send({command::UpHalf, command::UpHalfOn});
    else if (RestsBetweenHalves(at.firmware))
        script.Send({command::Tone1Off, command::Tone2Off})
            .Rest(10)
            .Send({command::UpHalf})
            .Rest(10)
            .Send({command::Tone1On, command::Tone2On})
            .Rest(4);
    else if (at.internal && SelectsHalves(at.firmware))
        script.Send({command::UpHalf});
    else
        script.Rest(1);
    return script.EndWithFirstStep();
}

StartCommands StartOfSpectrum(const StartSituation& at) {
    return Script(at)
        .Send({UseReceiver(1)})
        .SendIf(!at.internal, {command::ExternalReceiver})
        .SelectBandAgain()
        .Send({command::Begin})
        .Recut()
        .TonesOfFirstStep()
        .EndWithFirstStep();
}

StartCommands RepeatOfSpectrum(const StartSituation& at) {
    return Script(at).TonesOfFirstStep().Send({command::Begin}).EndWithFirstStep();
}

} // namespace qor
