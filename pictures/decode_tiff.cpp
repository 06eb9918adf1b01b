// TIFF by the toolkit, after a check that all strips or tiles are there.
// SPDX-License-Identifier: MIT
#include <array>
#include <vector>

#include "pictures/bytes.h"
#include "pictures/picture_decoders.h"
#include "pictures/tiff_device.h"

namespace kelu {

bool IsTiff(const QByteArray& head, qint64) {
    for (const char* signature : {"II*\0", "MM\0*", "II+\0", "MM\0+"})
        if (head.startsWith(QByteArray(signature, 4))) return true;
    return false;
}

void CheckTiff(PictureInput& input) {
    QIODevice& device = input.Device();
    constexpr qint64 kMostValues = 1 << 20;
    constexpr std::array<int, 13> kTypeBytes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8};
    const auto read = [&](qint64 at, qint64 count) {
        if (at + count > device.size() || !device.seek(at)) ThrowCutShort();
        return device.read(count);
    };
    const bool little = device.peek(2) == "II";
    const auto number = [&](const QByteArray& bytes, qint64 at, int count) {
        return little ? LittleEndian(bytes, at, count) : BigEndian(bytes, at, count);
    };
    const QByteArray head = read(0, 8);
    if (number(head, 2, 2) != 42) return;  // files of more than 4 GB are laid out differently
    const qint64 directory = number(head, 4, 4);
    const qint64 entries = number(read(directory, 2), 0, 2);
    const QByteArray fields = read(directory + 2, entries * 12);
    std::vector<qint64> offsets, sizes;
    for (qint64 entry = 0; entry < fields.size(); entry += 12) {
        const quint32 tag = number(fields, entry, 2);
        const quint32 type = number(fields, entry + 2, 2);
        const qint64 count = number(fields, entry + 4, 4);
        const int bytes = type < kTypeBytes.size() ? kTypeBytes[type] : 0;
        const qint64 at = count * bytes <= 4 ? directory + 2 + entry + 8 : qint64{number(fields, entry + 8, 4)};
        if (at + count * bytes > device.size()) ThrowCutShort();
        const bool places = OneOf(tag, {273, 324});  // of strips, of tiles
        if (!places && !OneOf(tag, {279, 325})) continue;
        if (bytes == 0 || offsets.size() + sizes.size() > kMostValues) ThrowDamaged();
        const QByteArray values = read(at, std::min(count, kMostValues) * bytes);
        for (qint64 i = 0; i < count && (i + 1) * bytes <= values.size(); ++i)
            (places ? offsets : sizes).push_back(number(values, i * bytes, bytes));
    }
    for (std::size_t i = 0; i < std::min(offsets.size(), sizes.size()); ++i)
        if (offsets[i] + sizes[i] > device.size()) ThrowCutShort();
}

DecodedPicture DecodeTiff(PictureInput& input) {
    OpenTiff(input.Device(), "r");  // silences the library also for the toolkit
    return DecodeWithToolkit(input);
}

}  // namespace kelu
