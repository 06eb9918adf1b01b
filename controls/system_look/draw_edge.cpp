// Edges drawn as filled rectangles, so that they stay sharp at every device pixel ratio.
// SPDX-License-Identifier: MIT
#include "controls/system_look/draw_edge.h"

#include "controls/system_look/system_colors.h"

namespace kelu {
namespace {

/// Right and bottom are drawn last: the two corners that both colours meet in belong to them.
void DrawRing(QPainter& painter, const QRect& rect, const QColor& leftTop, const QColor& rightBottom) {
    if (rect.width() <= 0 || rect.height() <= 0) return;
    painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), 1), leftTop);
    painter.fillRect(QRect(rect.left(), rect.top(), 1, rect.height()), leftTop);
    painter.fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), rightBottom);
    painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), rightBottom);
}

}  // namespace

void DrawEdge(QPainter& painter, const QRect& rect, unsigned edge) {
    const SystemColors& colors = SystemColors::Current();
    QRect ring = rect;
    if (edge & kSunkenOuter) {
        DrawRing(painter, ring, colors.buttonShadow, colors.buttonHighlight);
    } else if (edge & kRaisedOuter) {
        DrawRing(painter, ring, colors.light, colors.darkShadow);
    }
    if (edge & (kSunkenOuter | kRaisedOuter)) ring.adjust(1, 1, -1, -1);
    if (edge & kSunkenInner) {
        DrawRing(painter, ring, colors.darkShadow, colors.light);
    } else if (edge & kRaisedInner) {
        DrawRing(painter, ring, colors.buttonHighlight, colors.buttonShadow);
    }
}

void DrawFrame(QPainter& painter, const QRect& rect, const QColor& color) { DrawRing(painter, rect, color, color); }

}  // namespace kelu
