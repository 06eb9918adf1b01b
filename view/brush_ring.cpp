// The brush round the pointer: a ring of its size, inside it what a stroke would bring, beside it its measures while
// they change.
// SPDX-License-Identifier: MIT
#include "view/brush_ring.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace kelu {
namespace {

QRectF Around(const QPointF& middle, double radius) {
    return {middle - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)};
}

struct Circle {
    QPointF middle;
    double radius;
};

QRgb Faded(QRgb premultiplied, double share) {
    const auto channel = [&](int shift) {
        return static_cast<QRgb>(share * ((premultiplied >> shift) & 255u) + 0.5) << shift;
    };
    return channel(24) | channel(16) | channel(8) | channel(0);
}

// The pixels inside the circle, those at its edge fading, in less time than the toolkit takes to fill an ellipse.
void CutOut(const QImage& pixels, const Circle& circle, QImage& disc) {
    if (disc.size() != pixels.size()) disc = QImage(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    const double outer = circle.radius + 0.5;
    const double inner = std::max(0.0, circle.radius - 0.5);
    for (int y = 0; y < pixels.height(); ++y) {
        const double dy = y + 0.5 - circle.middle.y();
        const auto column = [&](double radius, int side) {
            const double half = std::sqrt(std::max(0.0, radius * radius - dy * dy));
            return std::clamp(static_cast<int>(std::lround(circle.middle.x() + side * half)), 0, pixels.width());
        };
        auto* const to = reinterpret_cast<QRgb*>(disc.scanLine(y));
        const auto* const from = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        const int begin = column(outer, -1), wholeBegin = column(inner, -1);
        const int wholeEnd = column(inner, 1), end = column(outer, 1);
        const auto fade = [&](int first, int last) {
            for (int x = first; x < last; ++x) {
                const double dx = x + 0.5 - circle.middle.x();
                to[x] = Faded(from[x], std::clamp(outer - std::sqrt(dx * dx + dy * dy), 0.0, 1.0));
            }
        };
        std::fill(to, to + begin, 0u);
        fade(begin, wholeBegin);
        std::copy(from + wholeBegin, from + wholeEnd, to + wholeBegin);
        fade(wholeEnd, end);
        std::fill(to + end, to + pixels.width(), 0u);
    }
}

}  // namespace

BrushRing::BrushRing() {
    textTime_.setSingleShot(true);
    textTime_.setInterval(1000);
    connect(&textTime_, &QTimer::timeout, this, &BrushRing::TextOver);
}

void BrushRing::SetTip(const BrushTip& tip) {
    const bool told = tip.size > 0 && tip_.size > 0 && (tip.size != tip_.size || tip.softness != tip_.softness);
    if (tip.paint.constBits() != tip_.paint.constBits()) lens_.Invalidate();
    tip_ = tip;
    if (told) textTime_.start();
}

double BrushRing::Radius(const Ground& ground) const {
    const double scale = ground.scaled.width() / ground.ratio / ground.picture.width();
    return std::max(1.0, tip_.size * scale / 2);
}

QRect BrushRing::Rect(const Ground& ground, const QFont& font) const {
    if (tip_.size <= 0 || !pointer_ || ground.picture.isEmpty()) return {};
    QRect ring = Around(*pointer_, Radius(ground) + 2).toAlignedRect();
    if (textTime_.isActive()) {
        const QFontMetrics metrics(font);
        ring |= QRect(ring.right(), ring.center().y() - metrics.height(), metrics.horizontalAdvance(Text()) + 16,
                      2 * metrics.height());
    }
    return ring;
}

void BrushRing::Paint(QPainter& painter, const Ground& ground, const QBrush& behind, bool withLens) {
    if (withLens && tip_.paint.size() == ground.picture) PaintLens(painter, ground, behind);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintRing(painter, Radius(ground));
    if (textTime_.isActive()) PaintText(painter, Radius(ground));
}

// What a stroke would bring, before anything is pressed: the same pixels that the view would show after it.
void BrushRing::PaintLens(QPainter& painter, const Ground& ground, const QBrush& behind) {
    const double ratio = ground.ratio;
    const double radius = Radius(ground);
    const QRectF circle = Around(*pointer_ * ratio, radius * ratio);
    const QRect device =
        circle.toAlignedRect() & QRect(QPoint(0, 0), ground.viewport) & QRect(ground.origin, ground.scaled);
    if (device.isEmpty()) return;
    lens_.Show(tip_.paint, ground.scaled, device.translated(-ground.origin));
    if (lens_.Pixels().hasAlphaChannel()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(behind);
        painter.drawEllipse(*pointer_, radius, radius);
    }
    CutOut(lens_.Pixels(), {circle.center() - device.topLeft(), radius * ratio}, disc_);
    disc_.setDevicePixelRatio(ratio);
    painter.drawImage(QPointF(device.topLeft()) / ratio, disc_);
}

void BrushRing::PaintRing(QPainter& painter, double radius) const {
    painter.setBrush(Qt::NoBrush);
    // Two tones, so that it shows on every ground.
    QPen dark(QColor(0, 0, 0, 150), 1), light(QColor(255, 255, 255, 200), 1);
    if (tip_.restores) light.setDashPattern({4, 4});
    painter.setPen(dark);
    painter.drawEllipse(*pointer_, radius + 0.5, radius + 0.5);
    painter.setPen(light);
    painter.drawEllipse(*pointer_, radius - 0.5, radius - 0.5);
    if (tip_.softness > 0 && tip_.softness < 100) {
        painter.setPen(QPen(QColor(255, 255, 255, 110), 1));
        const double core = radius * (100 - tip_.softness) / 100;
        painter.drawEllipse(*pointer_, core, core);
    }
}

QString BrushRing::Text() const {
    const QString size = tr("%1 px").arg(tip_.size);
    return tip_.softness == 0 ? size : tr("%1, soft %2 %").arg(size).arg(tip_.softness);
}

void BrushRing::PaintText(QPainter& painter, double radius) const {
    const QFontMetrics metrics(painter.font());
    const QRectF box(pointer_->x() + radius + 6, pointer_->y() - metrics.height() * 0.7,
                     metrics.horizontalAdvance(Text()) + 8, metrics.height() * 1.4);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 170));
    painter.drawRoundedRect(box, 3, 3);
    painter.setPen(Qt::white);
    painter.drawText(box, Qt::AlignCenter, Text());
}

}  // namespace kelu
