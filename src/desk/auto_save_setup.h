#pragma once

#include "base/outcome.h"
#include "results/auto_save.h"

#include <string>

namespace qor {

class Program;

/// The path that the set-up of auto-save proposes: the folder in use, else that of the last PDF, else the
/// folder `AutoSave` of the stores, with the serial number on the panel as its name.
[[nodiscard]] std::string ProposedAutoSavePath(const Program& program);
/// The set-up's "ok". Without a form auto-save goes off.
Outcome SetAutoSave(Program& program, const AutoSaveForms& forms, std::string path);

inline constexpr int LongestPrefix = 12;
inline constexpr int LongestNumber = 5;
/// "Frefix Set". `numberIsWrong` tells which of the two fields a refusal is about.
Outcome SetAutoSavePrefix(Program& program, const std::string& name, const std::string& number,
                          bool& numberIsWrong);
/// The folder of a series, below that of the set-up; it is made.
Outcome SetAutoSaveSeries(Program& program, const std::string& name, const std::string& folder);

} // namespace qor
