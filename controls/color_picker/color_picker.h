// Shows a colour and lets the user choose another (ColorPicker): a click or a key opens the colour popup below it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QPointer>
#include <cstdint>

namespace kelu {

class ColorPopup;

class ColorPicker : public QAbstractButton {
    Q_OBJECT

 public:
    explicit ColorPicker(QWidget* parent = nullptr);

    /// The colour as a 32-bit value: red in the lowest byte, then green, then blue; the highest byte is 0.
    std::int32_t Color() const { return color_; }
    /// Sets the colour and repaints; the highest byte is dropped. Raises nothing.
    void SetColor(std::int32_t color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

 Q_SIGNALS:
    /// The user chose another colour. Raised for each step while the user tries colours in the popup; leaving it by
    /// Escape raises it once more with the former colour.
    void ColorChanged(std::int32_t color);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void OpenPopup();

    std::int32_t color_ = 0;
    QPointer<ColorPopup> popup_;
};

}  // namespace kelu
