#pragma once

#include "base/outcome.h"
#include "base/reading.h"
#include "receivers/receiver_state.h"

#include <optional>
#include <string>
#include <string_view>

namespace qor {

class CommandQueue;
class ReceiverAccess;
class ReceiverSearch;

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

    /// dBm below which it hears nothing, whatever it shows; nothing where that is no matter of ours.
    [[nodiscard]] virtual std::optional<float> Floor() const { return std::nullopt; }
    /// It does not answer any more: the run ends.
    [[nodiscard]] virtual bool IsLost() const = 0;
    /// A call that waited for it was given up by the stop button or on the way out: the run ends at once.
    [[nodiscard]] virtual bool IsBrokenOff() const = 0;

    /// Of a power calibration, whose points are read one by one, each as it stands. A receiver that hears
    /// everything at once is not tuned.
    [[nodiscard]] virtual bool HasToSettle() const { return false; } ///< when a tone comes on
    virtual void BeginPoints() {}
    virtual void TuneToPoint(double /*hertz*/) {}
    [[nodiscard]] virtual std::optional<Reading> ReadPoint() { return ReadInTick(); }

    virtual void HoldForTones() = 0;         ///< before the tones of a 2-tone run are set
    virtual void ListenAt(double hertz) = 0; ///< tuned and made ready for a 2-tone run
    virtual void PrepareForSteps() = 0;      ///< made ready for a sweep
    virtual void Tune(double hertz) = 0;     ///< before the tones of a step move
    /// Made ready for a run and not released yet.
    [[nodiscard]] virtual bool IsHeld() const = 0;
    /// The run is over; one that is lost is not told. What is not held needs nothing.
    virtual void Release() = 0;
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
    [[nodiscard]] bool IsLost() const override { return false; }
    [[nodiscard]] bool IsBrokenOff() const override { return false; }
    void HoldForTones() override {}
    void ListenAt(double) override {}
    void PrepareForSteps() override {}
    void Tune(double) override {}
    [[nodiscard]] bool IsHeld() const override { return false; }
    void Release() override {}
};

/// A receiver of its own: everything but the reading is the same for all of them.
///
/// Behind a line that had to be opened anew the receiver is asked who it is, set up and tuned again before a
/// reading counts.
class ExternalSource : public LevelSource {
public:
    ExternalSource(ReceiverAccess& access, ReceiverSearch& search) : m_Access(access), m_Search(search) {}

    [[nodiscard]] bool AnswersOverTheLine() const override { return false; }
    void Ask(CommandQueue&, int, float) override {}
    void AskAgain(CommandQueue&, int, float) override {}
    [[nodiscard]] int SettleMs() const override;
    [[nodiscard]] int StepPeriod() const override;
    [[nodiscard]] bool IsLost() const override;
    [[nodiscard]] bool IsBrokenOff() const override;
    void HoldForTones() override;
    void ListenAt(double hertz) override;
    void PrepareForSteps() override;
    void Tune(double hertz) override;
    [[nodiscard]] bool IsHeld() const override { return m_Held; }
    void Release() override;

protected:
    /// False, and a reading has not come, when the receiver cannot be brought to where it has to listen.
    [[nodiscard]] bool ListensInTick();
    [[nodiscard]] bool ListensInStep();
    /// The answer to a question for a level; missing when there is none.
    [[nodiscard]] Reading Level(std::string_view question);
    [[nodiscard]] Reading NoLevel();

    ReceiverAccess& m_Access;

private:
    void SwitchMarkerOn();
    void NoteSetUp();
    [[nodiscard]] bool Restore();
    [[nodiscard]] bool TuneAnew();

    ReceiverSearch& m_Search;
    double m_Hertz = 0;
    bool m_Tuned = true; ///< the last frequency has reached it
    bool m_Held = false;
};

/// An analyser with a marker. It measures when told to: in a sweep before the marker is read, in 2-tone
/// afterwards, so that the next tick finds a level.
class AnalyserSource final : public ExternalSource {
public:
    using ExternalSource::ExternalSource;
    [[nodiscard]] std::optional<Reading> ReadInTick() override;
    [[nodiscard]] std::optional<Reading> ReadInStep() override;
    void BeginPoints() override;
    void TuneToPoint(double hertz) override;
    [[nodiscard]] std::optional<Reading> ReadPoint() override;
};

/// A power meter that answers one question with a level.
class MeterSource final : public ExternalSource {
public:
    MeterSource(ReceiverAccess& access, ReceiverSearch& search, std::string_view question)
        : ExternalSource(access, search), m_Question(question) {}
    [[nodiscard]] std::optional<Reading> ReadInTick() override;
    [[nodiscard]] std::optional<Reading> ReadInStep() override;

private:
    std::string_view m_Question;
};

/// The power sensor, which is not tuned. What lies below its floor stands for -80 dBm; in a sweep it is asked
/// again before that.
class SensorSource final : public ExternalSource {
public:
    using ExternalSource::ExternalSource;
    [[nodiscard]] std::optional<Reading> ReadInTick() override;
    [[nodiscard]] std::optional<Reading> ReadInStep() override;
    [[nodiscard]] bool HasToSettle() const override { return true; }
    /// Whoever calibrates counts himself how often nothing comes.
    [[nodiscard]] std::optional<Reading> ReadPoint() override;
    [[nodiscard]] std::optional<float> Floor() const override;
};

/// All of them, and the one in use.
class LevelSources {
public:
    LevelSources(const ReceiverState& state, ReceiverAccess& access, ReceiverSearch& search);

    [[nodiscard]] LevelSource& Current();
    /// For a start: an external receiver that is in use is there. Refused when it is not.
    Outcome BeReady();
    /// What measures, as it is kept with a result; empty for the instrument's own receiver.
    [[nodiscard]] std::string Identity() const;

private:
    const ReceiverState& m_State;
    ReceiverSearch& m_Search;
    InstrumentSource m_Instrument;
    AnalyserSource m_Analyser;
    MeterSource m_Nrv;
    MeterSource m_OtherMeter;
    SensorSource m_Sensor;
};

} // namespace qor
