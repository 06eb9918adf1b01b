// A picture's samples as one deflated stream, the form in which PNG and PDF keep them, made on all cores.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <cstdint>
#include <functional>
#include <span>

namespace kelu {

/// What the samples of a pixel are; the value is their number.
enum class RowSamples { Grey = 1, Rgb = 3, Rgba = 4 };

/// The fewest samples that hold the picture, RGB32 or ARGB32, without loss.
RowSamples FewestSamples(const QImage& picture);

/// Takes the stream piece by piece, in order, on any thread but never on two at once; `rows` are those that are in the
/// pieces so far. What it throws ends the work and is thrown by DeflateRows.
using TakeDeflated = std::function<void(std::span<const std::uint8_t> piece, int rows)>;

/// Rows of 8-bit samples, each behind the byte of its predictor (0 to 4, as PNG defines them), as one zlib stream.
void DeflateRows(const QImage& picture, RowSamples samples, const TakeDeflated& take);

}  // namespace kelu
