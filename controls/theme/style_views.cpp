// Rows, menu items, tabs and scroll bars of DarkStyle.
// SPDX-License-Identifier: MIT
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include "controls/theme/paint.h"
#include "controls/theme/style_parts.h"
#include "controls/theme/theme.h"

namespace kelu::theme {

namespace {

constexpr int kRowMark = 3;        // accent bar at the left of a chosen row
constexpr int kMenuMarkRoom = 30;  // tick or icon before a menu text
constexpr int kMenuEnd = 28;       // after the text: submenu arrow, space
constexpr int kMenuRow = 28;
constexpr int kMenuLine = 9;

}  // namespace

void DrawRowGround(QPainter& painter, const QStyleOptionViewItem& option) {
    const bool chosen = Has(option.state, QStyle::State_Selected);
    if (option.backgroundBrush.style() != Qt::NoBrush) painter.fillRect(option.rect, option.backgroundBrush);
    const bool enabled = Has(option.state, QStyle::State_Enabled);
    if (chosen) {
        painter.fillRect(option.rect, enabled ? kSelection : kLine);
        const bool begins = option.viewItemPosition == QStyleOptionViewItem::OnlyOne ||
                            option.viewItemPosition == QStyleOptionViewItem::Beginning ||
                            (option.viewItemPosition == QStyleOptionViewItem::Invalid && option.index.column() <= 0);
        if (enabled && begins)
            painter.fillRect(QStyle::visualRect(option.direction, option.rect,
                                                QRect(option.rect.topLeft(), QSize(kRowMark, option.rect.height()))),
                             kAccent);
    } else if (enabled && Has(option.state, QStyle::State_MouseOver)) {
        painter.fillRect(option.rect, kRowHover);
    }
}

void DrawMenuItem(QPainter& painter, const QStyleOptionMenuItem& option, const QWidget* widget) {
    const QRect row = option.rect;
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(QRect(row.left() + 8, row.center().y(), row.width() - 16, 1), kRaisedHover);
        return;
    }
    const bool enabled = Has(option.state, QStyle::State_Enabled);
    const bool chosen = enabled && Has(option.state, QStyle::State_Selected);
    if (chosen) FillPlate(painter, row.adjusted(4, 1, -4, -1), kSelection);
    const QColor ink = !enabled ? kDisabledText : chosen ? kBrightText : kText;

    const auto seen = [&](const QRect& part) { return QStyle::visualRect(option.direction, row, part); };
    const auto side = [&](Qt::Alignment align) { return int(QStyle::visualAlignment(option.direction, align)); };
    const QRect mark = seen({row.left() + 10, row.center().y() - 7, 16, 16});
    if (option.checked && option.icon.isNull()) {
        if (option.checkType == QStyleOptionMenuItem::Exclusive) {
            painter.save();
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(enabled ? kAccent : kDisabledText);
            painter.drawEllipse(QRectF(mark).center(), 3.5, 3.5);
            painter.restore();
        } else {
            DrawCheckMark(painter, mark, enabled ? kAccent : kDisabledText);
        }
    } else if (!option.icon.isNull()) {
        option.icon.paint(&painter, mark, Qt::AlignCenter,
                          !enabled ? QIcon::Disabled
                          : chosen ? QIcon::Active
                                   : QIcon::Normal,
                          option.checked ? QIcon::On : QIcon::Off);
    }

    const QRect words = seen(row.adjusted(kMenuMarkRoom + 4, 0, -kMenuEnd, 0));
    const QStringList parts = option.text.split(QLatin1Char('\t'));
    painter.save();
    painter.setFont(option.font);
    painter.setPen(ink);
    const bool underline =
        widget == nullptr || widget->style()->styleHint(QStyle::SH_UnderlineShortcut, &option, widget) != 0;
    const int flags = Qt::AlignVCenter | Qt::TextSingleLine | (underline ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
    painter.drawText(words, flags | side(Qt::AlignLeft), parts.value(0));
    if (parts.size() > 1) {
        painter.setPen(enabled && !chosen ? kMutedText : ink);
        painter.drawText(seen(row.adjusted(kMenuMarkRoom + 4, 0, 12 - kMenuEnd, 0)), flags | side(Qt::AlignRight),
                         parts.value(1));
    }
    painter.restore();
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu)
        DrawChevron(painter, seen({row.right() - 24, row.top(), 16, row.height()}),
                    option.direction == Qt::RightToLeft ? Qt::LeftArrow : Qt::RightArrow, ink, 3.5);
}

QSize MenuItemSize(const QStyleOptionMenuItem& option, const QSize& contents) {
    if (option.menuItemType == QStyleOptionMenuItem::Separator) return {contents.width(), kMenuLine};
    const QStringList parts = option.text.split(QLatin1Char('\t'));
    const QFontMetrics metrics(option.font);
    int width =
        kMenuMarkRoom + 4 + metrics.size(Qt::TextShowMnemonic | Qt::TextSingleLine, parts.value(0)).width() + kMenuEnd;
    if (parts.size() > 1) width += 24 + metrics.horizontalAdvance(parts.value(1));
    return {width, qMax(kMenuRow, metrics.height() + 8)};
}

void DrawTab(QPainter& painter, const QStyleOptionTab& option) {
    const bool chosen = Has(option.state, QStyle::State_Selected);
    const bool enabled = Has(option.state, QStyle::State_Enabled);
    const QRect tab = option.rect;
    if (enabled && !chosen && Has(option.state, QStyle::State_MouseOver))
        FillPlate(painter, tab.adjusted(1, 2, -1, -3), kHover);
    if (chosen) {
        // The accent lies on the edge towards the page.
        constexpr int kMark = 2;
        QRect mark(tab.left() + 6, tab.bottom() + 1 - kMark, tab.width() - 12, kMark);
        if (option.shape == QTabBar::RoundedSouth || option.shape == QTabBar::TriangularSouth)
            mark.moveTop(tab.top());
        else if (option.shape == QTabBar::RoundedWest || option.shape == QTabBar::TriangularWest)
            mark = QRect(tab.right() + 1 - kMark, tab.top() + 6, kMark, tab.height() - 12);
        else if (option.shape == QTabBar::RoundedEast || option.shape == QTabBar::TriangularEast)
            mark = QRect(tab.left(), tab.top() + 6, kMark, tab.height() - 12);
        painter.fillRect(mark, enabled ? kAccent : kLine);
    }
    if (ShowsFocus(option.state)) DrawFocusRing(painter, tab.adjusted(1, 2, -1, -3), kFocus);
}

QRect ScrollHandle(const QStyleOptionSlider& option) {
    constexpr int kShortest = 28;
    const bool level = option.orientation == Qt::Horizontal;
    const int length = level ? option.rect.width() : option.rect.height();
    const qint64 range = qint64(option.maximum) - option.minimum;
    int handle = length;
    if (range > 0) {
        handle = static_cast<int>(qint64(option.pageStep) * length / qMax<qint64>(1, range + option.pageStep));
        handle = qBound(qMin(kShortest, length), handle, length);
    }
    const int start = QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                                      length - handle, option.upsideDown);
    return level ? QRect(option.rect.left() + start, option.rect.top(), handle, option.rect.height())
                 : QRect(option.rect.left(), option.rect.top() + start, option.rect.width(), handle);
}

void DrawScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& handle) {
    if (option.maximum <= option.minimum) return;
    const bool enabled = Has(option.state, QStyle::State_Enabled);
    const bool active = option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    const QColor color = !enabled                                               ? kLine
                         : active && Has(option.state, QStyle::State_Sunken)    ? kText
                         : active || Has(option.state, QStyle::State_MouseOver) ? kMutedText
                                                                                : kScrollHandle;
    const QRectF bar = QRectF(handle).adjusted(2, 2, -2, -2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const qreal corner = qMin(bar.width(), bar.height()) / 2;
    painter.drawRoundedRect(bar, corner, corner);
    painter.restore();
}

}  // namespace kelu::theme
