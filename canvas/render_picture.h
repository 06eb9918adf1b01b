// From an engine kernel to a picture of the program.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <functional>

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu {

/// Renders into a target of the source's size; see the engine for what it keeps to.
using Kernel = std::function<void(const engine::ImageView&, const engine::MutableImageView&, const engine::Run&)>;

/// Makes a picture of another; throws Error where it can't.
using Renderer = std::function<QImage(const QImage& picture, const engine::Run& run)>;

/// The picture through the kernel, with its format and resolution; the picture itself is shared, not copied. Null for a
/// null picture. Throws Error(kOutOfMemory).
QImage RenderPicture(const QImage& picture, const Kernel& kernel, const engine::Run& run);

}  // namespace kelu
