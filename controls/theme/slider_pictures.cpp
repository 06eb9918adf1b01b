// Knob and rail, smooth at every ratio; see slider_pictures.h.
// SPDX-License-Identifier: MIT
#include "controls/theme/slider_pictures.h"

#include <QPainter>

#include "controls/theme/theme.h"

namespace kelu::theme {

namespace {

constexpr int kThumb = 16;
constexpr int kRail = 4;

QPixmap Blank(const QSize& size, qreal ratio) {
    QPixmap picture((QSizeF(size) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    return picture;
}

}  // namespace

QPixmap SliderThumb(qreal ratio) {
    QPixmap picture = Blank({kThumb, kThumb}, ratio);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    // A rim of the ground parts the knob from the rail.
    painter.setBrush(kGround);
    painter.drawEllipse(QRectF(0, 0, kThumb, kThumb));
    painter.setBrush(kText);
    painter.drawEllipse(QRectF(0, 0, kThumb, kThumb).adjusted(1, 1, -1, -1));
    painter.setBrush(kAccent);
    painter.drawEllipse(QRectF(0, 0, kThumb, kThumb).adjusted(5, 5, -5, -5));
    return picture;
}

QPixmap SliderRail(int length, qreal ratio) {
    QPixmap picture = Blank({length, kRail}, ratio);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kScrollHandle);
    painter.drawRoundedRect(QRectF(0, 0, length, kRail), kRail / 2.0, kRail / 2.0);
    return picture;
}

}  // namespace kelu::theme
