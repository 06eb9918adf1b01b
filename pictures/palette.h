// A palette of few colours for a photograph, and the picture in these colours.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <cstdint>
#include <vector>

namespace kelu {

/// A picture of indexes into `colors`; `transparent` is the index of the pixels that show nothing, -1 when none do.
struct PalettePicture {
    std::vector<QRgb> colors;
    int transparent = -1;
    std::vector<std::uint8_t> indexes;  ///< row by row without gaps
};

/// The picture in at most 256 colours: without loss when it has no more, else with the best 256 that a refined
/// variance cut finds, dithered. Pixels of less than half opacity become transparent. `picture` is RGB32 or ARGB32.
PalettePicture ReduceColors(const QImage& picture);

}  // namespace kelu
