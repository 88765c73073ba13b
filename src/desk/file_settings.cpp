#include "desk/file_settings.h"

#include "bands/catalogue.h"
#include "bands/plan_check.h"
#include "bands/records.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/alarm.h"
#include "curve/curve.h"
#include "curve/markers.h"
#include "desk/dbc_reference.h"
#include "desk/session.h"
#include "desk/setup/path_loss.h"
#include "desk/setup/power_setup.h"
#include "link/instrument_selection.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "results/file_plan.h"
#include "results/read_document.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::string_view LimitStore = "AlarmUp.ccz";
constexpr std::size_t LongestStore = 64;

/// Power that has to leave the instrument for that at the device, in five digits.
std::string PowerToSet(float atDevice, const Session& session) {
    return TenthsText(static_cast<double>(atDevice + session.working.OperatorsLosses().powerOffset));
}

} // namespace

std::string FileSettings::WhyNot(const ResultDocument& document) const {
    const auto [f1, f2] = HeldTones(document);
    if (!document.hasHead)
        return "Die Datei nennt keine Einstellungen.";
    if (!TonesFit(f1, f2, document.band))
        return "Nichts der Datei ist in Kraft: ihre Frequenzen gehoeren zu keiner Breite.";
    if (document.order == 0)
        return "Nichts der Datei ist in Kraft: ihre Ordnung ist unbekannt.";
    for (const float atDevice : {document.power1, document.power2})
        if (!IsPowerToSet(NumberIn(PowerToSet(atDevice, m_Session)) / 10.0))
            return "Nichts der Datei ist in Kraft: ihre Leistung liegt ausserhalb des Bereichs.";
    if (document.limit && !IsLimit(static_cast<double>(InUnit(document, *document.limit))))
        return "Nichts der Datei ist in Kraft: ihre Grenze liegt ausserhalb des Bereichs.";
    return {};
}

std::string FileSettings::BringIntoForce(const ResultDocument& document) {
    if (std::string why = WhyNot(document); !why.empty())
        return why;
    WorkingSet& working = m_Session.working;
    Curve& curve = m_Session.curve;
    const std::string power1 = PowerToSet(document.power1, m_Session);
    const std::string power2 = PowerToSet(document.power2, m_Session);
    const std::string store = PowerStoreName(FindBand(document.band)->prefix);
    KeepOwn(store);
    working.SelectMethod(document.method == ResultMethod::TwoTone ? ModeTwoTone : ModeSweep);
    working.SelectBand(document.band);
    working.SelectOrder(document.order / 2);
    working.SetPower(power1, power2);
    m_Store.Write(store, power1 + power2);
    if (document.limit) {
        curve.limit.Take(*document.limit - curve.scale.Reference());
        m_Store.Write(LimitStore, Fixed(static_cast<double>(*document.limit), 1));
    }
    return {};
}

void FileSettings::KeepOwn(const std::string& powerStore) {
    const WorkingSet& working = m_Session.working;
    const Curve& curve = m_Session.curve;
    if (!m_Own)
        m_Own = Own{working.BandIsSet() ? working.Band() : int{BandNone},
                    working.ImIndex(),
                    working.Method(),
                    curve.limit.Level() + curve.scale.Reference(),
                    curve.OwnLength(),
                    m_Store.Read(LimitStore, LongestStore),
                    {}};
    m_Own->powerStores.try_emplace(powerStore, m_Store.Read(powerStore, LongestStore));
}

void FileSettings::PutBack(const std::string& name, const std::optional<std::string>& text) {
    if (text)
        m_Store.Write(name, *text);
    else
        m_Store.Remove(name);
}

Outcome FileSettings::BringBackOwn() {
    if (!m_Own)
        return Outcome::Refused({});
    const Own own = *std::exchange(m_Own, std::nullopt);
    WorkingSet& working = m_Session.working;
    Curve& curve = m_Session.curve;
    PutBack(std::string(LimitStore), own.limitStore);
    for (const auto& [name, text] : own.powerStores)
        PutBack(name, text);

    ClearPlot(m_Session.curve, m_Session.markers);
    m_Session.results.loaded.Clear();
    m_Session.readout.ClearLevel();
    RestorePathLoss(m_Session, m_Store);
    curve.SetLength(own.length);
    curve.limit.Take(own.limit - curve.scale.Reference());
    working.DropSessionPlan();
    working.SelectMethod(own.method);
    working.SelectOrder(own.imIndex);
    working.SelectBand(own.band);
    if (const BandInfo* const band = FindBand(own.band))
        working.SetPower(ReadPowerStore(m_Store, band->prefix));
    FollowBandPower(m_Session, m_Platform, m_Store);
    if (own.band == BandNone)
        return Outcome::Done();
    if (m_Platform.comm.GetPortOpen() && IsInitialised(m_Session))
        return m_Instrument.BringToInstrument();
    if (!m_Platform.comm.GetPortOpen())
        m_Instrument.Activate();
    return Outcome::Done(); // the next start tells the instrument
}

Outcome FileSettings::MeasureAsFile() {
    const LoadedResult& loaded = m_Session.results.loaded;
    WorkingSet& working = m_Session.working;
    if (!ShownFile(m_Session) || !loaded.IsInForce())
        return Outcome::Refused(loaded.Note());
    const ResultDocument& file = *loaded.Document();
    const int imIndex = file.order / 2;
    auto base = OperatorsPlan(working, m_Store, file.band, imIndex);
    if (!base)
        base = StartPlan(file.band, imIndex, working.Bridge());
    const auto plan = PlanOf(file, base.value_or(FrequencyPlan{}));
    if (!plan)
        return Outcome::Refused("Die Datei nennt ihren Plan nicht genau.");
    for (const PlanValue tone : PlanStoreOrder)
        if (tone != &FrequencyPlan::step && file.band != BandTdScdmaA &&
            !TonesFit((*plan).*tone, (*plan).*tone, file.band))
            return Outcome::Refused("Falsch, dichtesortierung.");
    working.SetSessionPlan(file.band, imIndex, *plan);
    if (file.method == ResultMethod::TwoTone)
        m_Session.curve.SetLength(file.lengthMs);
    return Outcome::Done();
}

} // namespace qor
