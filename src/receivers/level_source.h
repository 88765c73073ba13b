#pragma once

#include "base/reading.h"
#include "receivers/receiver_state.h"

#include <optional>
#include <string_view>

namespace qor {

class CommandQueue;
class ReceiverAccess;

/// Where the levels of a run come from. A run asks for every level in the same way: Ask, then ReadInTick or
/// ReadInStep. The instrument's own receiver is asked over the line and answers in a reply; an external one
/// is not, and answers at once.
///
/// To add one: a class here, and its row in LevelSources::Current.
class LevelSource {
public:
    LevelSource() = default;
    LevelSource(const LevelSource&) = delete;
    LevelSource& operator=(const LevelSource&) = delete;
    virtual ~LevelSource() = default;

    /// Levels come as replies of the instrument, marked with the tag and the frequency of their question.
    [[nodiscard]] virtual bool AnswersOverTheLine() const = 0;
    /// Queues the question for a level. `product` is the frequency listened at in MHz, 0 for the one in use.
    virtual void Ask(CommandQueue& queue, int tag, float product) = 0;
    /// The same before anything else that waits: the reading that came was spoilt.
    virtual void AskAgain(CommandQueue& queue, int tag, float product) = 0;
    /// A level at once; nothing from a source that answers over the line. In a sweep step the level has to
    /// belong to the frequency just set.
    [[nodiscard]] virtual std::optional<Reading> ReadInTick() = 0;
    [[nodiscard]] virtual std::optional<Reading> ReadInStep() = 0;

    /// How long its readings do not count at the beginning of a 2-tone run, ms.
    [[nodiscard]] virtual int SettleMs() const = 0;
    /// Time from one step of a sweep to the next, ms.
    [[nodiscard]] virtual int StepPeriod() const = 0;

    virtual void HoldForTones() = 0;         ///< before the tones of a 2-tone run are set
    virtual void ListenAt(double hertz) = 0; ///< tuned and made ready for a 2-tone run
    virtual void PrepareForSteps() = 0;      ///< made ready for a sweep
    virtual void Tune(double hertz) = 0;     ///< before the tones of a step move
    virtual void Release() = 0;              ///< the run is over
};

/// The instrument's own receiver.
class InstrumentSource final : public LevelSource {
public:
    [[nodiscard]] bool AnswersOverTheLine() const override { return true; }
    void Ask(CommandQueue& queue, int tag, float product) override;
    void AskAgain(CommandQueue& queue, int tag, float product) override;
    [[nodiscard]] std::optional<Reading> ReadInTick() override { return std::nullopt; }
    [[nodiscard]] std::optional<Reading> ReadInStep() override { return std::nullopt; }
    [[nodiscard]] int SettleMs() const override { return 0; }
    [[nodiscard]] int StepPeriod() const override;
    void HoldForTones() override {}
    void ListenAt(double) override {}
    void PrepareForSteps() override {}
    void Tune(double) override {}
    void Release() override {}
};

/// A receiver of its own: everything but the reading is the same for all of them.
class ExternalSource : public LevelSource {
public:
    explicit ExternalSource(ReceiverAccess& access) : m_Access(access) {}

    [[nodiscard]] bool AnswersOverTheLine() const override { return false; }
    void Ask(CommandQueue&, int, float) override {}
    void AskAgain(CommandQueue&, int, float) override {}
    [[nodiscard]] int SettleMs() const override;
    [[nodiscard]] int StepPeriod() const override;
    void HoldForTones() override;
    void ListenAt(double hertz) override;
    void PrepareForSteps() override;
    void Tune(double hertz) override;
    void Release() override;

protected:
    ReceiverAccess& m_Access;

private:
    void SwitchMarkerOn();
};

/// An analyser with a marker. It measures when told to: in a sweep before the marker is read, in 2-tone
/// afterwards, so that the next tick finds a level.
class AnalyserSource final : public ExternalSource {
public:
    using ExternalSource::ExternalSource;
    [[nodiscard]] std::optional<Reading> ReadInTick() override;
    [[nodiscard]] std::optional<Reading> ReadInStep() override;
};

/// A power meter that answers one question with a level.
class MeterSource final : public ExternalSource {
public:
    MeterSource(ReceiverAccess& access, std::string_view question)
        : ExternalSource(access), m_Question(question) {}
    [[nodiscard]] std::optional<Reading> ReadInTick() override;
    [[nodiscard]] std::optional<Reading> ReadInStep() override { return ReadInTick(); }

private:
    std::string_view m_Question;
};

/// The power sensor. One that has no result stands for -80 dBm; in a sweep it is asked again before that.
class SensorSource final : public ExternalSource {
public:
    using ExternalSource::ExternalSource;
    [[nodiscard]] std::optional<Reading> ReadInTick() override;
    [[nodiscard]] std::optional<Reading> ReadInStep() override;
};

/// All of them, and the one in use.
class LevelSources {
public:
    LevelSources(const ReceiverState& state, ReceiverAccess& access);

    [[nodiscard]] LevelSource& Current();

private:
    const ReceiverState& m_State;
    InstrumentSource m_Instrument;
    AnalyserSource m_Analyser;
    MeterSource m_Nrv;
    MeterSource m_OtherMeter;
    SensorSource m_Sensor;
};

} // namespace qor
