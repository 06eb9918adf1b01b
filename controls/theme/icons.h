// The program's own drawings: line icons, message pictures and cursors, rendered at the size and device pixel ratio
// asked for. Line icons take their colour from the theme; pictures keep their own.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QStringList>

class QPainter;

namespace kelu::theme {

/// An icon for buttons, menus and lists, by the name of its drawing, for example "open" or "zoom_in". It renders itself
/// at each size and ratio: plain, disabled (dimmed), active (under the pointer, brighter), selected (accent). An
/// unknown name gives a null icon.
QIcon Icon(const QString& name);

/// A drawing of `size` device-independent pixels (square, at least 1) for a screen of ratio `ratio`; `tint` colours
/// what the drawing leaves to the theme.
QPixmap IconPixmap(const QString& name, int size, qreal ratio, const QColor& tint);

/// Paints a drawing of `size` device-independent pixels in the middle of `box`, on whole pixels of the painter's
/// device.
void PaintIcon(QPainter& painter, const QString& name, const QRect& box, int size, const QColor& tint);

/// The program's name as a picture, `height` device-independent pixels high.
QPixmap LogoPixmap(int height, qreal ratio);

/// All names, sorted.
QStringList IconNames();

/// A cursor's picture with the point that touches, in device-independent pixels of the picture.
struct CursorPicture {
    QPixmap pixmap;
    QPoint hotSpot;
};
CursorPicture BrushCursor(qreal ratio);
CursorPicture SmudgeCursor(qreal ratio);
CursorPicture CrossCursor(qreal ratio);

}  // namespace kelu::theme
