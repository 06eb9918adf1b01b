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
    if (popup_ && popup_->isVisible()) return popup_->close(), void();
    popup_ = new ColorPopup(FromValue(color_), this);
    popup_->setAttribute(Qt::WA_DeleteOnClose);
    // The press that closes the popup does nothing else: on this picker it would open it again at once.
    popup_->setAttribute(Qt::WA_NoMouseReplay);
    connect(popup_, &ColorPopup::ColorChanged, this, [this](const QColor& color) {
        if (ToValue(color) == color_) return;
        SetColor(ToValue(color));
        Q_EMIT ColorChanged(color_);
    });
    popup_->ShowAt(QRect(mapToGlobal(QPoint()), size()));
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
    constexpr int kInset = 4;
    constexpr int kArrow = 15;  // breadth of the part with the chevron
    const bool over = isEnabled() && underMouse();
    QPainter painter(this);
    const QColor plate = !isEnabled() ? theme::kGround
                         : isDown()   ? theme::kPressed
                         : over       ? theme::kRaisedHover
                                      : theme::kRaised;
    theme::DrawField(painter, rect(), plate, isEnabled() ? plate : theme::kLine);
    QColor shown = FromValue(color_);
    if (!isEnabled()) shown.setAlpha(96);
    // A dark colour would melt into the plate without its rim.
    theme::DrawField(painter, rect().adjusted(kInset, kInset, -kArrow, -kInset), shown,
                     isEnabled() ? theme::kOutline : theme::kLine);
    theme::DrawChevron(painter, QRect(width() - kArrow, 0, kArrow - 1, height()), Qt::DownArrow,
                       !isEnabled() ? theme::kLine
                       : over       ? theme::kBrightText
                                    : theme::kMutedText,
                       3);
    if (theme::ShowsFocus(*this)) theme::DrawFocusRing(painter, rect(), theme::kFocus);
}

}  // namespace kelu
