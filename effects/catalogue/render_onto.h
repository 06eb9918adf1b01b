// The one road from an effect and its inputs to a picture, for window, button pictures, help, command line and sheets.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QSize>

#include "document/effect_inputs.h"
#include "engine/run.h"

namespace kelu {

struct Effect;

/// The picture with the effect, of the same size, format and resolution; null for a null picture. Throws
/// Error(kInvalidProperty) when the choice lies outside the effect's own, and Error(kOutOfMemory).
QImage RenderOnto(const Effect& effect, const EffectInputs& inputs, const QImage& picture, const engine::Run& run = {});

/// The same by the number of the effect and with inputs from outside, as recipes hold them. Throws Error:
/// kInvalidProperty when there is no such effect or its panel can't be set to these inputs, kOutOfMemory when it could
/// not be rendered.
QImage RenderEffectOn(const QImage& picture, int effect, const EffectInputs& inputs);

/// Inputs at which a preview of `size` pixels shows what the effect does: the row's own, the point in the middle.
/// Lengths that the row gives are taken `ratio` times, for finer screens. Where one pixel of the picture is `scale`
/// pixels of the preview (0: unknown), lengths are those that the panel starts with, unless they would be too short or
/// too long to show.
EffectInputs PreviewInputs(const Effect& effect, const QSize& size, double ratio, double scale = 0);

}  // namespace kelu
