// The one place for colours and measures of the dark look, and its application to the whole program.
// Lengths are device-independent pixels.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>

class QApplication;

namespace kelu::theme {

// The colors change once at most: before the first window, for a desktop that asks for high contrast.

// Grounds, from the deepest to the nearest.
inline QColor kSunken{0x26, 0x26, 0x26};   ///< fields, lists, tracks
inline QColor kPressed{0x2b, 0x2b, 0x2b};  ///< plate of a pressed flat button
inline QColor kGround{0x33, 0x33, 0x33};   ///< windows and panels
inline QColor kHover{0x45, 0x45, 0x45};    ///< plate under the pointer
inline QColor kRaised{0x48, 0x48, 0x48};   ///< push buttons
inline QColor kRaisedHover{0x55, 0x55, 0x55};
inline QColor kPopup{0x3b, 0x3b, 0x3b};         ///< menus, tips, drop-down lists
inline QColor kTitleGround{0x2b, 0x2b, 0x2b};   ///< title row of dialogs
inline QColor kOutlinePopup{0x5c, 0x5c, 0x5c};  ///< rim of menus and tips
inline QColor kLine{0x4d, 0x4d, 0x4d};          ///< separators and panel frames, decorative only
inline QColor kScrollHandle{0x7c, 0x7c, 0x7c};  ///< 3:1 on every ground that scrolls
inline QColor kHatch{200, 200, 200, 28};        ///< behind pictures: laid thinly, or it would outshine them
inline QColor kOutline{0x88, 0x88, 0x88};       ///< outline of what takes input, 3:1 on the ground

// Texts and icons.
inline QColor kText{0xe0, 0xe0, 0xe0};
inline QColor kBrightText{0xff, 0xff, 0xff};  ///< headings, icons under the pointer
inline QColor kMutedText{0xb4, 0xb4, 0xb4};   ///< secondary text, placeholders
inline QColor kQuietText{0x80, 0x80, 0x80};   ///< status bar and effect panel
inline QColor kDisabledText{0x72, 0x72, 0x72};

// The one accent: what is chosen, current or focused, and the main action.
inline QColor kAccent{0xf2, 0xa5, 0x41};
inline QColor kAccentHover{0xff, 0xbd, 0x66};
inline QColor kAccentPressed{0xd6, 0x8c, 0x2b};
inline QColor kOnAccent{0x22, 0x1a, 0x0e};   ///< text and icons on the accent
inline QColor kSelection{0x5c, 0x48, 0x2b};  ///< chosen rows: the accent, calmed to a ground for kBrightText
inline QColor kRowHover{0x3a, 0x36, 0x30};   ///< row under the pointer
inline QColor kFocus = kAccent;              ///< keyboard focus ring

// Message colours.
inline QColor kInformation{0x6c, 0xb6, 0xf5};
inline QColor kWarning{0xff, 0xcd, 0x57};
inline QColor kError{0xff, 0x7a, 0x6b};

inline constexpr int kCorner = 4;      ///< radius of plates, fields and buttons
inline constexpr int kFocusWidth = 2;  ///< keyboard focus ring
inline constexpr int kIconSize = 18;   ///< icons of the tool strips
inline constexpr int kScrollBarWidth = 10;
inline constexpr int kMargin = 16;  ///< dialog edge to content
inline constexpr int kSpacing = 8;  ///< between controls
inline constexpr int kButtonHeight = 28;
inline constexpr int kButtonMinWidth = 84;

// One typeface throughout: Arial, or what the system has in its place.

/// How much larger than desktops come with it the texts shall be: 1 to 1.5, from the desktop's font.
double TextScale();
/// Bold, of 6.75 points at a scale of 1: the labels of the effect panel.
QFont LabelFont();
/// Of 8 points at a scale of 1: lists in narrow panels.
QFont ListFont();
/// Tahoma where it is installed, of 8.25 points: the value over a slider's thumb.
QFont TipFont();
/// Bold and larger: headings of dialogs.
QFont HeadingFont();
/// `font` with letters so narrow that the text fits into `room`, but never narrower than `least` percent.
QFont Narrowed(QFont font, const QString& text, qreal room, int least = 50);

/// From now on black grounds under white texts, of at least 7:1, and outlines around everything that can be pressed.
/// Before Apply.
void UseHighContrast();
bool IsHighContrast();

/// Gives the application style, palette and font. Once, right after the QApplication was made.
void Apply(QApplication& application);

}  // namespace kelu::theme
