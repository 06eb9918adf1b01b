// The order of Tab as one list.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <initializer_list>

namespace kelu {

/// Tab walks these controls of one window in this order. Each must take the focus by Tab.
inline void SetTabOrder(std::initializer_list<QWidget*> controls) {
    QWidget* last = nullptr;
    for (QWidget* control : controls) {
        if (last) QWidget::setTabOrder(last, control);
        last = control;
    }
}

}  // namespace kelu
