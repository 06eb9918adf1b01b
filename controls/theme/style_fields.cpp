// Text fields, combo boxes, spin boxes and sliders of DarkStyle.
// SPDX-License-Identifier: MIT
#include <QPainter>
#include <QStyleOption>

#include "controls/theme/paint.h"
#include "controls/theme/style_parts.h"
#include "controls/theme/theme.h"

namespace kelu::theme {

namespace {

QColor ArrowInk(QStyle::State state, bool live) {
    if (!Has(state, QStyle::State_Enabled) || !live) return kLine;
    return Has(state, QStyle::State_MouseOver) ? kBrightText : kMutedText;
}

}  // namespace

void DrawInputField(QPainter& painter, const QStyleOption& option, const QRect& box) {
    if (!Has(option.state, QStyle::State_Enabled)) return DrawField(painter, box, kGround, kLine);
    DrawField(painter, box, kSunken, Has(option.state, QStyle::State_MouseOver) ? kText : kOutline);
    // Where text goes in, the focus shows however it came.
    if (Has(option.state, QStyle::State_HasFocus)) DrawFocusRing(painter, box, kFocus);
}

void DrawComboBox(QPainter& painter, const QStyleOptionComboBox& option) {
    if (option.editable) {
        DrawInputField(painter, option, option.rect);
    } else {
        const bool enabled = Has(option.state, QStyle::State_Enabled);
        const bool open = Has(option.state, QStyle::State_On);
        const QColor plate = !enabled                                     ? kGround
                             : open                                       ? kPressed
                             : Has(option.state, QStyle::State_MouseOver) ? kRaisedHover
                                                                          : kRaised;
        DrawField(painter, option.rect, plate, !enabled ? kLine : IsHighContrast() ? kOutline : plate);
        if (ShowsFocus(option.state)) DrawFocusRing(painter, option.rect, kFocus);
    }
    const bool mirrored = option.direction == Qt::RightToLeft;
    const QRect arrow(mirrored ? option.rect.left() : option.rect.right() + 1 - kComboArrow, option.rect.top(),
                      kComboArrow, option.rect.height());
    DrawChevron(painter, arrow, Qt::DownArrow, ArrowInk(option.state, true));
}

void DrawSpinBox(QPainter& painter, const QStyleOptionSpinBox& option, const QRect& up, const QRect& down) {
    if (option.frame) DrawInputField(painter, option, option.rect);
    if (option.buttonSymbols == QAbstractSpinBox::NoButtons) return;
    const auto arrow = [&](QStyle::SubControl part, QAbstractSpinBox::StepEnabledFlag step, const QRect& box,
                           Qt::ArrowType direction) {
        const bool active = option.activeSubControls.testFlag(part) && option.stepEnabled.testFlag(step);
        if (active)
            FillPlate(painter, box.adjusted(0, 1, -1, -1), Has(option.state, QStyle::State_Sunken) ? kPressed : kHover);
        QStyle::State state = option.state;
        state.setFlag(QStyle::State_MouseOver, active);
        DrawChevron(painter, box, direction, ArrowInk(state, option.stepEnabled.testFlag(step)), 3);
    };
    arrow(QStyle::SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled, up, Qt::UpArrow);
    arrow(QStyle::SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled, down, Qt::DownArrow);
}

void DrawSlider(QPainter& painter, const QStyleOptionSlider& option, const QRect& groove, const QRect& handle) {
    constexpr qreal kTrack = 4;
    const bool level = option.orientation == Qt::Horizontal;
    const bool enabled = Has(option.state, QStyle::State_Enabled);
    const QPointF knob = QRectF(handle).center();
    QRectF track = level ? QRectF(groove.left(), knob.y() - kTrack / 2, groove.width(), kTrack)
                         : QRectF(knob.x() - kTrack / 2, groove.top(), kTrack, groove.height());
    FillPlate(painter, track, kSunken);
    QRectF done = track;
    if (level)
        option.upsideDown ? done.setLeft(knob.x()) : done.setRight(knob.x());
    else
        option.upsideDown ? done.setTop(knob.y()) : done.setBottom(knob.y());
    FillPlate(painter, done, enabled ? kAccent : kLine);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const bool active = option.activeSubControls.testFlag(QStyle::SC_SliderHandle);
    painter.setBrush(!enabled ? kDisabledText : active ? kBrightText : kText);
    painter.drawEllipse(knob, 7, 7);
    if (ShowsFocus(option.state)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(kFocus, kFocusWidth));
        painter.drawEllipse(knob, 8, 8);
    }
    painter.restore();
}

}  // namespace kelu::theme
