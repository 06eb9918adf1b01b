// The small made things of the program: the splash's animation, the picture shown before one is opened, the shutter.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

namespace kelu {

/// A brush that paints a stroke in all colours, 126 x 22 pixels, a GIF.
QByteArray MakeStrokeAnimation();
/// Invites to open or drop a picture.
QImage MakePlaceholder();
/// The click of a camera, a mono WAV of 16 bits.
QByteArray MakeShutterSound();

}  // namespace kelu
