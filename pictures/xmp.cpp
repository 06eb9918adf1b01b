// XMP packets, changed as text: their properties stand as attributes or as elements, and all else stays as it is.
// SPDX-License-Identifier: MIT
#include "pictures/xmp.h"

#include <QCryptographicHash>
#include <QMap>
#include <QRegularExpression>
#include <QString>
#include <QStringDecoder>
#include <QXmlStreamReader>
#include <vector>

#include "pictures/bytes.h"

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

// Begins each piece: the digest of the rest, its length, the place of the piece in it.
constexpr qsizetype kDigest = 32;
constexpr qsizetype kPieceHead = kDigest + 4 + 4;
const QString kPointer = QStringLiteral(
    "<rdf:Description rdf:about=\"\" xmlns:xmpNote=\"http://ns.adobe.com/xmp/note/\" xmpNote:HasExtendedXMP=\"%1\"/>");

struct Range {
    qsizetype begin;
    qsizetype end;
};

// Where the descriptions stand that the packet consists of; none in a packet that can't be read.
std::vector<Range> Descriptions(const QString& packet) {
    QXmlStreamReader reader(packet);
    std::vector<Range> found;
    int depth = 0;
    int depthOfAll = -1;
    for (qint64 before = 0; !reader.atEnd(); before = reader.characterOffset()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            // The reader has looked one character ahead where text stood before.
            if (depth == depthOfAll) found.push_back({packet.lastIndexOf(u'<', before), before});
            ++depth;
            if (depthOfAll < 0 && reader.qualifiedName() == QLatin1String("rdf:RDF")) depthOfAll = depth;
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
            if (depth == depthOfAll) found.back().end = reader.characterOffset();
            if (depth < depthOfAll) depthOfAll = INT_MAX;
        }
    }
    return reader.hasError() ? std::vector<Range>() : found;
}

QByteArray Big(qsizetype number) {
    QByteArray bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
    return bytes;
}

}  // namespace

XmpParts SplitXmp(const QByteArray& packet, qsizetype most) {
    if (packet.size() <= most) return {packet, {}};
    const QString text = QString::fromUtf8(packet);
    const std::vector<Range> descriptions = Descriptions(text);
    if (descriptions.empty()) return {};
    const QString begin = text.left(descriptions.front().begin);
    const QString end = text.mid(descriptions.back().end).trimmed();
    QByteArray standard = begin.toUtf8();
    QByteArray rest = standard;
    qsizetype room = most - standard.size() - end.toUtf8().size() - kPointer.size() - kDigest;
    for (const Range& range : descriptions) {
        const QByteArray description = text.mid(range.begin, range.end - range.begin).toUtf8();
        const bool fits = description.size() <= room;
        if (fits) room -= description.size();
        (fits ? standard : rest) += description;
    }
    if (room < 0) return {};
    // The marks around a packet are the standard part's alone.
    rest = QString::fromUtf8(rest + end.toUtf8())
               .remove(QRegularExpression(QStringLiteral(R"(<\?xpacket[^>]*>)")))
               .trimmed()
               .toUtf8();
    const QByteArray digest = QCryptographicHash::hash(rest, QCryptographicHash::Md5).toHex().toUpper();
    XmpParts parts{standard + kPointer.arg(QLatin1String(digest)).toUtf8() + end.toUtf8(), {}};
    for (qsizetype at = 0; at < rest.size(); at += most - kPieceHead)
        parts.pieces += digest + Big(rest.size()) + Big(at) + rest.mid(at, most - kPieceHead);
    return parts;
}

QByteArray JoinXmp(const XmpParts& parts) {
    QMap<quint32, QByteArray> pieces;
    quint32 length = 0;
    for (const QByteArray& piece : parts.pieces) {
        if (piece.size() <= kPieceHead || !parts.standard.contains(piece.left(kDigest))) continue;
        length = BigEndian(piece, kDigest, 4);
        pieces[BigEndian(piece, kDigest + 4, 4)] = piece.mid(kPieceHead);
    }
    QByteArray rest;
    for (const auto& [at, piece] : pieces.asKeyValueRange())
        if (at == rest.size()) rest += piece;
    if (rest.isEmpty() || rest.size() != length) return parts.standard;
    QString standard = QString::fromUtf8(parts.standard);
    const QString more = QString::fromUtf8(rest);
    const std::vector<Range> known = Descriptions(standard);
    const std::vector<Range> further = Descriptions(more);
    if (known.empty() || further.empty()) return parts.standard;
    const qsizetype first = further.front().begin;
    standard.insert(known.back().end, more.mid(first, further.back().end - first));
    // The descriptions may lean on names that only the rest explains.
    return Descriptions(standard).empty() ? parts.standard : standard.toUtf8();
}

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
    // Whether the packet is too long for one piece is a matter of the file that it goes into.
    Drop(text, QStringLiteral("xmpNote:HasExtendedXMP"));
    return text.toUtf8();
}

}  // namespace kelu
