// SPDX-License-Identifier: MIT
#include "dialogs/browse/thumbnail_loader.h"

#include <QThread>
#include <algorithm>

namespace kelu {

ThumbnailLoader::ThumbnailLoader(ThumbnailCache cache, QObject* parent) : QObject(parent), cache_(std::move(cache)) {
    pool_.setMaxThreadCount(std::max(1, QThread::idealThreadCount()));
    pool_.setThreadPriority(QThread::LowPriority);  // scrolling goes first
}

ThumbnailLoader::~ThumbnailLoader() {
    pool_.clear();
    pool_.waitForDone();
}

void ThumbnailLoader::Wish(const QStringList& paths) {
    pool_.clear();
    for (const QString& path : paths) pool_.start([this, path] { Q_EMIT Ready(path, cache_.Thumbnail(path)); });
}

}  // namespace kelu
