// The canvas on which the frames of a GIF are laid one over the other, as their disposal asks.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRect>

#include "pictures/gif/frame_strip.h"

namespace kelu {

class FrameComposer {
 public:
    /// `strip` is not owned and must outlive the composer or the next Reset.
    explicit FrameComposer(const FrameStrip& strip) : strip_(strip) {}

    /// The screen as it looks while `frame` (from 1) is shown: Format_ARGB32_Premultiplied, each pixel either opaque or
    /// fully transparent. Steps over the frames between the last one shown and this one; going back starts at frame 1.
    /// A null picture when there is no such frame or no memory.
    QImage Compose(int frame);

    /// Forgets the canvas: after the strip was loaded, cleared or mirrored.
    void Reset();

 private:
    void Begin();
    void Draw(int frame);
    void Dispose(int frame);

    const FrameStrip& strip_;
    QImage canvas_;
    int shown_ = 0;  // frame that the canvas shows; 0 before the first
    QImage saved_;   // what lay under the shown frame, if it asks to be undone
};

}  // namespace kelu
