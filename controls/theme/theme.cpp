// Colours, fonts and style of the whole program; see theme.h.
// SPDX-License-Identifier: MIT
#include "controls/theme/theme.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

#include "controls/theme/dark_style.h"
#include "controls/theme/focus_watch.h"

namespace kelu::theme {

namespace {

QPalette DarkPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, kGround);
    palette.setColor(QPalette::WindowText, kText);
    palette.setColor(QPalette::Base, kSunken);
    palette.setColor(QPalette::AlternateBase, QColor(0x2b, 0x2b, 0x2b));
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

QFont LabelFont() {
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(6.75);
    font.setWeight(QFont::Bold);
    return font;
}

QFont ListFont() {
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(8);
    return font;
}

QFont HeadingFont() {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    font.setWeight(QFont::DemiBold);
    return font;
}

void Apply(QApplication& application) {
    application.setStyle(new DarkStyle);
    const QPalette palette = DarkPalette();
    application.setPalette(palette);
    QToolTip::setPalette(palette);
    FocusWatch::Instance();
    application.setEffectEnabled(Qt::UI_AnimateCombo, false);
}

}  // namespace kelu::theme
