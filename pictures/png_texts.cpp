// Text chunks of PNG files. EXIF and IPTC stand there in hexadecimal digits, as writers have done from before there was
// a chunk for EXIF.
// SPDX-License-Identifier: MIT
#include "pictures/png_texts.h"

#include <algorithm>

#include "pictures/exif.h"
#include "pictures/photoshop_resources.h"
#include "pictures/xmp.h"

namespace kelu {
namespace {

constexpr QLatin1String kXmpName("XML:com.adobe.xmp");
constexpr QLatin1String kProfileName("Raw profile type ");
constexpr qsizetype kLongestName = 79;
constexpr qsizetype kDigitsOfLine = 72;
constexpr qsizetype kMostTexts = 100;

// A line break, what it is, its length, then the digits in lines.
QByteArray OutOfDigits(const QString& text) {
    const QString trimmed = text.trimmed();
    const QString digits = trimmed.section(u'\n', 2);
    return QByteArray::fromHex(digits.toLatin1()).left(trimmed.section(u'\n', 1, 1).toLongLong());
}

QByteArray AsDigits(const QByteArray& kind, const QByteArray& bytes) {
    QByteArray text = '\n' + kind + '\n' + QByteArray::number(bytes.size()).rightJustified(8) + '\n';
    const QByteArray digits = bytes.toHex();
    for (qsizetype at = 0; at < digits.size(); at += kDigitsOfLine) text += digits.mid(at, kDigitsOfLine) + '\n';
    return text;
}

QByteArray WithoutPrefix(const QByteArray& bytes, QByteArrayView prefix) {
    return bytes.startsWith(prefix) ? bytes.mid(prefix.size()) : bytes;
}

bool IsLatin1(const QString& text) {
    return std::ranges::all_of(text, [](QChar c) { return c.unicode() > 0 && c.unicode() <= 0xff; });
}

}  // namespace

void TakePngText(const PictureText& text, Metadata& metadata) {
    if (text.name == kXmpName) {
        metadata.xmp = text.text.toUtf8();
    } else if (text.name.startsWith(kProfileName)) {
        const QString kind = text.name.mid(kProfileName.size()).toLower();
        const QByteArray bytes = OutOfDigits(text.text);
        const QByteArray block = WithoutPrefix(bytes, QByteArrayView("Exif\0\0", 6));
        const bool isExif = kind == u"exif" || (kind == u"app1" && block.size() < bytes.size());
        if (isExif && metadata.exif.isEmpty()) metadata.exif = block;
        if (kind == u"iptc" || kind == u"8bim")
            metadata.iptc = FindResource(WithoutPrefix(bytes, QByteArrayView("Photoshop 3.0\0", 14)), kIptcResource);
        if (kind == u"xmp" && metadata.xmp.isEmpty()) metadata.xmp = bytes;
    } else if (!text.name.contains(u':') && metadata.texts.size() < kMostTexts) {
        metadata.texts.append(text);
    }
}

void PutPngChunks(const Metadata& metadata, const QImage& picture,
                  const std::function<void(const char* name, const QByteArray& data)>& put) {
    const QByteArray exif = ExifBlockFor(metadata.exif, picture, INT_MAX);
    if (!exif.isEmpty()) put("eXIf", exif);
    const auto putText = [&](const QByteArray& name, const QString& text) {
        if (IsLatin1(text))
            put("tEXt", name + '\0' + text.toLatin1());
        else  // not compressed, of no language, under no other name
            put("iTXt", name + QByteArray(5, '\0') + text.toUtf8());
    };
    const QByteArray xmp = XmpFor(metadata.xmp, picture.size());
    if (!xmp.isEmpty()) put("iTXt", QByteArray(kXmpName.data(), kXmpName.size()) + QByteArray(5, '\0') + xmp);
    if (!metadata.iptc.isEmpty())
        putText(QByteArray(kProfileName.data(), kProfileName.size()) + "iptc",
                QString::fromLatin1(AsDigits("iptc", ResourcesOfIptc(metadata.iptc))));
    for (const PictureText& text : metadata.texts) {
        const QByteArray name = text.name.toLatin1().left(kLongestName);
        if (!name.isEmpty()) putText(name, text.text);
    }
}

}  // namespace kelu
