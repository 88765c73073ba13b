#pragma once

#include "bands/rx_loss.h"
#include "base/outcome.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

class SetupStore;
struct Platform;
struct Session;

/// Highest path loss that can be set, dB; the lowest is 0.
inline constexpr double HighestPathLoss = 9.9;

/// Loss of the cables from the ports to the device, dB. Takes both over and keeps them in `pathloss.ccz` and
/// `pathloss2.ccz`, cut to tenths; port 2 stays 0 on an installation without it. In dBc the reference becomes
/// the power that reaches the device over port 1.
///
/// Refused, with nothing changed, for a loss out of range, and in dBc without a band.
Outcome ApplyPathLoss(double port1, double port2, Session& session, SetupStore& store);

/// Loss of port 2, for this session only. Refused when it is out of range.
Outcome SetPort2Loss(double port2, Session& session);

/// A file's levels and powers are those at the device: while its curve is shown no path loss and no receive
/// correction is in force. What the operator has set is kept for the next run, and the stores keep theirs.
void DropPathLoss(Session& session);
/// The file is gone: the losses the operator has set are in force again. In dBc the reference follows.
void RestorePathLoss(Session& session, SetupStore& store);

/// Powers of the tones for the title line of the compensation dialog: tone 1 less the path loss, padded to 15
/// characters, and tone 2. Takes the powers of the selected band from its store.
[[nodiscard]] std::string CompensationTitle(Session& session, SetupStore& store);

/// Takes over what band activation adds to the tone powers, texts in dB; the curve is cleared, because it was
/// measured with other powers. Refused, with nothing changed, for a text that is not 0 or more,
/// and where a tone would exceed 46.0 dBm.
Outcome ApplyCompensation(std::string_view f1, std::string_view f2, Session& session, SetupStore& store);

/// Lets the operator choose a receive loss table, makes it `loss.conf` and reads it. Refused, with
/// nothing changed, for a file that is no table and when it cannot be kept, and without words when none was
/// chosen. A loss out of range counts as 0, and its band is named.
Outcome LoadRxLoss(Session& session, const Platform& platform, SetupStore& store);

/// Writes the losses that were typed, dB in the order of RxLossNames, to a file that the operator chooses.
/// Refused where one is no number or does not fit its field: `wrong` holds those then. Those that will read
/// as 0 are told.
Outcome CreateRxLossFile(const std::array<std::string, RxLossNames.size()>& typed,
                         std::vector<std::size_t>& wrong, const Platform& platform, const SetupStore& store);

} // namespace qor
