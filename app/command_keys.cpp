// SPDX-License-Identifier: MIT
#include "app/command_keys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace kelu {

CommandKeys::CommandKeys(QWidget& window) : window_(window) { QCoreApplication::instance()->installEventFilter(this); }

std::optional<Command> CommandKeys::Released(const QKeyEvent& release) {
    if (release.isAutoRepeat() || !pressed_.contains(release.key())) return std::nullopt;
    return CommandOfKey(release.key(), pressed_.take(release.key()));
}

bool CommandKeys::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = event->type() == QEvent::KeyPress ? qobject_cast<QWidget*>(watched) : nullptr;
    const auto* press = static_cast<QKeyEvent*>(event);
    if (widget && widget->window() == &window_ && !press->isAutoRepeat())
        pressed_.insert(press->key(), press->modifiers());
    if (event->type() == QEvent::WindowDeactivate && watched == &window_) pressed_.clear();
    return false;
}

}  // namespace kelu
