#pragma once

#include "bands/power_table.h"
#include "base/outcome.h"
#include "service/power_calibration.h"
#include "service/receiver_calibration.h"

#include <functional>
#include <string>

namespace qor {

class LevelSources;
class Measurement;
class ServiceDesk;
class SetupStore;
struct Platform;
struct Session;

/// The calibration page as the operator has it: its fields, and what its buttons do.
class CalibrationDesk {
public:
    CalibrationDesk(Session& session, const Platform& platform, SetupStore& store, LevelSources& sources,
                    Measurement& measurement, ServiceDesk& service, std::function<void(const Outcome&)> tell);

    /// The fields, as they were typed last.
    [[nodiscard]] const CalibrationPlan& Plan() const { return m_Plan; }
    void SetPlan(const CalibrationPlan& plan) { m_Plan = plan; }
    /// Grows when the program has filled the fields.
    [[nodiscard]] unsigned Filled() const { return m_Filled; }
    /// The band in force has its row in the fields; what was typed stays as long as the band does.
    void FillFields();

    /// Begins a calibration, or stops it.
    Outcome PressRun();
    /// Goes on with an unfinished one.
    Outcome PressContinue();
    /// There is one to go on with; looked for when the fields are filled and when a run ends.
    [[nodiscard]] bool CanContinue() const { return m_CanContinue && !m_Power.IsOn(); }
    /// Reads the powers back.
    Outcome PressRead();

    [[nodiscard]] const PowerCalibration& Power() const { return m_Power; }
    [[nodiscard]] ReceiverCalibration& Receiver() { return m_Receiver; }

    // Of the program.
    void OrderIsChosen();
    void InstrumentRefuses() { m_Power.InstrumentRefuses(); }
    void LookForUnfinished();

private:
    [[nodiscard]] Outcome CheckRun(const CalibrationPlan& plan);
    [[nodiscard]] bool MayOverwrite(const CalibrationPlan& plan);

    Session& m_Session;
    const Platform& m_Platform;
    Measurement& m_Measurement;
    ServiceDesk& m_Service;
    PowerCalibration m_Power;
    ReceiverCalibration m_Receiver;
    std::function<void(const Outcome&)> m_Tell;

    CalibrationPlan m_Plan;
    unsigned m_Filled = 0;
    std::string m_FilledFor; ///< band, model and bridge that the fields are for
    bool m_CanContinue = false;
};

} // namespace qor
