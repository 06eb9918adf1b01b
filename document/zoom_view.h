// The three zoom commands: they change how the canvas is shown, never its pixels.
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/surface_view.h"
#include "document/document.h"
#include "document/shared_state.h"

namespace kelu {

class ZoomView {
 public:
    ZoomView(Document& document, SurfaceView& canvasView, const SharedState& state)
        : document_(document), canvasView_(canvasView), state_(state) {}

    /// Ten percent more; from 51 percent on in the free view, below it fitted.
    void ZoomIn();
    /// Ten percent less, 3 at the least; the view stays as it was.
    void ZoomOut();
    /// The fitted view.
    void Reset();

 private:
    void ShowChange();

    Document& document_;
    SurfaceView& canvasView_;
    const SharedState& state_;
};

}  // namespace kelu
