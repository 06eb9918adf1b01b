// HEIC and AVIF: told by the brands in their first box.
// SPDX-License-Identifier: MIT
#include "pictures/bytes.h"
#include "pictures/picture_decoders.h"

namespace kelu {
namespace {

// Whether one of the brands of the file, the major one or a compatible one, is among these.
bool HasBrand(const QByteArray& head, std::initializer_list<const char*> brands) {
    if (head.mid(4, 4) != "ftyp") return false;
    const qint64 end = std::min<qint64>(BigEndian(head, 0, 4), head.size());
    for (qint64 at = 8; at + 4 <= end; at += at == 8 ? 8 : 4)
        for (const char* brand : brands)
            if (head.mid(at, 4) == brand) return true;
    return false;
}

}  // namespace

bool IsAvif(const QByteArray& head, qint64) { return HasBrand(head, {"avif", "avis"}); }

bool IsHeic(const QByteArray& head, qint64) {
    return HasBrand(head, {"heic", "heix", "heim", "heis", "hevc", "hevx", "mif1", "msf1"});
}

}  // namespace kelu
