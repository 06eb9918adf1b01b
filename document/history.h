// Undo, redo and the compare view. The levels themselves live in the canvas surface.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "canvas/surface.h"
#include "canvas/surface_view.h"
#include "document/commands.h"
#include "document/session_log.h"
#include "document/shared_state.h"
#include "platform/notes.h"

namespace kelu {

class History : public QObject {
    Q_OBJECT

 public:
    History(Surface& canvas, SurfaceView& canvasView, SharedState& state, Notes& notes,
            SessionLog& log = SessionLog::None())
        : canvas_(canvas), canvasView_(canvasView), state_(state), notes_(notes), log_(log) {}

    /// One level back or forward; the picture counts as changed. The fitted view shows the whole picture, a free one
    /// stays where the user looks. With no level left, or while the camera is in use, nothing happens.
    void PerformUndo() { Perform(Command::Undo, &Surface::Undo, &SessionLog::Undone); }
    void PerformRedo() { Perform(Command::Redo, &Surface::Redo, &SessionLog::Redone); }

    /// Swaps canvas and original on the screen. Needs a changed picture, but for the way back from one that was
    /// opened meanwhile. A note tells as long as the original shows.
    void ToggleOriginal();
    /// The original shows while it is held, as far as it may be shown.
    void HoldOriginal(bool held);
    /// Back to the canvas, whatever the picture's state.
    void ShowCanvas() { SetOriginalShown(false); }

 Q_SIGNALS:
    /// The original is to be shown in place of the canvas, or the canvas again.
    void OriginalShown(bool shown);

 private:
    void Perform(Command command, void (Surface::*step)(), void (SessionLog::*done)());
    void SetOriginalShown(bool shown);

    bool held_ = false;
    Surface& canvas_;
    SurfaceView& canvasView_;
    SharedState& state_;
    Notes& notes_;
    SessionLog& log_;
};

}  // namespace kelu
