// The line control.
// SPDX-License-Identifier: MIT
#include "controls/scroller/scroller_line.h"

#include <QPainter>

#include "platform/units.h"

namespace kelu {
namespace {

QPoint ToPixels(const QPoint& twips) { return {TwipsToPixels(twips.x()), TwipsToPixels(twips.y())}; }

}  // namespace

ScrollerLine::ScrollerLine(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void ScrollerLine::SetEnds(const QPoint& end1, const QPoint& end2) {
    line_ = QLine(end1, end2);
    const QPoint a = ToPixels(end1);
    const QPoint b = ToPixels(end2);
    setGeometry(QRect(QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
                      QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y()))));
    update();
}

void ScrollerLine::SetColor(const QColor& color) {
    color_ = color;
    update();
}

void ScrollerLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (width() == 1 || height() == 1) {
        painter.fillRect(rect(), color_);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(color_);
    const QPointF middle(0.5, 0.5);
    painter.drawLine(QPointF(ToPixels(line_.p1()) - pos()) + middle, QPointF(ToPixels(line_.p2()) - pos()) + middle);
}

}  // namespace kelu
