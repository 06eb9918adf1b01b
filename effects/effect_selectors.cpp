// From a row or a button's key to the number of an effect.
// SPDX-License-Identifier: MIT
#include "effects/effect_selectors.h"

#include "controls/list_ex/list_ex.h"
#include "controls/pager/pager.h"
#include "controls/toolbox/toolbox.h"
#include "effects/catalogue/catalogue.h"
#include "effects/effect_pictures.h"

namespace kelu {
namespace {

QString ButtonKey(int number) { return QStringLiteral("keySFX%1").arg(number); }

}  // namespace

EffectSelectors::EffectSelectors(SharedState& state, QWidget* parent)
    : QObject(parent),
      lstSFX(new ListEx(parent)),
      pagerTB1(new Pager(Qt::Vertical, parent)),
      TBSFX(new Toolbox),
      state_(state) {
    lstSFX->setObjectName(QStringLiteral("lstSFX"));
    lstSFX->setAccessibleName(tr("Effects"));
    pagerTB1->setObjectName(QStringLiteral("pagerTB1"));
    TBSFX->setObjectName(QStringLiteral("TBSFX"));
    TBSFX->setAccessibleName(tr("Effects"));
    lstSFX->hide();
    pagerTB1->hide();

    TBSFX->SetColumns(1);
    TBSFX->SetButtonSize(kEffectPictureSize);
    for (const Effect& effect : Catalogue()) TBSFX->AddButton(ButtonKey(effect.number));
    pagerTB1->SetChild(TBSFX);
    pagerTB1->SetStep(kEffectPictureSize.height() + 1);
    pagerTB1->resize(TBSFX->sizeHint().width(), pagerTB1->height());

    connect(lstSFX, &ListEx::SelectionChanged, this, &EffectSelectors::ListSelected);
    connect(TBSFX, &Toolbox::ButtonClicked, this, [this](int, const QString& key) { ToolbarClicked(key); });
}

void EffectSelectors::SetUpSFXList() {
    lstSFX->Clear();
    for (const Effect& effect : Catalogue()) lstSFX->AddItem(effect.ListText(), effect.number - 1);
    lstSFX->SetListIndex(0);
}

void EffectSelectors::LoadTips() {
    for (const Effect& effect : Catalogue()) TBSFX->SetTip(effect.number, effect.ButtonTip());
}

void EffectSelectors::ShowPicture(int number, const QImage& picture) {
    TBSFX->SetPictures(number, QPixmap::fromImage(picture));
}

void EffectSelectors::SetObstacle(const QString& obstacle) {
    lstSFX->SetObstacle(obstacle);
    TBSFX->SetObstacle(obstacle);
}

void EffectSelectors::ListSelected() {
    if (Refused()) return UnmarkRefusedRow();
    listed_ = lstSFX->ListIndex();
    if (const Effect* effect = FindEffect(lstSFX->ListIndex() + 1)) Q_EMIT EffectChosen(effect->number);
}

// When the event is over: the list still has the click to mark.
void EffectSelectors::UnmarkRefusedRow() {
    if (lstSFX->ListIndex() == listed_) return;
    const auto unmark = [this] {
        const QSignalBlocker silent(lstSFX);
        lstSFX->SetListIndex(listed_);
    };
    QMetaObject::invokeMethod(lstSFX, unmark, Qt::QueuedConnection);
}

void EffectSelectors::ToolbarClicked(const QString& key) {
    if (Refused()) return TBSFX->SetCurrent(marked_);  // a click without effect leaves no mark
    marked_ = TBSFX->Current();
    for (const Effect& effect : Catalogue())
        if (key == ButtonKey(effect.number)) return Q_EMIT EffectChosen(effect.number);
}

}  // namespace kelu
