// The program's slider: a rail, a thumb that is a picture, an integer range, and a tip that shows the value beside the
// thumb while it is dragged or the wheel turns it. By mouse only; assistive technology reads and sets the value through
// its own road.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include "controls/slider/slider_geometry.h"
#include "controls/system_look/accessible_value.h"
#include "controls/system_look/system_colors.h"

namespace kelu {

class PropertyBag;

/// Which call announces: every write of a new value, from the program or by a drag, raises ValueChanged, then
/// ArrivedLast, then ArrivedFirst; a write of the present value raises nothing. SetMin writes the value, SetMax
/// doesn't.
class LsSlider : public QWidget, public AccessibleValue {
    Q_OBJECT
    Q_PROPERTY(int Min READ Min WRITE SetMin)
    Q_PROPERTY(int Max READ Max WRITE SetMax)
    Q_PROPERTY(int Value READ Value WRITE SetValue NOTIFY ValueChanged)

 public:
    /// Values of Orientation.
    static constexpr int kHorizontal = 0;
    static constexpr int kVertical = 1;
    /// RailStyle: 0 sunken, 1 raised, 2 thin sunken, 3 thin raised, 4 no rail, 99 the rail picture.
    static constexpr int kPictureRail = 99;

    /// A new slider is vertical, range 0 to 10, value 0.
    explicit LsSlider(QWidget* parent = nullptr);
    ~LsSlider() override;

    Number AccessibleNumber() const override { return {value_, Min(), Max(), QString::number(value_)}; }
    bool AccessibleEnabled() const override { return enabled_; }
    void SetAccessibleNumber(int value) override { SetValue(value); }

    int Min() const { return range_.min; }
    /// Also writes Value with `min`. Throws Error(kInvalidProperty) unless `min` is less than Max.
    void SetMin(int min);
    int Max() const { return range_.max; }
    /// The thumb stays where it is until the next change of value or size. Throws Error(kInvalidProperty) unless `max`
    /// is greater than Min.
    void SetMax(int max);
    int Value() const { return value_; }
    /// Throws Error(kInvalidProperty) outside Min to Max.
    void SetValue(int value);

    /// The gate for the mouse alone; a slider that is not Enabled looks like any other.
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) { enabled_ = enabled; }
    int Orientation() const;
    void SetOrientation(int orientation);
    int RailStyle() const { return railStyle_; }
    void SetRailStyle(int style);
    bool ShowValueTip() const { return showValueTip_; }
    void SetShowValueTip(bool show) { showValueTip_ = show; }
    ColorRef BackColor() const { return backColor_; }
    void SetBackColor(ColorRef color);
    /// Thumb; a null picture is the default thumb of 16 x 16 pixels.
    const QPixmap& SliderIcon() const { return sliderIcon_; }
    void SetSliderIcon(const QPixmap& picture);
    const QPixmap& RailPicture() const { return railPicture_; }
    void SetRailPicture(const QPixmap& picture);

    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    /// Shows the slider as its state stands, and moves the tip during a drag.
    void DrawControl();
    /// A message box that says what this control is.
    void ShowAbout();

    /// Place and size of the thumb in widget pixels.
    QRectF ThumbRect() const;
    QRect RailRect() const { return railRect_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

 Q_SIGNALS:
    /// Left button released inside the control.
    void Click();
    void ArrivedFirst();
    void ArrivedLast();
    void ValueChanged();
    /// `shift`: 1 Shift, 2 Control, 4 Alt, added up.
    void MouseDown(int shift);
    void MouseUp(int shift);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// A notch is one step of the value, away from the user upwards.
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;

 private:
    slider::Parts Parts() const;
    double& ThumbAlong();
    void PlaceThumb();
    void ResetThumb();
    void FitAndPlace();
    void MoveThumbTo(const QPointF& pointer);
    void ShowTip();
    void EndDrag();
    void EndWheelTip();

    slider::Direction direction_ = slider::Direction::kVertical;
    slider::Range range_;
    int value_ = 0;
    int lastValue_ = 0;
    int railStyle_ = 0;
    bool enabled_ = true;
    bool showValueTip_ = true;
    ColorRef backColor_ = kButtonFaceColor;
    QPixmap sliderIcon_;
    QPixmap railPicture_;

    QPointF thumb_;
    QRect railRect_;
    bool dragging_ = false;
    QPointF grab_;
    int wheelTurn_ = 0;  ///< less than a notch, left from turning
    QTimer wheelTip_;    ///< runs while the tip tells what the wheel has set
};

}  // namespace kelu
