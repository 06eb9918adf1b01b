// The pattern behind the picture, as dense on every screen.
// SPDX-License-Identifier: MIT
#include "view/hatch.h"

#include <QPainter>
#include <QPixmap>
#include <cmath>
#include <utility>

#include "platform/units.h"

namespace kelu {
namespace {

/// The toolkit's pattern of this name as it looks at ratio 1. The toolkit draws its patterns in device pixels: the
/// finer the screen, the denser they would lie.
QBrush DiagonalCross(QColor color, qreal ratio) {
    constexpr int kPeriod = 8;  // device-independent pixels
    const int side = RoundToEven(kPeriod * ratio);
    QPixmap tile(side, side);
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    // Opaque while they are drawn, so that crossings are no brighter; as thick as a staircase of single pixels.
    const QColor veil(0, 0, 0, color.alpha());
    color.setAlpha(255);
    painter.setPen(QPen(color, ratio / std::sqrt(2.0)));
    painter.drawLine(QPointF(-1, -1), QPointF(side + 1, side + 1));
    painter.drawLine(QPointF(-1, side + 1), QPointF(side + 1, -1));
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(tile.rect(), veil);
    painter.end();
    QBrush brush(tile);
    brush.setTransform(QTransform::fromScale(1 / ratio, 1 / ratio));
    return brush;
}

}  // namespace

const QBrush& Hatch::At(qreal ratio) {
    if (std::exchange(ratio_, ratio) != ratio)
        screen_ = brush_.style() == Qt::DiagCrossPattern && ratio != 1 ? DiagonalCross(brush_.color(), ratio) : brush_;
    return screen_;
}

}  // namespace kelu
