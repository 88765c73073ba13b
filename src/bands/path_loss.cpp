#include "bands/path_loss.h"

#include "bands/catalogue.h"
#include "bands/rx_loss.h"
#include "bands/setup_store.h"
#include "bands/tenths.h"
#include "core/session.h"
#include "core/text_format.h"
#include "display/curve_store.h"
#include "display/level_unit.h"
#include "display/markers.h"
#include "platform/operator.h"
#include "platform/platform.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

namespace qor {

namespace {

constexpr int HighestTenths = 460; ///< 46.0 dBm
constexpr int LossDigits = 4;      ///< of each of the two stores
/// A table has 65 characters; what is much longer was chosen by mistake.
constexpr std::uintmax_t LongestTable = 65536;

bool Refuse(const Platform& platform, std::string_view why) {
    platform.user.Message(why);
    return false;
}

bool InRange(double loss) {
    return loss >= 0 && loss <= HighestPathLoss;
}

/// The line of the panel about what lies between the instrument and the device.
void ShowLossInfo(Session& session) {
    const PlanState& plan = session.plan;
    session.panel.m_lossInfo = "F1 Compensation " + Fixed(NumberIn(plan.m_power1_compensation), 1) +
                               " dB  F2 Compensation " + Fixed(NumberIn(plan.m_power2_compensation), 1) +
                               " dB  Path Cable Loss " + Fixed(static_cast<double>(plan.g_port2Loss), 1) +
                               " dB";
}

/// Powers of the selected band in dBm; those of the session where its store holds none.
void TakeStoredPowers(Session& session, SetupStore& store) {
    const BandInfo* const band = FindBand(session.select.m_BandId);
    if (!band)
        return;
    const auto values = store.ReadTenths(PowerStoreName(band->prefix), 2);
    if (values.empty())
        return;
    const PowerSetting power = ParsePower(values);
    session.plan.strpow1 = power.tone1;
    session.plan.strpow2 = power.tone2;
}

/// In dBc the reference is the power of tone 1 that reaches the device.
void FollowPathLoss(const BandInfo& band, Session& session, SetupStore& store) {
    if (!session.curve.g_UnitDbc)
        return;
    const double tone1 = NumberIn(ReadPowerStore(store, band.prefix).tone1) / 10.0;
    SetCarrier(static_cast<float>(tone1) - session.plan.g_powerOffset, session);
}

/// What a tone would be with its compensation fits the instrument. Rounded as band activation does, so that
/// it never refuses what was accepted here.
bool Compensable(const std::string& stored, double compensation) {
    const double dBm = NumberIn(stored) / 10.0 + compensation;
    return dBm < 100 && ToTenths(dBm) <= HighestTenths;
}

std::optional<std::string> TableIn(const std::filesystem::path& path) {
    std::error_code failed;
    if (!std::filesystem::is_regular_file(path, failed) ||
        std::filesystem::file_size(path, failed) > LongestTable || failed)
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

} // namespace

bool ApplyPathLoss(double port1, double port2, Session& session, const Platform& platform,
                   SetupStore& store) {
    if (LacksSecondPort(store))
        port2 = 0;
    if (!InRange(port1) || !InRange(port2))
        return Refuse(platform, "Bereich: 0-9.9");
    const BandInfo* const band = FindBand(session.select.m_BandId);
    if (session.curve.g_UnitDbc && !band)
        return Refuse(platform, "Auswaehlen Breite");
    session.plan.g_powerOffset = static_cast<float>(port1);
    session.plan.g_port2Loss = static_cast<float>(port2);
    session.plan.lossesAside.reset();
    if (band)
        FollowPathLoss(*band, session, store);
    if (!session.panel.m_lossInfo.empty())
        ShowLossInfo(session);
    store.Write("pathloss.ccz", ZeroPadded(CutTenths(port1), LossDigits));
    store.Write("pathloss2.ccz", ZeroPadded(CutTenths(port2), LossDigits));
    return true;
}

bool SetPort2Loss(double port2, Session& session, const Platform& platform) {
    if (!InRange(port2))
        return Refuse(platform,
                      port2 > HighestPathLoss ? "Bereich: 0-9.9" : "The minimum value of not less than 0dbm");
    session.plan.g_port2Loss = static_cast<float>(port2);
    if (session.plan.lossesAside)
        session.plan.lossesAside->port2 = session.plan.g_port2Loss;
    ShowLossInfo(session);
    return true;
}

void DropPathLoss(Session& session) {
    PlanState& plan = session.plan;
    plan.lossesAside = OperatorsPathLoss(plan); // of several files in a row the first finds it
    plan.g_powerOffset = plan.g_port2Loss = 0;
    plan.g_RxLoss = plan.g_BandRxLoss = 0;
    if (!session.panel.m_lossInfo.empty())
        ShowLossInfo(session);
}

void RestorePathLoss(Session& session, SetupStore& store) {
    PlanState& plan = session.plan;
    if (!plan.lossesAside)
        return;
    plan.g_powerOffset = plan.lossesAside->powerOffset;
    plan.g_port2Loss = plan.lossesAside->port2;
    plan.lossesAside.reset();
    if (const BandInfo* const band = FindBand(session.select.m_BandId))
        FollowPathLoss(*band, session, store);
    if (!session.panel.m_lossInfo.empty())
        ShowLossInfo(session);
}

PlanState::PathLosses OperatorsPathLoss(const PlanState& plan) {
    return plan.lossesAside.value_or(PlanState::PathLosses{plan.g_powerOffset, plan.g_port2Loss});
}

std::string CompensationTitle(Session& session, SetupStore& store) {
    constexpr std::size_t Column = 15;
    TakeStoredPowers(session, store);
    const PlanState& plan = session.plan;
    const double atDevice =
        NumberIn(plan.strpow1) / 10.0 - static_cast<double>(OperatorsPathLoss(plan).powerOffset);
    std::string title = Fixed(atDevice, 1) + "dBm";
    if (title.size() < Column)
        title.append(Column - title.size(), ' ');
    return title + Fixed(NumberIn(plan.strpow2) / 10.0, 1) + "dBm";
}

bool ApplyCompensation(std::string_view f1, std::string_view f2, Session& session, const Platform& platform,
                       SetupStore& store) {
    constexpr double Refused = -1;
    PlanState& plan = session.plan;
    const double dB1 = EnteredNumber(f1).value_or(Refused);
    const double dB2 = EnteredNumber(f2).value_or(Refused);
    if (dB1 < 0)
        return Refuse(platform, "f1The minimum value of not less than 0dbm");
    if (dB2 < 0)
        return Refuse(platform, "f2The minimum value of not less than 0dbm");
    TakeStoredPowers(session, store);
    if (!Compensable(plan.strpow1, dB1))
        return Refuse(platform, "f1The maximum value cannot be greater than 46dbm");
    if (!Compensable(plan.strpow2, dB2))
        return Refuse(platform, "f2The maximum value cannot be greater than 46dbm");
    plan.m_power1_compensation = f1;
    plan.m_power2_compensation = f2;
    ClearPlot(session);
    RestorePathLoss(session, store);
    ShowLossInfo(session);
    ClearLevels(session.curve);
    session.curve.g_curveDirty = 1;
    return true;
}

bool LoadRxLoss(Session& session, const Platform& platform, SetupStore& store) {
    const auto chosen = platform.user.FilesToOpen("Load Rx Loss", store.Directory(), "*.conf");
    if (chosen.empty())
        return false;
    const auto table = TableIn(chosen.front());
    if (!table || !store.Write("loss.conf", *table))
        return Refuse(platform, "Oeffnen file Misserfolg");
    session.plan.rxLoss = ParseRxLoss(std::string_view(*table).substr(0, LongestRxLoss));
    return true;
}

} // namespace qor
