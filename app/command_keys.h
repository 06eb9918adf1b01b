// The keys of the window's commands. Most act when they are released, under the modifiers that they were pressed with.
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <optional>

#include "document/commands.h"

class QKeyEvent;
class QWidget;

namespace kelu {

/// Sees every press before the control that has the focus does. Who types fast lets Ctrl go before the letter.
class CommandKeys : public QObject {
    Q_OBJECT

 public:
    explicit CommandKeys(QWidget& window);

    /// The command of a key that no control had a use for, if it acts when it is pressed.
    std::optional<Command> Pressed(const QKeyEvent& press);
    /// The command of the key that goes up; none when its press went elsewhere.
    std::optional<Command> Released(const QKeyEvent& release);

 Q_SIGNALS:
    /// The command that acts while its key is held comes to its end: the key went up, or the window lost the keys.
    void LetGo(Command command);
    /// Shift, Ctrl and the like are held now.
    void ModifiersHeld(Qt::KeyboardModifiers modifiers);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    struct Press {
        Qt::KeyboardModifiers modifiers;
        bool used = true;  ///< by the control that had the focus
    };
    struct Held {
        Command command;
        int key;
    };
    void TellModifiers(const QKeyEvent& event);
    void EndHeld();

    QWidget& window_;
    QHash<int, Press> pressed_;  ///< by key
    std::optional<Held> held_;
};

}  // namespace kelu
