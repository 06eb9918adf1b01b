// SPDX-License-Identifier: MIT
#include "controls/list_ex/list_accessible.h"

#include <QPointer>
#include <QWindow>

namespace kelu {

namespace {

class RowAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
    RowAccessible(ListEx& list, int row) : list_(&list), row_(row) {}

    int Row() const { return row_; }
    bool isValid() const override { return list_ && row_ < list_->Count(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return list_ ? list_->window()->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(list_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text which) const override {
        return isValid() && which == QAccessible::Name ? list_->Text(row_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect place = list_->visualRect(list_->model()->index(row_, 0));
        return {list_->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (!isValid()) return state;
        state.selectable = state.focusable = true;
        state.disabled = !list_->isEnabled();
        state.selected = list_->ListIndex() == row_;
        state.focused = state.selected && list_->hasFocus();
        const QRect place = list_->visualRect(list_->model()->index(row_, 0));
        state.invisible = !list_->isVisible();
        state.offscreen = state.invisible || !place.intersects(list_->viewport()->rect());
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        if (isValid() && list_->isEnabled() && action == pressAction()) list_->SetListIndex(row_);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
    QPointer<ListEx> list_;
    int row_;
};

}  // namespace

ListAccessible::~ListAccessible() {
    for (const QAccessible::Id id : rows_) QAccessible::deleteAccessibleInterface(id);
}

QAccessible::State ListAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    if (List().ListIndex() >= 0) state.focused = false;  // its row is
    return state;
}

QAccessibleInterface* ListAccessible::child(int row) const {
    if (row < 0 || row >= childCount()) return nullptr;
    while (static_cast<int>(rows_.size()) <= row)
        rows_.push_back(
            QAccessible::registerAccessibleInterface(new RowAccessible(List(), static_cast<int>(rows_.size()))));
    return QAccessible::accessibleInterface(rows_[static_cast<std::size_t>(row)]);
}

int ListAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = dynamic_cast<const RowAccessible*>(child);
    return row ? row->Row() : -1;
}

QAccessibleInterface* ListAccessible::childAt(int x, int y) const {
    return child(List().indexAt(List().viewport()->mapFromGlobal(QPoint(x, y))).row());
}

QAccessibleInterface* ListAccessible::focusChild() const {
    return List().hasFocus() ? child(List().ListIndex()) : nullptr;
}

}  // namespace kelu
