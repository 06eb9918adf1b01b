// Look of the pager's arrow button; see pager_arrow.h.
// SPDX-License-Identifier: MIT
#include "controls/pager/pager_arrow.h"

#include <QPainter>

#include "controls/theme/paint.h"
#include "controls/theme/theme.h"

namespace kelu {

PagerArrow::PagerArrow(Qt::ArrowType direction, QWidget* parent) : QAbstractButton(parent), direction_(direction) {
    setAutoRepeat(true);
    setAutoRepeatDelay(300);
    setAutoRepeatInterval(160);
    // The child's own keys scroll; a stop at each arrow would only be in the way.
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
}

void PagerArrow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    const bool over = underMouse();
    if (isDown() || over) theme::FillPlate(painter, rect(), isDown() ? theme::kPressed : theme::kHover);
    theme::DrawChevron(painter, rect(), direction_,
                       !isEnabled() ? theme::kLine
                       : over       ? theme::kBrightText
                                    : theme::kMutedText);
}

}  // namespace kelu
