// PNG by the toolkit, after a walk over its chunks.
// SPDX-License-Identifier: MIT
#include <zlib.h>

#include <QColorSpace>
#include <algorithm>
#include <cmath>

#include "pictures/bytes.h"
#include "pictures/exif.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"

namespace kelu {
namespace {

// Whether the checksum behind the data holds; `device` stands at the data. The library would tell a wrong one on
// standard error, where a failure of ours is the only line.
bool ChecksumHolds(QIODevice& device, const QByteArray& name, qint64 length) {
    constexpr qint64 kPiece = 1 << 16;
    uLong sum = crc32(0, reinterpret_cast<const Bytef*>(name.constData()), 4);
    for (qint64 left = length; left > 0;) {
        const QByteArray piece = device.read(std::min(left, kPiece));
        if (piece.isEmpty()) return false;
        sum = crc32(sum, reinterpret_cast<const Bytef*>(piece.constData()), static_cast<uInt>(piece.size()));
        left -= piece.size();
    }
    return BigEndian(device.read(4), 0, 4) == static_cast<quint32>(sum);
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

struct Facts {
    int orientation = 1;
    bool hasProfile = false;
};

// Walks the chunks: its orientation stands in a chunk on either side of the pixels.
Facts ReadFacts(QIODevice& device) {
    constexpr qint64 kSignature = 8;
    constexpr qint64 kFrame = 12;  // length, name and checksum around the data
    Facts facts;
    bool hasPixels = false;
    for (qint64 at = kSignature;;) {
        if (!device.seek(at)) break;
        const QByteArray head = device.read(8);
        if (head.size() < 8) ThrowCutShort();
        const qint64 length = BigEndian(head, 0, 4);
        if (at + kFrame + length > device.size()) ThrowCutShort();
        const QByteArray name = head.mid(4);
        if (!std::all_of(name.begin(), name.end(), IsLetter)) ThrowDamaged();
        const bool critical = name[0] < 'a';
        if (critical && !ChecksumHolds(device, name, length)) ThrowDamaged();
        if (name == "IEND") break;
        if (name == "IHDR") {
            device.seek(at + 8);
            const QByteArray sides = device.read(8);
            CheckPictureSize(BigEndian(sides, 0, 4), BigEndian(sides, 4, 4));
        }
        if (name == "IDAT") hasPixels = true;
        if (name == "eXIf") facts.orientation = ReadExif(device.read(length)).orientation;
        if (name == "iCCP") facts.hasProfile = true;
        at += kFrame + length;
    }
    if (!hasPixels) ThrowDamaged();
    return facts;
}

}  // namespace

DecodedPicture DecodePng(PictureInput& input) {
    const Facts facts = ReadFacts(input.Device());
    DecodedPicture result = DecodeWithToolkit(input);
    result.metadata.orientation = facts.orientation;
    // A file that tells a gamma and no profile is made for a screen like any other.
    QByteArray& profile = result.metadata.profile;
    if (!facts.hasProfile && !profile.isEmpty() &&
        std::abs(QColorSpace::fromIccProfile(profile).gamma() - 2.2f) < 0.05f)
        profile.clear();
    return result;
}

}  // namespace kelu
