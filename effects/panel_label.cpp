// Look and fitting of the panel's labels.
// SPDX-License-Identifier: MIT
#include "effects/panel_label.h"

#include <QFontMetrics>
#include <QMouseEvent>

#include "controls/theme/theme.h"
#include "effects/catalogue/catalogue.h"

namespace kelu {

PanelLabel::PanelLabel(QWidget* parent) : QLabel(parent) {
    setFont(theme::LabelFont());
    setTextFormat(Qt::PlainText);
    // Boxes of one line are as low as the letters: in the middle nothing of them is cut off.
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, theme::kQuietText);
    setPalette(colors);
}

void PanelLabel::SetCaption(const QString& caption) {
    setText(ShownCaption(caption).remove(QLatin1Char('\r')));
    Fit();
}

void PanelLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    Fit();
}

void PanelLabel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Q_EMIT Pressed();
}

void PanelLabel::Fit() {
    QFont plain = theme::LabelFont();
    const int needed = QFontMetrics(plain).horizontalAdvance(text());
    if (!wordWrap() && needed > width() && width() > 0) plain.setStretch(qMax(50, 100 * width() / (needed + 1)));
    if (plain != font()) setFont(plain);
}

}  // namespace kelu
