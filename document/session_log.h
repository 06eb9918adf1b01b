// What happens to the open picture, told to whoever keeps a record of it. The base takes no notice of anything.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>

#include "canvas/brush.h"
#include "document/effect_inputs.h"
#include "pictures/metadata.h"

namespace kelu {

/// Where a brush has its paint from.
enum class BrushSource : std::uint8_t {
    Pen,      ///< the pen's picture as it is now
    Render,   ///< what the pen held when a brush was last made of it
    Original  ///< the picture as it was opened
};

struct OpenedPicture {
    QString path;
    Photograph opened;     ///< as it stands in the document, shared
    bool shrunk = false;   ///< made smaller by the rule of opening
    bool passing = false;  ///< the file will not stay: a snapshot of the camera, a picture out of the clipboard
    BrushHandle brush;     ///< what strokes would paint with until the next brush is made
};

/// Told on the interface thread, after the fact, in the order of the facts. Only what was done is told: an undo
/// without a level is none.
class SessionLog {
 public:
    virtual ~SessionLog() = default;
    /// For those whom nobody records.
    static SessionLog& None() {
        static SessionLog none;
        return none;
    }

    virtual void Opened(const OpenedPicture&) {}
    /// The canvas shows something else without an open, as the camera's pictures.
    virtual void Replaced() {}
    /// `rendered` false: the effect was refused and the pen holds a copy of the canvas.
    virtual void Applied(int /*effect*/, const EffectInputs&, bool /*rendered*/) {}
    /// Later strokes have this brush.
    virtual void BrushTaken(BrushSource, const BrushHandle&) {}
    /// The brush that is taken has another softness, 0 to 100.
    virtual void BrushSoftened(int /*softness*/) {}
    /// An undo level was opened; `at` is where the stroke will begin.
    virtual void StrokeBegan(const QPoint& /*at*/) {}
    virtual void LinePainted(const QPoint& /*from*/, const QPoint& /*to*/) {}
    /// The brush's paint was laid on the whole picture, as one undo level.
    virtual void AllPainted() {}
    virtual void Undone() {}
    virtual void Redone() {}
    /// All that was done so far is saved, or the user doesn't want it. `savedAs` is empty for the latter.
    virtual void Settled(const QString& /*savedAs*/) {}
};

}  // namespace kelu
