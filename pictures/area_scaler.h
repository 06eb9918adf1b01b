// Parts of a scaled picture, pixel for pixel independent of which part is asked for.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace kelu {

/// Renders `part` of the picture scaled to `scaled` into `target`, its upper left pixel at `at`. Along a side that
/// shrinks a pixel is the average of the area it stands for; along one that grows it is mixed of
/// the two nearest pixels below twice the length, and the nearest one from there on.
/// `picture` is RGB32 or ARGB32; `target` is RGB32, or ARGB32_Premultiplied when the picture is ARGB32, and must not
/// share its pixels. `part` lies inside `scaled`.
void ScaleArea(const QImage& picture, const QSize& scaled, const QRect& part, QImage& target, const QPoint& at);

/// The same with the middle pixel of each area alone: coarse, but in a tenth of the time where the picture shrinks
/// much.
void SampleArea(const QImage& picture, const QSize& scaled, const QRect& part, QImage& target, const QPoint& at);

/// The pixels of the scaled side [0, scaled) that depend on pixels [begin, end) of the side of `length` pixels, as
/// first and one past the last.
struct PixelRange {
    int begin, end;
};
PixelRange DependentPixels(int begin, int end, int length, int scaled);

}  // namespace kelu
