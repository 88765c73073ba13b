#include "base/firmware.h"

#include <cmath>

namespace qor {

bool FirmwareFrom(float firmVersion, int tenths) {
    return std::lround(firmVersion * 10.0f) >= tenths;
}

} // namespace qor
