// The effects that look at luma: 1 Grayscale, 2 Sepia, 3 Black & White, 17 Colorize, 18 False Color, which are
// functions of luma alone, and 36 Saturation 1. Alpha stays as it is. Luma is that of Rec. 601, rounded to nearest.
// Source and target have the same size and do not overlap.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// `weighted` 0: every channel becomes the mean of the three; otherwise luma.
void Grayscale(const ImageView& source, const MutableImageView& target, int weighted, const Run& run);

/// `strength` 0 (plain weighted grey) to 100.
void Sepia(const ImageView& source, const MutableImageView& target, int strength, const Run& run);

/// White where luma reaches `threshold` (0 to 255), black elsewhere.
void BlackWhite(const ImageView& source, const MutableImageView& target, int threshold, const Run& run);

/// A ramp from black through `color`, which stands at its own luma, to white.
void Colorize(const ImageView& source, const MutableImageView& target, Color color, const Run& run);

/// A ramp from `dark` at luma 0 to `bright` at luma 255.
void FalseColor(const ImageView& source, const MutableImageView& target, Color dark, Color bright, const Run& run);

/// Distance from grey: `amount` -100 none, 0 neutral, 100 double.
void Saturation1(const ImageView& source, const MutableImageView& target, int amount, const Run& run);

}  // namespace kelu::engine
