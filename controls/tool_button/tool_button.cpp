// Painting and names of the tool button; see tool_button.h.
// SPDX-License-Identifier: MIT
#include "controls/tool_button/tool_button.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include "controls/theme/accessible_button.h"
#include "controls/theme/icons.h"
#include "controls/theme/paint.h"
#include "controls/theme/theme.h"

namespace kelu {

namespace {

constexpr int kCaptionGap = 6;  // between icon and caption
constexpr int kSidePad = 10;    // beside a caption
constexpr int kLeastPad = 4;    // where a caption is too wide for its button
constexpr int kMarkSize = 6;
constexpr int kMarkInset = 3;  // from the upper right corner

QString WithoutDoubling(QString text) { return text.replace(QStringLiteral("&&"), QStringLiteral("&")); }

struct Inks {
    QColor plate;  // invalid: none
    QColor ink;
};

}  // namespace

ToolButton::ToolButton(const QString& iconName, QWidget* parent) : QAbstractButton(parent), iconName_(iconName) {
    UseAccessibleButton<ToolButton>();
    // Tab reaches it; a click leaves the focus where the user works.
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

ToolButton::ToolButton(QWidget* parent) : ToolButton(QString(), parent) {}

void ToolButton::SetIconName(const QString& name) {
    if (iconName_ == name) return;
    iconName_ = name;
    update();
}

QAccessible::Role ToolButton::AccessibleRole() const {
    return pageTab_ ? QAccessible::PageTab : isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
}

void ToolButton::SetIconSize(int pixels) {
    iconPixels_ = pixels;
    updateGeometry();
    update();
}

void ToolButton::SetIconShift(int dy) {
    iconShift_ = dy;
    update();
}

void ToolButton::SetCaption(const QString& caption) {
    caption_ = caption;
    setText(caption.trimmed());
    ShowNames();
    updateGeometry();
}

void ToolButton::SetCaptionPlace(CaptionPlace place) {
    place_ = place;
    updateGeometry();
    update();
}

void ToolButton::SetAlignment(Alignment alignment) {
    alignment_ = alignment;
    update();
}

void ToolButton::SetLook(Look look) {
    look_ = look;
    update();
}

void ToolButton::SetTip(const QString& tip) {
    tip_ = tip;
    ShowNames();
}

void ToolButton::SetKey(const QString& key) {
    key_ = key;
    ShowNames();
}

void ToolButton::SetObstacle(const QString& obstacle) {
    if (obstacle_ == obstacle) return;
    obstacle_ = obstacle;
    ShowNames();
    update();
}

void ToolButton::SetMark(const QString& meaning) {
    if (mark_ == meaning) return;
    mark_ = meaning;
    ShowNames();
    update();
}

void ToolButton::ShowNames() {
    const QString shown = WithoutDoubling(tip_);
    const QString name = shown.isEmpty() ? WithoutDoubling(text()) : shown;
    setAccessibleName(mark_.isEmpty() ? name : name + QStringLiteral(", ") + mark_);
    setAccessibleDescription(obstacle_);
    QStringList lines;
    if (!shown.isEmpty()) lines += key_.isEmpty() ? shown : QStringLiteral("%1 (%2)").arg(shown, key_);
    for (const QString& line : {obstacle_, mark_})
        if (!line.isEmpty()) lines += line;
    setToolTip(lines.join(u'\n'));
}

QSize ToolButton::sizeHint() const {
    const int icon = iconName_.isEmpty() ? 0 : (iconPixels_ > 0 ? iconPixels_ : theme::kIconSize);
    if (text().isEmpty()) return {icon + 8, icon + 8};
    const QSize words = fontMetrics().size(Qt::TextShowMnemonic, text());
    if (place_ == CaptionPlace::Below)
        return {qMax(icon, words.width()) + 2 * kSidePad, icon + words.height() + kCaptionGap + 12};
    return {icon + (icon > 0 ? kCaptionGap : 0) + words.width() + 2 * kSidePad,
            qMax(theme::kButtonHeight, qMax(icon, words.height()) + 8)};
}

QSize ToolButton::minimumSizeHint() const { return sizeHint(); }

void ToolButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        animateClick();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void ToolButton::paintEvent(QPaintEvent*) {
    const bool over = underMouse() && isEnabled();
    const bool chosen = isChecked();
    Inks inks{{}, over || isDown() ? theme::kBrightText : theme::kText};
    switch (look_) {
        case Look::Flat:
            if (isDown())
                inks.plate = theme::kPressed;
            else if (over || chosen)
                inks.plate = theme::kHover;
            if (chosen) inks.ink = theme::kAccent;
            break;
        case Look::Raised:
            inks.plate = isDown() ? theme::kPressed : over ? theme::kRaisedHover : theme::kRaised;
            break;
        case Look::Primary:
            inks = {isDown() ? theme::kAccentPressed : over ? theme::kAccentHover : theme::kAccent, theme::kOnAccent};
            break;
    }
    if (!isEnabled() || !obstacle_.isEmpty()) {
        inks.ink = theme::kDisabledText;
        if (look_ != Look::Flat) inks.plate = theme::kHover;
    }

    const auto seen = [this](const QRect& part) { return QStyle::visualRect(layoutDirection(), rect(), part); };
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (inks.plate.isValid()) theme::FillPlate(painter, rect(), inks.plate);

    const int room = qMin(width(), height()) - (look_ == Look::Flat ? 0 : 4);
    const int icon = iconName_.isEmpty() ? 0 : qMin(iconPixels_ > 0 ? iconPixels_ : theme::kIconSize, room);
    if (text().isEmpty()) {
        if (icon > 0) theme::PaintIcon(painter, iconName_, rect().translated(0, iconShift_), icon, inks.ink);
    } else {
        const int flags = Qt::TextShowMnemonic | Qt::TextSingleLine;
        const int beside = place_ == CaptionPlace::Beside && icon > 0 ? icon + kCaptionGap : 0;
        const int leastPad = look_ == Look::Primary ? kMarkInset + kMarkSize : kLeastPad;  // clear of the mark
        const int pads = (alignment_ == Alignment::Left ? kSidePad : leastPad) + leastPad;
        painter.setFont(theme::Narrowed(font(), text(), width() - pads - beside));
        const QSize words = painter.fontMetrics().size(flags, text());
        painter.setPen(inks.ink);
        if (place_ == CaptionPlace::Below) {
            const int tall = icon + kCaptionGap + words.height();
            const int top = (height() - tall) / 2;
            if (icon > 0) theme::PaintIcon(painter, iconName_, QRect(0, top, width(), icon), icon, inks.ink);
            painter.drawText(QRect(0, top + tall - words.height(), width(), words.height()), Qt::AlignCenter | flags,
                             text());
        } else {
            const int wide = beside + words.width();
            const int left = alignment_ == Alignment::Left ? kSidePad : (width() - wide) / 2;
            if (icon > 0) theme::PaintIcon(painter, iconName_, seen({left, 0, icon, height()}), icon, inks.ink);
            painter.drawText(seen({left + wide - words.width(), 0, words.width(), height()}), Qt::AlignCenter | flags,
                             text());
        }
    }
    if (!mark_.isEmpty()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(inks.ink);
        painter.drawEllipse(seen({width() - kMarkInset - kMarkSize, kMarkInset, kMarkSize, kMarkSize}));
    }
    if (theme::ShowsFocus(*this))
        theme::DrawFocusRing(painter, rect(), look_ == Look::Primary ? theme::kBrightText : theme::kFocus);
}

}  // namespace kelu
