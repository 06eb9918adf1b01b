// What the user can set for one render, as plain values: panel, command line and recipe all end in these.
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <array>

namespace kelu {

/// Version of what the effects compute. To be raised when one of them gives other bytes for the same inputs, so that
/// no recipe promises a picture that it can't give any more.
inline constexpr int kEffectDefinitions = 3;

/// The three bytes of a colour, 0 to 255 each.
struct ColorBytes {
    int red = 0;
    int green = 0;
    int blue = 0;
    bool operator==(const ColorBytes&) const = default;
};

/// A colour value of the pickers: red in the lowest byte, blue in the third.
constexpr qint32 PickerColor(int red, int green, int blue) { return red | (green << 8) | (blue << 16); }

/// The bytes of a picker's colour; a negative value stands for no colour of its own and gives 0, 0, 0.
constexpr ColorBytes SplitColor(qint32 color) {
    if (color < 0) return {};
    return {color & 0xff, (color >> 8) & 0xff, (color >> 16) & 0xff};
}

struct EffectInputs {
    std::array<int, 3> slider{};  ///< values of the three sliders, unscaled
    int x = 0;                    ///< the point, in image pixels
    int y = 0;
    ColorBytes color1;
    ColorBytes color2;
    int choice = 0;  ///< option button, list row or compass button, counted from 1; 0 none
    bool operator==(const EffectInputs&) const = default;
};

}  // namespace kelu
