// What the made pictures share: lettering and the ground of the splash's foot.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>

namespace kelu {

/// Ground of the strip at the foot of the splash; the animation on it has the same, so that it shows no edge.
inline constexpr QColor kSplashFooter{0x26, 0x26, 0x26};

inline QFont DisplayFont(int pixels, QFont::Weight weight) {
    QFont font(QStringList{QStringLiteral("Lato"), QStringLiteral("DejaVu Sans")});
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

}  // namespace kelu
