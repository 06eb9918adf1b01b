// What the user's hand does on the canvas: mouse, pen and keys become strokes, a click on the placeholder asks for a
// picture, and points are picked for the effects that want one.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

#include "document/shared_state.h"

namespace kelu {

class CommandKeys;
class MainControls;
class Painter;

class CanvasHand : public QObject {
    Q_OBJECT

 public:
    CanvasHand(MainControls& controls, Painter& painter, const CommandKeys& keys, const SharedState& state);

    bool eventFilter(QObject* canvas, QEvent* event) override;

 Q_SIGNALS:
    /// There is no picture yet, and the user clicked where it would be.
    void PictureWanted();
    /// A button went down to paint from the render, and the painter knows.
    void RenderUsed();

 private:
    void FollowPen();
    void FollowPoint();
    /// For who turns it where there is nothing to scroll.
    void TellWhatTheWheelDoes();

    MainControls& controls_;
    Painter& painter_;
    const SharedState& state_;
};

}  // namespace kelu
