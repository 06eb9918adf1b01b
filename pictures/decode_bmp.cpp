// BMP by the toolkit, after a check that all rows are there.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdlib>

#include "pictures/bytes.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"

namespace kelu {

bool IsBmp(const QByteArray& head, qint64) {
    return head.startsWith("BM") && OneOf(LittleEndian(head, 14, 4), {12, 16, 40, 52, 56, 64, 108, 124});
}

void CheckBmp(PictureInput& input) {
    const QByteArray head = input.Head();
    const qint64 dataBegin = LittleEndian(head, 10, 4);
    const quint32 headerSize = LittleEndian(head, 14, 4);
    const bool old = headerSize == 12;
    const qint64 width = old ? qint64{LittleEndian(head, 18, 2)} : static_cast<qint32>(LittleEndian(head, 18, 4));
    const qint64 height =
        old ? qint64{LittleEndian(head, 20, 2)} : std::llabs(static_cast<qint32>(LittleEndian(head, 22, 4)));
    CheckPictureSize(width, height);
    const quint32 bits = LittleEndian(head, old ? 24 : 28, 2);
    const quint32 compression = old ? 0 : LittleEndian(head, 30, 4);
    const bool runLengths = compression == 1 || compression == 2;
    const qint64 needed = runLengths ? qint64{LittleEndian(head, 34, 4)} : (width * bits + 31) / 32 * 4 * height;
    if (dataBegin + std::max<qint64>(needed, 1) > input.Size()) ThrowCutShort();
}

DecodedPicture DecodeBmp(PictureInput& input) { return DecodeWithToolkit(input); }

}  // namespace kelu
