// One effect rendered over one picture, for replays.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

#include "document/effect_inputs.h"

namespace kelu {

/// The render of the effect of this number, as Apply makes it. Throws Error: kInvalidProperty when there is no such
/// effect or its panel can't be set to these inputs, kOutOfMemory when it could not be rendered.
QImage RenderEffectOn(const QImage& picture, int effect, const EffectInputs& inputs);

}  // namespace kelu
