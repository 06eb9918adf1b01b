// The widget that shows a surface: fitted and free view, scrolling, cursor, hatch behind the picture. Mouse
// events come out in twips; nothing here knows what a press means.
// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>
#include <QPixmap>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "canvas/surface.h"
#include "canvas/surface_view.h"
#include "view/brush_ring.h"
#include "view/hatch.h"
#include "view/scaled_view.h"

class QScrollBar;

namespace kelu {

class ImageX : public QWidget, public SurfaceView {
    Q_OBJECT

 public:
    /// `surface` must outlive the widget.
    explicit ImageX(Surface& surface, QWidget* parent = nullptr);
    ~ImageX() override;

    /// The fitted scale in the fitted view (never above 100, rounded, at least 1), until another percent is asked for:
    /// a percent set in the fitted view, or followed by SetViewMode(Fitted), is kept and read back, so that zoom steps
    /// add up; the picture is then shown at that percent, but never larger than it fits. A new picture and any other
    /// SetViewMode(Fitted) end that.
    int ZoomPercent() const override;
    /// 1 to 6400; other values are brought into this range.
    void SetZoomPercent(int percent) override;
    Anchor ViewAnchor() const override { return viewAnchor_; }
    void SetViewAnchor(Anchor anchor) override { viewAnchor_ = anchor; }
    ViewKind ViewMode() const override { return viewMode_; }
    void SetViewMode(ViewKind mode) override;
    bool ViewScrollable() const override { return viewScrollable_; }
    void SetViewScrollable(bool scrollable) override;
    void Redraw() override;
    std::function<void(const QImage&)> Preparation() override;
    void HoldLayout(bool hold) override;

    /// Image pixel under a pixel of the widget (device-independent); also outside the picture.
    int ScreenToImageX(int x) const;
    int ScreenToImageY(int y) const;
    QSize ImageSize() const { return {surface_.ImageWidth(), surface_.ImageHeight()}; }
    /// Where the picture lies in the widget, device-independent pixels; may reach beyond it.
    QRectF ImageRect() const;

    void SetCursorPicture(const QPixmap& picture, const QPoint& hotSpot = QPoint(-1, -1)) override;
    void SetCursorStyle(SurfaceCursor style) override;
    void SetBrushTip(const BrushTip& tip) override;
    /// Shown where the picture does not cover the widget, and through its transparency. A diagonal cross has the same
    /// density at every device pixel ratio.
    void SetBackgroundHatch(const QBrush& brush);

    QSize sizeHint() const override;

 Q_SIGNALS:
    /// Positions in twips of the widget, and the image pixel there, also outside the picture. A press that starts
    /// dragging the view (middle button, or space held, in the free view with something to scroll) is not reported, nor
    /// are the moves of the drag.
    void MousePressed(Qt::MouseButton button, Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, int xTwips,
                      int yTwips, const QPoint& imagePixel);
    /// Also without a button.
    void MouseMoved(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, int xTwips, int yTwips,
                    const QPoint& imagePixel);
    /// ZoomPercent reads another value than before, as after a change of the view, the picture or the widget's size.
    void ZoomChanged();
    /// Control and wheel: notches away from (above 0) or towards the user. Zoom changes made by the receiver keep the
    /// picture's point under the mouse in its place.
    void ZoomWheel(int steps);

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

 private:
    QPoint ImagePixel(const QPointF& widgetPixels) const;
    bool Fitted() const { return viewMode_ == ViewKind::Fitted; }
    bool CanScroll() const;
    void OnPictureReplaced();
    void OnPictureChanged(const QRect& imagePixels);
    void OnScrolled();
    /// Repaints device pixels of the scaled picture.
    void UpdateScaled(const QRect& pixels);
    /// Makes coarse pixels fine, a part in each turn of the event loop.
    void Refine();
    /// Lays out scroll bars and the view for the present size, view and picture; `focus` (widget pixels) keeps the
    /// image point under it.
    void LayOut(const QPointF& focus);
    QPointF Focus() const { return zoomFocus_ ? *zoomFocus_ : QPointF(width(), height()) / 2; }
    double FittedScale() const;
    /// Device-independent pixels to an image pixel, as shown.
    double Scale() const;
    void ScrollBy(const QPointF& pixels);
    void ScrollOrPass(QKeyEvent* event, const QPointF& pixels);
    void ApplyCursor();
    void UpdateRing();
    void LeaveRing(Qt::FocusReason reason);
    BrushRing::Ground RingGround() const;
    QRect RingRect() const { return dragging_ ? QRect() : ring_.Rect(RingGround(), font()); }

    Surface& surface_;
    ScaledView fitted_;                     ///< the whole picture as large as it fits
    ScaledView free_;                       ///< any other scale
    ScaledView* view_ = &fitted_;           ///< the one that shows
    std::shared_ptr<ScaledView> prepared_;  ///< for the next picture
    QTimer refine_;                         ///< runs while pixels are coarse
    QScrollBar* horizontal_;
    QScrollBar* vertical_;
    QSize viewport_;  ///< the widget without scroll bars, device pixels
    QSize scaled_;    ///< the whole picture at the view's scale, device pixels
    QPoint origin_;   ///< its upper left corner in the widget, device pixels
    bool laysOut_ = false;
    bool held_ = false;

    int zoomPercent_ = 100;
    Anchor viewAnchor_ = Anchor::Fitted;
    ViewKind viewMode_ = ViewKind::Fitted;
    bool viewScrollable_ = false;
    bool zoomKept_ = false;      ///< fitted view: ZoomPercent reads what was set
    bool zoomAssigned_ = false;  ///< set since the last SetViewMode or Redraw
    int zoomTold_ = 0;           ///< ZoomPercent at the last ZoomChanged
    std::optional<QPointF> zoomFocus_;

    Hatch hatch_;
    QPixmap cursorPicture_;
    QPoint cursorHotSpot_{-1, -1};
    SurfaceCursor cursorStyle_ = SurfaceCursor::Arrow;
    BrushRing ring_;
    QRect ringShown_;
    bool pressed_ = false;

    bool spaceHeld_ = false;
    bool dragging_ = false;
    QPointF dragFrom_;
    QPointF wheelRest_;  ///< less than a device pixel, left from scrolling
    int wheelTurn_ = 0;  ///< less than a notch, left from zooming
};

}  // namespace kelu
