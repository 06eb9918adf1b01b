// A role for drawn controls, which to assistive technology would else be plain areas.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QAccessibleWidget>

namespace kelu {

/// Gives all widgets of a class this role. To be called in its constructor, before anything is named.
template <typename Widget, QAccessible::Role role>
void UseAccessibleRole() {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* widget = qobject_cast<Widget*>(object);
            return widget ? new QAccessibleWidget(widget, role) : nullptr;
        });
        return true;
    }();
}

}  // namespace kelu
