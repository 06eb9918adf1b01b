// SPDX-License-Identifier: MIT
#include "dialogs/browse/thumbnail_cache.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QStandardPaths>
#include <QUrl>
#include <optional>

#include "pictures/picture_file.h"
#include "platform/atomic_file.h"
#include "platform/error.h"

namespace kelu {

namespace {

constexpr const char* kSizeClass = "large";
constexpr const char* kFailClass = "fail/kelu";
constexpr qint64 kSmallFile = 16 * 1024;  // bytes; such pictures are drawn faster than they are looked up

/// The cached picture when it belongs to this state of the file.
std::optional<QImage> ReadCached(const QString& file, const QByteArray& uri, qint64 changed) {
    QImageReader reader(file, "png");
    if (!reader.canRead()) return std::nullopt;
    if (reader.text(QStringLiteral("Thumb::URI")).toUtf8() != uri ||
        reader.text(QStringLiteral("Thumb::MTime")).toLongLong() != changed)
        return std::nullopt;
    QImage image = reader.read();
    if (image.isNull()) return std::nullopt;
    return image;
}

}  // namespace

ThumbnailCache::ThumbnailCache(const QString& folder) : folder_(folder) {}

QString ThumbnailCache::DefaultFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + QStringLiteral("/thumbnails");
}

QString ThumbnailCache::FileFor(const char* size, const QByteArray& uri) const {
    const QByteArray name = QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex();
    return QStringLiteral("%1/%2/%3.png").arg(folder_, QLatin1String(size), QLatin1String(name));
}

QImage ThumbnailCache::Thumbnail(const QString& path) const {
    const QFileInfo info(path);
    const QByteArray uri = QUrl::fromLocalFile(info.absoluteFilePath()).toEncoded();
    const qint64 changed = info.lastModified().toSecsSinceEpoch();
    // Pictures of the cache itself are not put into it again.
    const bool cacheable = info.size() > kSmallFile && !info.absoluteFilePath().startsWith(folder_ + u'/');
    if (cacheable) {
        if (const auto cached = ReadCached(FileFor(kSizeClass, uri), uri, changed)) return *cached;
        if (ReadCached(FileFor(kFailClass, uri), uri, changed)) return {};
    }
    try {
        const QImage thumbnail = ReadThumbnail(path, QSize(kSide, kSide));
        if (cacheable) Keep(thumbnail, FileFor(kSizeClass, uri), uri, changed);
        return thumbnail;
    } catch (const std::exception&) {
        if (cacheable) {
            QImage mark(1, 1, QImage::Format_ARGB32);
            mark.fill(Qt::transparent);
            Keep(mark, FileFor(kFailClass, uri), uri, changed);
        }
        return {};
    }
}

void ThumbnailCache::Keep(const QImage& thumbnail, const QString& file, const QByteArray& uri, qint64 changed) const {
    // A thumbnail that can't be kept is made anew the next time, no more.
    Attempt([&] {
        QDir().mkpath(QFileInfo(file).path());
        QImage marked = thumbnail;
        marked.setText(QStringLiteral("Thumb::URI"), QString::fromUtf8(uri));
        marked.setText(QStringLiteral("Thumb::MTime"), QString::number(changed));
        marked.setText(QStringLiteral("Software"), QStringLiteral("Kelu"));
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        if (!marked.save(&buffer, "png", 80)) return;
        AtomicFile target(file, AtomicFile::Access::Private);
        target.Write(png);
        target.Commit();
    });
}

}  // namespace kelu
