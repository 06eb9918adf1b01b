// The shared strokes; see paint.h.
// SPDX-License-Identifier: MIT
#include "controls/theme/paint.h"

#include <QPainter>
#include <QWidget>

#include "controls/theme/focus_watch.h"
#include "controls/theme/theme.h"

namespace kelu::theme {

namespace {

qreal Corner(const QRectF& box) { return qMin<qreal>(kCorner, qMin(box.width(), box.height()) / 2); }

void StrokeInside(QPainter& painter, const QRectF& box, const QColor& color, qreal width) {
    const qreal half = width / 2;
    const QRectF line = box.adjusted(half, half, -half, -half);
    const qreal corner = qMax<qreal>(0, Corner(box) - half);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(line, corner, corner);
}

/// Antialiasing for the time of one drawing, with the painter's state given back.
class Smooth {
 public:
    explicit Smooth(QPainter& painter) : painter_(painter) {
        painter_.save();
        painter_.setRenderHint(QPainter::Antialiasing);
    }
    ~Smooth() { painter_.restore(); }
    Smooth(const Smooth&) = delete;
    Smooth& operator=(const Smooth&) = delete;

 private:
    QPainter& painter_;
};

}  // namespace

void FillPlate(QPainter& painter, const QRectF& box, const QColor& color) {
    const Smooth smooth(painter);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(box, Corner(box), Corner(box));
    if (IsHighContrast()) StrokeInside(painter, box, kOutline, 1);  // plates differ little there
}

void DrawField(QPainter& painter, const QRectF& box, const QColor& fill, const QColor& outline) {
    const Smooth smooth(painter);
    FillPlate(painter, box, fill);
    StrokeInside(painter, box, outline, 1);
}

void DrawFocusRing(QPainter& painter, const QRectF& box, const QColor& color) {
    const Smooth smooth(painter);
    StrokeInside(painter, box, color, kFocusWidth);
}

bool ShowsFocus(const QWidget& widget) { return widget.hasFocus() && FocusWatch::Instance().ByKeyboard(); }

void DrawChevron(QPainter& painter, const QRectF& box, Qt::ArrowType direction, const QColor& color, qreal reach) {
    const Smooth smooth(painter);
    painter.translate(box.center());
    switch (direction) {
        case Qt::UpArrow:
            painter.rotate(180);
            break;
        case Qt::LeftArrow:
            painter.rotate(90);
            break;
        case Qt::RightArrow:
            painter.rotate(270);
            break;
        default:
            break;
    }
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF points[] = {{-reach, -reach / 2}, {0, reach / 2}, {reach, -reach / 2}};
    painter.drawPolyline(points, 3);
}

}  // namespace kelu::theme
