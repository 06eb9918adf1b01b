// The shutter's click.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kelu {

/// Plays a sound file in the background and returns at once. Without a sound device, or without the file, nothing is
/// heard and nobody is told.
void PlaySoundFile(const QString& path);

}  // namespace kelu
