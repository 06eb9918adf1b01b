// What assistive technology learns of a slider: its role, its range, and the value, which it may also set.
// SPDX-License-Identifier: MIT
#pragma once

namespace kelu {

class LsSlider;

/// Makes sliders known to the accessibility bridge; calling it again does nothing.
void InstallSliderAccessibility();

/// Tells a running bridge of a new value.
void AnnounceSliderValue(LsSlider& slider);

}  // namespace kelu
