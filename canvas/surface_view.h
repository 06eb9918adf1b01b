// How a surface is shown: the view properties that the document sets without knowing a window.
// ImageX is the real view; NullView serves where there is no screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPixmap>
#include <QPoint>
#include <functional>

namespace kelu {

/// The brush as it is shown round the pointer, in image pixels.
struct BrushTip {
    int size = 0;           ///< diameter; 0: no ring
    int softness = 0;       ///< 0 to 100; above 0 an inner circle shows the wholly covered core
    bool restores = false;  ///< paints the original back: a dashed ring
    QImage paint = {};  ///< shown inside the ring while no button is held: what a stroke here would bring; may be null
};

enum class Anchor { Corner = 0, Fitted = 5 };
enum class ViewKind { Free = 0, Fitted = 2 };
enum class SurfaceCursor { Arrow = 0, Custom = 99 };

class SurfaceView {
 public:
    virtual ~SurfaceView() = default;

    /// Percent of the picture's size at which it is shown; in the fitted view the fitted scale, rounded, at least 1.
    virtual int ZoomPercent() const = 0;
    virtual void SetZoomPercent(int percent) = 0;
    virtual Anchor ViewAnchor() const = 0;
    virtual void SetViewAnchor(Anchor anchor) = 0;
    virtual ViewKind ViewMode() const = 0;
    virtual void SetViewMode(ViewKind mode) = 0;
    virtual bool ViewScrollable() const = 0;
    virtual void SetViewScrollable(bool scrollable) = 0;
    virtual void Redraw() = 0;
    /// What a view does ahead for the picture that it shows next: to be run on any thread, before the surface gets that
    /// picture.
    virtual std::function<void(const QImage& picture)> Preparation() {
        return [](const QImage&) {};
    }
    /// From true to false several changes count as one: the view is laid out once, for what they come to.
    virtual void HoldLayout(bool hold) = 0;

    /// The cursor shown while the style is Custom; its hot spot is its middle unless one is given.
    virtual void SetCursorPicture(const QPixmap& picture, const QPoint& hotSpot = QPoint(-1, -1)) = 0;
    virtual void SetCursorStyle(SurfaceCursor style) = 0;
    /// Shows the brush around the mouse; at first there is none. A size or softness that differs from the one before is
    /// told beside the ring for a second.
    virtual void SetBrushTip(const BrushTip& tip) = 0;

    /// The whole picture. Zoom and scrolling stay set for the next free view.
    void ShowWhole() { SetViewAnchor(Anchor::Fitted), SetViewMode(ViewKind::Fitted); }
    /// The whole picture, and no scrolling.
    void SetFittedView() { ShowWhole(), SetViewScrollable(false); }
    /// The picture at ZoomPercent, again where it was scrolled to.
    void ShowPart() { SetViewAnchor(Anchor::Corner), SetViewMode(ViewKind::Free); }
    /// The same, and scrolling. That first: a view that can't scroll lays its picture out in the middle.
    void SetFreeView() { SetViewScrollable(true), ShowPart(); }
};

/// A view without a screen: keeps what it is told.
class NullView : public SurfaceView {
 public:
    int ZoomPercent() const override { return zoomPercent_; }
    void SetZoomPercent(int percent) override { zoomPercent_ = percent; }
    Anchor ViewAnchor() const override { return viewAnchor_; }
    void SetViewAnchor(Anchor anchor) override { viewAnchor_ = anchor; }
    ViewKind ViewMode() const override { return viewMode_; }
    void SetViewMode(ViewKind mode) override { viewMode_ = mode; }
    bool ViewScrollable() const override { return viewScrollable_; }
    void SetViewScrollable(bool scrollable) override { viewScrollable_ = scrollable; }
    void Redraw() override {}
    void HoldLayout(bool) override {}
    void SetCursorPicture(const QPixmap&, const QPoint&) override {}
    void SetCursorStyle(SurfaceCursor) override {}
    void SetBrushTip(const BrushTip&) override {}

 private:
    int zoomPercent_ = 100;
    Anchor viewAnchor_ = Anchor::Corner;
    ViewKind viewMode_ = ViewKind::Free;
    bool viewScrollable_ = false;
};

}  // namespace kelu
