// The effects that map each channel on its own: 11 Brightness 1, 13 Contrast, 15 Color Correction, 32 Negative, 34
// Posterize, 39 Solarize, 43 Swap Colors, 45 Tint. Alpha stays as it is. Source and target have the same size and do
// not overlap.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Adds 2.55 times `amount` (-100 to 100, 0 is neutral).
void Brightness1(const ImageView& source, const MutableImageView& target, int amount, const Run& run);

/// `amount` -100 flat grey, 0 neutral, 100 four-fold, about the middle grey 128.
void Contrast(const ImageView& source, const MutableImageView& target, int amount, const Run& run);

/// Stretches each channel so that `black` becomes 0 and `white` 255. A channel whose white is not above its black is
/// thresholded: 255 where it reaches black.
void ColorCorrection(const ImageView& source, const MutableImageView& target, Color black, Color white, const Run& run);

/// Inverts the channels whose flag is true.
void Negative(const ImageView& source, const MutableImageView& target, bool red, bool green, bool blue, const Run& run);

/// Keeps 1 to 8 bits of each channel, spread evenly from 0 to 255; 8 is neutral.
void Posterize(const ImageView& source, const MutableImageView& target, int redBits, int greenBits, int blueBits,
               const Run& run);

/// Inverts each channel where it reaches its threshold (0 to 255) when `bright` is true, where it stays below it when
/// false.
void Solarize(const ImageView& source, const MutableImageView& target, int red, int green, int blue, bool bright,
              const Run& run);

/// `pair` 0 exchanges green and blue, 1 red and blue, 2 red and green.
void SwapColors(const ImageView& source, const MutableImageView& target, int pair, const Run& run);

/// Looks at the picture through a filter of this colour.
void Tint(const ImageView& source, const MutableImageView& target, Color color, const Run& run);

}  // namespace kelu::engine
