// Undo, redo and the compare view. The levels themselves live in the canvas surface.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "canvas/surface.h"
#include "canvas/surface_view.h"
#include "document/commands.h"
#include "document/shared_state.h"

namespace kelu {

class History : public QObject {
    Q_OBJECT

 public:
    History(Surface& canvas, SurfaceView& canvasView, SharedState& state)
        : canvas_(canvas), canvasView_(canvasView), state_(state) {}

    /// One level back or forward, shown in the fitted view; the picture counts as changed. With no level left, or
    /// while the camera is in use, nothing happens.
    void PerformUndo() { Perform(Command::Undo, &Surface::Undo); }
    void PerformRedo() { Perform(Command::Redo, &Surface::Redo); }

    /// Swaps canvas and original on the screen. Needs a changed picture, but for the way back from one that was
    /// opened meanwhile.
    void ToggleOriginal();
    /// Back to the canvas, whatever the picture's state.
    void ShowCanvas() { SetOriginalShown(false); }

 Q_SIGNALS:
    /// The original is to be shown in place of the canvas, or the canvas again.
    void OriginalShown(bool shown);

 private:
    void Perform(Command command, void (Surface::*step)());
    void SetOriginalShown(bool shown);

    Surface& canvas_;
    SurfaceView& canvasView_;
    SharedState& state_;
};

}  // namespace kelu
