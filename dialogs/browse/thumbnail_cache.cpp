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
#include <cstdlib>
#include <optional>

#include "dialogs/browse/folder_paths.h"
#include "pictures/picture_file.h"
#include "platform/atomic_file.h"
#include "platform/error.h"
#include "platform/private_folder.h"

namespace kelu {

namespace {

constexpr const char* kSizeClass = "large";
constexpr const char* kFailClass = "fail/kelu";
constexpr qint64 kSmallFile = 16 * 1024;  // bytes; such pictures are drawn faster than they are looked up
constexpr qint64 kRestTime = 3;           // s; what was written later than so long ago may still be written to

/// The cached picture when it belongs to this state of the file. Not all programs tell the size.
std::optional<QImage> ReadCached(const QString& file, const QByteArray& uri, qint64 changed, qint64 size) {
    QImageReader reader(file, "png");
    if (!reader.canRead()) return std::nullopt;
    if (reader.text(QStringLiteral("Thumb::URI")).toUtf8() != uri ||
        reader.text(QStringLiteral("Thumb::MTime")).toLongLong() != changed)
        return std::nullopt;
    const QString told = reader.text(QStringLiteral("Thumb::Size"));
    if (!told.isEmpty() && told.toLongLong() != size) return std::nullopt;
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
    const bool cacheable =
        info.size() > kSmallFile && !IsPassingPath(path) && !info.absoluteFilePath().startsWith(folder_ + u'/');
    if (cacheable) {
        if (const auto cached = ReadCached(FileFor(kSizeClass, uri), uri, changed, info.size())) return *cached;
        if (ReadCached(FileFor(kFailClass, uri), uri, changed, info.size())) return {};
    }
    // The time is kept in whole seconds, so a picture that is still arriving would look the same when it is whole.
    const bool rests = std::abs(QDateTime::currentSecsSinceEpoch() - changed) > kRestTime;
    const auto keep = [&](const QImage& thumbnail, const char* sizeClass) {
        if (cacheable && rests) Keep(thumbnail, FileFor(sizeClass, uri), uri, changed, info.size());
    };
    try {
        const QImage thumbnail = ReadThumbnail(path, QSize(kSide, kSide));
        keep(thumbnail, kSizeClass);
        return thumbnail;
    } catch (const std::exception&) {
        QImage mark(1, 1, QImage::Format_ARGB32);
        mark.fill(Qt::transparent);
        keep(mark, kFailClass);
        return {};
    }
}

void ThumbnailCache::Keep(const QImage& thumbnail, const QString& file, const QByteArray& uri, qint64 changed,
                          qint64 size) const {
    // A thumbnail that can't be kept is made anew the next time, no more.
    Attempt([&] {
        const QString folder = QFileInfo(file).path();
        if (!QFileInfo(folder).isDir() && !MakePrivateFolder(folder)) return;
        QImage marked = thumbnail;
        marked.setText(QStringLiteral("Thumb::URI"), QString::fromUtf8(uri));
        marked.setText(QStringLiteral("Thumb::MTime"), QString::number(changed));
        marked.setText(QStringLiteral("Thumb::Size"), QString::number(size));
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
