// A bar to choose how bright a hue is, dark at the left.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace kelu {

class ValueBar : public QWidget {
    Q_OBJECT

 public:
    explicit ValueBar(QWidget* parent = nullptr);

    /// Hue 0 to 359, saturation and value 0 to 255. Raises nothing.
    void SetColor(int hue, int saturation, int value);

 Q_SIGNALS:
    /// The user chose a value from 0 to 255, by mouse, wheel or arrow keys (Ctrl: steps of ten).
    void Changed(int value);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    int hue_ = 0, saturation_ = 0, value_ = 0;

    void Move(int value);
};

}  // namespace kelu
