// Draws a row of the folder as a picture with its name below, in two lines where one is too short.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace kelu {

class ThumbnailDelegate : public QStyledItemDelegate {
    Q_OBJECT

 public:
    enum class Shows { Thumbnails, Icons };
    static constexpr QSize kThumbnail{120, 96};  ///< device-independent pixels
    static constexpr QSize kIcon{48, 48};

    ThumbnailDelegate(Shows shows, QObject* parent);

    /// Of picture, name and the room around them.
    QSize Cell() const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
    const Shows shows_;
    const QSize picture_;
};

}  // namespace kelu
