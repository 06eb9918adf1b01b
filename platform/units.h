// Twips, the unit of the program's layout tables: 1440 an inch, 15 to a device-independent pixel.
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <cmath>

namespace kelu {

inline constexpr int kTwipsPerPixel = 15;

/// Nearest integer, ties to even: the rounding of every conversion from a fraction to an integer in this program.
inline int RoundToEven(double value) { return static_cast<int>(std::nearbyint(value)); }

/// Device-independent pixels for a length in twips.
inline int TwipsToPixels(double twips) { return RoundToEven(twips / kTwipsPerPixel); }

inline constexpr int PixelsToTwips(int pixels) { return pixels * kTwipsPerPixel; }

/// A rectangle given in twips (left, top, width, height) as device-independent pixels. Edges are converted, not
/// sizes, so that rectangles that touch in twips touch in pixels.
inline QRect TwipsToPixels(const QRectF& twips) {
    const int left = TwipsToPixels(twips.left());
    const int top = TwipsToPixels(twips.top());
    return {left, top, TwipsToPixels(twips.left() + twips.width()) - left,
            TwipsToPixels(twips.top() + twips.height()) - top};
}

}  // namespace kelu
