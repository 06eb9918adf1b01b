// The colour choice below a ColorPicker: swatches, a field of hue and saturation, a bar of brightness, hex and RGB
// entry. SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFrame>

namespace kelu {

class ColorPopup : public QFrame {
    Q_OBJECT

 public:
    explicit ColorPopup(const QColor& color, QWidget* parent = nullptr);

 Q_SIGNALS:
    void ColorChanged(const QColor& color);
};

}  // namespace kelu
