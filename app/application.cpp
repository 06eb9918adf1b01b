// SPDX-License-Identifier: MIT
#include "app/application.h"

#include <QEvent>
#include <QScopedValueRollback>

namespace kelu {

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        if (!dialog_) throw;
        // One message at a time, and none for a painting that failed: it would be tried again, and fail again, at once.
        if (showing_ || event->type() == QEvent::Paint) return false;
        const QScopedValueRollback<bool> once(showing_, true);
        ShowStandardError(*dialog_, error);
        return false;
    }
}

}  // namespace kelu
