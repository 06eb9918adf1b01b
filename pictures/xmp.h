// XMP packets.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QSize>

namespace kelu {

/// The packet as it is true for an upright picture of this size in sRGB, without thumbnails. Empty where the packet is
/// no UTF-8, so that nothing wrong is told.
QByteArray XmpFor(const QByteArray& packet, const QSize& size);

/// A packet for a file whose segments hold no more than so many bytes: what fits, and the pieces of the rest, each with
/// what tells of its place.
struct XmpParts {
    QByteArray standard;
    QList<QByteArray> pieces;
};
XmpParts SplitXmp(const QByteArray& packet, qsizetype most);

/// One packet again. The standard part alone where the pieces are not its rest, or not all of it.
QByteArray JoinXmp(const XmpParts& parts);

}  // namespace kelu
