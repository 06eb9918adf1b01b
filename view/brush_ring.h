// The brush round the pointer: a ring of its size, inside it what a stroke would bring, beside it its measures while
// they change.
// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>
#include <QImage>
#include <QObject>
#include <QTimer>
#include <optional>

#include "canvas/surface_view.h"
#include "view/scaled_view.h"

class QPainter;

namespace kelu {

class BrushRing : public QObject {
    Q_OBJECT

 public:
    /// The picture that the ring lies over, as a view shows it.
    struct Ground {
        QSize picture;           ///< image pixels
        QSize scaled, viewport;  ///< device pixels, as the origin
        QPoint origin;           ///< the picture's upper left corner in the view
        double ratio;            ///< device pixels to a device-independent one
    };

    BrushRing();

    /// Size and softness that differ from those before stand beside the ring for a second.
    void SetTip(const BrushTip& tip);
    /// Device-independent pixels of the view; none: the pointer is elsewhere.
    void MoveTo(const std::optional<QPointF>& pointer) { pointer_ = pointer; }
    /// What is painted, device-independent pixels; empty without a tip, a pointer or a picture.
    QRect Rect(const Ground& ground, const QFont& font) const;
    /// To be called only where Rect is not empty. `behind` shows through the paint's transparency.
    void Paint(QPainter& painter, const Ground& ground, const QBrush& behind, bool withLens);

 Q_SIGNALS:
    void TextOver();

 private:
    double Radius(const Ground& ground) const;
    QString Text() const;
    void PaintLens(QPainter& painter, const Ground& ground, const QBrush& behind);
    void PaintRing(QPainter& painter, double radius) const;
    void PaintText(QPainter& painter, double radius) const;

    BrushTip tip_;
    std::optional<QPointF> pointer_;
    ScaledView lens_;  ///< the tip's paint under the ring
    QImage disc_;      ///< its pixels inside the ring
    QTimer textTime_;
};

}  // namespace kelu
