// The widget that shows a surface.
// SPDX-License-Identifier: MIT
#include "view/image_x.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/theme/accessible_role.h"
#include "controls/theme/paint.h"
#include "controls/theme/theme.h"
#include "platform/units.h"

namespace kelu {
namespace {

constexpr int kSmallestZoom = 1;
constexpr int kLargestZoom = 6400;
constexpr int kArrowStep = 40;  // widget pixels
constexpr int kNotch = QWheelEvent::DefaultDeltasPerStep;

int Twips(double widgetPixels) { return RoundToEven(widgetPixels * kTwipsPerPixel); }

struct FittedPlace {
    QSize scaled, viewport;  ///< device pixels, as the two origins
    QPoint origin;
};

double FittedScaleOf(const QSize& picture, const QSizeF& room) {
    return std::min({1.0, room.width() / picture.width(), room.height() / picture.height()});
}

/// Where a picture lies in the fitted view.
FittedPlace PlaceFitted(const QSize& picture, const QSizeF& room, double ratio) {
    const double scale = FittedScaleOf(picture, room) * ratio;
    FittedPlace at;
    at.scaled =
        QSize(std::max(1, RoundToEven(picture.width() * scale)), std::max(1, RoundToEven(picture.height() * scale)));
    at.viewport =
        QSize(RoundToEven(std::max(1.0, room.width()) * ratio), RoundToEven(std::max(1.0, room.height()) * ratio));
    at.origin = QPoint((at.viewport.width() - at.scaled.width()) / 2, (at.viewport.height() - at.scaled.height()) / 2);
    return at;
}

}  // namespace

ImageX::ImageX(Surface& surface, QWidget* parent)
    : QWidget(parent),
      surface_(surface),
      horizontal_(new QScrollBar(Qt::Horizontal, this)),
      vertical_(new QScrollBar(Qt::Vertical, this)) {
    UseAccessibleRole<ImageX, QAccessible::Canvas>();
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Picture"));
    for (QScrollBar* bar : {horizontal_, vertical_}) {
        bar->hide();
        bar->setCursor(Qt::ArrowCursor);
        bar->setFocusPolicy(Qt::NoFocus);
        connect(bar, &QScrollBar::valueChanged, this, &ImageX::OnScrolled);
    }
    connect(&ring_, &BrushRing::TextOver, this, &ImageX::UpdateRing);
    connect(&refine_, &QTimer::timeout, this, &ImageX::Refine);
    connect(&surface_, &Surface::PictureReplaced, this, &ImageX::OnPictureReplaced);
    connect(&surface_, &Surface::PictureChanged, this, &ImageX::OnPictureChanged);
    OnPictureReplaced();
}

ImageX::~ImageX() = default;

// ---- view properties

double ImageX::FittedScale() const {
    if (surface_.ImageWidth() == 0) return 1.0;
    return FittedScaleOf({surface_.ImageWidth(), surface_.ImageHeight()}, size());
}

double ImageX::Scale() const {
    const double asked = zoomPercent_ / 100.0;
    if (!Fitted()) return asked;
    return zoomKept_ ? std::min(asked, FittedScale()) : FittedScale();
}

int ImageX::ZoomPercent() const {
    if (!Fitted() || zoomKept_) return zoomPercent_;
    return std::max(kSmallestZoom, RoundToEven(FittedScale() * 100));
}

void ImageX::SetZoomPercent(int percent) {
    zoomPercent_ = std::clamp(percent, kSmallestZoom, kLargestZoom);
    zoomKept_ = Fitted();
    zoomAssigned_ = true;
    LayOut(Focus());
}

void ImageX::SetViewMode(ViewKind mode) {
    // A zoom step sets a percent and then the view; any other command for the fitted view is one to see the whole
    // picture as large as it can be, and the fitted scale counts again.
    const bool kept = mode == ViewKind::Fitted && zoomAssigned_;
    zoomAssigned_ = false;
    if (mode == viewMode_ && kept == zoomKept_) return;
    const QPointF focus = Focus();
    zoomKept_ = kept;
    viewMode_ = mode;
    LayOut(focus);
}

void ImageX::SetViewScrollable(bool scrollable) {
    if (scrollable == viewScrollable_) return;
    viewScrollable_ = scrollable;
    LayOut(Focus());
}

void ImageX::Redraw() {
    zoomAssigned_ = false;  // the end of a zoom step
    update();
}

void ImageX::HoldLayout(bool hold) {
    held_ = hold;
    if (!held_) LayOut(Focus());
}

// ---- geometry: device pixels of the scaled picture, device-independent pixels of the widget

QRectF ImageX::ImageRect() const {
    const double ratio = devicePixelRatioF();
    if (surface_.ImageWidth() == 0) return {};
    return {QPointF(origin_) / ratio, QSizeF(scaled_) / ratio};
}

int ImageX::ScreenToImageX(int x) const {
    const QRectF rect = ImageRect();
    if (rect.isEmpty()) return x;
    // The middle of the widget pixel: it stands for the middle of the image pixels that it shows.
    return static_cast<int>(std::floor((x + 0.5 - rect.left()) * surface_.ImageWidth() / rect.width()));
}

int ImageX::ScreenToImageY(int y) const {
    const QRectF rect = ImageRect();
    if (rect.isEmpty()) return y;
    return static_cast<int>(std::floor((y + 0.5 - rect.top()) * surface_.ImageHeight() / rect.height()));
}

QPoint ImageX::ImagePixel(const QPointF& widgetPixels) const {
    return {ScreenToImageX(TwipsToPixels(Twips(widgetPixels.x()))),
            ScreenToImageY(TwipsToPixels(Twips(widgetPixels.y())))};
}

bool ImageX::CanScroll() const { return !horizontal_->isHidden() || !vertical_->isHidden(); }

void ImageX::LayOut(const QPointF& focus) {
    if (held_) return;
    const QRectF before = ImageRect();
    const double ratio = devicePixelRatioF();
    const QSize picture(surface_.ImageWidth(), surface_.ImageHeight());
    update();
    if (picture.isEmpty()) {
        horizontal_->hide();
        vertical_->hide();
        fitted_.Invalidate();
        free_.Invalidate();
        return;
    }
    const double scale = Scale() * ratio;
    const QSize scaled(std::max(1, RoundToEven(picture.width() * scale)),
                       std::max(1, RoundToEven(picture.height() * scale)));

    // A bar takes room from the other direction, which may then need one as well.
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const bool scrolls = !Fitted() && viewScrollable_;
    bool needsX = scrolls && scaled.width() > RoundToEven(width() * ratio);
    const bool needsY = scrolls && scaled.height() > RoundToEven((height() - (needsX ? bar : 0)) * ratio);
    needsX = scrolls && scaled.width() > RoundToEven((width() - (needsY ? bar : 0)) * ratio);
    const QSize room(std::max(1, width() - (needsY ? bar : 0)), std::max(1, height() - (needsX ? bar : 0)));
    viewport_ = QSize(RoundToEven(room.width() * ratio), RoundToEven(room.height() * ratio));

    // The image point under the focus stays there.
    QPointF part(0.5, 0.5);
    if (!before.isEmpty())
        part = QPointF((focus.x() - before.left()) / before.width(), (focus.y() - before.top()) / before.height());
    const QPointF wanted(part.x() * scaled.width() - focus.x() * ratio, part.y() * scaled.height() - focus.y() * ratio);
    laysOut_ = true;
    const auto setBar = [&](QScrollBar* bar, bool shown, int whole, int page, double value) {
        bar->setRange(0, shown ? whole - page : 0);
        bar->setPageStep(page);
        bar->setSingleStep(RoundToEven(kArrowStep * ratio));
        bar->setValue(RoundToEven(value));
        bar->setVisible(shown);
    };
    setBar(horizontal_, needsX, scaled.width(), viewport_.width(), wanted.x());
    setBar(vertical_, needsY, scaled.height(), viewport_.height(), wanted.y());
    horizontal_->setGeometry(0, room.height(), room.width(), bar);
    vertical_->setGeometry(room.width(), 0, bar, room.height());
    laysOut_ = false;
    scaled_ = scaled;
    OnScrolled();
    if (const int zoom = ZoomPercent(); std::exchange(zoomTold_, zoom) != zoom) Q_EMIT ZoomChanged();
}

void ImageX::OnScrolled() {
    if (laysOut_ || surface_.ImageWidth() == 0) return;
    const auto place = [](int whole, int page, const QScrollBar* bar) {
        return whole > page ? (bar->isHidden() ? (page - whole) / 2 : -bar->value()) : (page - whole) / 2;
    };
    origin_ = QPoint(place(scaled_.width(), viewport_.width(), horizontal_),
                     place(scaled_.height(), viewport_.height(), vertical_));
    // The fitted view is kept while another shows: the way back costs nothing, whatever the picture's size.
    view_ = Scale() == FittedScale() ? &fitted_ : &free_;
    if (view_ == &fitted_) free_.Invalidate();
    if (!isVisible()) return;  // it is laid out again when it shows, at the size that it then has
    view_->Show(surface_.Picture(), scaled_, QRect(-origin_, viewport_));
    if (view_->IsCoarse()) refine_.start();
    update();
    ringShown_ = RingRect();  // as large as the picture's scale makes it
}

void ImageX::ScrollBy(const QPointF& pixels) {
    const double ratio = devicePixelRatioF();
    wheelRest_ += pixels * ratio;
    const QPoint whole(static_cast<int>(wheelRest_.x()), static_cast<int>(wheelRest_.y()));
    wheelRest_ -= whole;
    horizontal_->setValue(horizontal_->value() + whole.x());
    vertical_->setValue(vertical_->value() + whole.y());
}

std::function<void(const QImage&)> ImageX::Preparation() {
    prepared_ = std::make_shared<ScaledView>();
    const double ratio = devicePixelRatioF();
    const QSizeF room = size();
    return [prepared = prepared_, ratio, room](const QImage& picture) {
        if (picture.isNull()) return;
        const FittedPlace at = PlaceFitted(picture.size(), room, ratio);
        prepared->Show(picture, at.scaled, QRect(-at.origin, at.viewport));
        while (prepared->IsCoarse()) prepared->Refine(picture);
    };
}

void ImageX::OnPictureReplaced() {
    zoomKept_ = zoomAssigned_ = false;
    fitted_ = prepared_ ? *std::exchange(prepared_, nullptr) : ScaledView();
    free_.Invalidate();
    LayOut(QPointF(width(), height()) / 2);
}

void ImageX::OnPictureChanged(const QRect& imagePixels) {
    if (view_ != &fitted_) fitted_.Refresh(surface_.Picture(), imagePixels);
    UpdateScaled(view_->Refresh(surface_.Picture(), imagePixels));
    if (fitted_.IsCoarse() || free_.IsCoarse()) refine_.start();
}

void ImageX::Refine() {
    if (view_->IsCoarse()) return UpdateScaled(view_->Refine(surface_.Picture()));
    if (fitted_.Refine(surface_.Picture()).isEmpty()) refine_.stop();
}

void ImageX::UpdateScaled(const QRect& pixels) {
    if (pixels.isEmpty()) return;
    const QRect device = pixels.translated(origin_);
    const double ratio = devicePixelRatioF();
    update(QRectF(QPointF(device.topLeft()) / ratio, QSizeF(device.size()) / ratio).toAlignedRect());
}

QSize ImageX::sizeHint() const { return {640, 480}; }

// ---- painting

void ImageX::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRectF picture = ImageRect();
    const QImage& pixels = view_->Pixels();
    const bool opaque = !pixels.isNull() && !pixels.hasAlphaChannel();
    // The ground shows at the sides, and through a picture with transparency.
    QRegion ground = event->region();
    if (opaque) {
        // Only pixels that the picture covers wholly; the corner between two scroll bars is none of them.
        const QRectF shown = picture & QRectF(QPointF(), QSizeF(viewport_) / devicePixelRatioF());
        const QPoint low(static_cast<int>(std::ceil(shown.left())), static_cast<int>(std::ceil(shown.top())));
        const QPoint high(static_cast<int>(std::floor(shown.right())) - 1,
                          static_cast<int>(std::floor(shown.bottom())) - 1);
        ground -= QRect(low, high);
    }
    if (!ground.isEmpty()) {
        painter.setClipRegion(ground);
        for (const QRect& part : ground) {
            painter.fillRect(part, palette().window());
            painter.fillRect(part, hatch_.At(devicePixelRatioF()));
        }
        painter.setClipRegion(event->region());
    }
    if (!pixels.isNull()) {
        QImage shown = pixels;
        shown.setDevicePixelRatio(devicePixelRatioF());
        painter.drawImage(QPointF(origin_ + view_->Window().topLeft()) / devicePixelRatioF(), shown);
    }
    if (const QRect ring = RingRect(); !ring.isEmpty()) {
        painter.setClipRect(ring);  // one rectangle costs less than the region of where the ring was and is
        ring_.Paint(painter, RingGround(), palette().window(), !pressed_);
        painter.setClipRegion(event->region());
    }
    // Space is held for the mouse.
    if (theme::ShowsFocus(*this) && !spaceHeld_)
        theme::DrawFocusRing(painter, {QPointF(), QSizeF(viewport_) / devicePixelRatioF()}, theme::kFocus);
}

BrushRing::Ground ImageX::RingGround() const {
    return {.picture = {surface_.ImageWidth(), surface_.ImageHeight()},
            .scaled = scaled_,
            .viewport = viewport_,
            .origin = origin_,
            .ratio = devicePixelRatioF()};
}

void ImageX::UpdateRing() {
    const QRect ring = RingRect();
    if (ring == ringShown_ && ring.isEmpty()) return;
    update(ringShown_);
    ringShown_ = ring;
    update(ringShown_);
}

// The ring that keys have moved goes with the focus. That of the mouse, or of a window that will be back, stays.
void ImageX::LeaveRing(Qt::FocusReason reason) {
    if (underMouse() || reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return;
    ring_.MoveTo(std::nullopt);
    UpdateRing();
}

void ImageX::SetBrushTip(const BrushTip& tip) {
    ring_.SetTip(tip);
    update(ringShown_);
    UpdateRing();
}

void ImageX::SetBackgroundHatch(const QBrush& brush) {
    hatch_ = Hatch(brush);
    update();
}

// ---- cursor

void ImageX::SetCursorPicture(const QPixmap& picture, const QPoint& hotSpot) {
    cursorPicture_ = picture;
    cursorHotSpot_ = hotSpot;
    ApplyCursor();
}

void ImageX::SetCursorStyle(SurfaceCursor style) {
    cursorStyle_ = style;
    ApplyCursor();
}

void ImageX::ApplyCursor() {
    if (dragging_)
        setCursor(Qt::ClosedHandCursor);
    else if (spaceHeld_ && CanScroll())
        setCursor(Qt::OpenHandCursor);
    else if (cursorStyle_ == SurfaceCursor::Custom && !cursorPicture_.isNull())
        setCursor(QCursor(cursorPicture_, cursorHotSpot_.x(), cursorHotSpot_.y()));
    else
        unsetCursor();
}

// ---- events

bool ImageX::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::Enter:
            ring_.MoveTo(static_cast<QEnterEvent*>(event)->position());
            UpdateRing();
            break;
        case QEvent::Leave:
            ring_.MoveTo(std::nullopt);
            UpdateRing();
            break;
        case QEvent::FocusOut:
            spaceHeld_ = false;
            ApplyCursor();
            LeaveRing(static_cast<QFocusEvent*>(event)->reason());
            break;
        case QEvent::Show:  // the window may have come to a screen with another device pixel ratio
        case QEvent::ScreenChangeInternal:
        case QEvent::StyleChange:
            LayOut(QPointF(width(), height()) / 2);
            break;
        default:
            break;
    }
    return QWidget::event(event);
}

void ImageX::resizeEvent(QResizeEvent* event) {
    LayOut(QPointF(event->oldSize().width(), event->oldSize().height()) / 2);
}

void ImageX::mousePressEvent(QMouseEvent* event) {
    ring_.MoveTo(event->position());
    const bool drags = event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && spaceHeld_);
    if (drags && CanScroll()) {
        dragging_ = true;
        dragFrom_ = event->position();
        ApplyCursor();
        UpdateRing();
        return;
    }
    pressed_ = true;
    UpdateRing();  // a pen may come down where it never was
    Q_EMIT MousePressed(event->button(), event->buttons(), event->modifiers(), Twips(event->position().x()),
                        Twips(event->position().y()), ImagePixel(event->position()));
}

void ImageX::mouseMoveEvent(QMouseEvent* event) {
    ring_.MoveTo(event->position());
    if (dragging_) {
        ScrollBy(dragFrom_ - event->position());
        dragFrom_ = event->position();
        return;
    }
    Q_EMIT MouseMoved(event->buttons(), event->modifiers(), Twips(event->position().x()), Twips(event->position().y()),
                      ImagePixel(event->position()));
    UpdateRing();
}

void ImageX::mouseReleaseEvent(QMouseEvent* event) {
    if (pressed_ && event->buttons() == Qt::NoButton) {
        pressed_ = false;
        update(ringShown_);
    }
    if (!dragging_ || (event->buttons() & (Qt::MiddleButton | Qt::LeftButton))) return;
    dragging_ = false;
    ApplyCursor();
    UpdateRing();
}

void ImageX::wheelEvent(QWheelEvent* event) {
    event->accept();
    if (event->modifiers() & Qt::ControlModifier) {
        wheelTurn_ += event->angleDelta().y();
        const int steps = wheelTurn_ / kNotch;
        wheelTurn_ -= steps * kNotch;
        if (steps == 0) return;
        zoomFocus_ = event->position();
        Q_EMIT ZoomWheel(steps);
        zoomFocus_.reset();
        return;
    }
    QPointF by = event->pixelDelta().isNull() ? QPointF(event->angleDelta()) * (3.0 * kArrowStep / kNotch)
                                              : QPointF(event->pixelDelta());
    if (event->modifiers() & Qt::ShiftModifier) by = by.transposed();
    ScrollBy(-by);
}

void ImageX::keyPressEvent(QKeyEvent* event) {
    const double page = 0.9;
    switch (event->key()) {
        case Qt::Key_Space:
            if (!CanScroll()) break;
            spaceHeld_ = true;
            ApplyCursor();
            return;
        case Qt::Key_Left:
            return ScrollOrPass(event, QPointF(-kArrowStep, 0));
        case Qt::Key_Right:
            return ScrollOrPass(event, QPointF(kArrowStep, 0));
        case Qt::Key_Up:
            return ScrollOrPass(event, QPointF(0, -kArrowStep));
        case Qt::Key_Down:
            return ScrollOrPass(event, QPointF(0, kArrowStep));
        case Qt::Key_PageUp:
            return ScrollOrPass(event, QPointF(0, -page * height()));
        case Qt::Key_PageDown:
            return ScrollOrPass(event, QPointF(0, page * height()));
        default:
            break;
    }
    QWidget::keyPressEvent(event);
}

void ImageX::ScrollOrPass(QKeyEvent* event, const QPointF& pixels) {
    if (CanScroll())
        ScrollBy(pixels);
    else
        QWidget::keyPressEvent(event);
}

void ImageX::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && spaceHeld_ && !event->isAutoRepeat()) {
        spaceHeld_ = false;
        ApplyCursor();
        return;
    }
    QWidget::keyReleaseEvent(event);
}

}  // namespace kelu
