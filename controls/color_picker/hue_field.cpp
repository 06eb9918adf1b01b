// Painting and pointing of the hue field; see hue_field.h.
// SPDX-License-Identifier: MIT
#include "controls/color_picker/hue_field.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "controls/theme/accessible_role.h"
#include "controls/theme/paint.h"
#include "controls/theme/theme.h"
#include "platform/units.h"

namespace kelu {

namespace {

constexpr int kLastHue = 359;
constexpr int kFull = 255;

QImage Colors(const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        const int saturation = kFull - y * kFull / qMax(1, size.height() - 1);
        for (int x = 0; x < size.width(); ++x)
            row[x] = QColor::fromHsv(x * kLastHue / qMax(1, size.width() - 1), saturation, kFull).rgb();
    }
    return image;
}

}  // namespace

HueField::HueField(QWidget* parent) : QWidget(parent) {
    UseAccessibleRole<HueField, QAccessible::Canvas>();
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setAccessibleName(tr("Hue and saturation"));
}

void HueField::SetPoint(int hue, int saturation) {
    hue_ = qBound(0, hue, kLastHue);
    saturation_ = qBound(0, saturation, kFull);
    setAccessibleDescription(tr("Hue %1, saturation %2").arg(hue_).arg(saturation_));
    update();
}

void HueField::Move(int hue, int saturation) {
    const int oldHue = hue_, oldSaturation = saturation_;
    SetPoint(hue, saturation);
    if (hue_ != oldHue || saturation_ != oldSaturation) Q_EMIT Changed(hue_, saturation_);
}

void HueField::PointAt(const QPointF& at) {
    Move(RoundToEven(at.x() * kLastHue / qMax(1, width() - 1)),
         kFull - RoundToEven(at.y() * kFull / qMax(1, height() - 1)));
}

void HueField::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) PointAt(event->position());
}

void HueField::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) PointAt(event->position());
}

void HueField::keyPressEvent(QKeyEvent* event) {
    const int step = event->modifiers() & Qt::ControlModifier ? 10 : 1;
    switch (event->key()) {
        case Qt::Key_Left:
            return Move(hue_ - step, saturation_);
        case Qt::Key_Right:
            return Move(hue_ + step, saturation_);
        case Qt::Key_Up:
            return Move(hue_, saturation_ + step);
        case Qt::Key_Down:
            return Move(hue_, saturation_ - step);
        default:
            QWidget::keyPressEvent(event);
    }
}

void HueField::paintEvent(QPaintEvent*) {
    const QSize pixels = size() * devicePixelRatioF();
    if (colors_.size() != pixels) colors_ = Colors(pixels);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QBrush brush(colors_);
    brush.setTransform(QTransform::fromScale(1 / devicePixelRatioF(), 1 / devicePixelRatioF()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(rect(), theme::kCorner, theme::kCorner);
    const QPointF at(hue_ * (width() - 1) / qreal(kLastHue), (kFull - saturation_) * (height() - 1) / qreal(kFull));
    painter.setBrush(QColor::fromHsv(hue_, saturation_, kFull));
    painter.setPen(QPen(QColor(0, 0, 0, 170), 4));
    painter.drawEllipse(at, 6, 6);
    painter.setPen(QPen(theme::kBrightText, 2));
    painter.drawEllipse(at, 6, 6);
    if (theme::ShowsFocus(*this)) theme::DrawFocusRing(painter, rect(), theme::kBrightText);
}

}  // namespace kelu
