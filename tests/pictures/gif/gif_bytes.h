// Writes GIF files by hand, block by block, for the tests. Independent of the program's own encoder.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <initializer_list>
#include <vector>

namespace kelu::test {

/// Bytes given as numbers.
QByteArray Bytes(std::initializer_list<int> values);

/// "GIF89a" or "GIF87a", screen size, global table of 4 colours: 0 red, 1 green, 2 blue, 3 white.
QByteArray Header(int screenWidth, int screenHeight, const char* signature = "GIF89a");
inline constexpr unsigned kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF, kWhite = 0xFFFFFFFF,
                          kBlack = 0xFF000000, kClear = 0;

/// Graphic control extension. `transparent` -1: none. Delay in hundredths of a second.
QByteArray Control(int disposal, int delay, int transparent = -1);

/// Image of indices 0 to 3 in reading order; `localTable`: triples of 4 colours, or empty.
QByteArray Image(int left, int top, int width, int height, const std::vector<int>& indices,
                 const QByteArray& localTable = {}, bool interlaced = false);

/// Loop extension.
QByteArray Netscape(int loops);

extern const QByteArray kTrailer;

struct LzwStyle {
    int minCodeSize = 8;
    /// Emit a clear code after that many codes; 0: once, at the start, so that a full table stays in use.
    int clearEvery = 0;
    bool clearAtStart = true;
    bool endCode = true;
    int subBlock = 255;  ///< longest sub-block
};

/// A plain LZW encoder with a dictionary of strings: sub-blocks with terminator.
QByteArray ReferenceLzw(const std::vector<std::uint8_t>& indices, const LzwStyle& style);

}  // namespace kelu::test
