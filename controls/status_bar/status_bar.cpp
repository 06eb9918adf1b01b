// Panels of the status bar; see status_bar.h.
// SPDX-License-Identifier: MIT
#include "controls/status_bar/status_bar.h"

#include <QPainter>
#include <QStyle>

#include "controls/status_bar/status_panel.h"
#include "controls/theme/theme.h"

namespace kelu {

StatusBar::StatusBar(QWidget* parent) : QWidget(parent) {}

void StatusBar::SetPanelWidths(std::initializer_list<int> widths) {
    qDeleteAll(panels_);
    panels_.clear();
    widths_.assign(widths);
    for (std::size_t i = 0; i < widths_.size(); ++i) {
        auto* panel = new StatusPanel(this);
        connect(panel, &QAbstractButton::clicked, this, [this, i] { Q_EMIT PanelClicked(static_cast<int>(i) + 1); });
        panels_.push_back(panel);
        panel->show();
    }
    Arrange();
}

void StatusBar::SetPanelText(int number, const QString& text) {
    if (number >= 1 && number <= PanelCount()) panels_[static_cast<std::size_t>(number - 1)]->SetText(text);
}

QString StatusBar::PanelText(int number) const {
    return number >= 1 && number <= PanelCount() ? panels_[static_cast<std::size_t>(number - 1)]->Text() : QString();
}

void StatusBar::SetPanelClickable(int number, bool clickable) {
    if (number >= 1 && number <= PanelCount()) panels_[static_cast<std::size_t>(number - 1)]->SetClickable(clickable);
}

QSize StatusBar::sizeHint() const {
    int width = 20;
    for (const int each : widths_) width += each;
    return {width, 33};
}

void StatusBar::Arrange() {
    int left = 0;
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i]->setGeometry(
            QStyle::visualRect(layoutDirection(), rect(), QRect(left, 1, widths_[i], height() - 1)));
        left += widths_[i];
    }
}

void StatusBar::resizeEvent(QResizeEvent*) { Arrange(); }

void StatusBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::kGround);
    painter.fillRect(QRect(0, 0, width(), 1), theme::kLine);
}

}  // namespace kelu
