// Strokes that all controls share: plates, outlines and the focus ring, crisp at every device pixel ratio.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRect>

class QPainter;
class QWidget;

namespace kelu::theme {

/// Fills `box` with rounded corners of the theme's radius, less for small boxes.
void FillPlate(QPainter& painter, const QRectF& box, const QColor& color);
/// Fills and outlines: the outline is one device-independent pixel wide and lies inside `box`.
void DrawField(QPainter& painter, const QRectF& box, const QColor& fill, const QColor& outline);
/// The ring of keyboard focus, inside `box`.
void DrawFocusRing(QPainter& painter, const QRectF& box, const QColor& color);
/// Whether `widget` has the focus and it came by keyboard, so that the ring is wanted. Clicks and the window's own
/// activation leave no ring behind.
bool ShowsFocus(const QWidget& widget);
/// A chevron in the middle of `box`, pointing up, down, left or right; `reach` is half its breadth.
void DrawChevron(QPainter& painter, const QRectF& box, Qt::ArrowType direction, const QColor& color, qreal reach = 4);

}  // namespace kelu::theme
