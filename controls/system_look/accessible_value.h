// What assistive technology learns of a drawn control that holds a number: its role, its range, and the value, which it
// may also set.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>
#include <QWidget>

namespace kelu {

/// The control's side of it, beside QWidget.
class AccessibleValue {
 public:
    struct Number {
        int value, least, most;
        QString text;  ///< the value as it is read out
    };

    virtual ~AccessibleValue() = default;
    virtual Number AccessibleNumber() const = 0;
    /// Whether the number may be set; a control that may not be read as disabled only shows it.
    virtual bool AccessibleEnabled() const { return true; }
    /// `value` lies in the range.
    virtual void SetAccessibleNumber(int value) { static_cast<void>(value); }
};

QAccessibleInterface* MakeValueInterface(QWidget& widget, AccessibleValue& value, QAccessible::Role role);

/// Makes the controls of a class known to the accessibility bridge; to be called in its constructor.
template <typename Control, QAccessible::Role role>
void UseAccessibleValue() {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* control = qobject_cast<Control*>(object);
            return control ? MakeValueInterface(*control, *control, role) : nullptr;
        });
        return true;
    }();
}

/// Tells a running bridge of a new value.
void AnnounceValue(QWidget& widget, int value);

}  // namespace kelu
