// The pattern behind the picture, as dense on every screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>

namespace kelu {

class Hatch {
 public:
    explicit Hatch(const QBrush& brush = Qt::NoBrush) : brush_(brush) {}

    /// The brush for a screen with this device pixel ratio: a diagonal cross lies as dense as at ratio 1.
    const QBrush& At(qreal ratio);

 private:
    QBrush brush_;
    QBrush screen_;    ///< brush_ as drawn at ratio_
    qreal ratio_ = 0;  ///< 0: not drawn yet
};

}  // namespace kelu
