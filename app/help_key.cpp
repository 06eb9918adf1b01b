// SPDX-License-Identifier: MIT
#include "app/help_key.h"

#include <QCoreApplication>
#include <QDialog>
#include <QKeyEvent>

namespace kelu {
namespace {

/// The page that tells of a dialog.
QString PageOf(const QObject& dialog) {
    static constexpr struct {
        const char* kind;
        const char* page;
    } kPages[] = {{"kelu::frmBrowse", "keys.html#open"},
                  {"kelu::frmOptions", "settings.html"},
                  {"kelu::frmEmail", "settings.html"},
                  {"kelu::FilmDialog", "keys.html#save"},
                  {"QFileDialog", "keys.html#save"}};
    for (const auto& [kind, page] : kPages)
        if (dialog.inherits(kind)) return QLatin1String(page);
    return QStringLiteral("keys.html");
}

}  // namespace

HelpKey::HelpKey(std::function<void(const QString&)> show) : show_(std::move(show)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1) return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    const auto* dialog = widget ? qobject_cast<QDialog*>(widget->window()) : nullptr;
    if (!dialog) return false;
    if (!static_cast<QKeyEvent*>(event)->isAutoRepeat()) show_(PageOf(*dialog));
    return true;
}

}  // namespace kelu
