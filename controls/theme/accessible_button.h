// A drawn button under a role that fits what it is for: a page of a dialog, a text that only looks like one.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>

namespace kelu {

class AccessibleButton : public QAccessibleWidget {
 public:
    AccessibleButton(QAbstractButton& button, QAccessible::Role role) : QAccessibleWidget(&button, role) {}

    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString& action) const override;
};

/// Lets a class of buttons tell its role by AccessibleRole(), which is asked when assistive technology first meets the
/// button. To be called in its constructor.
template <typename Button>
void UseAccessibleButton() {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* button = qobject_cast<Button*>(object);
            return button ? new AccessibleButton(*button, button->AccessibleRole()) : nullptr;
        });
        return true;
    }();
}

}  // namespace kelu
