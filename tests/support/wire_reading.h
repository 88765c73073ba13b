#pragma once

#include "support/rig.h"

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qor::test {

/// Commands written with blanks between them; "#SR*10" is ten of them.
[[nodiscard]] std::vector<std::string> Words(std::string_view text);
/// The other way round, for a legible failure.
[[nodiscard]] std::string Joined(const std::vector<std::string>& words);
/// The steps of a half sweep, each with its reading: `command` and tenths of MHz from `from` to `to`.
[[nodiscard]] std::vector<std::string> Steps(const std::string& command, int from, int to, int step);
/// Transcript of a program whose line is quiet: the commands sent during `act` and until the line rests.
template <class Act> std::vector<std::string> SentDuring(Rig& rig, Act act) {
    rig.Sent();
    act();
    rig.RunUntilIdle();
    return rig.Sent();
}

/// The curve as an onlooker at the wire draws it: he follows both tones, works out the product, and puts down
/// every level that the instrument gives.
struct OverheardCurve {
    std::vector<float> trace; ///< all levels in time order, the first one of a start included
    std::map<int, float> up;  ///< level by frequency in tenths of MHz, last one wins
    std::map<int, float> down;
    int levels = 0;
};
/// Reads the wire log from the `from`-th transfer on. `order` is 3 to 11; `upper` bands receive above.
[[nodiscard]] OverheardCurve Overhear(Rig& rig, std::size_t from, int order, bool upper);
/// Transfers in the wire log so far.
[[nodiscard]] std::size_t Transfers(Rig& rig);

/// Levels of a curve by their place on the grid, those that are there.
[[nodiscard]] std::map<int, float> OnGrid(const Curve& curve, std::span<const float> levels);

} // namespace qor::test
