// SPDX-License-Identifier: MIT
#include "app/pointed_keys.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include "controls/list_ex/list_ex.h"
#include "controls/pager/pager.h"
#include "controls/theme/paint.h"
#include "controls/toolbox/toolbox.h"
#include "effects/effect_panel.h"
#include "effects/effect_selectors.h"

namespace kelu {

PointedKeys::PointedKeys(QWidget& window, EffectSelectors& selectors, EffectPanel& panel)
    : QObject(&window), window_(window), selectors_(selectors), panel_(panel) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool PointedKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const auto* focused = qobject_cast<QWidget*>(watched);
    if (!focused || !focused->hasFocus() || focused->window() != &window_ || theme::ShowsFocus(*focused)) return false;
    if (panel_.isAncestorOf(focused)) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
    const bool overList = selectors_.lstSFX->underMouse();
    const bool overChooser = overList || selectors_.pagerTB1->underMouse();
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        if (!overChooser && !panel_.underMouse()) return false;
        QCoreApplication::sendEvent(&panel_, event);
        return true;
    }
    const bool finds = key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown ||
                       (!key.text().isEmpty() && key.text().front().isLetterOrNumber());
    if (!overChooser || !finds) return false;
    if (!overList) return selectors_.TBSFX->TakeKey(key);
    // From here on it hears them by itself.
    if (focused == selectors_.lstSFX) return false;
    selectors_.lstSFX->setFocus();
    return QCoreApplication::sendEvent(selectors_.lstSFX, event);
}

}  // namespace kelu
