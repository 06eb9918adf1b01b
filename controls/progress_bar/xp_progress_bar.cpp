// The progress bar widget: properties, back buffer, and the drawing that happens at once.
// SPDX-License-Identifier: MIT
#include "controls/progress_bar/xp_progress_bar.h"

#include <QPainter>
#include <algorithm>

#include "controls/progress_bar/bar_geometry.h"
#include "controls/progress_bar/bar_looks.h"
#include "controls/property_bag/property_bag.h"

namespace kelu {

XP_ProgressBar::XP_ProgressBar(QWidget* parent) : QWidget(parent), color_(ToColorRef(TranslateColor(kHighlightColor))) {
    UseAccessibleValue<XP_ProgressBar, QAccessible::ProgressBar>();
    setAccessibleName(tr("Progress"));
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

int XP_ProgressBar::Value() const { return bar::ValueOfPercent(percent_, min_, max_); }

void XP_ProgressBar::SetValue(int value) {
    percent_ = bar::PercentOfValue(value, min_, max_, percent_);
    DrawProgressBar();
    AnnounceValue(*this, percent_);
    Announce("Value");
}

void XP_ProgressBar::SetMin(int min) {
    min_ = min;
    Announce("Min");
}

void XP_ProgressBar::SetMax(int max) {
    max_ = max;
    Announce("Max");
}

void XP_ProgressBar::SetColor(ColorRef color) {
    color_ = ToColorRef(TranslateColor(color));
    DrawProgressBar();
    Announce("Color");
}

void XP_ProgressBar::SetBackColor(ColorRef color) {
    backColor_ = ToColorRef(TranslateColor(color));
    DrawProgressBar();
}

void XP_ProgressBar::SetScrolling(int look) {
    scrolling_ = look;
    DrawProgressBar();
    Announce("Scrolling");
}

void XP_ProgressBar::SetOrientation(int orientation) {
    orientation_ = orientation;
    DrawProgressBar();
    Announce("Orientation");
}

void XP_ProgressBar::SetShowText(bool show) {
    showText_ = show;
    DrawProgressBar();
    Announce("ShowText");
}

void XP_ProgressBar::SetBrushStyle(int style) {
    brushStyle_ = style;
    Announce("BrushStyle");
}

void XP_ProgressBar::SetImage(const QPixmap& image) {
    image_ = image;
    DrawProgressBar();
    Announce("Image");
}

void XP_ProgressBar::SetFont(const QFont& font) {
    setFont(font);
    Announce("Font");
}

void XP_ProgressBar::Announce(const char* name) { Q_EMIT PropertyChanged(QString::fromLatin1(name)); }

void XP_ProgressBar::ReadProperties(const PropertyBag& bag) {
    const QVariant font = bag.ReadProperty(QStringLiteral("Font"));
    if (font.isValid()) SetFont(font.value<QFont>());
    SetBrushStyle(bag.ReadProperty(QStringLiteral("BrushStyle"), 4).toInt());
    SetColor(bag.ReadProperty(QStringLiteral("Color"), kHighlightColor).toUInt());
    SetImage(bag.ReadProperty(QStringLiteral("Image")).value<QPixmap>());
    SetMax(bag.ReadProperty(QStringLiteral("Max"), 100).toInt());
    SetMin(bag.ReadProperty(QStringLiteral("Min"), 0).toInt());
    SetOrientation(bag.ReadProperty(QStringLiteral("Orientation"), kHorizontal).toInt());
    SetScrolling(bag.ReadProperty(QStringLiteral("Scrolling"), 0).toInt());
    SetShowText(bag.ReadProperty(QStringLiteral("ShowText"), false).toBool());
    SetValue(bag.ReadProperty(QStringLiteral("Value"), 0).toInt());
}

void XP_ProgressBar::WriteProperties(PropertyBag& bag) const {
    bag.WriteProperty(QStringLiteral("Font"), testAttribute(Qt::WA_SetFont) ? QVariant(font()) : QVariant());
    bag.WriteProperty(QStringLiteral("BrushStyle"), brushStyle_, 4);
    bag.WriteProperty(QStringLiteral("Color"), color_, kHighlightColor);
    bag.WriteProperty(QStringLiteral("Image"), PictureProperty(image_));
    bag.WriteProperty(QStringLiteral("Max"), max_, 100);
    bag.WriteProperty(QStringLiteral("Min"), min_, 0);
    bag.WriteProperty(QStringLiteral("Orientation"), orientation_, kHorizontal);
    bag.WriteProperty(QStringLiteral("Scrolling"), scrolling_, 0);
    bag.WriteProperty(QStringLiteral("ShowText"), showText_, false);
    bag.WriteProperty(QStringLiteral("Value"), Value(), 0);
}

QSize XP_ProgressBar::BufferSize() const { return buffer_.deviceIndependentSize().toSize(); }

void XP_ProgressBar::EnsureBuffer() {
    const double ratio = devicePixelRatioF();
    const QSize had = BufferSize();
    if (size().isEmpty()) return;
    if (had.width() >= width() && had.height() >= height() && buffer_.devicePixelRatioF() == ratio) return;
    const QSize wanted = size().expandedTo(had);
    buffer_ = QPixmap((QSizeF(wanted) * ratio).toSize());
    buffer_.setDevicePixelRatio(ratio);
}

void XP_ProgressBar::DrawProgressBar() {
    percent_ = std::clamp(percent_, 0, 100);
    // At once: those who show progress are busy and may not return to the event loop for a while.
    if (isVisible()) repaint();
}

void XP_ProgressBar::pDraw(QPainter& painter, int sourceX, int sourceY, int width, int height, int x, int y) const {
    const QSize all = BufferSize();
    const QSize part(width > 0 ? width : all.width(), height > 0 ? height : all.height());
    const double ratio = buffer_.devicePixelRatioF();
    painter.drawPixmap(QRectF(QPointF(x, y), part), buffer_,
                       QRectF(QPointF(sourceX, sourceY) * ratio, QSizeF(part) * ratio));
}

void XP_ProgressBar::paintEvent(QPaintEvent*) {
    const bar::State state{
        scrolling_, orientation_ == kVertical, percent_, color_, backColor_, brushStyle_, image_, showText_, font()};
    QPainter surface(this);
    EnsureBuffer();
    if (buffer_.isNull()) {
        bar::Paint(surface, size(), state);
        return;
    }
    QPainter painter(&buffer_);
    bar::Paint(painter, size(), state);
    painter.end();
    pDraw(surface, 0, 0, width(), height(), 0, 0);
}

void XP_ProgressBar::resizeEvent(QResizeEvent*) { EnsureBuffer(); }

}  // namespace kelu
