// The value tip: a tool-tip window, so that no window manager frames or activates it.
// SPDX-License-Identifier: MIT
#include "controls/slider/frm_value_tip.h"

#include <QPainter>
#include <QPointer>

#include "controls/system_look/system_colors.h"
#include "controls/theme/theme.h"

namespace kelu {
namespace {

QPointer<frmValueTip>& SharedTip() {
    static QPointer<frmValueTip> tip;
    return tip;
}

}  // namespace

frmValueTip::frmValueTip(QWidget* window)
    : QWidget(window, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus |
                          Qt::WindowTransparentForInput),
      lblTip_(new QLabel(this)) {
    setObjectName(QStringLiteral("frmValueTip"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFont(theme::TipFont());
    lblTip_->setFont(font());
    QPalette palette = lblTip_->palette();
    palette.setColor(QPalette::WindowText, ColorOf(SystemColor::kInfoText));
    lblTip_->setPalette(palette);
    lblTip_->move(2, 1);
}

frmValueTip& frmValueTip::Shared(const QWidget& owner) {
    QPointer<frmValueTip>& tip = SharedTip();
    if (!tip || tip->parentWidget() != owner.window()) {
        Unload();
        tip = new frmValueTip(owner.window());
    }
    return *tip;
}

frmValueTip* frmValueTip::Loaded() { return SharedTip(); }

void frmValueTip::Unload() {
    QPointer<frmValueTip>& tip = SharedTip();
    if (!tip) return;
    // Not deleted at once: a drag may end while the window goes through its children to hide them.
    tip->hide();
    tip->deleteLater();
    tip.clear();
}

QSize frmValueTip::SetNumber(int value) {
    const QString number = QString::number(value);
    const QFontMetrics metrics(font());
    lblTip_->resize(metrics.horizontalAdvance(number), metrics.height());
    lblTip_->setText(number);
    return lblTip_->size();
}

void frmValueTip::ShowAt(const QRect& place) {
    setGeometry(place);
    if (isVisible()) return;
    show();
    raise();
}

/// Raised one-pixel frame on the info background.
void frmValueTip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ColorOf(SystemColor::kInfoBackground));
    const QColor light = ColorOf(SystemColor::k3DLight);
    painter.fillRect(QRect(0, 0, width(), 1), light);
    painter.fillRect(QRect(0, 0, 1, height()), light);
    const QColor dark = ColorOf(SystemColor::k3DDarkShadow);
    painter.fillRect(QRect(width() - 1, 0, 1, height()), dark);
    painter.fillRect(QRect(0, height() - 1, width(), 1), dark);
}

}  // namespace kelu
