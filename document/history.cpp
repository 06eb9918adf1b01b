// SPDX-License-Identifier: MIT
#include "document/history.h"

#include "platform/error.h"

namespace kelu {

void History::Perform(Command command, void (Surface::*step)(), void (SessionLog::*done)()) {
    if (!Enabled(command, state_)) return;
    Attempt([&] {
        (canvas_.*step)();
        (log_.*done)();
        const ViewKind before = canvasView_.ViewMode();
        canvasView_.HoldLayout(true);
        canvasView_.ShowWhole();
        if (before == ViewKind::Free) canvasView_.ShowPart();
        canvasView_.HoldLayout(false);
        state_.ImageDirty = true;
    });
}

void History::ToggleOriginal() {
    if (Enabled(Command::Original, state_)) SetOriginalShown(!state_.ShowingOriginal);
}

void History::HoldOriginal(bool held) {
    if (held == held_ || (held && (state_.ShowingOriginal || !Enabled(Command::Compare, state_)))) return;
    held_ = held;
    SetOriginalShown(held);
}

void History::SetOriginalShown(bool shown) {
    if (!shown) held_ = false;
    if (shown == state_.ShowingOriginal) return;
    state_.ShowingOriginal = shown;
    Q_EMIT OriginalShown(shown);
    if (shown)
        notes_.Show({tr("Showing the original"), {{tr("Back"), [this] { ShowCanvas(); }}}, true});
    else
        notes_.Clear();
}

}  // namespace kelu
