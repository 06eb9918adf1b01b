// Value and look of the colour picker; see color_picker.h.
// SPDX-License-Identifier: MIT
#include "controls/color_picker/color_picker.h"

#include <QKeyEvent>
#include <QPainter>

#include "controls/color_picker/color_popup.h"
#include "controls/theme/paint.h"
#include "controls/theme/theme.h"

namespace kelu {

namespace {

QColor FromValue(std::int32_t value) { return {value & 0xff, (value >> 8) & 0xff, (value >> 16) & 0xff}; }

std::int32_t ToValue(const QColor& color) { return color.red() | color.green() << 8 | color.blue() << 16; }

}  // namespace

ColorPicker::ColorPicker(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(tr("Color"));
    connect(this, &QAbstractButton::clicked, this, &ColorPicker::OpenPopup);
}

void ColorPicker::SetColor(std::int32_t color) {
    color_ = color & 0xffffff;
    setAccessibleDescription(FromValue(color_).name());
    update();
}

void ColorPicker::OpenPopup() {
    if (popup_) return popup_->close(), void();
    popup_ = new ColorPopup(FromValue(color_), this);
    popup_->setAttribute(Qt::WA_DeleteOnClose);
    connect(popup_, &ColorPopup::ColorChanged, this, [this](const QColor& color) {
        if (ToValue(color) == color_) return;
        SetColor(ToValue(color));
        Q_EMIT ColorChanged(color_);
    });
    popup_->move(mapToGlobal(QPoint(0, height() + 2)));
    popup_->show();
}

void ColorPicker::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
        case Qt::Key_F4:
            OpenPopup();
            return;
        default:
            QAbstractButton::keyPressEvent(event);
    }
}

QSize ColorPicker::sizeHint() const { return {49, 33}; }

QSize ColorPicker::minimumSizeHint() const { return {24, 16}; }

void ColorPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    theme::DrawField(painter, rect(), FromValue(color_), isEnabled() ? theme::kOutline : theme::kLine);
    if (hasFocus()) theme::DrawFocusRing(painter, rect(), theme::kFocus);
}

}  // namespace kelu
