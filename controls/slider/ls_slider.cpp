// The slider widget: events become calls of the slider arithmetic, and its results become strokes.
// SPDX-License-Identifier: MIT
#include "controls/slider/ls_slider.h"

#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "controls/property_bag/property_bag.h"
#include "controls/slider/default_thumb.h"
#include "controls/slider/frm_value_tip.h"
#include "controls/system_look/draw_edge.h"
#include "platform/error.h"

namespace kelu {
namespace {

using slider::Direction;

constexpr int kWheelTipTime = 1000;  // ms

[[noreturn]] void RefuseProperty(const char* property) {
    throw Error(kInvalidProperty, QStringLiteral("Invalid property value"), QString::fromLatin1(property));
}

QSize SizeOf(const QPixmap& picture) { return picture.deviceIndependentSize().toSize(); }

int ShiftState(const QMouseEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    return (modifiers & Qt::ShiftModifier ? 1 : 0) + (modifiers & Qt::ControlModifier ? 2 : 0) +
           (modifiers & Qt::AltModifier ? 4 : 0);
}

unsigned RailEdge(int railStyle) {
    switch (railStyle) {
        case 0:
            return kEdgeSunken;
        case 1:
            return kEdgeRaised;
        case 2:
            return kSunkenOuter;
        case 3:
            return kRaisedInner;
        default:
            return kNoEdge;
    }
}

}  // namespace

LsSlider::LsSlider(QWidget* parent) : QWidget(parent) {
    UseAccessibleValue<LsSlider, QAccessible::Slider>();
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    wheelTip_.setSingleShot(true);
    wheelTip_.setInterval(kWheelTipTime);
    connect(&wheelTip_, &QTimer::timeout, this, [] { frmValueTip::Unload(); });
    ResetThumb();
}

LsSlider::~LsSlider() {
    EndDrag();
    EndWheelTip();
}

void LsSlider::SetMin(int min) {
    if (min >= range_.max) RefuseProperty("Min");
    range_.min = min;
    SetValue(min);
    // The value may have been this number before, at another place in the range.
    if (!dragging_) PlaceThumb();
    DrawControl();
}

void LsSlider::SetMax(int max) {
    if (max <= range_.min) RefuseProperty("Max");
    range_.max = max;
}

void LsSlider::SetValue(int value) {
    if (value < range_.min || value > range_.max) RefuseProperty("Value");
    value_ = value;
    if (value == lastValue_) return;
    if (!dragging_) PlaceThumb();
    DrawControl();
    lastValue_ = value;
    AnnounceValue(*this, value_);
    Q_EMIT ValueChanged();
    if (value_ == range_.max) Q_EMIT ArrivedLast();
    if (value_ == range_.min) Q_EMIT ArrivedFirst();
}

int LsSlider::Orientation() const { return direction_ == Direction::kHorizontal ? kHorizontal : kVertical; }

void LsSlider::SetOrientation(int orientation) {
    direction_ = orientation == kHorizontal ? Direction::kHorizontal : Direction::kVertical;
    setSizePolicy(direction_ == Direction::kHorizontal ? QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed)
                                                       : QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding));
    ResetThumb();
    FitAndPlace();
}

void LsSlider::SetRailStyle(int style) {
    railStyle_ = style;
    FitAndPlace();
}

void LsSlider::SetBackColor(ColorRef color) {
    backColor_ = color;
    DrawControl();
}

void LsSlider::SetSliderIcon(const QPixmap& picture) {
    sliderIcon_ = picture;
    FitAndPlace();
}

void LsSlider::SetRailPicture(const QPixmap& picture) {
    railPicture_ = picture;
    FitAndPlace();
}

void LsSlider::ReadProperties(const PropertyBag& bag) {
    backColor_ = bag.ReadProperty(QStringLiteral("BackColor"), kButtonFaceColor).toUInt();
    enabled_ = bag.ReadProperty(QStringLiteral("Enabled"), true).toBool();
    const int orientation = bag.ReadProperty(QStringLiteral("Orientation"), kVertical).toInt();
    railStyle_ = bag.ReadProperty(QStringLiteral("RailStyle"), 0).toInt();
    showValueTip_ = bag.ReadProperty(QStringLiteral("ShowValueTip"), true).toBool();
    slider::Range range;
    range.min = bag.ReadProperty(QStringLiteral("Min"), 0).toInt();
    range.max = bag.ReadProperty(QStringLiteral("Max"), 10).toInt();
    const int value = bag.ReadProperty(QStringLiteral("Value"), 0).toInt();
    if (range.min >= range.max) RefuseProperty("Max");
    if (value < range.min || value > range.max) RefuseProperty("Value");
    range_ = range;
    value_ = lastValue_ = value;
    sliderIcon_ = bag.ReadProperty(QStringLiteral("SliderIcon")).value<QPixmap>();
    railPicture_ = bag.ReadProperty(QStringLiteral("RailPicture")).value<QPixmap>();
    SetOrientation(orientation);
}

void LsSlider::WriteProperties(PropertyBag& bag) const {
    bag.WriteProperty(QStringLiteral("BackColor"), backColor_, kButtonFaceColor);
    bag.WriteProperty(QStringLiteral("Enabled"), enabled_, true);
    bag.WriteProperty(QStringLiteral("SliderIcon"), PictureProperty(sliderIcon_));
    bag.WriteProperty(QStringLiteral("Orientation"), Orientation(), kVertical);
    bag.WriteProperty(QStringLiteral("RailPicture"), PictureProperty(railPicture_));
    bag.WriteProperty(QStringLiteral("RailStyle"), railStyle_, 0);
    bag.WriteProperty(QStringLiteral("ShowValueTip"), showValueTip_, true);
    bag.WriteProperty(QStringLiteral("Min"), range_.min, 0);
    bag.WriteProperty(QStringLiteral("Max"), range_.max, 10);
    bag.WriteProperty(QStringLiteral("Value"), value_, 0);
}

slider::Parts LsSlider::Parts() const {
    return {direction_, size(), sliderIcon_.isNull() ? slider::kDefaultThumbSize : SizeOf(sliderIcon_),
            railStyle_ == kPictureRail && !railPicture_.isNull() ? SizeOf(railPicture_) : QSize()};
}

double& LsSlider::ThumbAlong() { return direction_ == Direction::kHorizontal ? thumb_.rx() : thumb_.ry(); }

QRectF LsSlider::ThumbRect() const { return {thumb_, Parts().thumb}; }

void LsSlider::PlaceThumb() { ThumbAlong() = slider::ThumbPlace(Parts(), range_, value_); }

void LsSlider::ResetThumb() { thumb_ = QPointF(0, direction_ == Direction::kHorizontal ? 0 : slider::Travel(Parts())); }

void LsSlider::FitAndPlace() {
    const QSize fitted = slider::FittedSize(Parts());
    updateGeometry();
    if (fitted != size()) resize(fitted);

    const double across = slider::ThumbAcross(Parts());
    thumb_ = direction_ == Direction::kHorizontal ? QPointF(0, across) : QPointF(across, 0);
    PlaceThumb();
    railRect_ = slider::RailRect(Parts());
    DrawControl();
}

QSize LsSlider::sizeHint() const {
    slider::Parts parts = Parts();
    parts.control = QSize(117, 117);
    return slider::FittedSize(parts);
}

QSize LsSlider::minimumSizeHint() const {
    slider::Parts parts = Parts();
    parts.control = QSize(0, 0);
    return slider::FittedSize(parts);
}

void LsSlider::DrawControl() {
    update();
    if (showValueTip_ && dragging_) ShowTip();
}

void LsSlider::ShowTip() {
    frmValueTip& tip = frmValueTip::Shared(*this);
    const QSize label = tip.SetNumber(value_);
    tip.ShowAt(slider::TipRect(direction_, thumb_, Parts().thumb, mapToGlobal(QPoint(0, 0)), label));
}

void LsSlider::ShowAbout() {
    QMessageBox::information(this, QStringLiteral("Information"), QStringLiteral("Internal Control"));
}

void LsSlider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), TranslateColor(backColor_));
    if (railStyle_ != kPictureRail) {
        DrawEdge(painter, railRect_, RailEdge(railStyle_));
    } else if (!railPicture_.isNull()) {
        const QSize rail = SizeOf(railPicture_);
        painter.drawPixmap(direction_ == Direction::kHorizontal ? QPointF(2, (height() - rail.height()) * 0.5)
                                                                : QPointF((width() - rail.width()) * 0.5, 2),
                           railPicture_);
    }
    // On whole device pixels, so that the thumb is as sharp between two values as on one.
    const double ratio = devicePixelRatioF();
    const QPointF place(std::nearbyint(thumb_.x() * ratio) / ratio, std::nearbyint(thumb_.y() * ratio) / ratio);
    if (sliderIcon_.isNull()) {
        slider::PaintDefaultThumb(painter, place);
    } else {
        painter.drawPixmap(place, sliderIcon_);
    }
}

void LsSlider::resizeEvent(QResizeEvent*) { FitAndPlace(); }

void LsSlider::hideEvent(QHideEvent* event) {
    // A window that goes away under the pointer gets no release.
    EndDrag();
    EndWheelTip();
    QWidget::hideEvent(event);
}

void LsSlider::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled()) EndDrag();
    QWidget::changeEvent(event);
}

bool LsSlider::eventFilter(QObject* watched, QEvent* event) {
    // A dialog that comes up in front takes the release.
    if (event->type() == QEvent::WindowBlocked) EndDrag();
    return QWidget::eventFilter(watched, event);
}

void LsSlider::mousePressEvent(QMouseEvent* event) {
    if (!enabled_ || event->button() != Qt::LeftButton) return;
    EndWheelTip();
    dragging_ = true;
    window()->installEventFilter(this);
    const QPointF pointer = event->position();
    const QRectF thumb = ThumbRect();
    const bool onThumb = pointer.x() >= thumb.left() && pointer.x() < thumb.right() && pointer.y() >= thumb.top() &&
                         pointer.y() < thumb.bottom();
    if (onThumb) {
        grab_ = pointer - thumb.topLeft();
    } else {
        grab_ = QPointF(thumb.width() / 2, thumb.height() / 2);
        MoveThumbTo(pointer);
    }
    if (showValueTip_ && dragging_) ShowTip();
    Q_EMIT MouseDown(ShiftState(*event));
}

void LsSlider::mouseMoveEvent(QMouseEvent* event) {
    if (dragging_) MoveThumbTo(event->position());
}

void LsSlider::MoveThumbTo(const QPointF& pointer) {
    const slider::Parts parts = Parts();
    const QPointF corner = pointer - grab_;
    const double place = slider::HeldPlace(parts, direction_ == Direction::kHorizontal ? corner.x() : corner.y());
    const int value = slider::ValueAtPlace(parts, range_, place, value_);
    // Back onto the place of that value: the thumb moves in steps of the value, not with every pixel.
    ThumbAlong() = slider::ThumbPlace(parts, range_, value);
    SetValue(value);
}

void LsSlider::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF pointer = event->position();
    const bool inside = pointer.x() >= 0 && pointer.y() >= 0 && pointer.x() < width() && pointer.y() < height();
    if (inside && event->button() == Qt::LeftButton) Q_EMIT Click();
    if (dragging_) Q_EMIT MouseUp(ShiftState(*event));
    EndDrag();
}

void LsSlider::EndDrag() {
    if (!dragging_) return;
    dragging_ = false;
    window()->removeEventFilter(this);
    frmValueTip::Unload();
}

void LsSlider::wheelEvent(QWheelEvent* event) {
    event->accept();
    if (!enabled_ || dragging_) return;
    wheelTurn_ += event->angleDelta().y();
    const int steps = wheelTurn_ / QWheelEvent::DefaultDeltasPerStep;
    wheelTurn_ -= steps * QWheelEvent::DefaultDeltasPerStep;
    if (steps == 0) return;
    SetValue(std::clamp(value_ + steps, range_.min, range_.max));
    if (!showValueTip_) return;
    ShowTip();
    wheelTip_.start();
}

void LsSlider::leaveEvent(QEvent* event) {
    EndWheelTip();
    QWidget::leaveEvent(event);
}

void LsSlider::EndWheelTip() {
    if (!wheelTip_.isActive()) return;
    wheelTip_.stop();
    frmValueTip::Unload();
}

}  // namespace kelu
