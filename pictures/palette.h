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

/// The best colours for a picture, opaque, at most `most` (1 to 256).
std::vector<QRgb> ChooseColors(const QImage& picture, int most);

/// Pixels as indexes of given colours (1 to 256), dithered by a fixed pattern: the same pixel at the same place is
/// always the same index, whatever lies beside it, so that what stands still in a film doesn't flicker.
class PatternDither {
 public:
    explicit PatternDither(const std::vector<QRgb>& colors);
    std::uint8_t IndexOf(QRgb pixel, int x, int y) const;

 private:
    std::vector<std::uint8_t> nearest_;  ///< by cell of the colour cube
    float strength_ = 0;                 ///< how far the pattern moves a channel, end to end
};

}  // namespace kelu
