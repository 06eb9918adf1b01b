// The size and scale at which an animation is shown in a control.
// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

namespace kelu {

/// How an animation fills its control.
enum GifStretch {
    kNaturalSize = 0,    ///< unscaled, clipped to the control
    kProportional = 1,   ///< as large as fits
    kEachAxis = 2,       ///< fills the control, proportions change
    kShrinkOnly = 3,     ///< proportional, never enlarged
    kControlToImage = 4  ///< the control takes the size of the animation
};

struct GifFit {
    QSize size;  ///< of the control, in device-independent pixels
    double scaleX = 1;
    double scaleY = 1;
};

/// The fit of a screen of `screen` GIF pixels into a control that would like to be `wanted` pixels. Nothing loaded
/// (an empty screen): `wanted` itself.
GifFit FitToControl(GifStretch stretch, const QSize& wanted, const QSize& screen);

}  // namespace kelu
