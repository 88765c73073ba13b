#pragma once

#include <QString>

namespace qor {
struct Panel;
struct RunFacts;
struct Session;
} // namespace qor

namespace qor::ui {

/// The verdict on a run in a word or two.
[[nodiscard]] QString VerdictText(const RunFacts& facts);
/// The curve in a sentence, for those who cannot see it.
[[nodiscard]] QString CurveSentence(const Session& session, const Panel& panel);
/// How much of the measurement in view is there, where it is not all.
[[nodiscard]] QString PartText(const RunFacts& facts);

} // namespace qor::ui
