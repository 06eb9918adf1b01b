// SPDX-License-Identifier: MIT
#include "document/history.h"

#include "platform/error.h"

namespace kelu {

void History::Perform(Command command, void (Surface::*step)()) {
    if (!Enabled(command, state_)) return;
    Attempt([&] {
        (canvas_.*step)();
        canvasView_.ShowWhole();
        state_.ImageDirty = true;
    });
}

void History::ToggleOriginal() {
    if (Enabled(Command::Original, state_)) SetOriginalShown(!state_.ShowingOriginal);
}

void History::SetOriginalShown(bool shown) {
    if (shown == state_.ShowingOriginal) return;
    state_.ShowingOriginal = shown;
    Q_EMIT OriginalShown(shown);
}

}  // namespace kelu
