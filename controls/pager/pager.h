// Shows a child that is longer than the space for it: an arrow button at each end, wheel, drag and keys
// scroll it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

class QMouseEvent;
class QVariantAnimation;

namespace kelu {

class PagerArrow;

class Pager : public QWidget {
    Q_OBJECT

 public:
    explicit Pager(Qt::Orientation orientation = Qt::Vertical, QWidget* parent = nullptr);

    /// The widget to scroll; becomes a child of the pager. Across the direction it gets the pager's breadth, along it
    /// its size hint. Setting the same child again changes nothing; a former child is left without a parent and hidden.
    void SetChild(QWidget* child);
    QWidget* Child() const { return child_; }
    Qt::Orientation Direction() const { return orientation_; }

    /// Scroll offset in device-independent pixels, 0 to MaxOffset(). SetOffset clamps and moves at once.
    int Offset() const { return offset_; }
    int MaxOffset() const;
    void SetOffset(int offset);
    /// Length of the pieces that the child consists of: an arrow then leads to the beginning of one. 0, the start
    /// value: none.
    void SetStep(int pixels) { step_ = pixels; }
    /// Scrolls smoothly to the nearest offset that shows all of `rect` (child coordinates).
    void EnsureVisible(const QRect& rect);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

 Q_SIGNALS:
    void OffsetChanged(int offset);

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QWidget* viewport_;
    PagerArrow* back_;
    PagerArrow* forward_;
    QPointer<QWidget> child_;
    QVariantAnimation* glide_;
    Qt::Orientation orientation_;
    int offset_ = 0;
    int step_ = 0;
    int pressAt_ = 0;      ///< of a drag, along the direction, on the screen
    int pressOffset_ = 0;  ///< offset when the drag began
    bool dragging_ = false;

    void Watch(QWidget* widget, bool on);
    void Arrange();
    void PlaceChild();
    void MoveTo(int offset);
    void GlideTo(int offset);
    bool Drag(QWidget* widget, const QMouseEvent& event);
    int Along(const QSize& size) const;
    int ChildLength() const;
    int Target() const;  ///< where the running glide ends, else the offset
};

}  // namespace kelu
