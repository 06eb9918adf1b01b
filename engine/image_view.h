// How the engine sees a picture: a pointer to pixels that someone else owns, and the one rule for what lies outside.
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kelu::engine {

/// Pixels are four bytes in memory order blue, green, red, alpha (on little endian one 0xAARRGGBB word), alpha not
/// premultiplied. `stride` is the distance of rows in bytes, a multiple of 4, at least 4 * width.
struct ImageView {
    const std::uint8_t* data = nullptr;
    int width = 0;
    int height = 0;
    std::ptrdiff_t stride = 0;

    const std::uint32_t* Row(int y) const { return reinterpret_cast<const std::uint32_t*>(data + y * stride); }
};

/// The same, to be written.
struct MutableImageView {
    std::uint8_t* data = nullptr;
    int width = 0;
    int height = 0;
    std::ptrdiff_t stride = 0;

    std::uint32_t* Row(int y) const { return reinterpret_cast<std::uint32_t*>(data + y * stride); }
    operator ImageView() const { return {data, width, height, stride}; }
};

/// A colour of the catalogue, each channel 0 to 255.
struct Color {
    int red = 0;
    int green = 0;
    int blue = 0;
};

constexpr Color Sensible(Color color) {
    return {std::clamp(color.red, 0, 255), std::clamp(color.green, 0, 255), std::clamp(color.blue, 0, 255)};
}

/// The border rule of every window effect: outside the picture lies the nearest edge pixel. `size` is at least 1.
constexpr int RepeatEdge(int index, int size) { return index < 0 ? 0 : index >= size ? size - 1 : index; }

/// Copies the pixels [begin, end) of row `y` to `out`; row and columns may lie outside the picture.
inline void CopyRowRepeatingEdge(const ImageView& source, int y, int begin, int end, std::uint32_t* out) {
    const std::uint32_t* row = source.Row(RepeatEdge(y, source.height));
    const int first = std::clamp(begin, 0, source.width), last = std::clamp(end, first, source.width);
    out = std::fill_n(out, std::min(first, end) - begin, row[0]);
    out = std::copy(row + first, row + last, out);
    std::fill_n(out, end - std::max(last, begin), row[source.width - 1]);
}

}  // namespace kelu::engine
