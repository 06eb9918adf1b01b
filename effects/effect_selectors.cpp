// From a row or a button to the number of an effect.
// SPDX-License-Identifier: MIT
#include "effects/effect_selectors.h"

#include "controls/list_ex/list_ex.h"
#include "controls/pager/pager.h"
#include "controls/tool_button/tool_button.h"
#include "controls/toolbox/toolbox.h"
#include "effects/catalogue/catalogue.h"
#include "effects/effect_overview.h"
#include "effects/effect_pictures.h"

namespace kelu {
namespace {

QString ButtonKey(int number) { return QStringLiteral("keySFX%1").arg(number); }

}  // namespace

EffectSelectors::EffectSelectors(SharedState& state, QWidget* parent)
    : QObject(parent),
      cmdAllEffects(new ToolButton(QStringLiteral("grid"), parent)),
      lstSFX(new ListEx(parent)),
      pagerTB1(new Pager(Qt::Vertical, parent)),
      TBSFX(new Toolbox),
      overview(new EffectOverview(parent)),
      state_(state) {
    lstSFX->setObjectName(QStringLiteral("lstSFX"));
    lstSFX->setAccessibleName(tr("Effects"));
    pagerTB1->setObjectName(QStringLiteral("pagerTB1"));
    TBSFX->setObjectName(QStringLiteral("TBSFX"));
    TBSFX->setAccessibleName(tr("Effects"));
    cmdAllEffects->setObjectName(QStringLiteral("cmdAllEffects"));
    cmdAllEffects->SetCaption(tr("All effects"));
    cmdAllEffects->SetTip(tr("All effects"));
    cmdAllEffects->SetKey(KeyText(KeyOf(Command::AllEffects)));
    lstSFX->hide();
    pagerTB1->hide();
    cmdAllEffects->hide();

    TBSFX->SetColumns(1);
    TBSFX->SetButtonSize(kEffectPictureSize);
    for (const Effect& effect : Catalogue()) TBSFX->AddButton(ButtonKey(effect.number));
    pagerTB1->SetChild(TBSFX);
    pagerTB1->SetStep(kEffectPictureSize.height() + 1);
    pagerTB1->resize(TBSFX->sizeHint().width(), pagerTB1->height());

    connect(lstSFX, &ListEx::SelectionChanged, this, &EffectSelectors::ListSelected);
    connect(TBSFX, &Toolbox::ButtonClicked, this, [this](int, const QString& key) { ToolbarClicked(key); });
    connect(cmdAllEffects, &ToolButton::clicked, this, &EffectSelectors::ShowAll);
    connect(overview, &EffectOverview::Pressed, this, &EffectSelectors::OverviewPressed);
}

void EffectSelectors::SetUpSFXList() {
    lstSFX->Clear();
    for (const Effect& effect : Catalogue()) lstSFX->AddItem(effect.ListText(), effect.number - 1);
    lstSFX->SetListIndex(0);
}

void EffectSelectors::LoadTips() {
    for (const Effect& effect : Catalogue()) TBSFX->SetTip(effect.number, effect.ButtonTip());
    overview->LoadTips();
}

void EffectSelectors::ShowPicture(int number, const QImage& picture) {
    TBSFX->SetPictures(number, QPixmap::fromImage(picture));
    overview->ShowPicture(number, picture);
}

void EffectSelectors::ShowAll() { overview->Open(marked_); }

void EffectSelectors::SetObstacle(const QString& obstacle) {
    lstSFX->SetObstacle(obstacle);
    TBSFX->SetObstacle(obstacle);
    overview->SetObstacle(obstacle);
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

void EffectSelectors::OverviewPressed(int number) {
    if (Refused()) return overview->SetCurrent(marked_);
    overview->hide();
    marked_ = number;
    TBSFX->SetCurrent(number);
    pagerTB1->EnsureVisible(TBSFX->Button(number)->geometry());
    Q_EMIT EffectChosen(number);
}

}  // namespace kelu
