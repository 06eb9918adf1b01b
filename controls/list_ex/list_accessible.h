// What assistive technology learns of a list: its rows, which one is chosen, and which one the keys are at. A list that
// is not on the screen shows no row and holds no focus.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <vector>

#include "controls/list_ex/list_ex.h"

namespace kelu {

class ListAccessible : public QAccessibleWidget {
 public:
    explicit ListAccessible(ListEx& list) : QAccessibleWidget(&list, QAccessible::List) {}
    ~ListAccessible() override;

    QAccessible::State state() const override;
    int childCount() const override { return List().Count(); }
    QAccessibleInterface* child(int row) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

 private:
    ListEx& List() const { return *static_cast<ListEx*>(widget()); }

    mutable std::vector<QAccessible::Id> rows_;
};

}  // namespace kelu
