#pragma once

#include "results/result_document.h"

namespace qor {

/// What every reader does behind the fields of its form: with method, order, unit, tones, powers and rows in
/// place, levels and limit still in the unit of the file, the rest follows from them. Levels and limit become
/// absolute; band, product, reference, in 2-tone the time per point and the length, in a sweep the step, and
/// the verdict of the rows are set. Without a head only times and verdict are.
void CompleteRead(ResultDocument& document);

/// What the rows of the last run are worth by the limit: failed with a level above it, passed with a level in
/// every row, none otherwise and without a limit. What a marked file states of its run stands where it is
/// worse. Sets the points, too.
void JudgeRows(ResultDocument& document);

/// True where the levels of the last run, in the hundredths of the unit that files state, would be taken for
/// a better result than it was.
[[nodiscard]] bool RowsFlatter(const ResultDocument& document);
/// The verdict of a form that holds every run: that of the last one, and no better than what the rows of
/// those before it tell.
[[nodiscard]] ResultVerdict VerdictOfAllRuns(const ResultDocument& document);

/// The tones that the method holds: of the 2-tone test, or of the two halves of a sweep, MHz.
[[nodiscard]] ResultTones HeldTones(const ResultDocument& document);
/// Band of a result by its two fixed tones, MHz. The two LTE 700 half bands share their tones with others, so
/// one that is selected stays.
[[nodiscard]] int BandOfTones(float f1, float f2, int selected);
/// The band of a result that was read, with the one selected to help: band and product.
void TakeBand(ResultDocument& document, int selected);

} // namespace qor
