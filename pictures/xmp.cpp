// XMP packets, changed as text: their properties stand as attributes or as elements, and all else stays as it is.
// SPDX-License-Identifier: MIT
#include "pictures/xmp.h"

#include <QRegularExpression>
#include <QString>
#include <QStringDecoder>

namespace kelu {
namespace {

// Where the property is told, it has this value now.
void Set(QString& text, const QString& name, const QString& value) {
    text.replace(QRegularExpression(QStringLiteral(R"(\b%1\s*=\s*("[^"<>]*"|'[^'<>]*'))").arg(name)),
                 QStringLiteral("%1=\"%2\"").arg(name, value));
    text.replace(QRegularExpression(QStringLiteral("<%1>[^<]*</%1>").arg(name)),
                 QStringLiteral("<%1>%2</%1>").arg(name, value));
}

void Drop(QString& text, const QString& name) {
    text.remove(QRegularExpression(QStringLiteral(R"(\s%1\s*=\s*("[^"<>]*"|'[^'<>]*'))").arg(name)));
    const QString begin = u'<' + name;
    const QString end = QStringLiteral("</%1>").arg(name);
    for (qsizetype from = text.indexOf(begin); from >= 0; from = text.indexOf(begin, from)) {
        const qsizetype to = text.indexOf(end, from);
        if (to < 0) return;
        text.remove(from, to + end.size() - from);
    }
}

}  // namespace

QByteArray XmpFor(const QByteArray& packet, const QSize& size) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(packet);
    if (decoder.hasError()) return {};
    const QString width = QString::number(size.width());
    const QString height = QString::number(size.height());
    Set(text, QStringLiteral("tiff:Orientation"), QStringLiteral("1"));
    Set(text, QStringLiteral("tiff:ImageWidth"), width);
    Set(text, QStringLiteral("tiff:ImageLength"), height);
    Set(text, QStringLiteral("exif:PixelXDimension"), width);
    Set(text, QStringLiteral("exif:PixelYDimension"), height);
    Set(text, QStringLiteral("exif:ColorSpace"), QStringLiteral("1"));
    Set(text, QStringLiteral("photoshop:ICCProfile"), QStringLiteral("sRGB IEC61966-2.1"));
    Drop(text, QStringLiteral("xmp:Thumbnails"));
    Drop(text, QStringLiteral("xap:Thumbnails"));
    // The rest of a long packet stays behind with the old file.
    Drop(text, QStringLiteral("xmpNote:HasExtendedXMP"));
    return text.toUtf8();
}

}  // namespace kelu
