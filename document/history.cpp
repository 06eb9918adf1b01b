// SPDX-License-Identifier: MIT
#include "document/history.h"

#include "platform/error.h"

namespace kelu {

void History::Perform(void (Surface::*step)(), void (SessionLog::*done)()) {
    if (state_.CaptureBusy) return;
    Attempt([&] {
        (canvas_.*step)();
        (log_.*done)();
        canvasView_.SetViewAnchor(5);
        canvasView_.SetViewMode(2);
        state_.ImageDirty = true;
    });
}

void History::ToggleOriginal() {
    const bool wayBack = state_.ShowingOriginal && state_.ImageActive;  // another picture was opened meanwhile
    if (state_.CaptureBusy || !(state_.ImageDirty || wayBack)) return;
    SetOriginalShown(!state_.ShowingOriginal);
}

void History::SetOriginalShown(bool shown) {
    if (shown == state_.ShowingOriginal) return;
    state_.ShowingOriginal = shown;
    Q_EMIT OriginalShown(shown);
}

}  // namespace kelu
