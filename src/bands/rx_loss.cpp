#include "bands/rx_loss.h"

#include "base/tenths.h"

namespace qor {

std::array<float, 13> ParseRxLoss(std::string_view text) {
    constexpr std::size_t FieldLength = 5;
    constexpr std::size_t FewestFields = 9; // the last four may be missing
    std::array<float, 13> losses{};
    if (text.size() < FewestFields * FieldLength)
        return losses;
    for (std::size_t i = 0; i < losses.size() && i * FieldLength < text.size(); ++i) {
        const double loss = NumberIn(text.substr(i * FieldLength, FieldLength));
        if (loss >= -99.9 && loss <= 9.9)
            losses[i] = static_cast<float>(loss);
    }
    return losses;
}

} // namespace qor
