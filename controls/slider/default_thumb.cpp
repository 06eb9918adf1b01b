// The default thumb: greys that stand out from both a dark and a light ground.
// SPDX-License-Identifier: MIT
#include "controls/slider/default_thumb.h"

#include <QLinearGradient>

namespace kelu::slider {
namespace {

constexpr QRgb kOutline = 0xFF161616;
constexpr QRgb kBodyTop = 0xFFA2A2A2;
constexpr QRgb kBodyBottom = 0xFF6C6C6C;
constexpr QRgb kLight = 0xFFCDCDCD;
constexpr QRgb kShade = 0xFF4A4A4A;
constexpr QRgb kGrip = 0xFF333333;

/// Nine dents, each a dark pixel with light falling on its lower right corner.
void PaintGrip(QPainter& painter) {
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const QPointF dent(4 + 3 * column, 4 + 3 * row);
            painter.fillRect(QRectF(dent, QSizeF(1, 1)), QColor(kGrip));
            painter.fillRect(QRectF(dent + QPointF(1, 1), QSizeF(1, 1)), QColor(kLight));
        }
    }
}

}  // namespace

void PaintDefaultThumb(QPainter& painter, QPointF place) {
    painter.save();
    painter.translate(place);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);

    const QRectF all(QPointF(0, 0), kDefaultThumbSize);
    painter.setBrush(QColor(kOutline));
    painter.drawRoundedRect(all, 2.5, 2.5);
    painter.setBrush(QColor(kShade));
    painter.drawRoundedRect(all.adjusted(1, 1, -1, -1), 1.5, 1.5);
    painter.setBrush(QColor(kLight));
    painter.drawRoundedRect(all.adjusted(1, 1, -2, -2), 1.5, 1.5);
    QLinearGradient body(0, 2, 0, 14);
    body.setColorAt(0, QColor(kBodyTop));
    body.setColorAt(1, QColor(kBodyBottom));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(all.adjusted(2, 2, -2, -2), body);
    PaintGrip(painter);
    painter.restore();
}

}  // namespace kelu::slider
