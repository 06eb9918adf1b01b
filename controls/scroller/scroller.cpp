// The scroller widget. Its own surface catches the mouse, and so do labels on the page, which hand presses on.
// SPDX-License-Identifier: MIT
#include "controls/scroller/scroller.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "controls/property_bag/property_bag.h"
#include "controls/scroller/scroller_line.h"
#include "controls/theme/accessible_role.h"
#include "platform/units.h"

namespace kelu {
namespace {

constexpr int kStripWidth = 3;

QWidget* MakePlate(QWidget* parent, const char* name, const QColor& color) {
    QWidget* plate = new QWidget(parent);
    plate->setObjectName(QString::fromLatin1(name));
    plate->setAttribute(Qt::WA_TransparentForMouseEvents);
    plate->setAutoFillBackground(true);
    QPalette palette = plate->palette();
    palette.setColor(QPalette::Window, color);
    plate->setPalette(palette);
    return plate;
}

/// Whole pixels, so that the page never comes to lie between two of them.
int PointerTwips(const QMouseEvent& event) { return PixelsToTwips(static_cast<int>(std::floor(event.position().y()))); }

}  // namespace

Scroller::Scroller(QWidget* parent)
    : QWidget(parent),
      pctPos_(MakePlate(this, "pctPos", QColor(0x40, 0x40, 0x40))),
      ShpPos_(MakePlate(pctPos_, "ShpPos", QColor(0x80, 0x80, 0x80))),
      LineTop_(MakePlate(this, "LineTop", QColor(0x80, 0x80, 0x80))),
      LineLeft_(MakePlate(this, "LineLeft", QColor(0x80, 0x80, 0x80))),
      LineRight_(MakePlate(this, "LineRight", QColor(0xE0, 0xE0, 0xE0))),
      LineBottom_(MakePlate(this, "LineBottom", QColor(0xE0, 0xE0, 0xE0))) {
    UseAccessibleRole<Scroller, QAccessible::Pane>();
}

void Scroller::SetBackColor(ColorRef color) {
    backColor_ = color;
    update();
}

void Scroller::ReadProperties(const PropertyBag& bag) {
    SetBackColor(bag.ReadProperty(QStringLiteral("BackColor"), kButtonFaceColor).toUInt());
}

void Scroller::WriteProperties(PropertyBag& bag) const {
    bag.WriteProperty(QStringLiteral("BackColor"), backColor_, kButtonFaceColor);
}

QList<QWidget*> Scroller::Contained() const {
    QList<QWidget*> contained;
    for (QObject* child : children()) {
        QWidget* widget = qobject_cast<QWidget*>(child);
        if (!widget || widget->isWindow()) continue;
        const bool own = widget == pctPos_ || widget == LineTop_ || widget == LineLeft_ || widget == LineRight_ ||
                         widget == LineBottom_;
        if (!own) contained.append(widget);
    }
    return contained;
}

std::vector<scroller::Item> Scroller::Items() const {
    std::vector<scroller::Item> items;
    for (const QWidget* widget : Contained()) {
        if (const ScrollerLine* line = qobject_cast<const ScrollerLine*>(widget)) {
            items.push_back({line->Y1(), line->Y2(), !line->isHidden()});
        } else {
            items.push_back(
                {PixelsToTwips(widget->y()), PixelsToTwips(widget->y() + widget->height()), !widget->isHidden()});
        }
    }
    return items;
}

void Scroller::ShiftContained(int offset) {
    if (offset == 0) return;
    for (QWidget* widget : Contained()) {
        if (ScrollerLine* line = qobject_cast<ScrollerLine*>(widget)) {
            line->MoveBy(offset);
        } else {
            widget->move(widget->x(), widget->y() + TwipsToPixels(offset));
        }
    }
}

void Scroller::MoveControls(int offset) {
    if (designMode_) ShiftContained(offset);
}

int Scroller::SurfaceHeight() const { return PixelsToTwips(height()); }

void Scroller::UpdatePage() {
    for (QWidget* part : {pctPos_, LineTop_, LineLeft_, LineRight_, LineBottom_}) part->raise();
    pageHeight_ = scroller::PageHeight(Items(), scrollY_, SurfaceHeight());
    const scroller::Mark mark = scroller::PositionMark(SurfaceHeight(), pageHeight_, scrollY_);
    ShpPos_->setGeometry(TwipsToPixels(QRectF(0, mark.top, PixelsToTwips(4), mark.height)));
}

void Scroller::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), TranslateColor(backColor_)); }

void Scroller::resizeEvent(QResizeEvent*) {
    const int strip = width() - kStripWidth;
    pctPos_->setGeometry(strip, 0, kStripWidth, height());
    LineTop_->setGeometry(strip - 1, 0, kStripWidth + 1, 1);
    LineLeft_->setGeometry(strip - 1, 0, 1, height());
    LineRight_->setGeometry(width() - 1, 0, 1, height());
    LineBottom_->setGeometry(strip - 1, height() - 1, kStripWidth + 1, 1);
    UpdatePage();
}

void Scroller::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (shown_ || designMode_) return;
    shown_ = true;
    scrollY_ = 0;
    ShiftContained(scroller::ShiftToTop(Items(), SurfaceHeight()));
    UpdatePage();
}

void Scroller::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) dragStartY_ = PointerTwips(*event);
}

void Scroller::mouseReleaseEvent(QMouseEvent*) { dragStartY_.reset(); }

void Scroller::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return;
    const int y = PointerTwips(*event);
    if (!dragStartY_) dragStartY_ = y;
    if (std::abs(*dragStartY_ - y) < kTwipsPerPixel) return;
    const scroller::Step step = scroller::DragStep(scrollY_, SurfaceHeight(), pageHeight_, *dragStartY_, y);
    ShiftContained(step.moveBy);
    const bool moved = step.offset != scrollY_;
    scrollY_ = step.offset;
    dragStartY_ = y;
    if (moved) UpdatePage();
}

}  // namespace kelu
