// SPDX-License-Identifier: MIT
#include "document/clipboard_picture.h"

#include <QBuffer>
#include <QClipboard>
#include <QColorSpace>
#include <QGuiApplication>
#include <QImage>

#include "pictures/picture_format.h"
#include "platform/error.h"

namespace kelu {

namespace {

const QString kPng = QStringLiteral("image/png");
const QString kImage = QStringLiteral("application/x-qt-image");

const PictureFormat* WrittenAs(const QString& mimeType) {
    for (const PictureFormat& format : PictureFormats())
        if (format.encode && QString::fromLatin1(format.mimeTypes).split(u' ').contains(mimeType)) return &format;
    return nullptr;
}

QByteArray Encode(const QImage& picture, const PictureFormat& format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    format.encode(picture, {}, buffer);
    return bytes;
}

}  // namespace

ClipboardPicture::ClipboardPicture(const QByteArray& png) { encoded_[kPng] = png; }

QStringList ClipboardPicture::formats() const {
    QStringList all{kPng};
    for (const PictureFormat& format : PictureFormats()) {
        const QString mimeType = QString::fromLatin1(format.mimeTypes).section(u' ', 0, 0);
        if (format.encode && mimeType != kPng) all += mimeType;
    }
    return all + QStringList{kImage};  // what the toolkit's own programs ask for
}

QVariant ClipboardPicture::retrieveData(const QString& mimeType, QMetaType) const {
    if (encoded_.contains(mimeType)) return encoded_[mimeType];
    const PictureFormat* format = WrittenAs(mimeType);
    if (!format && mimeType != kImage) return {};
    QImage picture;
    QByteArray bytes;
    Attempt([&] {
        RunBeside([&] {
            picture.loadFromData(encoded_[kPng], "PNG");
            picture.setColorSpace({});  // it is the one that every picture here has
            if (format)
                bytes = Encode(
                    picture.convertToFormat(picture.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32),
                    *format);
        });
    });
    if (!format) return picture;
    return encoded_[mimeType] = bytes;
}

void CopyToClipboard(const QImage& picture, const Beside& beside) {
    if (picture.isNull()) return;
    QByteArray png;
    beside([&] { png = Encode(picture, *FormatToWrite(QStringLiteral("clipboard.png"))); });
    QGuiApplication::clipboard()->setMimeData(new ClipboardPicture(png));
}

}  // namespace kelu
