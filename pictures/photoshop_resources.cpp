// Image resources: a signature, a number, a name of even length with its own length before it, a length, the data.
// SPDX-License-Identifier: MIT
#include "pictures/photoshop_resources.h"

#include "pictures/bytes.h"

namespace kelu {
namespace {

constexpr qint64 kNameAt = 6;

}  // namespace

QByteArray FindResource(const QByteArray& resources, quint32 number) {
    for (qint64 at = 0; at + kNameAt < resources.size() && resources.mid(at, 4) == "8BIM";) {
        const qint64 name = BigEndian(resources, at + kNameAt, 1) + 1;
        const qint64 lengthAt = at + kNameAt + name + name % 2;
        const qint64 length = BigEndian(resources, lengthAt, 4);
        if (BigEndian(resources, at + 4, 2) == number) return resources.mid(lengthAt + 4, length);
        at = lengthAt + 4 + length + length % 2;
    }
    return {};
}

QByteArray ResourcesOfIptc(const QByteArray& iptc) {
    QByteArray resources("8BIM\x04\x04\0\0", 8);
    for (int shift = 24; shift >= 0; shift -= 8) resources += static_cast<char>(iptc.size() >> shift);
    return resources + iptc + QByteArray(iptc.size() % 2, '\0');
}

}  // namespace kelu
