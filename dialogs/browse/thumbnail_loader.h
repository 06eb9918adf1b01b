// Makes thumbnails on pool threads for those rows that are in view, the newest wishes first.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QObject>
#include <QStringList>
#include <QThreadPool>

#include "dialogs/browse/folder_listing.h"
#include "dialogs/browse/thumbnail_cache.h"

namespace kelu {

class ThumbnailLoader : public QObject {
    Q_OBJECT

 public:
    explicit ThumbnailLoader(ThumbnailCache cache, QObject* parent = nullptr);
    /// Waits for the pictures in hand, not for those wished for.
    ~ThumbnailLoader() override;

    /// Pictures larger than this, in pixels, are scaled down to it.
    void SetSize(QSize size) { size_ = size; }
    /// What is wanted now, the most urgent first; replaces all earlier wishes but those in hand.
    void Wish(const QStringList& paths);

 Q_SIGNALS:
    /// On the thread of this object. A null picture: the file can't be read. `stamp`: of the file before it was read.
    void Ready(const QString& path, const kelu::FileStamp& stamp, const QImage& thumbnail);

 private:
    const ThumbnailCache cache_;
    QSize size_{ThumbnailCache::kSide, ThumbnailCache::kSide};
    QThreadPool pool_;
};

}  // namespace kelu
