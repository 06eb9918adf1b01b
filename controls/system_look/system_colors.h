// The colours that controls name by their role ("button face", "info background") instead of by value, and the
// number form in which controls store a colour.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <cstdint>

namespace kelu {

/// A colour as controls store it: 0x00BBGGRR (red in the lowest byte), or 0x80000000 + a role of SystemColor.
using ColorRef = std::uint32_t;

/// Roles of the table. Add kSystemColorBit for the form that is stored in a property.
enum class SystemColor : std::uint32_t {
    kWindow = 5,
    kWindowText = 8,
    kHighlight = 13,
    kButtonFace = 15,
    kButtonShadow = 16,
    kButtonText = 18,
    kButtonHighlight = 20,
    k3DDarkShadow = 21,
    k3DLight = 22,
    kInfoText = 23,
    kInfoBackground = 24,
};
inline constexpr ColorRef kSystemColorBit = 0x80000000U;
inline constexpr ColorRef kButtonFaceColor = 0x8000000FU;
inline constexpr ColorRef kHighlightColor = 0x8000000DU;

/// Table of the roles. All controls read one table, the current one; it is meant to be chosen once, before the first
/// window is shown (interface thread only).
struct SystemColors {
    QColor window, windowText, highlight, buttonFace, buttonShadow, buttonText, buttonHighlight, darkShadow, light,
        infoText, infoBackground;

    /// Classic light table; the current one at start.
    static SystemColors Light();
    /// For windows on a ground of #333333: same relations of light and shade, quieter steps.
    static SystemColors Dark();

    static const SystemColors& Current();
    static void SetCurrent(const SystemColors& colors);
};

/// Value of a role in the current table.
QColor ColorOf(SystemColor role);

/// Looks a system colour up in the current table; a plain value is taken as it stands. Black for an unknown role.
QColor TranslateColor(ColorRef color);

/// The plain form (0x00BBGGRR) of an opaque colour.
ColorRef ToColorRef(const QColor& color);

}  // namespace kelu
