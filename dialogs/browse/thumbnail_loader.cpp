// SPDX-License-Identifier: MIT
#include "dialogs/browse/thumbnail_loader.h"

#include <QFileInfo>
#include <QThread>
#include <algorithm>

#include "platform/error.h"
#include "platform/pool_job.h"

namespace kelu {

ThumbnailLoader::ThumbnailLoader(ThumbnailCache cache, QObject* parent) : QObject(parent), cache_(std::move(cache)) {
    pool_.setMaxThreadCount(std::max(1, QThread::idealThreadCount()));
    pool_.setThreadPriority(QThread::LowPriority);  // scrolling goes first
}

ThumbnailLoader::~ThumbnailLoader() {
    pool_.clear();
    WaitForJobs(pool_);
}

void ThumbnailLoader::Wish(const QStringList& paths) {
    pool_.clear();
    for (const QString& path : paths)
        StartJob(pool_, [this, path, size = size_] {
            const QFileInfo info(path);
            const FileStamp stamp{info.size(), info.lastModified()};
            QImage thumbnail;
            Attempt([&] {
                thumbnail = cache_.Thumbnail(path);
                if (thumbnail.width() > size.width() || thumbnail.height() > size.height())
                    thumbnail = thumbnail.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            });
            Q_EMIT Ready(path, stamp, thumbnail);
        });
}

}  // namespace kelu
