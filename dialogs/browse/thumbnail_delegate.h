// Draws a row of the folder as a thumbnail with its name below.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace kelu {

class ThumbnailDelegate : public QStyledItemDelegate {
    Q_OBJECT

 public:
    static constexpr QSize kPicture{120, 96};  ///< device-independent pixels
    static constexpr QSize kCell{140, 138};

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace kelu
