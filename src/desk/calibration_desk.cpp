#include "desk/calibration_desk.h"

#include "bands/catalogue.h"
#include "base/setup_store.h"
#include "desk/service_desk.h"
#include "desk/session.h"
#include "measure/measurement.h"
#include "platform/operator.h"
#include "platform/platform.h"

namespace qor {

CalibrationDesk::CalibrationDesk(Session& session, const Platform& platform, SetupStore& store,
                                 LevelSources& sources, Measurement& measurement, ServiceDesk& service,
                                 std::function<void(const Outcome&)> tell)
    : m_Session(session), m_Platform(platform), m_Measurement(measurement), m_Service(service),
      m_Power({session.factory, session.link, session.working, session.receiver, sources}, platform,
              store.Directory(),
              [this](const Outcome& outcome) {
                  LookForUnfinished();
                  m_Tell(outcome);
              }),
      m_Receiver({session.factory, session.link, session.working}, platform,
                 [this](const Outcome& outcome) { m_Tell(outcome); }),
      m_Tell(std::move(tell)) {
    service.Join(m_Power);
    service.Join(m_Receiver);
}

void CalibrationDesk::FillFields() {
    const Identity& identity = m_Session.link.identity;
    const int band = m_Session.working.Band();
    const int bridge = m_Session.working.Bridge();
    std::string wanted =
        std::to_string(band) + " " + std::string(identity.Model()) + " " + std::to_string(bridge);
    if (wanted == m_FilledFor || m_Power.IsOn())
        return;
    m_FilledFor = std::move(wanted);
    ++m_Filled;
    if (const auto row = CalibrationRowOf(band, identity.Model(), bridge)) {
        m_Plan.f1 = {row->f1Start, row->delta, row->f1Stop};
        m_Plan.f2 = {row->f2Start, row->delta, row->f2Stop};
        m_Receiver.TakeBand(*row);
        static_cast<void>(m_Receiver.RenewHint()); // whether an order is chosen is told on the page
    }
    if (m_Plan.powDelta == 0) { // the first time: all that the tables hold
        m_Plan.powStart = LowestTableLevel(identity.Firmware());
        m_Plan.powDelta = 1;
        m_Plan.powStop = HighestTableLevel;
        m_Plan.useF1 = m_Plan.useF2 = true;
    }
    LookForUnfinished();
}

void CalibrationDesk::LookForUnfinished() {
    m_CanContinue = m_Power.Unfinished().has_value();
}

void CalibrationDesk::OrderIsChosen() {
    if (m_Session.factory.IsOpen(ServicePage::Calibration) && !m_Power.IsOn())
        m_Tell(m_Receiver.RenewHint());
}

Outcome CalibrationDesk::CheckRun(const CalibrationPlan& plan) {
    return m_Power.Check(plan, Outcome::Refused("Please select f1 or/and f2 to do calibration."));
}

/// Other bands of this instrument have some of their entries where this one writes.
bool CalibrationDesk::MayOverwrite(const CalibrationPlan& plan) {
    const Identity& identity = m_Session.link.identity;
    std::string names;
    for (const int band :
         BandsOverwritten(plan, {m_Session.working.Band(), identity.Model(), identity.Firmware()}))
        names.append(names.empty() ? "" : ", ").append(BandText(band));
    return names.empty() ||
           m_Platform.user.AskWithCare("Die Kalibrierung schreibt auch Eintraege anderer Breiten: " + names,
                                       "Kalibrieren?");
}

Outcome CalibrationDesk::PressRun() {
    if (m_Power.IsOn()) {
        m_Power.PressStop();
        return Outcome::Done();
    }
    const CalibrationPlan plan = m_Plan;
    if (Outcome possible = CheckRun(plan); !possible)
        return possible;
    if (!MayOverwrite(plan))
        return Outcome::Refused({});
    if (Outcome still = CheckRun(plan); !still) // the question may have stood for long
        return still;
    m_Power.Begin(plan);
    return Outcome::Done();
}

Outcome CalibrationDesk::PressContinue() {
    if (m_Power.IsOn())
        return Outcome::Refused("\nHalten Messung erst!");
    auto unfinished = m_Power.Unfinished();
    if (!unfinished)
        return Outcome::Refused("Keine angefangene Kalibrierung dieser Breite.");
    const CalibrationPlan plan = unfinished->Head().plan;
    if (Outcome possible = CheckRun(plan); !possible)
        return possible;
    if (!MayOverwrite(plan))
        return Outcome::Refused({});
    if (Outcome still = CheckRun(plan); !still)
        return still;
    m_Plan = plan;
    ++m_Filled;
    m_Power.Continue(std::move(*unfinished));
    return Outcome::Done();
}

Outcome CalibrationDesk::PressRead() {
    if (m_Power.IsOn() && !m_Session.receiver.InstrumentListens())
        return Outcome::Refused("Please stop calibration firstly.");
    const CalibrationPlan plan = m_Plan;
    if (Outcome possible = m_Power.Check(plan, Outcome::Refused("Please select f1 or/and f2 to read."));
        !possible)
        return possible;
    if (m_Session.factory.IsOpen(ServicePage::Calibration))
        static_cast<void>(m_Service.PressPage(ServicePage::Calibration)); // leaves it
    return m_Measurement.StartReadBack(plan);
}

} // namespace qor
