// The keyboard's way to a slider, which takes no keys itself: a stop for Tab on the slider, and a small field for its
// number, opened by Enter or a digit. Enter takes the number, Escape leaves the slider as it was.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "controls/system_look/accessible_value.h"

class QSpinBox;

namespace kelu {

class LsSlider;

/// Lies over its slider, as a child of the same parent, and lets the mouse through.
class SliderNumber : public QWidget, public AccessibleValue {
    Q_OBJECT

 public:
    explicit SliderNumber(LsSlider& slider);

    Number AccessibleNumber() const override;
    void SetAccessibleNumber(int value) override;
    /// Null while it is closed.
    QSpinBox* Field() const { return field_; }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void Follow();
    void Open(const QString& typed);
    void Close(bool take);
    void ShowNumber();

    LsSlider& slider_;
    QSpinBox* field_ = nullptr;
};

}  // namespace kelu
