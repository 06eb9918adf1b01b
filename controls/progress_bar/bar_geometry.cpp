// Progress bar arithmetic.
// SPDX-License-Identifier: MIT
#include "controls/progress_bar/bar_geometry.h"

#include <algorithm>
#include <limits>

#include "platform/units.h"

namespace kelu::bar {
namespace {

int RoundHeld(double value) {
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    return RoundToEven(std::clamp(value, kLeast, kMost));
}

}  // namespace

int PercentOfValue(int value, int min, int max, int current) {
    return max == 0 ? current : std::max(0, RoundHeld(value * 100.0 / max + min));
}

int ValueOfPercent(int percent, int min, int max) {
    const double value = percent / 100.0 * max;
    return RoundHeld(min >= 1 ? value / min : value);
}

int PartOf(int length, int part, int whole) { return RoundHeld(static_cast<double>(length) * part / whole); }

Box HorizontalBar(const Box& client, double fraction, const Chunks& chunks) {
    Box bar = client;
    const int end = RoundHeld(client.left + client.Width() * fraction);
    bar.right = std::max(client.left, end - (end - client.left) % chunks.Step());
    return bar;
}

Box VerticalBar(const Box& client, double fraction, const Chunks& chunks) {
    Box bar = client;
    const int end = RoundHeld(client.top + client.Height() * (1 - fraction));
    bar.top = std::min(client.bottom, end - (end - client.bottom) % chunks.Step());
    return bar;
}

Box ShownBar(Box bar) {
    if (bar.right < 15) bar.right = 12;
    return bar;
}

int FillEnd(const Box& bar, const Box& client) { return bar.right + 4 > client.right ? bar.right - 4 : bar.right; }

std::vector<Box> HorizontalGaps(const Box& client, const Box& bar, const Chunks& chunks) {
    std::vector<Box> gaps;
    for (int x = bar.left + chunks.width; x <= bar.right; x += chunks.Step()) {
        gaps.push_back({x + 1, client.top, x + 1 + chunks.gap, client.bottom});
    }
    return gaps;
}

std::vector<Box> VerticalGaps(const Box& client, const Box& bar, const Chunks& chunks) {
    std::vector<Box> gaps;
    for (int y = bar.bottom; y >= bar.top + chunks.width; y -= chunks.Step()) {
        gaps.push_back({client.left, y - 2, client.right, y - 2 + chunks.gap});
    }
    return gaps;
}

Box TextBox(const QSize& client, const QSize& text) {
    const int left = RoundToEven(client.width() / 2.0 - text.width() / 2.0);
    const int top = RoundToEven(client.height() / 2.0 - text.height() / 2.0);
    return {left, top, left + text.width(), top + text.height()};
}

}  // namespace kelu::bar
