// What assistive technology learns of a progress bar: its role, its range and its value.
// SPDX-License-Identifier: MIT
#pragma once

namespace kelu {

class XP_ProgressBar;

/// Makes progress bars known to the accessibility bridge; calling it again does nothing.
void InstallBarAccessibility();

/// Tells a running bridge of a new value.
void AnnounceBarValue(XP_ProgressBar& bar);

}  // namespace kelu
