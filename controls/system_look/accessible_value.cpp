// SPDX-License-Identifier: MIT
#include "controls/system_look/accessible_value.h"

#include <QAccessibleWidget>
#include <algorithm>

namespace kelu {

namespace {

class ValueInterface : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
    ValueInterface(QWidget& widget, AccessibleValue& control, QAccessible::Role role)
        : QAccessibleWidget(&widget, role), control_(control) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? control_.AccessibleNumber().text : QAccessibleWidget::text(which);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (!control_.AccessibleEnabled()) state.disabled = true;
        return state;
    }

    QVariant currentValue() const override { return control_.AccessibleNumber().value; }
    QVariant minimumValue() const override { return control_.AccessibleNumber().least; }
    QVariant maximumValue() const override { return control_.AccessibleNumber().most; }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant& value) override {
        if (!control_.AccessibleEnabled() || !widget()->isEnabled()) return;
        const AccessibleValue::Number number = control_.AccessibleNumber();
        control_.SetAccessibleNumber(std::clamp(value.toInt(), number.least, number.most));
    }

 private:
    AccessibleValue& control_;
};

}  // namespace

QAccessibleInterface* MakeValueInterface(QWidget& widget, AccessibleValue& value, QAccessible::Role role) {
    return new ValueInterface(widget, value, role);
}

void AnnounceValue(QWidget& widget, int value) {
    QAccessibleValueChangeEvent event(&widget, value);
    QAccessible::updateAccessibility(&event);
}

}  // namespace kelu
