// SPDX-License-Identifier: MIT
#include "effects/effect_overview.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>

#include "controls/pager/pager.h"
#include "controls/theme/theme.h"
#include "controls/toolbox/toolbox.h"
#include "effects/catalogue/catalogue.h"
#include "effects/effect_pictures.h"

namespace kelu {
namespace {

// Eight in a row make a grid of the proportions of a screen.
constexpr int kColumns = 8;
constexpr int kRim = theme::kSpacing;  // device-independent pixels
constexpr int kGap = 4;

}  // namespace

EffectOverview::EffectOverview(QWidget* parent)
    : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint), pager_(new Pager(Qt::Vertical, this)), grid_(new Toolbox) {
    setObjectName(QStringLiteral("overview"));
    setWindowTitle(tr("All effects"));
    grid_->setAccessibleName(tr("Effects"));
    grid_->SetButtonSize(kEffectPictureSize);
    grid_->SetGap(kGap);
    for (const Effect& effect : Catalogue()) grid_->AddButton(QString::number(effect.number));
    pager_->SetChild(grid_);
    pager_->SetStep(kEffectPictureSize.height() + kGap);
    connect(grid_, &Toolbox::ButtonClicked, this, &EffectOverview::Pressed);
}

void EffectOverview::ShowPicture(int number, const QImage& picture) {
    grid_->SetPictures(number, QPixmap::fromImage(picture));
}

void EffectOverview::LoadTips() {
    for (const Effect& effect : Catalogue()) grid_->SetTip(effect.number, effect.ButtonTip());
}

void EffectOverview::SetObstacle(const QString& obstacle) { grid_->SetObstacle(obstacle); }

void EffectOverview::SetCurrent(int number) { grid_->SetCurrent(number); }

void EffectOverview::Open(int number) {
    const QRect room = parentWidget()->screen()->availableGeometry();
    const int across = (room.width() - 2 * kRim + kGap) / (kEffectPictureSize.width() + kGap);
    grid_->SetColumns(std::clamp(across, 1, kColumns));
    const QSize size = (grid_->sizeHint() + QSize(2 * kRim, 2 * kRim)).boundedTo(room.size());
    const QPoint middle = parentWidget()->mapToGlobal(parentWidget()->rect().center());
    QRect place(middle - QPoint(size.width() / 2, size.height() / 2), size);
    place.moveLeft(std::clamp(place.left(), room.left(), room.right() + 1 - size.width()));
    place.moveTop(std::clamp(place.top(), room.top(), room.bottom() + 1 - size.height()));
    setGeometry(place);
    pager_->setGeometry(rect().adjusted(kRim, kRim, -kRim, -kRim));
    grid_->SetCurrent(number);
    show();
    grid_->Button(std::max(number, 1))->setFocus(Qt::OtherFocusReason);
}

void EffectOverview::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        hide();
    else
        QWidget::keyPressEvent(event);
}

void EffectOverview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::kGround);
    painter.setPen(theme::kOutlinePopup);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace kelu
