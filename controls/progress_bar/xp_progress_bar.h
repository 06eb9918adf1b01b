// The program's progress bar: the chunked bar of a desktop theme, and nine other looks. No events and no input.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QWidget>

#include "controls/system_look/accessible_value.h"
#include "controls/system_look/system_colors.h"

namespace kelu {

class PropertyBag;

class XP_ProgressBar : public QWidget, public AccessibleValue {
    Q_OBJECT
    Q_PROPERTY(int value READ Value WRITE SetValue)

 public:
    /// Values of Orientation.
    static constexpr int kHorizontal = 0;
    static constexpr int kVertical = 1;

    /// A new bar is horizontal, range 0 to 100, value 0, look 0, without text.
    explicit XP_ProgressBar(QWidget* parent = nullptr);

    Number AccessibleNumber() const override {
        return {percent_, 0, 100, QString::number(percent_) + QStringLiteral(" %")};
    }

    /// The position as a value: exact only to a hundredth of the range, as the position is kept in percent.
    int Value() const;
    /// Draws at once, without waiting for a paint event. A value past Max shows as 100 percent.
    void SetValue(int value);
    /// The position in percent.
    int Percent() const { return percent_; }
    int Min() const { return min_; }
    int Max() const { return max_; }
    /// The range counts from the next value on.
    void SetMin(int min);
    void SetMax(int max);

    /// Plain colour; a system colour is translated when it is written.
    ColorRef Color() const { return color_; }
    void SetColor(ColorRef color);
    /// What the bar stands on, and its gaps: white unless the window that holds it asks for its own. A plain or
    /// system colour, not persisted. Look 6 always stands on black.
    ColorRef BackColor() const { return backColor_; }
    void SetBackColor(ColorRef color);
    /// The look, 0 to 9.
    int Scrolling() const { return scrolling_; }
    void SetScrolling(int look);
    int Orientation() const { return orientation_; }
    void SetOrientation(int orientation);
    bool ShowText() const { return showText_; }
    void SetShowText(bool show);
    /// Hatch of look 7: 0 horizontal, 1 vertical, 2 falling, 3 rising, 4 cross, 5 diagonal cross. Shows at the next
    /// drawing.
    int BrushStyle() const { return brushStyle_; }
    void SetBrushStyle(int style);
    /// Pattern of look 8.
    const QPixmap& Image() const { return image_; }
    void SetImage(const QPixmap& image);
    QFont Font() const { return font(); }
    void SetFont(const QFont& font);

    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    /// Draws the bar into the back buffer and shows it.
    void DrawProgressBar();

    /// Copies a part of the back buffer to (x, y); a width or height not above 0 means the buffer's own.
    void pDraw(QPainter& painter, int sourceX, int sourceY, int width, int height, int x, int y) const;

    /// Size of the back buffer in widget pixels; it grows with the bar and never shrinks.
    QSize BufferSize() const;

    QSize sizeHint() const override { return {160, 19}; }

 Q_SIGNALS:
    /// A persisted property was written.
    void PropertyChanged(const QString& name);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    void EnsureBuffer();
    void Announce(const char* name);

    int min_ = 0;
    int max_ = 100;
    int percent_ = 0;
    int orientation_ = kHorizontal;
    int scrolling_ = 0;
    int brushStyle_ = 4;
    bool showText_ = false;
    ColorRef color_;
    ColorRef backColor_ = 0xFFFFFF;
    QPixmap image_;
    QPixmap buffer_;
};

}  // namespace kelu
