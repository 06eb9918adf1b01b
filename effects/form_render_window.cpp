// Shutting a form by an event filter.
// SPDX-License-Identifier: MIT
#include "effects/form_render_window.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

#include "controls/progress_bar/xp_progress_bar.h"
#include "document/cancellable_work.h"
#include "platform/user_input.h"

namespace kelu {

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
    if (!IsUserInput(event->type()) && event->type() != QEvent::Close) return false;
    const auto* widget = qobject_cast<const QWidget*>(watched);
    const bool ours = widget ? widget->window() == &form_ : watched == form_.windowHandle();
    if (ours) event->ignore();
    return ours;
}

}  // namespace kelu
