// Painting and pointing of the brightness bar; see value_bar.h.
// SPDX-License-Identifier: MIT
#include "controls/color_picker/value_bar.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "controls/theme/accessible_role.h"
#include "controls/theme/paint.h"
#include "controls/theme/theme.h"
#include "platform/units.h"

namespace kelu {

namespace {

constexpr int kFull = 255;
constexpr int kInset = 8;  // the knob's middle stays this far from the ends

}  // namespace

ValueBar::ValueBar(QWidget* parent) : QWidget(parent) {
    UseAccessibleRole<ValueBar, QAccessible::Slider>();
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Brightness"));
}

void ValueBar::SetColor(int hue, int saturation, int value) {
    hue_ = hue;
    saturation_ = saturation;
    value_ = qBound(0, value, kFull);
    setAccessibleDescription(QString::number(value_));
    update();
}

void ValueBar::Move(int value) {
    value = qBound(0, value, kFull);
    if (value == value_) return;
    SetColor(hue_, saturation_, value);
    Q_EMIT Changed(value_);
}

void ValueBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        Move(RoundToEven((event->position().x() - kInset) * kFull / qMax(1, width() - 2 * kInset)));
}

void ValueBar::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton)
        Move(RoundToEven((event->position().x() - kInset) * kFull / qMax(1, width() - 2 * kInset)));
}

void ValueBar::wheelEvent(QWheelEvent* event) { Move(value_ + event->angleDelta().y() / 24); }

void ValueBar::keyPressEvent(QKeyEvent* event) {
    const int step = event->modifiers() & Qt::ControlModifier ? 10 : 1;
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Down:
            return Move(value_ - step);
        case Qt::Key_Right:
        case Qt::Key_Up:
            return Move(value_ + step);
        case Qt::Key_Home:
            return Move(0);
        case Qt::Key_End:
            return Move(kFull);
        default:
            QWidget::keyPressEvent(event);
    }
}

void ValueBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient ramp(kInset, 0, width() - kInset, 0);
    ramp.setColorAt(0, Qt::black);
    ramp.setColorAt(1, QColor::fromHsv(hue_, saturation_, kFull));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ramp);
    painter.drawRoundedRect(rect().adjusted(0, 2, 0, -2), (height() - 4) / 2.0, (height() - 4) / 2.0);
    const QPointF at(kInset + value_ * (width() - 2 * kInset) / qreal(kFull), height() / 2.0);
    painter.setBrush(QColor::fromHsv(hue_, saturation_, value_));
    painter.setPen(QPen(QColor(0, 0, 0, 170), 4));
    painter.drawEllipse(at, 6, 6);
    painter.setPen(QPen(theme::ShowsFocus(*this) ? theme::kFocus : theme::kBrightText, 2));
    painter.drawEllipse(at, 6, 6);
}

}  // namespace kelu
