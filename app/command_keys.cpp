// SPDX-License-Identifier: MIT
#include "app/command_keys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>
#include <utility>

namespace kelu {

CommandKeys::CommandKeys(QWidget& window) : window_(window) { QCoreApplication::instance()->installEventFilter(this); }

std::optional<Command> CommandKeys::Pressed(const QKeyEvent& press) {
    if (const auto command = CommandOfKey(press.key(), press.modifiers(), KeyActs::AtPress)) return command;
    if (press.isAutoRepeat() || held_) return std::nullopt;
    const auto command = CommandOfKey(press.key(), press.modifiers(), KeyActs::WhileHeld);
    if (command) held_ = Held{*command, press.key()};
    return command;
}

std::optional<Command> CommandKeys::Released(const QKeyEvent& release) {
    if (release.isAutoRepeat() || !pressed_.contains(release.key())) return std::nullopt;
    const Press press = pressed_.take(release.key());
    return CommandOfKey(release.key(), press.modifiers, KeyActs::AtRelease, press.used);
}

bool CommandKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate && watched == &window_) {
        pressed_.clear();
        EndHeld();
        Q_EMIT ModifiersHeld(Qt::NoModifier);
    }
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (!widget || widget->window() != &window_ || key->isAutoRepeat()) return false;
    TellModifiers(*key);
    // A press that nobody uses comes to the window in the end.
    if (event->type() == QEvent::KeyPress)
        pressed_.insert(key->key(), {key->modifiers(), watched != &window_});
    else if (held_ && held_->key == key->key())
        EndHeld();
    return false;
}

void CommandKeys::TellModifiers(const QKeyEvent& event) {
    // Of the modifier's own key the event tells the state before it, or after it, as the window system pleases.
    Qt::KeyboardModifiers now = event.modifiers();
    const std::pair<Qt::Key, Qt::KeyboardModifier> own[] = {{Qt::Key_Control, Qt::ControlModifier},
                                                            {Qt::Key_Shift, Qt::ShiftModifier}};
    for (const auto& [key, modifier] : own)
        if (event.key() == key) now.setFlag(modifier, event.type() == QEvent::KeyPress);
    Q_EMIT ModifiersHeld(now);
}

void CommandKeys::EndHeld() {
    if (held_) Q_EMIT LetGo(std::exchange(held_, std::nullopt)->command);
}

}  // namespace kelu
