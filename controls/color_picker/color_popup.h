// The colour choice below a ColorPicker: swatches, a field of hue and saturation, a bar of brightness, hex and RGB
// entry.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFrame>
#include <array>

class QLineEdit;
class QSpinBox;

namespace kelu {

class HueField;
class Toolbox;
class ValueBar;

class ColorPopup : public QFrame {
    Q_OBJECT

 public:
    explicit ColorPopup(const QColor& color, QWidget* parent = nullptr);

    QColor Color() const { return color_; }
    /// Places the popup below `anchor` (screen coordinates), above it where there is no room below, always on the
    /// screen.
    void ShowAt(const QRect& anchor);

 Q_SIGNALS:
    /// Each step of the user; Escape gives the colour that the popup was opened with.
    void ColorChanged(const QColor& color);

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    QColor first_;
    QColor color_;  ///< in HSV, so that grey keeps the hue it came from
    Toolbox* swatches_;
    HueField* field_;
    ValueBar* bar_;
    QLineEdit* hex_;
    std::array<QSpinBox*, 3> channels_{};
    bool following_ = false;  ///< the parts are being set: their signals are echoes

    void Take(const QColor& color, const QObject* source);
    void Show(const QObject* source);
};

}  // namespace kelu
