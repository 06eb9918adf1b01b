// Look and fitting of the panel's labels.
// SPDX-License-Identifier: MIT
#include "effects/panel_label.h"

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
    const QFont fitting = wordWrap() ? theme::LabelFont() : theme::Narrowed(theme::LabelFont(), text(), width());
    if (fitting != font()) setFont(fitting);
}

}  // namespace kelu
