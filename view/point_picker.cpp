// SPDX-License-Identifier: MIT
#include "view/point_picker.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "view/image_x.h"

namespace kelu {
namespace {

constexpr int kPickedShown = 1500;  // ms
constexpr double kArm = 11;         // device-independent pixels
constexpr double kGap = 3;          // the point itself stays free

}  // namespace

PointPicker::PointPicker(ImageX& view) : QWidget(&view), view_(view) {
    setCursor(Qt::CrossCursor);
    justPicked_.setSingleShot(true);
    justPicked_.setInterval(kPickedShown);
    connect(&justPicked_, &QTimer::timeout, this, [this] { ShowMark(std::nullopt); });
    view.installEventFilter(this);
    Settle();
}

void PointPicker::ShowMark(const std::optional<QPoint>& imagePixel) {
    justPicked_.stop();
    mark_ = imagePixel;
    Settle();
}

void PointPicker::SetPicking(bool picking) {
    if (picking == picking_) return;
    picking_ = picking;
    // Hidden with the focus, it would pass that on as Tab does.
    if (!picking_ && hasFocus()) view_.setFocus();
    Settle();
    if (picking_)
        setFocus();
    else
        Q_EMIT Ended();
}

void PointPicker::Settle() {
    setAttribute(Qt::WA_TransparentForMouseEvents, !picking_);
    setGeometry(view_.rect());
    setVisible(picking_ || mark_);
    update();
}

bool PointPicker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) setGeometry(view_.rect());
    return QWidget::eventFilter(watched, event);
}

void PointPicker::paintEvent(QPaintEvent*) {
    const QRectF picture = view_.ImageRect();
    if (!mark_ || picture.isEmpty()) return;
    const double scale = picture.width() / view_.ImageSize().width();
    const QPointF at = picture.topLeft() + QPointF(mark_->x() + 0.5, mark_->y() + 0.5) * scale;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // Two tones, so that it shows on every ground.
    for (const auto& [color, width] : {std::pair{QColor(0, 0, 0, 110), 3.0}, {QColor(255, 255, 255, 190), 1.0}}) {
        painter.setPen(QPen(color, width));
        for (const QPointF way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
            painter.drawLine(at + way * kGap, at + way * kArm);
    }
}

void PointPicker::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && !view_.ImageRect().isEmpty()) {
        const QPoint under = event->position().toPoint();
        const QPoint point(std::clamp(view_.ScreenToImageX(under.x()), 0, view_.ImageSize().width() - 1),
                           std::clamp(view_.ScreenToImageY(under.y()), 0, view_.ImageSize().height() - 1));
        Q_EMIT Picked(point);
        ShowMark(point);
        justPicked_.start();
    }
    SetPicking(false);
}

void PointPicker::keyPressEvent(QKeyEvent* event) {
    if (picking_ && event->key() == Qt::Key_Escape)
        SetPicking(false);
    else
        QWidget::keyPressEvent(event);
}

}  // namespace kelu
