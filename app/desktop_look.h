// What the desktop asks of the look of all programs.
// SPDX-License-Identifier: MIT
#pragma once

namespace kelu {

/// Whether the user wants high contrast: the desktop's portal says so or, where there is none, its colours are black
/// and white. Needs the application object, before the theme is applied. Takes a moment at most.
bool WantsHighContrast();

}  // namespace kelu
