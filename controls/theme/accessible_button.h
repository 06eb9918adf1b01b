// A drawn button under a role that fits what it is for: a page of a dialog, a text that only looks like one.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <functional>

namespace kelu {

class AccessibleButton : public QAccessibleWidget {
 public:
    /// `role` is asked each time: a button may be met before it knows what it is for.
    AccessibleButton(QAbstractButton& button, std::function<QAccessible::Role()> role)
        : QAccessibleWidget(&button), role_(std::move(role)) {}

    QAccessible::Role role() const override { return role_(); }
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString& action) const override;

 private:
    std::function<QAccessible::Role()> role_;
};

/// Lets a class of buttons tell its role by AccessibleRole(). To be called in its constructor.
template <typename Button>
void UseAccessibleButton() {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* button = qobject_cast<Button*>(object);
            return button ? new AccessibleButton(*button, [button] { return button->AccessibleRole(); }) : nullptr;
        });
        return true;
    }();
}

}  // namespace kelu
