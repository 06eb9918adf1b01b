// Thumb and rail of a slider whose parts are pictures, in the dark look.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

namespace kelu::theme {

/// A knob of 16 by 16 device-independent pixels, for a screen of ratio `ratio`.
QPixmap SliderThumb(qreal ratio);
/// A level rail, `length` by 4 device-independent pixels.
QPixmap SliderRail(int length, qreal ratio);

}  // namespace kelu::theme
