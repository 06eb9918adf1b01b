// Work that the user may leave with Escape.
// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>

#include "platform/run_beside.h"

namespace kelu {

struct CancellableWork : Work {
    CancellableWork() {
        cancels = [](const QEvent& event) {
            return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
        };
    }
};

}  // namespace kelu
