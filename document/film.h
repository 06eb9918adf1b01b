// The painting as a film: an animated GIF that grows from the photograph to the result.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <functional>

#include "document/recipe.h"
#include "document/replay.h"

namespace kelu {

/// Every stroke that is still there at the end grows in its turn, at an even pace; what was undone doesn't show. At
/// most 640 pixels wide and 12 seconds long, the first and the last picture held, then again from the start.
/// `picture` is what the recipe opens; `fit` as in Replay::Open. `progress` gets percent and answers whether to go on.
/// Empty when it was told to stop. Throws as Replay does.
QByteArray MakeFilm(const Recipe& recipe, const QImage& picture, const EffectRenderer& render, bool fit = false,
                    const std::function<bool(int percent)>& progress = {});

}  // namespace kelu
