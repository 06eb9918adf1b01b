// Arithmetic of the five ways to fit.
// SPDX-License-Identifier: MIT
#include "controls/animated_gif/gif_fit.h"

#include <algorithm>

#include "platform/units.h"

namespace kelu {

GifFit FitToControl(GifStretch stretch, const QSize& wanted, const QSize& screen) {
    if (screen.isEmpty()) return {wanted};
    if (stretch == kNaturalSize) return {wanted.boundedTo(screen)};
    if (stretch == kControlToImage) return {screen};
    const double scaleX = static_cast<double>(wanted.width()) / screen.width();
    const double scaleY = static_cast<double>(wanted.height()) / screen.height();
    if (stretch == kEachAxis) return {wanted, scaleX, scaleY};
    double scale = std::min(scaleX, scaleY);
    if (stretch == kShrinkOnly) scale = std::min(scale, 1.0);
    return {{RoundToEven(scale * screen.width()), RoundToEven(scale * screen.height())}, scale, scale};
}

}  // namespace kelu
