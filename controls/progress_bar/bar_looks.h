// Paints a progress bar in one of its ten looks, on any painter: the widget, its back buffer, a picture.
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPainter>
#include <QPixmap>

#include "controls/system_look/system_colors.h"

namespace kelu::bar {

/// The looks by number.
enum Look : int {
    kChunked = 0,
    kSmooth = 1,     ///< steps of 4 pixels without gaps
    kSearching = 2,  ///< a moving group of chunks
    kFlat = 3,
    kSunken = 4,
    kGlow = 5,
    kBlack = 6,  ///< chunks on black, two-coloured text
    kHatched = 7,
    kPattern = 8,
    kGlass = 9,  ///< two-coloured text
};

struct State {
    int look = kChunked;
    bool vertical = false;
    int percent = 0;  ///< at most 100
    ColorRef color = 0;
    ColorRef ground = 0xFFFFFF;  ///< of all looks but kBlack
    int brushStyle = 4;
    QPixmap image;
    bool showText = false;
    QFont font;
};

/// Fills the whole client area (widget pixels, from 0, 0). A look that isn't 0 to 9 leaves the ground.
void Paint(QPainter& painter, const QSize& client, const State& state);

}  // namespace kelu::bar
