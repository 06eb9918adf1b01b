// SPDX-License-Identifier: MIT
#include "controls/theme/accessible_button.h"

#include <QKeySequence>

namespace kelu {

QAccessible::State AccessibleButton::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const auto& button = *static_cast<QAbstractButton*>(widget());
    state.pressed = button.isDown();
    state.checkable = button.isCheckable();
    state.checked = button.isChecked();
    if (role() == QAccessible::PageTab) {
        state.selectable = true;
        state.selected = button.isChecked();
    }
    return state;
}

QStringList AccessibleButton::actionNames() const {
    if (!widget()->isEnabled() || role() == QAccessible::StaticText) return {};
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
}

void AccessibleButton::doAction(const QString& action) {
    if (action != pressAction()) return QAccessibleWidget::doAction(action);
    if (widget()->isEnabled()) static_cast<QAbstractButton*>(widget())->animateClick();
}

QStringList AccessibleButton::keyBindingsForAction(const QString& action) const {
    const QKeySequence key = static_cast<QAbstractButton*>(widget())->shortcut();
    return action == pressAction() && !key.isEmpty() ? QStringList(key.toString()) : QStringList();
}

}  // namespace kelu
