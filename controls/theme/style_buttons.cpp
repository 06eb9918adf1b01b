// Push buttons, check boxes, option buttons and tool button plates of DarkStyle.
// SPDX-License-Identifier: MIT
#include <QPainter>
#include <QStyleOption>

#include "controls/theme/paint.h"
#include "controls/theme/style_parts.h"
#include "controls/theme/theme.h"

namespace kelu::theme {

namespace {

bool IsMain(const QStyleOptionButton& option) { return option.features.testFlag(QStyleOptionButton::DefaultButton); }

/// Outline and fill of a check box or option button.
struct MarkColors {
    QColor fill, outline;
};

MarkColors ColorsOfMark(QStyle::State state) {
    const bool set = Has(state, QStyle::State_On) || Has(state, QStyle::State_NoChange);
    if (!Has(state, QStyle::State_Enabled)) return {set ? kLine : kGround, kLine};
    const bool down = Has(state, QStyle::State_Sunken), over = Has(state, QStyle::State_MouseOver);
    if (set) {
        const QColor fill = down ? kAccentPressed : over ? kAccentHover : kAccent;
        return {fill, fill};
    }
    return {down ? kPressed : kSunken, over ? kText : kOutline};
}

}  // namespace

void DrawPushButton(QPainter& painter, const QStyleOptionButton& option) {
    const QStyle::State state = option.state;
    const bool down = Has(state, QStyle::State_Sunken) || Has(state, QStyle::State_On);
    const bool over = Has(state, QStyle::State_MouseOver);
    const bool main = IsMain(option);
    const bool flat = option.features.testFlag(QStyleOptionButton::Flat);
    if (!Has(state, QStyle::State_Enabled)) {
        if (!flat) DrawField(painter, option.rect, kGround, kLine);
        return;
    }
    if (flat && !down && !over) return;
    const QColor plate = main ? (down   ? kAccentPressed
                                 : over ? kAccentHover
                                        : kAccent)
                              : (down   ? kPressed
                                 : over ? kRaisedHover
                                        : kRaised);
    FillPlate(painter, option.rect, plate);
    if (ShowsFocus(state)) DrawFocusRing(painter, option.rect, main ? kBrightText : kFocus);
}

QColor PushButtonInk(const QStyleOptionButton& option) {
    if (!Has(option.state, QStyle::State_Enabled)) return kDisabledText;
    if (IsMain(option)) return kOnAccent;
    return Has(option.state, QStyle::State_MouseOver) ? kBrightText : kText;
}

void DrawCheckMark(QPainter& painter, const QRect& box, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.topLeft());
    painter.scale(box.width() / 16.0, box.height() / 16.0);
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF points[] = {{4.2, 8.3}, {7, 11}, {11.8, 5.2}};
    painter.drawPolyline(points, 3);
    painter.restore();
}

void DrawCheckBox(QPainter& painter, const QStyleOption& option) {
    const MarkColors colors = ColorsOfMark(option.state);
    const QColor ink = Has(option.state, QStyle::State_Enabled) ? kOnAccent : kDisabledText;
    DrawField(painter, option.rect, colors.fill, colors.outline);
    if (Has(option.state, QStyle::State_NoChange)) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap));
        const QPointF middle = QRectF(option.rect).center();
        painter.drawLine(middle - QPointF(3, 0), middle + QPointF(3, 0));
        painter.restore();
    } else if (Has(option.state, QStyle::State_On)) {
        DrawCheckMark(painter, option.rect, ink);
    }
}

void DrawRadioButton(QPainter& painter, const QStyleOption& option) {
    const MarkColors colors = ColorsOfMark(option.state);
    const QRectF disc = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.outline, 1));
    painter.setBrush(colors.fill);
    painter.drawEllipse(disc);
    if (Has(option.state, QStyle::State_On)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Has(option.state, QStyle::State_Enabled) ? kOnAccent : kDisabledText);
        const qreal reach = disc.width() * 0.2;
        painter.drawEllipse(disc.center(), reach, reach);
    }
    painter.restore();
}

void DrawToolButtonPlate(QPainter& painter, const QStyleOption& option) {
    if (!Has(option.state, QStyle::State_Enabled)) return;
    if (Has(option.state, QStyle::State_Sunken))
        FillPlate(painter, option.rect, kPressed);
    else if (Has(option.state, QStyle::State_MouseOver) || Has(option.state, QStyle::State_On))
        FillPlate(painter, option.rect, kHover);
    if (ShowsFocus(option.state)) DrawFocusRing(painter, option.rect, kFocus);
}

}  // namespace kelu::theme
