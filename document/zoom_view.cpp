// SPDX-License-Identifier: MIT
#include "document/zoom_view.h"

#include <algorithm>

#include "document/commands.h"

namespace kelu {

namespace {
constexpr int kStep = 10;          // percent
constexpr int kSmallest = 3;       // percent
constexpr int kFreeViewFrom = 51;  // percent
}  // namespace

void ZoomView::ZoomIn() {
    if (!Enabled(Command::ZoomIn, state_)) return;
    canvasView_.SetZoomPercent(canvasView_.ZoomPercent() + kStep);
    if (canvasView_.ZoomPercent() >= kFreeViewFrom)
        canvasView_.SetFreeView();
    else
        canvasView_.SetFittedView();
    ShowChange();
}

void ZoomView::ZoomOut() {
    if (!Enabled(Command::ZoomOut, state_)) return;
    canvasView_.SetZoomPercent(std::max(canvasView_.ZoomPercent() - kStep, kSmallest));
    ShowChange();
}

void ZoomView::Reset() {
    if (!Enabled(Command::ZoomReset, state_)) return;
    canvasView_.SetFittedView();
    ShowChange();
}

void ZoomView::ShowChange() {
    canvasView_.Redraw();
    document_.ShowLongStatusText();
}

}  // namespace kelu
