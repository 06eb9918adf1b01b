// Progress bar arithmetic without a widget: value to percent, and the edges of the filled part, chunks, gaps and text.
// Everything is in widget pixels; a box's right and bottom lie one past its last pixel.
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>
#include <vector>

namespace kelu::bar {

struct Box {
    int left = 0, top = 0, right = 0, bottom = 0;
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    /// Empty when an end lies before its start.
    QRect ToRect() const { return {left, top, Width(), Height()}; }
    friend bool operator==(const Box&, const Box&) = default;
};

/// A row of chunks: each `width` pixels, then `gap` pixels of ground.
struct Chunks {
    int width = 6;
    int gap = 2;
    int Step() const { return width + gap; }
};

/// Position in percent for a value, nearest, ties to even; `current` when `max` is 0, as there is no range then.
int PercentOfValue(int value, int min, int max, int current);

/// The value that a position in percent stands for, nearest, ties to even.
int ValueOfPercent(int percent, int min, int max);

/// `part` / `whole` of `length`, nearest, ties to even.
int PartOf(int length, int part, int whole);

/// The chunked looks stand 3 pixels off the client area's left side.
inline constexpr int kChunkInset = 3;

/// The filled part of a chunked bar at `fraction` (0 to 1, a little more is allowed), cut to whole steps of `chunks`.
/// `client` is the area with its left side already moved in.
Box HorizontalBar(const Box& client, double fraction, const Chunks& chunks);
Box VerticalBar(const Box& client, double fraction, const Chunks& chunks);

/// A horizontal bar as it is shown: never less than one chunk, so that 0 shows too.
Box ShownBar(Box bar);

/// Right end of a horizontal bar's fill: off the client area's right side.
int FillEnd(const Box& bar, const Box& client);

/// The gaps of a chunked bar, each across the whole client area.
std::vector<Box> HorizontalGaps(const Box& client, const Box& bar, const Chunks& chunks);
std::vector<Box> VerticalGaps(const Box& client, const Box& bar, const Chunks& chunks);

/// The text's box: measured size, centred.
Box TextBox(const QSize& client, const QSize& text);

}  // namespace kelu::bar
