// The two tables of system colours and the translation of stored colours.
// SPDX-License-Identifier: MIT
#include "controls/system_look/system_colors.h"

namespace kelu {
namespace {

SystemColors& CurrentTable() {
    static SystemColors colors = SystemColors::Light();
    return colors;
}

}  // namespace

SystemColors SystemColors::Light() {
    SystemColors colors;
    colors.window = QColor(0xFFFFFFU);
    colors.windowText = QColor(Qt::black);
    colors.highlight = QColor(0x0A246AU);
    colors.buttonFace = QColor(0xD4D0C8U);
    colors.buttonShadow = QColor(0x808080U);
    colors.buttonText = QColor(Qt::black);
    colors.buttonHighlight = QColor(0xFFFFFFU);
    colors.darkShadow = QColor(0x404040U);
    colors.light = QColor(0xD4D0C8U);
    colors.infoText = QColor(Qt::black);
    colors.infoBackground = QColor(0xFFFFE1U);
    return colors;
}

SystemColors SystemColors::Dark() {
    SystemColors colors;
    colors.window = QColor(0x262626U);
    colors.windowText = QColor(0xC8C8C8U);
    colors.highlight = QColor(0xF2A541U);
    colors.buttonFace = QColor(0x333333U);
    colors.buttonShadow = QColor(0x1F1F1FU);
    colors.buttonText = QColor(0xC8C8C8U);
    colors.buttonHighlight = QColor(0x626262U);
    colors.darkShadow = QColor(0x111111U);
    colors.light = QColor(0x4C4C4CU);
    colors.infoText = QColor(0xEDEDEDU);
    colors.infoBackground = QColor(0x1F1F1FU);
    return colors;
}

const SystemColors& SystemColors::Current() { return CurrentTable(); }

void SystemColors::SetCurrent(const SystemColors& colors) { CurrentTable() = colors; }

QColor ColorOf(SystemColor role) {
    const SystemColors& colors = SystemColors::Current();
    switch (role) {
        case SystemColor::kWindow:
            return colors.window;
        case SystemColor::kWindowText:
            return colors.windowText;
        case SystemColor::kHighlight:
            return colors.highlight;
        case SystemColor::kButtonFace:
            return colors.buttonFace;
        case SystemColor::kButtonShadow:
            return colors.buttonShadow;
        case SystemColor::kButtonText:
            return colors.buttonText;
        case SystemColor::kButtonHighlight:
            return colors.buttonHighlight;
        case SystemColor::k3DDarkShadow:
            return colors.darkShadow;
        case SystemColor::k3DLight:
            return colors.light;
        case SystemColor::kInfoText:
            return colors.infoText;
        case SystemColor::kInfoBackground:
            return colors.infoBackground;
    }
    return Qt::black;
}

QColor TranslateColor(ColorRef color) {
    if (color & kSystemColorBit) return ColorOf(static_cast<SystemColor>(color & 0xFFU));
    return QColor(static_cast<int>(color & 0xFFU), static_cast<int>((color >> 8) & 0xFFU),
                  static_cast<int>((color >> 16) & 0xFFU));
}

ColorRef ToColorRef(const QColor& color) {
    return static_cast<ColorRef>(color.red()) | static_cast<ColorRef>(color.green()) << 8 |
           static_cast<ColorRef>(color.blue()) << 16;
}

}  // namespace kelu
