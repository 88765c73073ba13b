#pragma once

#include "support/rig.h"

#include <gtest/gtest.h>

namespace qor::test {

/// "\x1f" of a wire log becomes the byte, and so do "\r", "\n", "\t", "\\" and "\"".
[[nodiscard]] std::string Bytes(std::string_view logged);

/// A whole program whose service page is open, the instrument's memory kept beside its stores.
struct ServiceRig : Rig {
    explicit ServiceRig(const sim::InstrumentConfig& config = {}, ServicePage page = ServicePage::Test)
        : Rig(config) {
        EXPECT_TRUE(PowerOn());
        S().factory.Enter("740261", 0);
        EXPECT_TRUE(Done(program.Service().PressPage(page)));
        EXPECT_TRUE(RunUntilFree());
        Sent();
        Said({});
    }
    bool RunUntilFree(std::int64_t limitMs = 60000) {
        return time.RunUntil([this] { return !S().factory.IsBusy() && program.LineIsIdle(); }, limitMs);
    }
    /// Commands with their payloads as bytes, as they went out since the last call, from `first` on.
    std::vector<std::string> Said(std::string_view first);
    /// Lines of the record of memory writes without its head; how many of them are not confirmed.
    [[nodiscard]] std::pair<int, int> Recorded() const;
    [[nodiscard]] int Own(int address) const { return instrument.Memory().Own(address); }

private:
    std::size_t m_Heard = 0; ///< characters of the wire log read by Said
};

} // namespace qor::test
