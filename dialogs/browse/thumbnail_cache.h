// Thumbnails kept between runs by the desktop's shared rules (freedesktop.org, "Thumbnail Managing Standard"): one PNG
// a picture in the user's cache folder, named by the MD5 of its URI, valid as long as the picture's time of change is
// the one written in it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

namespace kelu {

class ThumbnailCache {
 public:
    static constexpr int kSide = 256;  ///< pixels, the "large" class

    /// `folder`: where the classes lie; by default the user's shared one.
    explicit ThumbnailCache(const QString& folder = DefaultFolder());
    static QString DefaultFolder();

    /// The picture no larger than kSide in either direction, from the cache or from the file itself, which is then
    /// kept. Null for a file that can't be read; that is remembered too, until the file changes. Any thread.
    QImage Thumbnail(const QString& path) const;

 private:
    QString FileFor(const char* size, const QByteArray& uri) const;
    void Keep(const QImage& thumbnail, const QString& file, const QByteArray& uri, qint64 changed, qint64 size) const;

    QString folder_;
};

}  // namespace kelu
