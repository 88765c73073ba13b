#pragma once

#include "desk/appearance.h"

namespace qor::ui {

/// Shows all texts of the program in a language from now on. German needs no catalogue: it is the source.
void InstallLanguage(Language language);

} // namespace qor::ui
