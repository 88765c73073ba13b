#pragma once

namespace qor::ui {

/// Gives all windows of the program the look of a skin number: palette and style sheet.
void ApplyLook(int skin);

} // namespace qor::ui
