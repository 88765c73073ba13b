#include "desk/setup/power_setup.h"

#include "bands/catalogue.h"
#include "bands/records.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "desk/level_unit.h"
#include "desk/session.h"
#include "link/commands.h"

#include <cmath>

namespace qor {

namespace {

constexpr double LowestDbm = 19.99;
constexpr double HighestDbm = 46.01;
/// Not every model reaches down below this.
constexpr double DoubtfulDbm = 32.99;
constexpr double SameText = 0.05; ///< dB between powers that are ticked as equal

/// dB by which the tones may differ in dBc.
double ToleranceOf(int band) {
    switch (band) {
    case BandAmps:
    case BandEgsm:
    case BandLte:
    case BandDcs:
    case BandLte700L:
    case BandLte700U:
        return 0.05;
    default:
        return 0.1;
    }
}

/// A further line for the operator, in front of what `outcome` says.
Outcome WithNote(std::string note, const Outcome& outcome) {
    if (!outcome.Text().empty())
        note += '\n' + outcome.Text();
    return Outcome::DoneWith(std::move(note));
}

/// 0 dBm, which no limit lets pass, for a text that is no power.
double DbmIn(std::string_view text, PowerUnit unit) {
    const double number = EnteredNumber(text).value_or(0);
    if (unit == PowerUnit::Dbm)
        return number;
    return number > 0 ? NumberIn(Fixed(10.0 * std::log10(number * 1000.0), 1)) : 0;
}

} // namespace

bool IsPowerToSet(double dBm) {
    return dBm >= LowestDbm && dBm <= HighestDbm;
}

PowerSetup::PowerSetup(int band, Session& session, SetupStore& store)
    : m_Band(band), m_Session(session), m_Store(store) {
    const BandInfo* const info = FindBand(band);
    if (!info)
        return;
    const PowerSetting power = ReadPowerStore(store, info->prefix);
    const double tone1 = NumberIn(power.tone1) / 10.0;
    const double tone2 = NumberIn(power.tone2) / 10.0;
    m_Fields.m_powF1 = Fixed(tone1, 1);
    m_Fields.m_powF2 = Fixed(tone2, 1);
    m_Fields.m_synchron = std::abs(tone1 - tone2) < SameText;
    if (info->lossField >= 0)
        m_Fields.m_rxLoss = session.working.RxLosses()[static_cast<std::size_t>(info->lossField)];
}

void PowerSetup::EditF1(std::string_view text) {
    m_Fields.m_powF1 = text;
    if (m_Fields.m_synchron)
        m_Fields.m_powF2 = text;
    m_Fields.canSave = true;
}

void PowerSetup::EditF2(std::string_view text) {
    m_Fields.m_powF2 = text;
    if (m_Fields.m_synchron)
        m_Fields.m_powF1 = text;
    m_Fields.canSave = true;
}

void PowerSetup::ChooseUnit(PowerUnit unit) {
    m_Fields.m_unit = unit;
    m_Fields.canSave = true;
}

void PowerSetup::Synchronise(bool on) {
    m_Fields.m_synchron = on;
    if (!on || m_Fields.m_powF2 == m_Fields.m_powF1)
        return;
    m_Fields.m_powF2 = m_Fields.m_powF1;
    m_Fields.canSave = true;
}

void PowerSetup::Standard() {
    m_Fields.m_powF1 = m_Fields.m_powF2 = "43.0";
    m_Fields.m_unit = PowerUnit::Dbm;
    m_Fields.canSave = true;
}

Outcome PowerSetup::Save() {
    const BandInfo* const band = FindBand(m_Band);
    const double tone1 = DbmIn(m_Fields.m_powF1, m_Fields.m_unit);
    const double tone2 = DbmIn(m_Fields.m_powF2, m_Fields.m_unit);
    for (const double power : {tone1, tone2})
        if (!band || !IsPowerToSet(power))
            return Outcome::Refused("Falsch, dichtesortierung.");
    const std::string digits1 = TenthsText(tone1);
    const std::string digits2 = TenthsText(tone2);
    if (!m_Store.Write(PowerStoreName(band->prefix), digits1 + digits2))
        return Outcome::Refused("Oeffnen file Misserfolg");
    if (m_Session.working.Band() == m_Band) {
        m_Session.working.SetPower(digits1, digits2);
        m_Session.link.queue.Append(std::string(command::Power1) + digits1);
        m_Session.link.queue.Append(std::string(command::Power2) + digits2);
    }
    m_Fields.canSave = false;
    Outcome unit = RenewUnit(tone1, tone2);
    if (!unit || (tone1 >= DoubtfulDbm && tone2 >= DoubtfulDbm))
        return unit;
    return WithNote("Please confirm what you set be valid for the device.", unit);
}

Outcome PowerSetup::RenewUnit(double tone1, double tone2) {
    constexpr double DecimalSlack = 1e-6; // the difference of two decimals lies a hair beside theirs
    if (!m_Session.curve.scale.InDbc())
        return Outcome::Done();
    if (std::abs(tone1 - tone2) <= ToleranceOf(m_Band) + DecimalSlack) {
        SetCarrier(static_cast<float>(tone1) - m_Session.working.PowerOffset(), m_Session);
        return Outcome::Done();
    }
    if (Outcome back = SetLevelUnit(false, m_Session, m_Store); !back)
        return back;
    return Outcome::DoneWith("The power of Tone 1 and Tone 2 is not the same, can not use dBc.");
}

} // namespace qor
