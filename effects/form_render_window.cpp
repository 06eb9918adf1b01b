// Shutting a form by an event filter.
// SPDX-License-Identifier: MIT
#include "effects/form_render_window.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

#include "controls/progress_bar/xp_progress_bar.h"
#include "document/cancellable_work.h"

namespace kelu {
namespace {

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::NativeGesture:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::ContextMenu:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

}  // namespace

void FormRenderWindow::SetFormEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    if (enabled)
        QCoreApplication::instance()->removeEventFilter(this);
    else
        QCoreApplication::instance()->installEventFilter(this);
}

void FormRenderWindow::SetProgressVisible(bool visible) { bar_.setVisible(visible); }

void FormRenderWindow::SetProgress(int percent) { bar_.SetValue(percent); }

void FormRenderWindow::RunEventLoopOnce() {
    QCoreApplication::processEvents(enabled_ ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
}

void FormRenderWindow::RunRender(const std::function<void()>& render) {
    CancellableWork work;
    RunBeside(render, UserInput::Swallowed, &work);
}

bool FormRenderWindow::eventFilter(QObject* watched, QEvent* event) {
    if (!IsInput(event->type())) return false;
    const auto* widget = qobject_cast<const QWidget*>(watched);
    const bool ours = widget ? widget->window() == &form_ : watched == form_.windowHandle();
    if (ours) event->ignore();
    return ours;
}

}  // namespace kelu
