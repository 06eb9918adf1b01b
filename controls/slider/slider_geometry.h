// Slider arithmetic without a widget: value to thumb, pointer to value, rail, size, and the place of the value tip.
// Everything is in widget pixels; a thumb's place may lie between two pixels when the range is finer than the travel.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRect>
#include <QSize>

namespace kelu::slider {

enum class Direction { kHorizontal, kVertical };

/// What the geometry depends on. `rail` is empty unless the rail is a picture that is shown.
struct Parts {
    Direction direction = Direction::kVertical;
    QSize control;
    QSize thumb;
    QSize rail;
};

/// `max` - `min` may be as wide as all 32-bit numbers, so the range has more bits than its ends.
struct Range {
    int min = 0;
    int max = 10;
    qint64 Width() const { return static_cast<qint64>(max) - min; }
};

/// Pixels between the thumb's two end places; 0 or less when the thumb is as long as the control or longer.
int Travel(const Parts& parts);

/// Place of the thumb along the direction: left, or top. A vertical slider has its minimum at the bottom.
double ThumbPlace(const Parts& parts, const Range& range, int value);

/// Place of the thumb across the direction: centred on a rail picture that is wider, else 0.
double ThumbAcross(const Parts& parts);

/// `place` held between the ends of the travel.
double HeldPlace(const Parts& parts, double place);

/// Value of a thumb at `place`, nearest, ties to even; `current` when there is no travel.
int ValueAtPlace(const Parts& parts, const Range& range, double place, int current);

/// The size that the parts force on the control: across always the thumb's, or both the rail picture's.
QSize FittedSize(const Parts& parts);

/// The four pixels thick rail, from the thumb's centre at one end to that at the other, and two pixels more at each
/// end.
QRect RailRect(const Parts& parts);

/// The value tip in screen pixels: centred above the thumb, or to the left of a vertical slider's thumb.
/// `thumb` is the thumb's place in the control, `control` the control's top left corner on the screen, `label` the size
/// of the number.
QRect TipRect(Direction direction, QPointF thumb, QSize thumbSize, QPoint control, QSize label);

}  // namespace kelu::slider
