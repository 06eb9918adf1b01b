// SPDX-License-Identifier: MIT
#include "dialogs/browse/thumbnail_delegate.h"

#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>
#include <algorithm>

#include "controls/theme/theme.h"
#include "dialogs/browse/folder_model.h"

namespace kelu {

namespace {

constexpr int kTop = 10;  // device-independent pixels, as the next four
constexpr int kSide = 10;
constexpr int kLeastWidth = 104;
constexpr int kNameHeight = 36;
constexpr int kInset = 3;

/// At most two lines that fit the width; of what is too long the middle of the second goes.
QStringList Lines(const QString& name, const QFont& font, int width) {
    QTextOption breaks;
    breaks.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(name, font);
    layout.setTextOption(breaks);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) line.setLineWidth(width);
    layout.endLayout();
    const qsizetype first = line.isValid() ? line.textLength() : 0;
    if (first >= name.size()) return {name};
    return {name.left(first), QFontMetrics(font).elidedText(name.mid(first), Qt::ElideMiddle, width)};
}

}  // namespace

ThumbnailDelegate::ThumbnailDelegate(Shows shows, QObject* parent)
    : QStyledItemDelegate(parent), shows_(shows), picture_(shows == Shows::Thumbnails ? kThumbnail : kIcon) {}

QSize ThumbnailDelegate::Cell() const {
    return {std::max(picture_.width() + 2 * kSide, kLeastWidth), kTop + picture_.height() + kNameHeight + 2 * kInset};
}

QSize ThumbnailDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const { return Cell(); }

void ThumbnailDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRect plate = option.rect.adjusted(kInset, kInset, -kInset, -kInset);
    const bool chosen = option.state & QStyle::State_Selected;
    const bool over = option.state & QStyle::State_MouseOver;
    if (chosen || over) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(chosen ? theme::kSelection : theme::kRowHover);
        painter->drawRoundedRect(plate, theme::kCorner, theme::kCorner);
    }
    if (option.state & QStyle::State_HasFocus) {
        painter->setPen(QPen(theme::kFocus, 1));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(plate).adjusted(0.5, 0.5, -0.5, -0.5), theme::kCorner, theme::kCorner);
    }

    const QRect frame(option.rect.left() + (option.rect.width() - picture_.width()) / 2, option.rect.top() + kTop,
                      picture_.width(), picture_.height());
    const QPixmap thumbnail =
        shows_ == Shows::Thumbnails ? index.data(FolderModel::kThumbnailRole).value<QPixmap>() : QPixmap();
    if (thumbnail.isNull()) {
        const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
        icon.paint(painter, QRect(frame.center() - QPoint(kIcon.width(), kIcon.height()) / 2, kIcon));
    } else {
        QSize size = thumbnail.size();
        if (size.width() > frame.width() || size.height() > frame.height())
            size.scale(frame.size(), Qt::KeepAspectRatio);
        const QRect place(frame.center() - QPoint(size.width(), size.height()) / 2 + QPoint(1, 1), size);
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawPixmap(place, thumbnail);
    }

    const QRect nameBox(plate.left() + kInset, frame.bottom() + 4, plate.width() - 2 * kInset, kNameHeight);
    painter->setPen(chosen ? theme::kBrightText : theme::kText);
    painter->setFont(option.font);
    const QStringList lines = Lines(index.data().toString(), option.font, nameBox.width());
    for (int i = 0; i < lines.size(); ++i)
        painter->drawText(nameBox.translated(0, i * option.fontMetrics.height()), Qt::AlignHCenter | Qt::AlignTop,
                          lines[i]);
    painter->restore();
}

}  // namespace kelu
