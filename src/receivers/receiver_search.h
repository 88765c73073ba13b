#pragma once

#include "base/outcome.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qor {

class ReceiverAccess;
class ReceiverState;
class SetupStore;

/// Where the analyser is looked for unless an address is stored.
inline constexpr std::string_view UsualReceiverAddress = "GPIB0::20::INSTR";

/// Title of the question whether a lost analyser is to be looked for, and the question.
// shown to the operator
inline constexpr std::string_view RecoveryTitle = "Scan R&S Spectrum Analyzer Device";
// shown to the operator
inline constexpr std::string_view RecoveryQuestion =
    "Communicate with R&S Spectrum Analyzer failed. \nRetry again.";

/// Finds the external receiver, sets it up and gets a lost one back. Nothing here tells or asks anybody.
class ReceiverSearch {
public:
    /// Called before each address of a scan; false ends it.
    using Goes = std::function<bool(const std::string& address, int done, int total)>;

    static constexpr int ScanLength = 990; ///< ten boards with 99 devices each

    ReceiverSearch(ReceiverState& state, ReceiverAccess& access, SetupStore& store)
        : m_State(state), m_Access(access), m_Store(store) {}

    /// Closes what is open and tries the address in use; what is there is identified and set up.
    bool TryAddress();
    /// A scan makes sense where GPIB can exist.
    [[nodiscard]] bool MayScan() const;
    [[nodiscard]] static std::string ScanAddress(int place);
    /// One address of a scan. What is found there is kept as the address, identified and set up.
    bool TryScanned(int place) { return OpenScanned(place) && Identify(); }
    /// The whole scan.
    bool TryScan(const Goes& goes);
    /// A scan that has found nobody, or was given up, is over: what is told is the address in use and why
    /// nobody is there.
    void EndScan();
    /// Behind all addresses: the USB power sensor.
    bool TrySensor();

    /// For a start: an external receiver is open and well, or the address, and then the sensor, is tried
    /// once. Refused when none is there.
    Outcome BeReady();
    /// Behind a failure within a run: true when the same instrument answers at the reopened address and has
    /// been set up again as far as this class does it.
    bool Restore();
    /// Looks for a lost analyser, as the operator has wished: the address, then a scan.
    Outcome Recover(const Goes& goes);

private:
    bool TryOpen(const std::string& address);
    bool OpenScanned(int place);
    bool Scan(const Goes& goes);
    [[nodiscard]] std::optional<std::string> AskIdentity();
    bool Identify();
    void ApplySetup();
    [[nodiscard]] std::string AddressInUse() const;

    ReceiverState& m_State;
    ReceiverAccess& m_Access;
    SetupStore& m_Store;
    std::string m_WhyNot; ///< nobody is at the address in use
};

} // namespace qor
