#pragma once

#include "sim/device.h"

#include <array>
#include <string>

namespace qor::sim {

/// A band switch unit: three relay banks, each set by a command of its own and answered by its echo. A
/// command without a mask is answered, too, and moves nothing.
class SwitchUnit final : public Device {
public:
    [[nodiscard]] std::string Execute(std::string_view command) override;

    /// Mask of bank 0 to 2, "0x0008".
    [[nodiscard]] const std::string& Relays(std::size_t bank) const { return m_Relays[bank]; }

private:
    std::array<std::string, 3> m_Relays{"0x0000", "0x0000", "0x0000"};
};

} // namespace qor::sim
