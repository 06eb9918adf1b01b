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

/// Inputs at which a preview of `size` pixels shows what the effect does: the row's own, the point in the middle.
/// Lengths that the row gives are taken `ratio` times, for finer screens. Where one pixel of the picture is `scale`
/// pixels of the preview (0: unknown), lengths are those that the panel starts with, unless they would be too short or
/// too long to show.
EffectInputs PreviewInputs(const Effect& effect, const QSize& size, double ratio, double scale = 0);

}  // namespace kelu
