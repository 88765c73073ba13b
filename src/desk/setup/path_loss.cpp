#include "desk/setup/path_loss.h"

#include "bands/catalogue.h"
#include "bands/records.h"
#include "bands/rx_loss.h"
#include "base/atomic_write.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "curve/markers.h"
#include "desk/level_unit.h"
#include "desk/replace.h"
#include "desk/session.h"
#include "platform/operator.h"
#include "platform/platform.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>
#include <vector>

namespace qor {

namespace {

constexpr int HighestTenths = 460; ///< 46.0 dBm
constexpr int LossDigits = 4;      ///< of each of the two stores
/// A table has 65 characters; what is much longer was chosen by mistake.
constexpr std::uintmax_t LongestTable = 65536;

bool InRange(double loss) {
    return loss >= 0 && loss <= HighestPathLoss;
}

/// Powers of the selected band; those of the session where its store holds none.
void TakeStoredPowers(Session& session, SetupStore& store) {
    const BandInfo* const band = FindBand(session.working.Band());
    if (!band)
        return;
    if (!store.ReadOrMake(PowerStoreName(band->prefix), 1).empty())
        session.working.SetPower(ReadPowerStore(store, band->prefix));
}

/// In dBc the reference is the power of tone 1 that reaches the device.
void FollowPathLoss(const BandInfo& band, Session& session, SetupStore& store) {
    if (!session.curve.scale.InDbc())
        return;
    const double tone1 = NumberIn(ReadPowerStore(store, band.prefix).tone1) / 10.0;
    SetCarrier(static_cast<float>(tone1) - session.working.PowerOffset(), session);
}

/// What a tone would be with its compensation fits the instrument. Rounded as band activation does, so that
/// it never refuses what was accepted here.
bool Compensable(const std::string& stored, double compensation) {
    const double dBm = NumberIn(stored) / 10.0 + compensation;
    return dBm < 100 && ToTenths(dBm) <= HighestTenths;
}

std::string NamesOf(const std::vector<std::size_t>& fields) {
    std::string names;
    for (const std::size_t field : fields)
        names += (names.empty() ? "" : ", ") + std::string(RxLossNames[field]);
    return names;
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

Outcome ApplyPathLoss(double port1, double port2, Session& session, SetupStore& store) {
    if (LacksSecondPort(store))
        port2 = 0;
    if (!InRange(port1) || !InRange(port2))
        return Outcome::Refused("Bereich: 0-9.9");
    const BandInfo* const band = FindBand(session.working.Band());
    if (session.curve.scale.InDbc() && !band)
        return Outcome::Refused("Auswaehlen Breite");
    // In tenths, as the stores keep them and a result states its powers.
    const int tenths1 = CutTenths(port1);
    const int tenths2 = CutTenths(port2);
    session.working.SetPathLosses(static_cast<float>(tenths1) / 10.0f, static_cast<float>(tenths2) / 10.0f);
    if (band)
        FollowPathLoss(*band, session, store);
    store.Write("pathloss.ccz", ZeroPadded(tenths1, LossDigits));
    store.Write("pathloss2.ccz", ZeroPadded(tenths2, LossDigits));
    return Outcome::Done();
}

Outcome SetPort2Loss(double port2, Session& session) {
    if (!InRange(port2))
        return Outcome::Refused(port2 > HighestPathLoss ? "Bereich: 0-9.9"
                                                        : "The minimum value of not less than 0dbm");
    session.working.SetPort2Loss(static_cast<float>(port2));
    session.lossInfoShown = true;
    return Outcome::Done();
}

void DropPathLoss(Session& session) {
    session.working.PutLossesAside();
}

void RestorePathLoss(Session& session, SetupStore& store) {
    if (!session.working.TakeLossesBack())
        return;
    if (const BandInfo* const band = FindBand(session.working.Band()))
        FollowPathLoss(*band, session, store);
}

std::string CompensationTitle(Session& session, SetupStore& store) {
    constexpr std::size_t Column = 15;
    TakeStoredPowers(session, store);
    const WorkingSet& working = session.working;
    const double atDevice =
        NumberIn(working.Power1()) / 10.0 - static_cast<double>(working.OperatorsLosses().powerOffset);
    std::string title = Fixed(atDevice, 1) + "dBm";
    if (title.size() < Column)
        title.append(Column - title.size(), ' ');
    return title + Fixed(NumberIn(working.Power2()) / 10.0, 1) + "dBm";
}

Outcome ApplyCompensation(std::string_view f1, std::string_view f2, Session& session, SetupStore& store) {
    constexpr double Refused = -1;
    WorkingSet& working = session.working;
    const double dB1 = EnteredNumber(f1).value_or(Refused);
    const double dB2 = EnteredNumber(f2).value_or(Refused);
    if (dB1 < 0)
        return Outcome::Refused("f1The minimum value of not less than 0dbm");
    if (dB2 < 0)
        return Outcome::Refused("f2The minimum value of not less than 0dbm");
    TakeStoredPowers(session, store);
    if (!Compensable(working.Power1(), dB1))
        return Outcome::Refused("f1The maximum value cannot be greater than 46dbm");
    if (!Compensable(working.Power2(), dB2))
        return Outcome::Refused("f2The maximum value cannot be greater than 46dbm");
    working.SetCompensation(std::string(f1), std::string(f2));
    ClearPlot(session.curve, session.markers);
    RestorePathLoss(session, store);
    session.lossInfoShown = true;
    return Outcome::Done();
}

Outcome LoadRxLoss(Session& session, const Platform& platform, SetupStore& store) {
    const auto chosen = platform.user.FilesToOpen("Load Rx Loss", store.Directory(), "*.conf");
    if (chosen.empty())
        return Outcome::Refused({});
    const auto text = TableIn(chosen.front());
    if (!text)
        return Outcome::Refused("Oeffnen file Misserfolg");
    const RxLossFile table = ParseRxLoss(std::string_view(*text).substr(0, LongestRxLoss));
    if (table.isShort)
        return Outcome::Refused("Die Verlusttabelle ist zu kurz, sie wurde nicht geladen: " +
                                chosen.front().string());
    if (!table.noNumber.empty())
        return Outcome::Refused("Die Verlusttabelle hat Felder ohne Zahl, sie wurde nicht geladen: " +
                                NamesOf(table.noNumber));
    if (!store.Write("loss.conf", *text))
        return Outcome::Refused("Oeffnen file Misserfolg");
    session.working.SetRxLosses(table.losses);
    if (!table.outside.empty())
        return Outcome::DoneWith("Ausserhalb von -99.9 bis 9.9 dB, zaehlt als 0: " + NamesOf(table.outside));
    return Outcome::Done();
}

Outcome CreateRxLossFile(const std::array<std::string, RxLossNames.size()>& typed,
                         std::vector<std::size_t>& wrong, const Platform& platform, const SetupStore& store) {
    std::string text;
    wrong.clear();
    for (std::size_t n = 0; n < typed.size(); ++n) {
        const auto loss = EnteredNumber(typed[n]);
        const std::string field = loss ? RxLossField(*loss) : std::string();
        if (field.empty())
            wrong.push_back(n);
        text += field;
    }
    if (!wrong.empty())
        return Outcome::Refused("Diese Werte passen nicht in die Verlusttabelle: " + NamesOf(wrong));
    std::filesystem::path path =
        platform.user.FileToSave("Create Config File", store.Directory() / "RxLoss.conf", "*.conf");
    if (path.empty() || !MayReplace(platform.user, path))
        return Outcome::Refused({});
    if (!WriteAtomically(path, text).empty())
        return Outcome::Refused("Speichern file misserfolg");
    const auto written = TableIn(path);
    if (!written || *written != text)
        return Outcome::Refused("Speichern file misserfolg");
    const RxLossFile table = ParseRxLoss(*written);
    if (!table.outside.empty())
        return Outcome::DoneWith("Ausserhalb von -99.9 bis 9.9 dB, zaehlt als 0: " + NamesOf(table.outside));
    return Outcome::Done();
}

} // namespace qor
