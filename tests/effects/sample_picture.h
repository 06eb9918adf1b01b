// A small picture without symmetry or flat areas, so that any change of an effect's inputs shows.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace kelu {

inline QImage SamplePicture(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    unsigned noise = 12345;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            noise = noise * 1664525u + 1013904223u;
            const int grain = static_cast<int>(noise >> 27);
            picture.setPixel(
                x, y, qRgb((x * 190) / width + grain, (y * 200) / height + grain, ((x + 2 * y) * 3) % 220 + grain));
        }
    return picture;
}

}  // namespace kelu
