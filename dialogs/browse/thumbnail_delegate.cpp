// SPDX-License-Identifier: MIT
#include "dialogs/browse/thumbnail_delegate.h"

#include <QIcon>
#include <QPainter>
#include <QPainterPath>

#include "controls/theme/theme.h"
#include "dialogs/browse/folder_model.h"

namespace kelu {

namespace {
constexpr int kTop = 10;  // device-independent pixels, as the next three
constexpr int kNameHeight = 20;
constexpr int kIcon = 48;
constexpr int kInset = 3;
}  // namespace

QSize ThumbnailDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const { return kCell; }

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

    const QRect frame(option.rect.left() + (option.rect.width() - kPicture.width()) / 2, option.rect.top() + kTop,
                      kPicture.width(), kPicture.height());
    const QPixmap thumbnail = index.data(FolderModel::kThumbnailRole).value<QPixmap>();
    if (thumbnail.isNull()) {
        const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
        icon.paint(painter, QRect(frame.center() - QPoint(kIcon, kIcon) / 2, QSize(kIcon, kIcon)));
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
    const QString name = option.fontMetrics.elidedText(index.data().toString(), Qt::ElideMiddle, nameBox.width());
    painter->drawText(nameBox, Qt::AlignHCenter | Qt::AlignVCenter, name);
    painter->restore();
}

}  // namespace kelu
