// Writes an animated GIF that loops for ever, every frame of the same size and with the same colours.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <vector>

#include "pictures/gif/gif_reader.h"

namespace kelu {

/// `frames` are Format_Indexed8; their own colour tables are not used.
QByteArray WriteAnimation(const std::vector<QImage>& frames, const ColourTable& colours, int delayMs);

}  // namespace kelu
