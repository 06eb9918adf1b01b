// A field to point at a hue (across) and a saturation (full at the top).
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>

namespace kelu {

class HueField : public QWidget {
    Q_OBJECT

 public:
    explicit HueField(QWidget* parent = nullptr);

    /// Hue 0 to 359, saturation 0 to 255. Raises nothing.
    void SetPoint(int hue, int saturation);

 Q_SIGNALS:
    /// The user pointed elsewhere, by mouse or arrow keys (Ctrl: steps of ten).
    void Changed(int hue, int saturation);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    QImage colors_;  ///< the field at the present size and ratio
    int hue_ = 0;
    int saturation_ = 0;

    void PointAt(const QPointF& at);
    void Move(int hue, int saturation);
};

}  // namespace kelu
