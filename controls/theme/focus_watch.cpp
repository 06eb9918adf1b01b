// What counts as work by keyboard; see focus_watch.h.
// SPDX-License-Identifier: MIT
#include "controls/theme/focus_watch.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

namespace kelu::theme {

FocusWatch& FocusWatch::Instance() {
    // A child of the application: it goes with it, and a test's second application gets its own.
    static QPointer<FocusWatch> watch;
    if (!watch) {
        watch = new FocusWatch(qApp);
        qApp->installEventFilter(watch);
    }
    return *watch;
}

void FocusWatch::Set(bool byKeyboard) {
    if (byKeyboard_ == byKeyboard) return;
    byKeyboard_ = byKeyboard;
    if (QWidget* focused = QApplication::focusWidget()) focused->update();
}

bool FocusWatch::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            keyWasLast_ = false;
            Set(false);
            break;
        case QEvent::KeyPress:
            keyWasLast_ = true;
            switch (static_cast<QKeyEvent*>(event)->key()) {
                case Qt::Key_Tab:
                case Qt::Key_Backtab:
                case Qt::Key_Left:
                case Qt::Key_Right:
                case Qt::Key_Up:
                case Qt::Key_Down:
                case Qt::Key_Home:
                case Qt::Key_End:
                case Qt::Key_Space:
                    Set(true);
                    break;
                default:
                    break;
            }
            break;
        case QEvent::FocusIn:
            // As by Tab: a control found what was typed, a dialog comes. Or by a letter that a label underlines.
            if (const auto reason = static_cast<QFocusEvent*>(event)->reason();
                keyWasLast_ && (reason == Qt::TabFocusReason || reason == Qt::ShortcutFocusReason))
                Set(true);
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace kelu::theme
