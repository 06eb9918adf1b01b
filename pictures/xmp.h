// XMP packets.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QSize>

namespace kelu {

/// The packet as it is true for an upright picture of this size in sRGB, without thumbnails. Empty where the packet is
/// no UTF-8, so that nothing wrong is told.
QByteArray XmpFor(const QByteArray& packet, const QSize& size);

}  // namespace kelu
