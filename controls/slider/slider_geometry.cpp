// Slider arithmetic. Products are formed before quotients, so that a value exactly between two steps is seen as such.
// SPDX-License-Identifier: MIT
#include "controls/slider/slider_geometry.h"

#include <algorithm>
#include <cmath>

#include "platform/units.h"

namespace kelu::slider {

int Travel(const Parts& parts) {
    return parts.direction == Direction::kHorizontal ? parts.control.width() - parts.thumb.width()
                                                     : parts.control.height() - parts.thumb.height();
}

double ThumbPlace(const Parts& parts, const Range& range, int value) {
    const double travel = Travel(parts);
    const double steps = static_cast<double>(value) - range.min;
    const double fromMin = range.Width() == 0 ? 0.0 : travel * steps / static_cast<double>(range.Width());
    return parts.direction == Direction::kHorizontal ? fromMin : travel - fromMin;
}

double ThumbAcross(const Parts& parts) {
    const int room = parts.direction == Direction::kHorizontal ? parts.rail.height() - parts.thumb.height()
                                                               : parts.rail.width() - parts.thumb.width();
    return parts.rail.isEmpty() || room <= 0 ? 0.0 : room * 0.5;
}

double HeldPlace(const Parts& parts, double place) {
    if (place < 0) return 0;
    return std::min(place, static_cast<double>(Travel(parts)));
}

int ValueAtPlace(const Parts& parts, const Range& range, double place, int current) {
    const double travel = Travel(parts);
    if (travel <= 0) return current;
    const double fromMin = parts.direction == Direction::kHorizontal ? place : travel - place;
    const double value = std::nearbyint(fromMin * static_cast<double>(range.Width()) / travel + range.min);
    return static_cast<int>(std::clamp(value, static_cast<double>(range.min), static_cast<double>(range.max)));
}

QSize FittedSize(const Parts& parts) {
    const bool horizontal = parts.direction == Direction::kHorizontal;
    if (!parts.rail.isEmpty()) {
        return horizontal ? QSize(parts.rail.width() + 4, std::max(parts.rail.height(), parts.thumb.height()))
                          : QSize(std::max(parts.rail.width(), parts.thumb.width()), parts.rail.height() + 4);
    }
    if (horizontal) {
        return {parts.control.width() == 0 ? parts.thumb.width() : parts.control.width(), parts.thumb.height()};
    }
    return {parts.thumb.width(), parts.control.height() == 0 ? parts.thumb.height() : parts.control.height()};
}

QRect RailRect(const Parts& parts) {
    constexpr int kThickness = 4;
    const QSize thumb = parts.thumb;
    if (parts.direction == Direction::kHorizontal) {
        const int top = RoundToEven((thumb.height() - kThickness) * 0.5);
        const int left = RoundToEven(thumb.width() * 0.5 - 2);
        const int right = parts.control.width() + left - thumb.width() + 4;
        return {left, top, right - left, kThickness};
    }
    const int left = RoundToEven((thumb.width() - kThickness) * 0.5);
    const int top = RoundToEven(thumb.height() * 0.5 - 2);
    const int bottom = parts.control.height() + top - thumb.height() + 4;
    return {left, top, kThickness, bottom - top};
}

QRect TipRect(Direction direction, QPointF thumb, QSize thumbSize, QPoint control, QSize label) {
    QPoint corner;
    if (direction == Direction::kHorizontal) {
        corner.setX(RoundToEven(thumb.x() + control.x() + (thumbSize.width() - label.width() - 4) * 0.5));
        corner.setY(RoundToEven(thumb.y() + control.y() - label.height() - 5));
    } else {
        corner.setX(RoundToEven(thumb.x() + control.x() - label.width() - 6));
        corner.setY(RoundToEven(thumb.y() + control.y() + (thumbSize.height() - label.height() - 4) * 0.5));
    }
    return {corner, QSize(label.width() + 4, label.height() + 3)};
}

}  // namespace kelu::slider
