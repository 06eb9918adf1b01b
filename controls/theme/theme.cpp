// Colours, fonts and style of the whole program; see theme.h.
// SPDX-License-Identifier: MIT
#include "controls/theme/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPalette>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "controls/theme/dark_style.h"
#include "controls/theme/focus_watch.h"

namespace kelu::theme {

namespace {

const QString kTypeface = QStringLiteral("Arial");
constexpr double kUsualSize = 11;  // points; the largest that a desktop comes with

bool highContrast = false;

QPalette DarkPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, kGround);
    palette.setColor(QPalette::WindowText, kText);
    palette.setColor(QPalette::Base, kSunken);
    palette.setColor(QPalette::AlternateBase, kPressed);
    palette.setColor(QPalette::Text, kText);
    palette.setColor(QPalette::PlaceholderText, kMutedText);
    palette.setColor(QPalette::Button, kRaised);
    palette.setColor(QPalette::ButtonText, kText);
    palette.setColor(QPalette::BrightText, kBrightText);
    palette.setColor(QPalette::ToolTipBase, kPopup);
    palette.setColor(QPalette::ToolTipText, kText);
    palette.setColor(QPalette::Highlight, kSelection);
    palette.setColor(QPalette::HighlightedText, kBrightText);
    palette.setColor(QPalette::Link, kAccent);
    palette.setColor(QPalette::LinkVisited, kAccentPressed);
    palette.setColor(QPalette::Light, kRaisedHover);
    palette.setColor(QPalette::Midlight, kRaised);
    palette.setColor(QPalette::Mid, kLine);
    palette.setColor(QPalette::Dark, kSunken);
    palette.setColor(QPalette::Shadow, QColor(0x1a, 0x1a, 0x1a));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                           QPalette::HighlightedText, QPalette::PlaceholderText})
        palette.setColor(QPalette::Disabled, role, kDisabledText);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, kLine);
    palette.setColor(QPalette::Disabled, QPalette::Base, kGround);
    return palette;
}

}  // namespace

double TextScale() { return std::clamp(QApplication::font().pointSizeF() / kUsualSize, 1.0, 1.5); }

QFont LabelFont() {
    QFont font(kTypeface);
    font.setPointSizeF(6.75 * TextScale());
    font.setWeight(QFont::Bold);
    return font;
}

QFont ListFont() {
    QFont font(kTypeface);
    font.setPointSizeF(8 * TextScale());
    return font;
}

QFont TipFont() {
    const QString preferred = QStringLiteral("Tahoma");
    QFont font(QFontDatabase::hasFamily(preferred) ? preferred : kTypeface);
    font.setPixelSize(qRound(11 * TextScale()));  // 8.25 point at 96 dots per inch
    return font;
}

QFont HeadingFont() {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    font.setWeight(QFont::DemiBold);
    return font;
}

QFont Narrowed(QFont font, const QString& text, qreal room, int least) {
    const qreal needed = QFontMetricsF(font).horizontalAdvance(text);
    if (needed > room && room > 0) font.setStretch(std::max(least, static_cast<int>(100 * room / (needed + 1))));
    return font;
}

void UseHighContrast() {
    const std::pair<QColor*, QRgb> colors[] = {
        {&kSunken, 0x000000},       {&kPressed, 0x000000},     {&kGround, 0x000000},        {&kHover, 0x303030},
        {&kRaised, 0x202020},       {&kRaisedHover, 0x303030}, {&kPopup, 0x000000},         {&kTitleGround, 0x202020},
        {&kOutlinePopup, 0xffffff}, {&kLine, 0xc0c0c0},        {&kScrollHandle, 0xe0e0e0},  {&kOutline, 0xffffff},
        {&kText, 0xffffff},         {&kMutedText, 0xe6e6e6},   {&kQuietText, 0xe6e6e6},     {&kDisabledText, 0xb0b0b0},
        {&kAccent, 0xffd400},       {&kAccentHover, 0xffe45c}, {&kAccentPressed, 0xe0bb00}, {&kOnAccent, 0x000000},
        {&kSelection, 0x4a3a00},    {&kRowHover, 0x303030},    {&kFocus, 0xffd400},         {&kInformation, 0x9fd6ff},
        {&kWarning, 0xffe08a},      {&kError, 0xffa79e},
    };
    for (const auto& [color, value] : colors) *color = QColor(value);
    highContrast = true;
}

bool IsHighContrast() { return highContrast; }

void Apply(QApplication& application) {
    application.setStyle(new DarkStyle);
    const QPalette palette = DarkPalette();
    application.setPalette(palette);
    QToolTip::setPalette(palette);
    QFont font = QApplication::font();  // its size is the desktop's, large or small
    font.setFamilies({kTypeface});
    application.setFont(font);
    FocusWatch::Instance();
    application.setEffectEnabled(Qt::UI_AnimateCombo, false);
}

}  // namespace kelu::theme
