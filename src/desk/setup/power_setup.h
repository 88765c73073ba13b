#pragma once

#include "base/outcome.h"

#include <string>
#include <string_view>

namespace qor {

class SetupStore;
struct Session;

enum class PowerUnit { Dbm, Watt }; ///< in the order of the unit lists

/// The fields of the power group of a set-up dialog, as they stand.
struct PowerFields {
    std::string m_powF1 = "43.0";
    std::string m_powF2 = "43.0";
    PowerUnit m_unit = PowerUnit::Dbm; ///< of both fields
    bool m_synchron = true;            ///< the two powers are kept equal
    float m_rxLoss = 0;                ///< dB, receive cable loss of the band
    bool canSave = true;
};

/// True for a power in dBm that can be set, 19.99 to 46.01.
[[nodiscard]] bool IsPowerToSet(double dBm);

/// The power group of a band's set-up dialog: what each control does, and what saving does.
class PowerSetup {
public:
    /// Reads the power store of a band of the catalogue.
    PowerSetup(int band, Session& session, SetupStore& store);

    [[nodiscard]] const PowerFields& Fields() const { return m_Fields; }
    void EditF1(std::string_view text);
    void EditF2(std::string_view text);
    /// The numbers stay as they are: they are read in the new unit.
    void ChooseUnit(PowerUnit unit);
    void Synchronise(bool on);
    /// 43.0 dBm for both tones; nothing is stored.
    void Standard();

    /// Stores both powers in dBm and, while the band is in use, queues them for the instrument. What is shown
    /// in dBc follows the new carrier, or goes back to dBm where the tones differ too much for a common one.
    /// Refused, with nothing stored, for a power outside 19.99 to 46.01 dBm or no number, and
    /// when the store cannot be written.
    Outcome Save();

private:
    Outcome RenewUnit(double tone1, double tone2);

    int m_Band;
    Session& m_Session;
    SetupStore& m_Store;
    PowerFields m_Fields;
};

} // namespace qor
