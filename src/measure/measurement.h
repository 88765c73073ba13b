#pragma once

#include "bands/catalogue.h"
#include "bands/setup_store.h"

#include <string>
#include <string_view>

namespace qor {

class Channel;
class Connection;
class ReceiverAccess;
class ResultFiles;
struct Platform;
struct Session;

/// A run from the start button to its end or stop. Everything happens in timer ticks and level replies; the
/// curve is drawn by whoever shows the curve store.
///
/// measurement_start.cpp and inter_band_start.cpp begin a run, run_shapes.cpp holds what each of its shapes
/// begins with, two_tone.cpp and sweep.cpp the ticks and end decisions (spectrum is a half sweep),
/// measurement_end.cpp the ways a run ends, readings.cpp the road of a reading into the curve.
class Measurement {
public:
    Measurement(Session& session, const Platform& platform, SetupStore& store, Channel& channel,
                ReceiverAccess& receiver, ResultFiles& files);

    /// The start button: starts, or stops the run that is on. `connection` is asked when the port is closed.
    void OnMeasButton(Connection& connection);
    void StartAfterConnect();
    void StartMeas();
    void StopMeas();
    void AbandonRun();
    /// A run that was asked for and waits for the instrument or its turn does not begin.
    void DropStart();

    void OnTwoToneTimer();          ///< T2messuretimer
    void OnSweepTimer();            ///< sweeptimer
    void OnSpectrumTimer();         ///< spectrumtimer
    void OnAnalyserWait(int timer); ///< analyzerwaittimer, spectrumwaittimer
    void OnIntervalTimer();         ///< intervaltimer
    void OnRestartTimer();          ///< restarttimer
    void OnCurveTimer();            ///< the curve window's timer

    void LevelReply(std::string_view level);
    void BeforeSend(); ///< reads an external receiver for the step just sent, shows the next step
    void LineIdle();   ///< closing phases of a sweep

private:
    void BeginRun();
    void StartFirstRun();
    [[nodiscard]] bool TakePath();
    [[nodiscard]] const BandInfo* TakeBand(const BandInfo* band);
    [[nodiscard]] bool TakePlan(const BandInfo& band);
    void TakePower(std::string_view prefix);
    void StartShape(bool spectrumToo);
    void StartMeasInterBand();
    void AskForInterBand();
    void QueueInterBandPower();
    void FillFixedReportTexts();
    void FillBandReport(const BandInfo& band, std::string_view order);
    void FillSweepReport();
    void StartTwoTone();
    void StartSweep(bool prepared);
    void StartSpectrum();
    void StartMeasRepData();
    void RepeatTwoTone();
    void RepeatSweep();
    void RepeatSpectrum();
    void QueueBandReselection();
    void QueuePathOnFirstRun();
    void QueueSilence(int count);
    void QueueSweepPasses();
    void ClearForSweep();
    void MarkFirstStep(float imFrequency);
    void ArmSteps(int stepTimer, int waitTimer, int receiverDelay);
    void SetUpAnalyser();
    [[nodiscard]] float ImOf(float f1, float f2) const;
    [[nodiscard]] float SpectrumIm(float f1, float f2) const;
    [[nodiscard]] bool Internal() const;

    void QueueStep(std::string_view command, float frequency, int tag, float imFrequency);
    void QueueReadingOfStep();
    void NextUpStep();
    void TurnToDownSweep();
    [[nodiscard]] bool PauseBetweenSweeps();
    void DecideSweepEnd();
    void DecideTwoToneEnd();
    void NextSweepRun();

    void StoreLevel(float& place, float level);
    void ShowLevel(float stored);
    void StoreAtGrid(std::string_view level, float frequency, bool down);
    void StepPanelTexts(bool down);
    void RefreshWorstTexts();
    void SettleCurve();
    bool SaveRepeat();
    void CountLastPass();
    void CommonFinish();

    Session& m_Session;
    const Platform& m_Platform;
    SetupStore& m_Store;
    Channel& m_Channel;
    ReceiverAccess& m_Receiver;
    ResultFiles& m_Files;
    Connection* m_StartButton = nullptr; ///< of the last press
};

} // namespace qor
