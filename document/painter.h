// The brush: arms it after a render and turns mouse events on the canvas into strokes.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <functional>

#include "app/shared_state.h"
#include "controls/theme/icons.h"
#include "document/document.h"
#include "document/image_x.h"
#include "document/settings.h"

namespace kelu {

/// The cursors of the styles "1", "2" and "3".
struct BrushCursors {
    theme::CursorPicture picBrush;
    theme::CursorPicture picSmudge;
    theme::CursorPicture picCross;
};

class Painter {
 public:
    /// `brushSize` reads the diameter of the brush in image pixels, 1 to 100, at the moment of use.
    Painter(Document& document, ImageX& canvasView, SharedState& state, const Settings& settings, BrushCursors cursors,
            std::function<int()> brushSize);

    /// Makes the brush from the pen's picture at the present size and shows the cursor of the chosen style. A style
    /// other than "1" to "3" leaves brush and cursor as they were. Called after each render and when the size changes.
    void SetUpBrush();
    /// The ring of the brush's size shows round the pointer while painting is on.
    void ShowBrushRing();

    /// Any mouse button was pressed on the canvas: one undo level, nothing painted. Twips of the canvas widget.
    void Press(int xTwips, int yTwips);
    /// The pointer moved over the canvas; with the left button alone one segment is painted.
    void Move(Qt::MouseButtons buttons, int xTwips, int yTwips);

 private:
    QPoint ImagePoint(int xTwips, int yTwips) const;

    Document& document_;
    ImageX& canvasView_;
    SharedState& state_;
    const Settings& settings_;
    BrushCursors cursors_;
    std::function<int()> brushSize_;
    QPoint lastBrush_;  // image pixels, the end of the last segment
};

}  // namespace kelu
