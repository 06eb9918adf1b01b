// Which events come from the user's hands.
// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>

namespace kelu {

/// Mouse, keys, touch, pen and drags; not the wish to close a window.
bool IsUserInput(QEvent::Type type);

}  // namespace kelu
