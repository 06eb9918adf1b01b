// The keys of the window's commands: each acts when it is released, under the modifiers that it was pressed with.
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
 public:
    explicit CommandKeys(QWidget& window);

    /// The command of the key that goes up; none when its press went elsewhere.
    std::optional<Command> Released(const QKeyEvent& release);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QWidget& window_;
    QHash<int, Qt::KeyboardModifiers> pressed_;  ///< by key: the modifiers of its press
};

}  // namespace kelu
