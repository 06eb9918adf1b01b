// Fitting and painting of a status panel; see status_panel.h.
// SPDX-License-Identifier: MIT
#include "controls/status_bar/status_panel.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include "controls/theme/accessible_button.h"
#include "controls/theme/paint.h"
#include "controls/theme/theme.h"

namespace kelu {

namespace {

constexpr int kPad = 8;            // beside the text
constexpr int kLeastStretch = 80;  // percent; what needs more is cut

}  // namespace

StatusPanel::StatusPanel(QWidget* parent) : QAbstractButton(parent) {
    UseAccessibleButton<StatusPanel>();
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
}

void StatusPanel::SetText(const QString& text) {
    if (whole_ == text) return;
    whole_ = text;
    setAccessibleName(text.trimmed());
    Fit();
    update();
}

void StatusPanel::SetClickable(bool clickable) {
    clickable_ = clickable;
    setFocusPolicy(clickable ? Qt::TabFocus : Qt::NoFocus);
    setCursor(clickable ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void StatusPanel::Fit() {
    const int room = width() - 2 * kPad;
    letters_ = theme::Narrowed(font(), whole_, room, kLeastStretch);
    shown_ = QFontMetrics(letters_).elidedText(whole_, Qt::ElideMiddle, room);
    setToolTip(shown_ == whole_ ? QString() : whole_);
}

void StatusPanel::resizeEvent(QResizeEvent*) { Fit(); }

void StatusPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void StatusPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(letters_);
    painter.setPen(clickable_ && underMouse() ? theme::kText : theme::kQuietText);
    const auto begin = QStyle::visualAlignment(layoutDirection(), Qt::AlignVCenter | Qt::AlignLeft);
    painter.drawText(rect().adjusted(kPad, 0, -kPad, 0), int(begin) | Qt::TextSingleLine, shown_);
    if (theme::ShowsFocus(*this)) theme::DrawFocusRing(painter, rect().adjusted(1, 4, -1, -4), theme::kFocus);
}

}  // namespace kelu
