// Look of a toolbox button; see toolbox_button.h.
// SPDX-License-Identifier: MIT
#include "controls/toolbox/toolbox_button.h"

#include <QPainter>
#include <QPainterPath>

#include "controls/theme/accessible_button.h"
#include "controls/theme/icons.h"
#include "controls/theme/paint.h"
#include "controls/theme/theme.h"

namespace kelu {

ToolboxButton::ToolboxButton(QString key, QWidget* parent) : QAbstractButton(parent), key_(std::move(key)) {
    UseAccessibleButton<ToolboxButton>();
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::NoFocus);
    // Assistive technology sees which button is current.
    setCheckable(true);
}

void ToolboxButton::SetPictures(const QPixmap& normal, const QPixmap& over, const QPixmap& down) {
    normal_ = normal;
    over_ = over;
    down_ = down;
    update();
}

void ToolboxButton::SetIconName(const QString& name) {
    iconName_ = name;
    update();
}

void ToolboxButton::SetCurrent(bool current) {
    current_ = current;
    setChecked(current);
    update();
}

void ToolboxButton::SetDimmed(bool dimmed) {
    dimmed_ = dimmed;
    update();
}

void ToolboxButton::PaintIconLook(QPainter& painter) {
    const bool over = isEnabled() && underMouse();
    if (isDown())
        theme::FillPlate(painter, rect(), theme::kPressed);
    else if (over || current_)
        theme::FillPlate(painter, rect(), theme::kHover);
    const QColor ink = !isEnabled() || dimmed_ ? theme::kDisabledText
                       : current_              ? theme::kAccent
                       : over                  ? theme::kBrightText
                                               : theme::kText;
    theme::PaintIcon(painter, iconName_, rect(), qMin(theme::kIconSize, qMin(width(), height())), ink);
}

void ToolboxButton::PaintPictureLook(QPainter& painter) {
    const bool over = isEnabled() && underMouse();
    const QPixmap& wanted = isDown() ? down_ : over ? over_ : normal_;
    const QPixmap& picture = wanted.isNull() ? normal_ : wanted;
    QPainterPath outline;
    outline.addRoundedRect(rect(), theme::kCorner, theme::kCorner);
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (picture.isNull()) {
        painter.fillPath(outline, theme::kSunken);
    } else {
        // The picture as a brush keeps its rounded corners smooth, which a clip would not.
        // Counted in its own pixels, since not every painter regards the ratio of a brush's picture.
        QPixmap texture = picture;
        texture.setDevicePixelRatio(1);
        QTransform fit;
        fit.scale(static_cast<qreal>(width()) / texture.width(), static_cast<qreal>(height()) / texture.height());
        QBrush brush(texture);
        brush.setTransform(fit);
        painter.fillPath(outline, brush);
    }
    if (isDown() && down_.isNull()) painter.fillPath(outline, QColor(0, 0, 0, 90));
    if (over && !isDown() && over_.isNull()) painter.fillPath(outline, QColor(255, 255, 255, 26));
    if (!isEnabled() || dimmed_) {
        QColor veil = theme::kGround;
        veil.setAlpha(theme::IsHighContrast() ? 100 : 150);  // the name in the picture is to be read
        painter.fillPath(outline, veil);
    }
    painter.restore();
    if (current_) theme::DrawFocusRing(painter, rect(), theme::kAccent);
}

void ToolboxButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (iconName_.isEmpty())
        PaintPictureLook(painter);
    else
        PaintIconLook(painter);
    // Within the accent ring of the current one, so that both can be told apart.
    if (theme::ShowsFocus(*this))
        theme::DrawFocusRing(painter, current_ && iconName_.isEmpty() ? rect().adjusted(3, 3, -3, -3) : rect(),
                             theme::kBrightText);
}

}  // namespace kelu
