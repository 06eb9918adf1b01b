// The directories of tags in which EXIF data and TIFF files tell what they are about: as a tree, out of any bytes and
// back into bytes.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <vector>

namespace kelu {

struct TiffTag {
    quint16 tag = 0;
    quint16 type = 0;
    quint32 count = 0;
    QByteArray value;  ///< in the byte order of the tree, `count` times the size of the type
    qint64 at = 0;     ///< where the value stood; 0: nowhere
};
using TiffDirectory = std::vector<TiffTag>;

/// Types of values that are written here.
enum TiffType : quint16 { kByte = 1, kText = 2, kShort = 3, kLong = 4, kRational = 5, kUndefined = 7 };

struct TiffTags {
    static constexpr quint16 kExifTag = 34665, kGpsTag = 34853, kInteropTag = 40965, kNoteTag = 37500;

    bool little = true;
    TiffDirectory main, exif, gps, interop;

    static const TiffTag* Find(const TiffDirectory& directory, quint16 tag);
    /// Of the value's items, each `bytes` long, the one with this index; 0 where there is none.
    quint32 Number(const TiffTag& tag, qint64 index, int bytes) const;
    /// `count` bytes (2 or 4) with this number, in the byte order of the tree.
    QByteArray Bytes(quint32 number, int count) const;
    /// Replaces or adds a tag with these numbers, of 2 or 4 bytes each; a rational has two.
    void Put(TiffDirectory& directory, quint16 tag, TiffType type, const std::vector<quint32>& numbers) const;
    static void PutBytes(TiffDirectory& directory, quint16 tag, TiffType type, const QByteArray& value);
    static void Erase(TiffDirectory& directory, quint16 tag);
};

/// From a file or block that begins with the mark of its byte order. Damaged tags are left out; what is no such file
/// gives no tags. Later directories, as those of thumbnails, are not read.
TiffTags ReadTiffTags(QIODevice& device);
TiffTags ReadTiffTags(const QByteArray& block);

/// The directories, `base` bytes behind the begin of the file that they are for, the main one first. Both are even.
QByteArray LayOutTiffTags(const TiffTags& tags, qint64 base);
/// A block of its own; empty without tags. The maker's note stays at its place, from which its own inner places count.
QByteArray WriteTiffTags(const TiffTags& tags);
/// The mark of the byte order and the place of the main directory, with which every file and block begins.
inline constexpr quint32 kTiffHeadBytes = 8;
QByteArray TiffHead(const TiffTags& tags, quint32 mainAt);

}  // namespace kelu
