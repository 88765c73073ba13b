#pragma once

#include "results/result_forms.h"

#include <filesystem>
#include <optional>

namespace qor {

class Curve;
class Run;
class SetupStore;
class WallClock;
class WorkingSet;
struct ResultState;
struct RunRecord;

/// What a result is made of.
struct ResultRooms {
    const Run& run;
    const Curve& curve;
    const WorkingSet& working;
    ResultState& results;
};

/// The measurement in the curve store as a result, and its files.
class ResultFiles {
public:
    ResultFiles(const ResultRooms& rooms, const WallClock& clock, SetupStore& store)
        : m_Rooms(rooms), m_Clock(clock), m_Store(store) {}

    /// What the curve is a measurement of, as it was when the run began; of a shown file, what that states.
    /// Nothing where there was no run.
    [[nodiscard]] std::optional<ResultDocument> Document() const;
    /// Writes the measurement in the form of the name's ending; an existing file is replaced. Refused, with
    /// the file as it was: no point was measured, the form has no place for the result, a .dat of what came
    /// from anything else than a .dat, and a path that cannot be written.
    Outcome DataSave(const std::filesystem::path& path);
    /// A result has been written elsewhere, in a form that can be read back.
    void NoteSaved(const ResultDocument& document) { m_Saved = document.runs; }
    /// The curve was measured, and no file holds it yet.
    [[nodiscard]] bool HoldsUnsaved() const;

    /// The forms that results are saved in; a program adds those that it alone can write.
    [[nodiscard]] ResultForms& Forms() { return m_Forms; }
    [[nodiscard]] const ResultForms& Forms() const { return m_Forms; }

private:
    [[nodiscard]] RunRecord SetupInForce() const;
    void TakeCurve(ResultDocument& document) const;

    ResultRooms m_Rooms;
    const WallClock& m_Clock;
    SetupStore& m_Store;
    ResultForms m_Forms;
    std::vector<ResultRun> m_Saved; ///< the runs of the last result that was written
};

} // namespace qor
