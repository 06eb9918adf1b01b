// The borders: 21 Erode Border, 23 Fade Borders, 27 Irregular Borders. Only the frame along the edges is computed, the
// rest is copied. Depths are in image pixels, 0 leaves the picture unchanged. The colour is seen where the picture is
// transparent, too. Source and target have the same size and do not overlap.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// The picture fades to `color`, which stands alone at the edge, within `depth` pixels.
void FadeBorders(const ImageView& source, const MutableImageView& target, int depth, Color color, const Run& run);

/// `color` covers a torn band along the edges, up to `depth` pixels wide, with a bare rim and a shadow.
void IrregularBorders(const ImageView& source, const MutableImageView& target, int depth, Color color, const Run& run);

/// `color` eats into the picture, ragged and with holes, to at most `depth` pixels.
void ErodeBorder(const ImageView& source, const MutableImageView& target, int depth, Color color, const Run& run);

}  // namespace kelu::engine
