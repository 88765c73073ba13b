#pragma once

#include "bands/plan_check.h"
#include "base/outcome.h"

#include <string>
#include <string_view>

namespace qor {

class SetupStore;
class CommandQueue;
class WorkingSet;

/// A frequency page of a band's set-up dialog: the plan of one order as it stands in the fields, what the
/// check says of it, and what saving does.
class PlanSetup {
public:
    /// Takes the stored plan of the band and order (index 1 IM3 to 5 IM11), else the built-in one.
    /// `factory`: the maker's own commands are offered.
    PlanSetup(int band, int imIndex, WorkingSet& working, CommandQueue& queue, SetupStore& store,
              bool factory);

    [[nodiscard]] const FrequencyPlan& Plan() const { return m_Plan; }
    /// The plan may be saved while this one fits.
    [[nodiscard]] const PlanVerdict& Verdict() const { return m_Verdict; }
    /// m_bandText: the ranges of the band.
    [[nodiscard]] std::string_view BandRangesText() const;
    /// "Speichern Standard" is there: in factory mode, and for bands that have a default of their own.
    [[nodiscard]] bool OffersDefault() const;

    void Edit(const FrequencyPlan& plan);
    /// The band's default plan; nothing is stored.
    void Standard();
    /// Stores the plan and, while the band is in use, queues its tones, and its sweep where the order is the
    /// selected one. Refused, with nothing stored, for an impossible plan, and when the store
    /// cannot be written.
    Outcome Save();
    /// Stores the plan as the one that Standard brings.
    Outcome SaveDefault();

private:
    Outcome Store(bool forDefault);
    void QueuePlan();

    int m_Band;
    int m_IMIndex;
    WorkingSet& m_Working;
    CommandQueue& m_Queue;
    SetupStore& m_Store;
    bool m_Factory;
    FrequencyPlan m_Plan;
    PlanVerdict m_Verdict;
};

/// A frequency as a field shows it: all its decimals, at least one.
[[nodiscard]] std::string FieldText(float mhz);

} // namespace qor
