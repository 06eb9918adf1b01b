// Arrows, wheel, drag and glide of the pager; see pager.h.
// SPDX-License-Identifier: MIT
#include "controls/pager/pager.h"

#include <QApplication>
#include <QMouseEvent>
#include <QVariantAnimation>
#include <QWheelEvent>
#include <cmath>

#include "controls/pager/pager_arrow.h"
#include "controls/pager/pager_geometry.h"

namespace kelu {

namespace {

constexpr int kGlideMs = 180;
constexpr int kWheelNotch = 48;  // device-independent pixels for 15 degrees of wheel, where no step is set

}  // namespace

Pager::Pager(Qt::Orientation orientation, QWidget* parent)
    : QWidget(parent), viewport_(new QWidget(this)), glide_(new QVariantAnimation(this)), orientation_(orientation) {
    const bool tall = orientation == Qt::Vertical;
    back_ = new PagerArrow(tall ? Qt::UpArrow : Qt::LeftArrow, this);
    forward_ = new PagerArrow(tall ? Qt::DownArrow : Qt::RightArrow, this);
    back_->setAccessibleName(tall ? tr("Scroll up") : tr("Scroll left"));
    forward_->setAccessibleName(tall ? tr("Scroll down") : tr("Scroll right"));
    connect(back_, &QAbstractButton::pressed, this,
            [this] { GlideTo(OffsetOfPage(Along(size()), Target(), step_, false)); });
    connect(forward_, &QAbstractButton::pressed, this,
            [this] { GlideTo(OffsetOfPage(Along(size()), Target(), step_, true)); });
    glide_->setDuration(kGlideMs);
    glide_->setEasingCurve(QEasingCurve::OutCubic);
    connect(glide_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) { MoveTo(value.toInt()); });
    // The child's buttons take the focus one by one; the one that has it stays in sight.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        if (!child_ || !now || now == child_ || !child_->isAncestorOf(now)) return;
        // A window that becomes the active one again gives the focus back; nobody moved it.
        if (!before || before->window() != window()) return;
        EnsureVisible(QRect(now->mapTo(child_, QPoint()), now->size()));
    });
}

void Pager::SetChild(QWidget* child) {
    if (child == child_) return;
    if (child_) {
        Watch(child_, false);
        child_->hide();
        child_->setParent(nullptr);
    }
    child_ = child;
    offset_ = 0;
    if (child) {
        child->setParent(viewport_);
        Watch(child, true);
        child->show();
    }
    // The arrows lie over the child.
    back_->raise();
    forward_->raise();
    updateGeometry();
    Arrange();
}

void Pager::Watch(QWidget* widget, bool on) {
    QList<QWidget*> all = widget->findChildren<QWidget*>();
    all.append(widget);
    for (QWidget* each : all) on ? each->installEventFilter(this) : each->removeEventFilter(this);
}

int Pager::Along(const QSize& size) const { return orientation_ == Qt::Vertical ? size.height() : size.width(); }

int Pager::ChildLength() const {
    if (!child_) return 0;
    if (orientation_ == Qt::Vertical && child_->hasHeightForWidth()) return child_->heightForWidth(width());
    return Along(child_->sizeHint());
}

int Pager::MaxOffset() const { return PlanPager(Along(size()), ChildLength(), 0).maxOffset; }

int Pager::Target() const {
    return glide_->state() == QAbstractAnimation::Running ? glide_->endValue().toInt() : offset_;
}

void Pager::SetOffset(int offset) {
    glide_->stop();
    MoveTo(offset);
}

void Pager::MoveTo(int offset) {
    offset = qBound(0, offset, MaxOffset());
    const bool moved = offset != offset_;
    offset_ = offset;
    PlaceChild();
    if (moved) Q_EMIT OffsetChanged(offset_);
}

void Pager::GlideTo(int offset) {
    offset = qBound(0, offset, MaxOffset());
    if (offset == Target()) return;
    glide_->stop();
    if (!isVisible()) return MoveTo(offset);
    glide_->setStartValue(offset_);
    glide_->setEndValue(offset);
    glide_->start();
}

void Pager::EnsureVisible(const QRect& rect) {
    const int first = orientation_ == Qt::Vertical ? rect.top() : rect.left();
    GlideTo(OffsetShowing(Along(size()), ChildLength(), Target(), first, first + Along(rect.size())));
}

void Pager::Arrange() {
    const int length = Along(size());
    const int arrow = PlanPager(length, ChildLength(), offset_).arrowLength;
    const auto piece = [this](int from, int extent) {
        return orientation_ == Qt::Vertical ? QRect(0, from, width(), extent) : QRect(from, 0, extent, height());
    };
    viewport_->setGeometry(rect());
    back_->setGeometry(piece(0, arrow));
    forward_->setGeometry(piece(length - arrow, arrow));
    MoveTo(offset_);
}

void Pager::PlaceChild() {
    const PagerPlan plan = PlanPager(Along(size()), ChildLength(), offset_);
    back_->setVisible(plan.back);
    forward_->setVisible(plan.forward);
    if (!child_) return;
    const int length = qMax(ChildLength(), Along(size()));
    if (orientation_ == Qt::Vertical)
        child_->setGeometry(0, -offset_, width(), length);
    else
        child_->setGeometry(-offset_, 0, length, height());
}

void Pager::resizeEvent(QResizeEvent*) { Arrange(); }

void Pager::wheelEvent(QWheelEvent* event) {
    if (MaxOffset() == 0) return event->ignore();
    const QPoint pixels = event->pixelDelta();
    const QPoint angle = event->angleDelta();
    const bool sideways = std::abs(angle.x()) > std::abs(angle.y());
    if (!pixels.isNull())
        SetOffset(offset_ - (sideways ? pixels.x() : pixels.y()));
    else
        GlideTo(Target() - (sideways ? angle.x() : angle.y()) * (step_ > 0 ? step_ : kWheelNotch) / 120);
    event->accept();
}

bool Pager::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::LayoutRequest:
            if (watched == child_) Arrange();
            break;
        case QEvent::ChildAdded:
            // Buttons added later drag as well.
            if (auto* added = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child()))
                added->installEventFilter(this);
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseMove:
        case QEvent::MouseButtonRelease:
            return Drag(static_cast<QWidget*>(watched), *static_cast<QMouseEvent*>(event));
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

bool Pager::Drag(QWidget* widget, const QMouseEvent& event) {
    const QPoint at = event.globalPosition().toPoint();
    const int along = orientation_ == Qt::Vertical ? at.y() : at.x();
    switch (event.type()) {
        case QEvent::MouseButtonPress:
            if (event.button() == Qt::LeftButton) pressAt_ = along, pressOffset_ = offset_, dragging_ = false;
            return false;
        case QEvent::MouseMove:
            if (!(event.buttons() & Qt::LeftButton) || MaxOffset() == 0) return false;
            if (!dragging_ && std::abs(along - pressAt_) < QApplication::startDragDistance() * 2) return false;
            if (!dragging_) {
                dragging_ = true;
                // The press was the start of a drag: its button must not click.
                if (auto* button = qobject_cast<QAbstractButton*>(widget)) button->setDown(false);
            }
            SetOffset(pressOffset_ - (along - pressAt_));
            return true;
        default: {
            const bool swallow = dragging_;
            dragging_ = false;
            return swallow;
        }
    }
}

QSize Pager::sizeHint() const { return child_ ? child_->sizeHint() : QSize(48, 48); }

QSize Pager::minimumSizeHint() const {
    const int least = 2 * kPagerArrow + 24;
    return orientation_ == Qt::Vertical ? QSize(24, least) : QSize(least, 24);
}

}  // namespace kelu
